#include "datasource/logon/frm_odbc_logon.h"

#include "datasource/logon/browse_filter.h"
#include "datasource/logon/data_source_lists.h"
#include "datasource/logon/logon_string.h"
#include "datasource/logon/read_back.h"
#include "text/case_folding.h"

#include <algorithm>
#include <map>
#include <utility>

namespace veldrane {
namespace {

constexpr std::string_view kModuleName = "frmODBCLogon";
constexpr std::string_view kJetEnding = ".mdb";

bool IsJetFile(std::string_view path)
{
    return path.size() > kJetEnding.size() &&
           text::EqualFolded(path.substr(path.size() - kJetEnding.size()), kJetEnding);
}

} // namespace

frmODBCLogon::frmODBCLogon(TTCProject& project, LogonPurpose purpose, LogonMode mode, LogonSurroundings surroundings)
    : project_(project), purpose_(purpose), mode_(mode), surroundings_(std::move(surroundings)),
      providers_(kLogonProviders.begin(), kLogonProviders.end())
{
    SelectProvider(kJetProvider);
}

void frmODBCLogon::Load()
{
    if (LoadLists())
        ReadConnectionString(mode_ == LogonMode::Normal ? project_.ConnectionString() : ConnectionString);
}

void frmODBCLogon::LoadWithFile(const std::string& path)
{
    LoadLists();
    DropFile(path);
}

bool frmODBCLogon::LoadLists()
{
    GetDSNsAndDrivers();
    if (!OffersOdbc())
        return false;
    chkConnectSameDirectory = project_.ConnectSameDirectory;
    return true;
}

// A data source may stand on a library that is set up as no driver.
bool frmODBCLogon::OffersOdbc() const
{
    const LogonPage& odbc = pages_[logon_page::kOdbc];
    return !odbc.cmbDrivers.Rows.empty() || !odbc.cmbDSN.Rows.empty();
}

void frmODBCLogon::GetDSNsAndDrivers()
{
    FillDataSourceLists(pages_, surroundings_.Installed, surroundings_.TdsDriver);
    LogonPage& odbc = pages_[logon_page::kOdbc];
    LogonPage& sqlServer = pages_[logon_page::kSqlServer];
    OfferFileOrServer(odbc, odbc.DriverName(), surroundings_.Installed);
    OfferFileOrServer(sqlServer, sqlServer.DriverName(), surroundings_.Installed);
    if (!OffersOdbc()) {
        odbc.fraConnectEnabled = false;
        surroundings_.Asking.Tell(
            "No Drivers Found",
            "There are no Datasource Drivers installed on this machine. Please install MDAC 2.1 from https://www.unixodbc.org/drivers.html or, in its place, the ODBC drivers that your distribution has; on Debian: apt install libsqliteodbc odbc-postgresql odbc-mariadb tdsodbc",
            MessageIcon::Critical);
    }
    if (sqlServer.cmbDrivers.Rows.empty()) {
        std::erase_if(providers_, [](const LogonProvider& each) { return each.Key == kSqlServerProvider; });
        sqlServer.fraConnectEnabled = false;
    }
}

// A provider that is not offered has no page for what stands behind it: on another page a server would be taken for a
// file.
void frmODBCLogon::ReadConnectionString(const std::string& text)
{
    std::map<std::size_t, std::vector<ConnectionEntry>> ofPages;
    for (const ConnectionEntry& entry : ReadableEntries(text)) {
        if (!text::EqualFolded(entry.Key, "PROVIDER"))
            ofPages[page_].push_back(entry);
        else if (SelectProvider(entry.Value))
            ofPages.try_emplace(page_);
        else
            break;
    }
    for (const auto& [page, entries] : ofPages)
        ReadBack(pages_.at(page), page, entries, surroundings_.Installed, surroundings_.Asking);
}

bool frmODBCLogon::SelectProvider(std::string_view key)
{
    const auto found = std::find_if(providers_.begin(), providers_.end(),
                                    [&](const LogonProvider& each) { return NamesProvider(key, each.Key); });
    if (found == providers_.end())
        return false;
    cmbProviders_Click(static_cast<std::size_t>(found - providers_.begin()));
    return true;
}

void frmODBCLogon::cmbProviders_Click(std::size_t row)
{
    if (row >= providers_.size())
        return;
    provider_ = row;
    page_ = Provider().Page;
    if (page_ == logon_page::kOdbc)
        optUseDSN_Click();
}

bool frmODBCLogon::Offers(std::size_t page) const
{
    return std::any_of(providers_.begin(), providers_.end(),
                       [&](const LogonProvider& each) { return each.Page == page; });
}

void frmODBCLogon::tabMain_Click(std::size_t page)
{
    const auto found = std::find_if(providers_.begin(), providers_.end(),
                                    [&](const LogonProvider& each) { return each.Page == page; });
    if (found == providers_.end())
        return;
    provider_ = static_cast<std::size_t>(found - providers_.begin());
    page_ = page;
}

void frmODBCLogon::cmbDSN_Click(std::size_t row)
{
    if (row >= Page().cmbDSN.Rows.size())
        return;
    Page().cmbDSN.Selected = row;
    OfferFileOrServer(Page(), Page().cmbDSN.Tag(), surroundings_.Installed);
}

void frmODBCLogon::cmbDrivers_Click(std::size_t row)
{
    if (row >= Page().cmbDrivers.Rows.size())
        return;
    Page().cmbDrivers.Selected = row;
    OfferFileOrServer(Page(), Page().cmbDrivers.Text(), surroundings_.Installed);
}

void frmODBCLogon::optUseDSN_Click()
{
    Choose(Target::DataSource);
}

void frmODBCLogon::optDSNLess_Click()
{
    Choose(Target::Driver);
}

void frmODBCLogon::Choose(Target target)
{
    if (page_ == logon_page::kJet)
        return;
    Page().optUseDSN = target == Target::DataSource;
    OfferFileOrServer(Page(), Page().DriverName(), surroundings_.Installed);
}

void frmODBCLogon::cmdBrowse_Click()
{
    LogonPage& page = Page(); // whatever is in front when the file is chosen
    const std::string filter = page_ == logon_page::kJet
                                   ? "Microsoft Access Databases|*.mdb|All Files|*.*"
                                   : BrowseFilter(page.DriverName(), surroundings_.Installed, surroundings_.Asking);
    const auto path = surroundings_.Files.AskForFileToOpen(
        {.Title = "Select DataSource File", .Filter = filter, .DefaultName = page.txtDatabase});
    if (path)
        page.txtDatabase = *path;
}

void frmODBCLogon::DropFile(const std::string& path)
{
    if (IsJetFile(path))
        SelectProvider(kJetProvider);
    else if (!SelectSqliteDriver())
        TellOfMissingSqliteDriver();
    if (Page().cmdBrowseEnabled)
        Page().txtDatabase = path;
}

// Debian's package sets up a driver for version 2 as well, the first of the two, and has no library for it.
std::optional<std::size_t> frmODBCLogon::SqliteDriver() const
{
    std::optional<std::size_t> found;
    const std::vector<ComboRow>& drivers = pages_[logon_page::kOdbc].cmbDrivers.Rows;
    for (std::size_t row = 0; row < drivers.size(); ++row) {
        const std::string& name = drivers[row].Text;
        if (ProfileOfDriver(name, surroundings_.Installed).Family != DriverFamily::Sqlite)
            continue;
        if (text::FindFolded(surroundings_.Installed.DriverSetting(name, "Driver"), "sqlite3") != std::string::npos)
            return row;
        if (!found)
            found = row;
    }
    return found;
}

bool frmODBCLogon::SelectSqliteDriver()
{
    const std::optional<std::size_t> driver = SqliteDriver();
    if (!driver)
        return false;
    SelectProvider(kOdbcProvider);
    optDSNLess_Click();
    cmbDrivers_Click(*driver);
    return true;
}

// A driver of other files may take it, and that there is no driver at all has been told.
void frmODBCLogon::TellOfMissingSqliteDriver()
{
    if (!OffersOdbc() || (page_ != logon_page::kJet && Page().cmdBrowseEnabled))
        return;
    surroundings_.Asking.Tell(
        "No Driver Specified",
        "If this is an SQLite file: no ODBC driver for SQLite is installed; on Debian: apt install libsqliteodbc");
}

void frmODBCLogon::cmdOK_Click()
{
    focus_.clear();
    Guarded(surroundings_.Errors, kModuleName, "cmdOK_Click", [&] {
        if (!MayContinue())
            return;
        const Logon logon = FinishedLogon();
        if (mode_ == LogonMode::Normal)
            FinishForProject(logon);
        else
            FinishForCaller(logon);
    });
}

bool frmODBCLogon::MayContinue()
{
    if (page_ == logon_page::kJet) {
        if (!Page().txtDatabase.empty())
            return true;
        surroundings_.Asking.Tell("Invalid Datasource Name", "Please select a datasource.");
        return false;
    }
    if (Page().optUseDSN || Page().cmbDrivers.SelectedRow() != nullptr)
        return true;
    surroundings_.Asking.Tell("No Driver Specified", "Please select a database driver before continuing.");
    focus_ = "cmbDrivers";
    return false;
}

Logon frmODBCLogon::FinishedLogon() const
{
    const LogonPage& page = pages_.at(page_);
    Logon logon{.ConnectionString = BuildLogonString(Provider(), page),
                .DataSourceName = "",
                .DataSourceDriver = page.DriverName(),
                .DataSourceDatabaseName = page.txtDatabase,
                .DataSourceLogin = page.txtUID};
    if (page_ == logon_page::kJet) {
        logon.DataSourceDriver = kJetProvider;
        logon.ConnectSameDirectory = chkConnectSameDirectory;
        return logon;
    }
    if (page.optUseDSN)
        logon.DataSourceName = page.cmbDSN.Text();
    if (page_ == logon_page::kSqlServer)
        logon.DataSourceDriver = page.cmbDrivers.Text();
    return logon;
}

void frmODBCLogon::FinishForProject(const Logon& logon)
{
    CloseShared();
    surroundings_.ActiveConnection = Opened(logon.ConnectionString);
    closedString_.clear();
    StoreLogon(project_, logon);
    project_.SetModified(true);
    state_ = DialogState::Closed;
}

// The shared connection stays the project's: nobody would open that again, and a reader of the catalog would find
// another database behind it.
void frmODBCLogon::FinishForCaller(const Logon& logon)
{
    static_cast<void>(Opened(logon.ConnectionString));
    ConnectionString = logon.ConnectionString;
    state_ = DialogState::Hidden;
}

std::unique_ptr<DataSourceConnection> frmODBCLogon::Opened(const std::string& text) const
{
    const PointerWhile hourglass(surroundings_.Pointer, PointerShape::Hourglass);
    return surroundings_.Connect(text, StringOrigin::ProjectFile);
}

void frmODBCLogon::CloseShared()
{
    DataSourceConnection* shared = surroundings_.ActiveConnection.get();
    if (shared == nullptr || !shared->IsOpen())
        return;
    closedString_ = shared->ConnectionString();
    try {
        shared->Close();
    } catch (const RuntimeError&) {
        // Whatever is wrong with a connection that is given up is no concern of the next one.
    }
}

void frmODBCLogon::cmdCancel_Click()
{
    state_ = DialogState::Closed;
    if (closedString_.empty() || !surroundings_.ActiveConnection)
        return;
    Guarded(surroundings_.Errors, kModuleName, "cmdCancel_Click", [&] {
        const PointerWhile hourglass(surroundings_.Pointer, PointerShape::Hourglass);
        surroundings_.ActiveConnection->Open(std::exchange(closedString_, ""));
    });
}

} // namespace veldrane
