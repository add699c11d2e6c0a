#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane::bench {

// A type of column, as a definition says it in each dialect of SQL and as the catalog of SQLite tells it.
struct ColumnType
{
    std::string_view InSqlite;
    std::string_view InPostgreSql;
    std::string_view InMariaDb;
    std::int32_t AdoType = 0;
    std::int32_t DefinedSize = 0; // characters for text, bytes otherwise
};

struct SchemaColumn
{
    std::string Name;
    const ColumnType* Type = nullptr;
    bool Nullable = false;
    std::string_view Default{}; // "" for none
};

struct SchemaForeignKey
{
    std::vector<std::string> Columns;
    std::string RelatedTable;
    std::vector<std::string> RelatedColumns;
};

struct SchemaTable
{
    std::string Name;
    std::vector<SchemaColumn> Columns;
    std::vector<std::string> PrimaryKey;
    std::vector<SchemaForeignKey> ForeignKeys;

    // Whether the database numbers the rows by itself, in the one column of the primary key.
    [[nodiscard]] bool IsNumbered() const { return PrimaryKey.size() == 1; }
};

// Tables in the shape of a business database, the same on every machine: 12 columns each, every tenth table with a
// primary key of two columns, one or two foreign keys to tables before it, names in snake case, in camel case and with
// blanks, turn about.
[[nodiscard]] std::vector<SchemaTable> MakeSchema(std::size_t tables);

// One table that is nothing but its columns: for what has to stay linear in them.
[[nodiscard]] SchemaTable MakeWideTable(std::size_t columns);

} // namespace veldrane::bench
