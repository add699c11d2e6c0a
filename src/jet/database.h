#pragma once

#include <string>
#include <string_view>
#include <vector>

// What is told of a file, as plain data. Types and attributes are those of ADO.
namespace veldrane::jet {

struct Column
{
    std::string Name;
    int AdoType = 0;
    int DefinedSize = 0; // characters of text, bytes of anything else
    int Attributes = 0;
    bool AutoNumber = false;
};

struct Index
{
    std::string Name;
    bool Primary = false;
    bool Unique = false;
    std::vector<std::string> Columns; // in the order of the key
};

struct Table
{
    std::string Name;
    std::string_view Type; // a word with static storage
    std::vector<Column> Columns;
    std::vector<Index> Indexes;
};

enum class QueryKind
{
    View,      // opens without arguments and gives rows
    Procedure, // anything else
};

struct Query
{
    std::string Name;
    QueryKind Kind = QueryKind::View;
    std::vector<Column> Columns; // none where they can't be told without running it
};

struct RelationshipColumn
{
    std::string Column;
    std::string RelatedColumn;
};

struct Relationship
{
    std::string Name;
    std::string Table; // the one whose rows refer to the other's
    std::string RelatedTable;
    std::vector<RelationshipColumn> Columns;
};

struct Database
{
    std::vector<Table> Tables;
    std::vector<Query> Queries;
    std::vector<Relationship> Relationships;
};

} // namespace veldrane::jet
