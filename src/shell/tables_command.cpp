#include "shell/commands.h"
#include "shell/hidden_tables.h"
#include "shell/platform/console_text.h"

#include <unordered_set>

namespace veldrane {
namespace {

bool IsSystemObject(const CatalogTable& table)
{
    return table.Type.starts_with("SYSTEM ") || table.Type == "ACCESS TABLE";
}

// Each name once, for overloaded procedures share theirs. A data source that knows no procedures has none to list.
std::vector<std::string> Procedures(Catalog& catalog)
{
    try {
        std::vector<std::string> names = catalog.Procedures();
        std::unordered_set<std::string> listed;
        std::erase_if(names, [&](const std::string& name) { return !listed.insert(name).second; });
        return names;
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
        application.Progress.Stage(0, "Reading the catalog");
        for (const CatalogTable& table : catalog->Tables())
            if (!IsSystemObject(table))
                application.Output << table.Type << '\t' << ConsoleLine(table.Name) << '\n';
        TellHiddenTables(*catalog, application.ErrorOutput);
        for (const std::string& procedure : Procedures(*catalog))
            application.Output << "PROCEDURE\t" << ConsoleLine(procedure) << '\n';
    });
    return listed ? exit_code::kDone : exit_code::kFailed;
}

} // namespace veldrane
