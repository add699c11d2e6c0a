#pragma once

#include "datasource/open_data_source.h"
#include "ports/error_report.h"
#include "ports/file_dialogs.h"
#include "ports/file_system.h"
#include "ports/messages.h"
#include "text/code_page.h"

#include <string>

namespace veldrane {

// Where the table of logged transactions is to be made.
struct LoggingTarget
{
    std::string TableName;        // a valid name
    std::string ConnectionString; // of the log's database; may be empty
};

// What the dialog of the logging table works with. All must outlive it.
struct LoggingTablePorts
{
    const OpenDataSource& Connect;
    veldrane::FileSystem& Files;
    FileDialogs& Dialogs;
    veldrane::Messages& Messages;
    ErrorReport& Errors;
    const text::CodePage& CodePage; // of the script's file
};

// The dialog that makes the table in which a component logs the transactions of generated objects: at once in the log's
// database, or as a script for whoever may change that.
class frmLoggingTable
{
  public:
    frmLoggingTable(LoggingTarget target, const LoggingTablePorts& ports);

    [[nodiscard]] const std::string& txtScript() const { return script_; }

    // Whether the script can be run here: it is written for SQL Server.
    [[nodiscard]] bool cmdCreate_Enabled() const { return WhyNot().empty(); }

    // Why it can't, in words; "" if it can.
    [[nodiscard]] std::string WhyNot() const;

    // Runs the script in the log's database, batch by batch, and tells that the table is there. True if so: the dialog
    // closes. A failure is reported; batches before it stay done.
    [[nodiscard]] bool cmdCreate_Click();

    // Writes the script into a file that the person chooses, and tells so. True if so; a failure is reported.
    [[nodiscard]] bool cmdSave_Click();
    [[nodiscard]] static bool cmdCancel_Click() { return true; }

  private:
    LoggingTarget target_;
    LoggingTablePorts ports_;
    std::string script_;
};

} // namespace veldrane
