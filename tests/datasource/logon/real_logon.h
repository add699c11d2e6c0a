#pragma once

#include "logon_fixture.h"

#include "datasource/odbc/installed_drivers.h"
#include "datasource/odbc/odbc_connection.h"

namespace veldrane {

// The dialog on this machine's drivers and data sources, opening for real.
class RealLogon
{
  public:
    RealLogon()
    {
        dialog =
            std::make_unique<frmODBCLogon>(project, LogonPurpose::NewDataSource, LogonMode::Normal,
                                           LogonSurroundings{.Asking = messages,
                                                             .Errors = errors,
                                                             .Files = files,
                                                             .Pointer = pointer,
                                                             .Installed = drivers,
                                                             .Connect =
                                                                 [](const std::string& text, StringOrigin origin) {
                                                                     auto connection = std::make_unique<OdbcConnection>(
                                                                         OdbcConnectionOptions{.Origin = origin});
                                                                     connection->Open(text);
                                                                     return connection;
                                                                 },
                                                             .ActiveConnection = shared});
        dialog->Load();
        dialog->cmbProviders_Click(0);
        EXPECT_EQ(dialog->Provider().Key, kOdbcProvider);
    }

    void UseDriver(std::string_view name) const
    {
        dialog->optDSNLess_Click();
        EXPECT_TRUE(dialog->Page().cmbDrivers.SelectText(name)) << name;
        dialog->cmbDrivers_Click(dialog->Page().cmbDrivers.Selected.value_or(0));
    }

    void UseDSN(std::string_view name) const
    {
        dialog->optUseDSN_Click();
        EXPECT_TRUE(dialog->Page().cmbDSN.SelectText(name)) << name;
        dialog->cmbDSN_Click(dialog->Page().cmbDSN.Selected.value_or(0));
    }

    // Presses OK: the number of tables behind the string, or -1 if it was not opened.
    [[nodiscard]] int TablesAfterOk() const
    {
        dialog->cmdOK_Click();
        if (dialog->State() != DialogState::Closed || !shared)
            return -1;
        return static_cast<int>(shared->OpenCatalog()->Tables().size());
    }

    // What a failure was reported with, "" if there was none.
    [[nodiscard]] std::string Reported() const
    {
        return errors.Reported.empty() ? "" : errors.Reported.back().Error.Description();
    }

    TTCProject project;
    testing::ScriptedMessages messages;
    testing::RecordedErrors errors;
    testing::ScriptedFileDialogs files;
    testing::RecordedPointer pointer;
    OdbcInstalledDrivers drivers;
    std::unique_ptr<DataSourceConnection> shared;
    std::unique_ptr<frmODBCLogon> dialog;
};

} // namespace veldrane
