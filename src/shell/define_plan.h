#pragma once

#include "datasource/catalog.h"

#include <functional>
#include <string>
#include <vector>

namespace veldrane {

// What is asked of `define`, table by table.
struct DefineRequest
{
    std::vector<std::string> Tables;  // NAME or NAME=PARENT
    std::vector<std::string> Lookups; // NAME
    bool All = false;
};

enum class PlannedPlace
{
    Root,
    Child,
    Lookup,
};

// A class to be made, and where.
struct PlannedClass
{
    std::string TableName;
    bool IsView = false;
    PlannedPlace Place = PlannedPlace::Root;
    std::string Parent; // of a child: the name of a table of the plan, or a name that must be a class of the project
};

struct DefinePlan
{
    std::vector<PlannedClass> Classes; // parents before their children, otherwise in the catalog's order
    std::vector<std::string> Unknown;  // names that the data source does not know
};

// The names of the tables that a table's foreign keys refer to.
using RelatedTables = std::function<std::vector<std::string>(const std::string& table)>;

// Decides which tables become classes and where they stand. A table that was asked for by name stands where that says.
// Of the others, a table whose foreign keys reach exactly one other table of the plan becomes its child; it itself,
// views and lookup tables do not count, because none of them takes children. Where that makes a circle, the table that
// comes first in the catalog's order becomes a root.
[[nodiscard]] DefinePlan PlanDefinition(const std::vector<CatalogTable>& tables, const DefineRequest& request,
                                        const RelatedTables& relatedTables);

} // namespace veldrane
