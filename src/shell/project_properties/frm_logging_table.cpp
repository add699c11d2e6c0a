#include "shell/project_properties/frm_logging_table.h"

#include "datasource/connection_string.h"
#include "datasource/naming.h"
#include "datasource/providers.h"
#include "shell/project_properties/logging_table_script.h"

#include <memory>
#include <utility>

namespace veldrane {
namespace {

constexpr const char* kForm = "frmLoggingTable";
constexpr const char* kRoutine = "Create Logging Table";

void Run(DataSourceConnection& connection, const std::string& script)
{
    for (const std::string& batch : Batches(script))
        connection.Execute(batch);
}

} // namespace

frmLoggingTable::frmLoggingTable(LoggingTarget target, const LoggingTablePorts& ports)
    : target_(std::move(target)), ports_(ports), script_(LoggingTableScript(target_.TableName))
{}

std::string frmLoggingTable::WhyNot() const
{
    if (target_.ConnectionString.empty())
        return "There is no database connection to create the table with. Please save the script instead.";
    try {
        if (NamesProvider(ConnectionString(target_.ConnectionString).Value("Provider"), kSqlServerProvider))
            return {};
    } catch (const DataSourceError& error) {
        return error.Description();
    }
    return "The script is written for SQL Server, which the database connection does not name as its provider "
           "(PROVIDER=SQLOLEDB). Please save the script instead.";
}

bool frmLoggingTable::cmdCreate_Click()
{
    const bool created = Guarded(ports_.Errors,
                                 {.ModuleName = kForm,
                                  .RoutineName = kRoutine,
                                  .Hint = "The table may be there in part. Please look at the database before you "
                                          "create it again."},
                                 [this] {
                                     const std::unique_ptr<DataSourceConnection> connection =
                                         ports_.Connect(target_.ConnectionString, StringOrigin::ProjectFile);
                                     Run(*connection, script_);
                                 });
    if (created)
        ports_.Messages.Tell("Transaction Logging Table Created",
                             "Database table created successfully. Logging is now fully enabled for this COM object. ",
                             MessageIcon::Information);
    return created;
}

bool frmLoggingTable::cmdSave_Click()
{
    const auto path = ports_.Dialogs.AskForFileToSave({.Title = "Save SQL Script",
                                                       .Filter = "SQL Scripts|*.sql|All Files|*.*",
                                                       .DefaultName = target_.TableName + ".sql",
                                                       .DefaultExtension = "sql"});
    if (!path)
        return false;
    const bool saved = Guarded(ports_.Errors, kForm, "cmdSave_Click", [&] {
        ports_.Files.Write(*path, ports_.CodePage.EncodeInPlace(std::string(script_)).Bytes);
    });
    if (saved)
        ports_.Messages.Tell("Transaction Logging Table", "SQL Script has been saved.", MessageIcon::Information);
    return saved;
}

} // namespace veldrane
