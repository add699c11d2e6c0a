#include "catalog_rows.h"

#include <gtest/gtest.h>

namespace veldrane {

std::vector<std::string> AwkwardNames(const std::vector<std::string>& more)
{
    std::vector<std::string> names{
        "Order Details", "2004Sales", "Größe",    "Ελλάς",   "表",        "select",
        "a]b",           "a[b]",      "it's",     "qu\"ote", "a;b--c",    "a`b",
        "a_b",           "aXb",       "per%cent", "a.b",     "WHERE 1=0", "x'; DROP TABLE a_b; --"};
    names.insert(names.end(), more.begin(), more.end());
    return names;
}

std::string Statement(const std::string& table)
{
    return "SELECT * FROM [" + table + "] WHERE 1=0";
}

std::vector<std::string> FieldNames(Catalog& catalog, const std::string& statement)
{
    std::vector<std::string> names;
    for (const CatalogField& field : catalog.Fields(statement))
        names.push_back(field.Name);
    return names;
}

std::vector<std::string> TableRows(Catalog& catalog)
{
    std::vector<std::string> rows;
    for (const CatalogTable& table : catalog.Tables())
        rows.push_back(table.Name + "|" + table.Type);
    return rows;
}

std::vector<std::string> KeyRows(Catalog& catalog, const std::string& table)
{
    std::vector<std::string> rows;
    for (const CatalogKey& key : catalog.Keys(table)) {
        std::string row = key.Name + ": " + key.RelatedTable;
        for (const CatalogKeyColumn& column : key.Columns)
            row += " " + column.Name + "=" + column.RelatedColumn;
        EXPECT_EQ(key.Type, catalog_key_type::kForeign);
        rows.push_back(row);
    }
    return rows;
}

CatalogIndex PrimaryKey(Catalog& catalog, const std::string& table)
{
    for (CatalogIndex& index : catalog.Indexes(table))
        if (index.PrimaryKey)
            return index;
    return {};
}

std::vector<std::string> AutoIncrementFields(Catalog& catalog, const std::string& table)
{
    std::vector<std::string> names;
    for (const CatalogField& field : catalog.Fields(Statement(table)))
        if (field.IsAutoIncrement)
            names.push_back(field.Name);
    return names;
}

long NumberOfFailure(const std::function<void()>& action)
{
    try {
        action();
        return 0;
    } catch (const DataSourceError& error) {
        return error.Number;
    }
}

} // namespace veldrane
