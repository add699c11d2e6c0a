#pragma once

#include "datasource/catalog.h"

#include <string>
#include <vector>

// What a Jet file holds, as its reader tells it.
namespace veldrane {

struct JetTable
{
    std::string Name;
    std::string Type; // kPlainTable or its like, of answer_format.h
    std::vector<CatalogField> Columns;
    std::vector<CatalogIndex> Indexes;
};

enum class JetQueryKind
{
    View,
    Procedure,
};

struct JetQuery
{
    std::string Name;
    JetQueryKind Kind = JetQueryKind::View;
    std::vector<CatalogField> Columns; // none for a view whose columns can't be told without running it
};

struct JetRelationship
{
    std::string Table; // that of the foreign key
    CatalogKey Key;
};

struct JetDatabase
{
    std::vector<JetTable> Tables; // in the file's order, like the others
    std::vector<JetQuery> Queries;
    std::vector<JetRelationship> Relationships;
};

} // namespace veldrane
