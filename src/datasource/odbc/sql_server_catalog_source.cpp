#include "datasource/odbc/sql_server_catalog_source.h"

#include "datasource/odbc/field_types.h"
#include "text/case_folding.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace veldrane {
namespace {

constexpr std::string_view kSchemaOfAll = "dbo";

bool IsOfServer(const OdbcName& schema)
{
    constexpr std::array<std::string_view, 2> kSchemas{"sys", "INFORMATION_SCHEMA"};
    return schema && std::any_of(kSchemas.begin(), kSchemas.end(),
                                 [&](std::string_view own) { return text::EqualFolded(own, *schema); });
}

// Procedures that differ in their numbers alone are one object of their schema.
std::string WithoutNumber(const std::string& procedure)
{
    return procedure.substr(0, procedure.rfind(';'));
}

std::string AskForSchema(const OdbcSession& session)
{
    std::string schema;
    try {
        OdbcStatement statement(session);
        statement.Execute("SELECT SCHEMA_NAME()");
        while (statement.Fetch()) // to the end: the driver looks for that without a limit
            schema = statement.Text(1).value_or("");
    } catch (const DataSourceError& error) {
        if (error.Number == data_source_error::kNoOpenConnection)
            throw;
        session.ForgetErrors();
    }
    return schema.empty() ? std::string(kSchemaOfAll) : schema;
}

} // namespace

SqlServerCatalogSource::SqlServerCatalogSource(const OdbcSession& session)
    : DriverCatalogSource(session), schema_(AskForSchema(session))
{}

std::set<TableId> SqlServerCatalogSource::BareTablesAmong(const std::vector<SourceTable>& tables) const
{
    std::set<TableId> bare;
    for (const SourceTable& table : tables)
        if (table.Schema == schema_)
            bare.insert(IdOf(table));
    for (const SourceTable& table : tables)
        if (table.Schema == kSchemaOfAll && !bare.contains({schema_, table.Name}))
            bare.insert(IdOf(table));
    return bare;
}

std::vector<SourceTable> SqlServerCatalogSource::Tables()
{
    std::vector<SourceTable> tables = DriverCatalogSource::Tables();
    for (SourceTable& table : tables)
        if (IsOfServer(table.Schema) && !table.Shown.Type.starts_with("SYSTEM "))
            table.Shown.Type.insert(0, "SYSTEM ");
    return tables;
}

CatalogField SqlServerCatalogSource::FieldOf(const OdbcColumn& column)
{
    return SqlServerFieldOf(column);
}

std::vector<DriverProcedure> SqlServerCatalogSource::ListProcedures() const
{
    std::vector<DriverProcedure> procedures = ReadDriverProcedures(Session(), CurrentCatalog(), std::nullopt);
    std::erase_if(procedures, [](const DriverProcedure& procedure) { return IsOfServer(procedure.Schema); });
    std::set<std::string> own;
    for (const DriverProcedure& procedure : procedures)
        if (procedure.Schema == schema_)
            own.insert(WithoutNumber(procedure.Name));
    for (DriverProcedure& procedure : procedures)
        if (procedure.Schema && procedure.Schema != schema_ &&
            (procedure.Schema != kSchemaOfAll || own.contains(WithoutNumber(procedure.Name))))
            procedure.Shown = *procedure.Schema + "." + procedure.Name;
    return procedures;
}

} // namespace veldrane
