#include "datasource/logon/data_source_lists.h"

#include "datasource/sql_server_string.h"
#include "text/case_folding.h"

namespace veldrane {
namespace {

// By its path or by its file's name alone. It is no driver to choose: a project that names one can't be opened again.
bool IsLibrary(std::string_view driver)
{
    return driver.find('/') != std::string_view::npos || driver.ends_with(".so") ||
           driver.find(".so.") != std::string_view::npos;
}

class Lists
{
  public:
    Lists(LogonPages& pages, const std::string& tdsDriver)
        : odbc_(pages[logon_page::kOdbc]), sqlServer_(pages[logon_page::kSqlServer]), tdsDriver_(tdsDriver)
    {}

    void AddDataSource(const OdbcDataSource& source)
    {
        if (source.Name.empty())
            return;
        odbc_.cmbDSN.Add({.Key = "", .Text = source.Name, .Icon = IconOf(source.Driver), .Tag = source.Driver});
        if (IsSqlServer(source.Driver)) {
            sqlServer_.cmbDSN.Add({.Key = "", .Text = source.Name, .Icon = "Server", .Tag = source.Driver});
            sqlServer_.cmbDSN.SelectFirst();
        }
        AddDriver(source.Driver);
    }

    void AddDriver(const std::string& driver)
    {
        if (driver.empty() || IsLibrary(driver))
            return;
        const ComboRow row{.Key = driver, .Text = driver, .Icon = "Driver", .Tag = ""};
        odbc_.cmbDrivers.Add(row);
        if (IsSqlServer(driver))
            sqlServer_.cmbDrivers.Add(row);
    }

  private:
    [[nodiscard]] bool IsSqlServer(const std::string& driver) const
    {
        return !driver.empty() &&
               (text::EqualFolded(driver, kSqlServerDriver) || text::EqualFolded(driver, tdsDriver_));
    }

    [[nodiscard]] std::string IconOf(const std::string& driver) const
    {
        if (driver == kAccessDriver)
            return "Access";
        return IsSqlServer(driver) ? "Server" : "DSN";
    }

    LogonPage& odbc_;
    LogonPage& sqlServer_;
    const std::string& tdsDriver_;
};

} // namespace

void FillDataSourceLists(LogonPages& pages, const DriverManager& installed, const std::string& tdsDriver)
{
    Lists lists(pages, tdsDriver);
    for (const OdbcDataSource& source : installed.DataSources())
        lists.AddDataSource(source);
    // Unlike data sources, which somebody has to set up, drivers are there from their installation on.
    for (const std::string& driver : installed.Drivers())
        lists.AddDriver(driver);
    pages[logon_page::kOdbc].cmbDSN.SelectFirst();
    pages[logon_page::kOdbc].cmbDrivers.SelectFirst();
}

} // namespace veldrane
