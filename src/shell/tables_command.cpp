#include "shell/commands.h"
#include "shell/platform/console_text.h"

namespace veldrane {
namespace {

bool IsSystemObject(const CatalogTable& table)
{
    return table.Type.starts_with("SYSTEM ") || table.Type == "ACCESS TABLE";
}

// A data source that knows no procedures has none to list.
std::vector<std::string> Procedures(Catalog& catalog)
{
    try {
        return catalog.Procedures();
    } catch (const DataSourceError& error) {
        if (error.Number != data_source_error::kNotSupported)
            throw;
    }
    return {};
}

} // namespace

int RunTables(const Application& application, const TablesCommand& command)
{
    const bool listed = Guarded(application.Errors, "Veldrane", "tables", [&] {
        const auto connection = application.Connect(command.Connection, StringOrigin::CommandLine);
        const auto catalog = connection->OpenCatalog();
        for (const CatalogTable& table : catalog->Tables())
            if (!IsSystemObject(table))
                application.Output << table.Type << '\t' << ConsoleLine(table.Name) << '\n';
        for (const std::string& procedure : Procedures(*catalog))
            application.Output << "PROCEDURE\t" << ConsoleLine(procedure) << '\n';
    });
    return listed ? exit_code::kDone : exit_code::kFailed;
}

} // namespace veldrane
