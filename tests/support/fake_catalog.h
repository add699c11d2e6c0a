#pragma once

#include "datasource/ado_types.h"
#include "datasource/catalog.h"
#include "ports/reading_watch.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace veldrane::testing {

struct FakeTable
{
    std::vector<CatalogField> Fields; // its columns too
    std::vector<CatalogIndex> Indexes;
    std::vector<CatalogKey> Keys;
};

// A catalog whose answers are data. Keeps the calls as "Columns Orders"; a call named in `Failures` throws a
// DataSourceError of that number. A table that it does not have is unknown to it.
class FakeCatalog : public Catalog
{
  public:
    FakeTable& Add(const std::string& name, const std::string& type = "TABLE")
    {
        Listed.push_back({.Name = name, .Type = type});
        return Content[name];
    }

    const std::vector<CatalogTable>& Tables() override
    {
        Record("Tables", "");
        return Listed;
    }

    std::vector<CatalogField> Fields(const std::string& statement) override
    {
        Record("Fields", statement);
        constexpr std::string_view kBefore = "SELECT * FROM ";
        constexpr std::string_view kAfter = " WHERE 1=0";
        std::string name = statement.substr(kBefore.size(), statement.size() - kBefore.size() - kAfter.size());
        if (name.starts_with('['))
            name = name.substr(1, name.size() - 2);
        return Table(name).Fields;
    }

    std::vector<CatalogColumn> Columns(const std::string& table) override
    {
        Record("Columns", table);
        std::vector<CatalogColumn> columns;
        for (const CatalogField& field : Table(table).Fields)
            columns.push_back({.Name = field.Name, .Type = field.Type});
        return columns;
    }

    std::vector<CatalogIndex> Indexes(const std::string& table) override
    {
        Record("Indexes", table);
        return Table(table).Indexes;
    }

    std::vector<CatalogKey> Keys(const std::string& table) override
    {
        Record("Keys", table);
        return Table(table).Keys;
    }

    std::vector<std::string> Procedures() override
    {
        Record("Procedures", "");
        return ProcedureNames;
    }

    std::vector<std::string> HiddenTables() override
    {
        Record("HiddenTables", "");
        return Hidden;
    }

    std::vector<CatalogParameter> ProcedureParameters() override
    {
        Record("ProcedureParameters", "");
        return Parameters;
    }

    std::vector<CatalogTable> Listed;
    std::vector<std::string> Hidden;
    std::vector<CatalogParameter> Parameters;
    std::map<std::string, FakeTable> Content;
    std::vector<std::string> ProcedureNames;
    std::map<std::string, long> Failures; // error number by the name of the call
    std::string CancelledCall;            // in which the person cancels the reading; "" for none
    std::function<void(const std::string& call)> Answering = [](const std::string& /*call*/) {};
    std::vector<std::string> Calls;

  private:
    void Record(const std::string& call, const std::string& argument)
    {
        Calls.push_back(argument.empty() ? call : call + " " + argument);
        Answering(call);
        if (call == CancelledCall)
            throw ReadingCancelled();
        if (const auto failure = Failures.find(call); failure != Failures.end())
            throw DataSourceError(failure->second, "FakeCatalog", call + " fails");
    }

    const FakeTable& Table(const std::string& name) const
    {
        const auto found = Content.find(name);
        if (found == Content.end())
            throw DataSourceError(data_source_error::kTableUnknown, "FakeCatalog", "no such table: " + name);
        return found->second;
    }
};

// Fields as the tests write them.
inline CatalogField Field(const std::string& name, std::int32_t type, std::int32_t size = 0)
{
    return {.Name = name, .Type = type, .DefinedSize = size};
}

inline CatalogField NullableField(const std::string& name, std::int32_t type, std::int32_t size = 0)
{
    return {.Name = name, .Type = type, .DefinedSize = size, .Attributes = field_attribute::kIsNullable};
}

inline CatalogField IdentityField(const std::string& name)
{
    return {.Name = name, .Type = adInteger, .DefinedSize = 4, .IsAutoIncrement = true};
}

inline CatalogIndex PrimaryIndex(std::vector<std::string> columns, const std::string& name = "PK")
{
    return {.Name = name, .PrimaryKey = true, .Unique = true, .Columns = std::move(columns)};
}

inline CatalogKey ForeignKey(const std::string& name, const std::string& relatedTable,
                             std::vector<CatalogKeyColumn> columns)
{
    return {.Name = name, .RelatedTable = relatedTable, .Columns = std::move(columns)};
}

} // namespace veldrane::testing
