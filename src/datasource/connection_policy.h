#pragma once

#include "datasource/connection_string.h"
#include "datasource/driver_profile.h"
#include "datasource/logon_keys.h"

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// Whose word a connection string is.
enum class StringOrigin
{
    ProjectFile, // a stranger's, perhaps: it may not run anything nor write anywhere
    CommandLine, // the user's own, typed there: every key goes
};

// What the driver manager has been told by the user of the machine.
class InstalledDrivers
{
  public:
    virtual ~InstalledDrivers() = default;

    // The value of a key of a data source, "" if there is no such data source or key.
    [[nodiscard]] virtual std::string DataSourceSetting(const std::string& dataSource,
                                                        const std::string& key) const = 0;

    // The value of a key of a driver, "" if there is no such driver or key. "Driver" is its library.
    [[nodiscard]] virtual std::string DriverSetting(const std::string& driver, const std::string& key) const = 0;
};

// A data source of the driver manager.
struct OdbcDataSource
{
    std::string Name;
    std::string Driver; // the name under which its driver is set up, or its library if it is under none; may be ""
};

// All that the driver manager knows.
class DriverManager : public InstalledDrivers
{
  public:
    // Every data source, in the driver manager's order. Empty if there is none or the driver manager does not answer.
    [[nodiscard]] virtual std::vector<OdbcDataSource> DataSources() const = 0;

    // The name of every driver that is set up, likewise.
    [[nodiscard]] virtual std::vector<std::string> Drivers() const = 0;
};

// The profile of a driver by its name or its library's path; the general one for a name that is not set up.
[[nodiscard]] const DriverProfile& ProfileOfDriver(const std::string& driver, const InstalledDrivers& installed);

// What is handed to the driver manager.
struct OdbcLogon
{
    std::string Text;
    const DriverProfile* Profile = nullptr;
    std::string Database; // as given, like the next three; "" if the data source names it
    std::string Server{};
    std::string Driver{};
    std::string DataSource{};
    bool IsTrusted = false;   // the login is that of the system: asked for, or for want of a user's name
    std::string TimeoutKey{}; // by which the string or the data source limits connecting itself, "" if neither does
    LogonKeys Keys{};         // as given
};

struct LogonRules
{
    StringOrigin Origin = StringOrigin::ProjectFile;
    std::chrono::seconds ConnectTimeout{15};
    std::string TdsDriver{kTdsDriver}; // the driver that stands in for SQL Server's own, by its name
};

// Makes the driver manager's string of the user's. A string for SQL Server's own provider is taken out of its quotes
// and translated (see sql_server_string.h), and its driver's name means `TdsDriver`. An empty login or password leaves
// that of a data source in force, for drivers that take one from there: that for SQL Server has the string's login
// alone, and without one the system's. What is added for a driver's sake (see driver_profile.h) gives way to a value of
// the string's or the data source's that stands; an empty one does not. Throws DataSourceError, before any driver is
// loaded, for
// - a provider other than those for ODBC and for SQL Server, a second one, and a quote that the latter's string opens;
// - SQL Server behind a driver for another kind of database, and beside a data source that is not set up;
// - SQL Server with two servers, with a port that is none, or with two ports;
// - a string that names neither a data source nor a driver: the driver manager would pick one;
// - a value that the driver can't be given, because it would read another one out of it;
// - a data source that the driver manager does not find for this driver, by reason of its name;
// and from a project file also for
// - a driver or a data source that is not set up on this machine, thus for the path of a library;
// - a key that is not on the list kept for the driver, or that stands twice;
// - a database name in which the driver would find options.
// The message names the key, never its value.
[[nodiscard]] OdbcLogon BuildOdbcLogon(const ConnectionString& text, const InstalledDrivers& installed,
                                       const LogonRules& rules);

} // namespace veldrane
