#pragma once

#include "datasource/logon/logon_page.h"
#include "datasource/logon/providers.h"
#include "datasource/logon/store_logon.h"
#include "datasource/open_data_source.h"
#include "ports/error_report.h"
#include "ports/file_dialogs.h"
#include "ports/messages.h"
#include "ports/mouse_pointer.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// What the dialog is shown for.
enum class LogonPurpose
{
    NewDataSource = 0, // the project has no data source yet
    EditDataSource = 1,
};

// Who gets the finished string.
enum class LogonMode
{
    Normal, // the project
    Return, // another dialog, which reads it from `ConnectionString`
};

enum class DialogState
{
    Shown,
    Hidden, // finished, and still there for whoever reads the string
    Closed,
};

// What the dialog meets of the world.
struct LogonSurroundings
{
    Messages& Asking;
    ErrorReport& Errors;
    FileDialogs& Files;
    MousePointer& Pointer;
    const DriverManager& Installed;
    OpenDataSource Connect;
    std::unique_ptr<DataSourceConnection>& ActiveConnection; // the shared one; may be none
    std::string TdsDriver{kTdsDriver};                       // the driver that stands in for SQL Server's own
};

// The dialog that asks for a data source, makes a connection string of the answers, tries it out, and gives it to the
// project. It begins by showing the string that is there.
//
// What it opens passes the rules for a project file: the string is kept in one, and may show what came out of one. In
// the normal mode the opened connection takes the place of the shared one before the project hears of its new string,
// so a listener finds it open. An attempt that fails is reported, and leaves the project as it was and the shared
// connection closed; when the dialog is then left with Cancel, it is opened again.
class frmODBCLogon
{
  public:
    frmODBCLogon(TTCProject& project, LogonPurpose purpose, LogonMode mode, LogonSurroundings surroundings);

    // The string: in the return mode what is to be shown at first, and after OK the finished one.
    std::string ConnectionString;

    // Fills the lists and, unless there is neither a data source nor a driver, reads the string and the project's
    // ConnectSameDirectory back into the controls. Opens nothing.
    void Load();

    // The same for a file that was dropped on another window: DropFile in place of reading the string back.
    void LoadWithFile(const std::string& path);

    [[nodiscard]] LogonPurpose Purpose() const { return purpose_; }
    [[nodiscard]] DialogState State() const { return state_; }

    // The rows of `cmbProviders`, and which is selected.
    [[nodiscard]] const std::vector<LogonProvider>& Providers() const { return providers_; }
    // Whether a provider of the page is offered: without a driver for it there is none.
    [[nodiscard]] bool Offers(std::size_t page) const;
    [[nodiscard]] const LogonProvider& Provider() const { return providers_.at(provider_); }

    // The page of `tabMain` whose frame is shown.
    [[nodiscard]] std::size_t CurrentPage() const { return page_; }
    [[nodiscard]] const LogonPages& Pages() const { return pages_; }

    // The current page, for what the person types. Lists and options have operations of their own below.
    [[nodiscard]] LogonPage& Page() { return pages_.at(page_); }

    // The control of the current page that a message has sent the person to, "" if none has.
    [[nodiscard]] const std::string& Focus() const { return focus_; }

    bool chkConnectSameDirectory = false; // on the Jet page

    // What the person does. Rows count from 0; nothing happens for one that is not there, nor for the page of a
    // provider that is not offered.
    void cmbProviders_Click(std::size_t row);
    void tabMain_Click(std::size_t page); // selects the provider of the page too
    void cmbDSN_Click(std::size_t row);
    void cmbDrivers_Click(std::size_t row);
    void optUseDSN_Click();
    void optDSNLess_Click();
    void cmdBrowse_Click();

    // A file was dropped on the dialog: a Jet file (by its ending, .mdb) or, where a driver for SQLite is set up, one
    // of that is selected with its page, its driver (one for version 3 before any other) and its path. Any other goes
    // where the path of a file is asked for; unless that is a page of a driver for files, the person is told that there
    // is no driver for SQLite.
    void DropFile(const std::string& path);

    void cmdOK_Click();
    void cmdCancel_Click(); // closing the window too

  private:
    enum class Target
    {
        DataSource,
        Driver,
    };

    [[nodiscard]] std::optional<std::size_t> SqliteDriver() const; // its row
    bool SelectSqliteDriver();                                     // whether there is one
    void TellOfMissingSqliteDriver();
    void Choose(Target target); // nothing to choose on the Jet page
    bool LoadLists();           // whether there is anything to read a string back into
    void GetDSNsAndDrivers();
    [[nodiscard]] bool OffersOdbc() const;
    void ReadConnectionString(const std::string& text);
    bool SelectProvider(std::string_view key);
    bool MayContinue();
    [[nodiscard]] Logon FinishedLogon() const;
    void FinishForProject(const Logon& logon);
    void FinishForCaller(const Logon& logon);
    [[nodiscard]] std::unique_ptr<DataSourceConnection> Opened(const std::string& text) const;
    void CloseShared();

    TTCProject& project_;
    LogonPurpose purpose_;
    LogonMode mode_;
    LogonSurroundings surroundings_;
    DialogState state_ = DialogState::Shown;
    std::vector<LogonProvider> providers_;
    std::size_t provider_ = 0;
    std::size_t page_ = logon_page::kJet;
    LogonPages pages_;
    std::string focus_;
    std::string closedString_; // of the shared connection that an attempt has closed
};

} // namespace veldrane
