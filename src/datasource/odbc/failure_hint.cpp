#include "datasource/odbc/failure_hint.h"

#include "datasource/seconds_text.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace veldrane {
namespace {

using Hint = std::string (*)(const FailureScene&);

// How a failure is known: by its SQL state, by its native error where that is not 0, and by a part of the driver's
// words. PostgreSQL's driver has one state for whatever keeps it from connecting.
struct HintRow
{
    std::string_view State;
    std::int32_t NativeError;
    std::string_view Words;
    Hint Says;
};

std::string Quoted(const std::string& name)
{
    return '"' + name + '"';
}

std::string Login(const FailureScene& scene)
{
    const LogonKeys& keys = scene.Logon.Keys;
    return "Check the user's name and the password of the connection string (" + Quoted(keys.User) + ", " +
           Quoted(keys.Password) + ").";
}

std::string Database(const FailureScene& scene)
{
    return "Check the database's name in the connection string (" + Quoted(scene.Logon.Keys.Database) +
           "), and that the login may use it.";
}

std::string Host(const FailureScene& scene)
{
    return "Check the server's name in the connection string (" + Quoted(scene.Logon.Keys.Server) + ").";
}

// "the server and the port of the connection string", with their keys.
std::string ServerAndPort(const FailureScene& scene)
{
    const LogonKeys& keys = scene.Logon.Keys;
    return "the server and the port of the connection string (" + Quoted(keys.Server) +
           (keys.Port.empty() ? "" : ", " + Quoted(keys.Port)) + ")";
}

std::string ServerWithPort(const FailureScene& scene)
{
    return Quoted(scene.Logon.Keys.Server + "=host,port");
}

bool NamesAnInstance(const FailureScene& scene)
{
    return scene.Logon.Server.find('\\') != std::string::npos;
}

// The driver asks the machine for the port of an instance, for some 16 seconds unless it is cut off before.
std::string Refused(const FailureScene& scene)
{
    if (NamesAnInstance(scene))
        return "No port was told for the instance " + Quoted(scene.Logon.Server) + ": name the port in its place (" +
               ServerWithPort(scene) +
               "), or check the names and that the server's "
               "browser service can be reached.";
    return "Check " + ServerAndPort(scene) + ", and that the server runs.";
}

std::string Silent(const FailureScene& scene)
{
    const std::string& server = scene.Logon.Server;
    const std::string& key = scene.Logon.TimeoutKey;
    return (server.empty() ? "The server" : "The server " + Quoted(server)) + " did not answer " +
           (key.empty() ? "within " + Seconds(scene.ConnectTimeout) : "in time") +
           (NamesAnInstance(scene) ? ": name the port in place of the instance (" + ServerWithPort(scene) + ")"
                                   : ": check the server and the port of the connection string") +
           ", or set " +
           (key.empty() ? "\"ConnectTimeout\" in the section Platform of the settings" : "its " + Quoted(key)) +
           " to more seconds.";
}

std::string Stranger(const FailureScene& scene)
{
    const LogonKeys& keys = scene.Logon.Keys;
    if (scene.Logon.IsTrusted)
        return "A login by the system (" + Quoted(keys.Trust) +
               ") takes a Kerberos ticket, which \"kinit\" gets and \"klist\" shows; or give a user's name and a "
               "password (" +
               Quoted(keys.User) + ", " + Quoted(keys.Password) + ").";
    return "What answers there hung up or is no server of this kind: check " + ServerAndPort(scene) +
           ", and that the driver suits the server.";
}

std::string Flooding(const FailureScene& scene)
{
    return "Check " + ServerAndPort(scene) +
           ", and that no procedure or trigger of the server prints messages without end.";
}

std::string Port(const FailureScene& /*scene*/)
{
    return "Check the port of the connection string (\"Port\"): it is a number from 1 to 65535.";
}

std::string NoDriver(const FailureScene& scene)
{
    const std::string& driver = scene.Logon.Driver;
    return "The ODBC driver " + (driver.empty() ? "of " + Quoted(scene.Logon.DataSource) : Quoted(driver)) +
           " is not set up on this machine, or its library is missing: \"odbcinst -q -d\" lists the drivers.";
}

std::string NoDataSource(const FailureScene& scene)
{
    return "There is no ODBC data source named " + Quoted(scene.Logon.DataSource) +
           " on this machine: \"odbcinst -q -s\" lists those that are set up.";
}

std::string File(const FailureScene& scene)
{
    return scene.Logon.Database.empty() ? "The database's file" : "The file " + Quoted(scene.Logon.Database);
}

std::string NoFile(const FailureScene& scene)
{
    return File(scene) + " is not there or can't be read: check its path in the connection string (\"Database\").";
}

std::string NoDatabase(const FailureScene& scene)
{
    return File(scene) + " is of another kind: check its path in the connection string (\"Database\").";
}

std::string Locked(const FailureScene& scene)
{
    return File(scene) + " is in use by another program: let that come to its end, then try again.";
}

std::string Gone(const FailureScene& scene)
{
    return "The server closed the connection, or gave no answer within " + Seconds(scene.StatementTimeout) +
           " (\"StatementTimeout\" in the section Platform of the settings).";
}

std::string Slow(const FailureScene& scene)
{
    return "The statement was given up after " + Seconds(scene.StatementTimeout) +
           ": set \"StatementTimeout\" in the section Platform of the settings to more seconds.";
}

// The first that fits counts.
constexpr std::array kOnConnecting{
    HintRow{"HY000", 0, "sends without end", Flooding},
    HintRow{"", 0, "timeout expired", Silent},
    HintRow{"HYT00", 0, "", Silent},
    HintRow{"HYT01", 0, "", Silent},
    // The system's number for a connection that timed out; with another, the server has hung up.
    HintRow{"", 2013, "error: 110", Silent},
    HintRow{"", 2002, "(110)", Silent},
    HintRow{"", 2013, "", Stranger},
    HintRow{"", 4060, "", Database}, // a failed login follows
    HintRow{"28000", 0, "", Login},
    HintRow{"", 0, "password authentication failed", Login},
    HintRow{"", 0, "no password supplied", Login},
    HintRow{"", 18456, "", Login},
    HintRow{"", 0, "FATAL: role", Login},
    HintRow{"", 0, "FATAL:  role", Login},
    HintRow{"42000", 1049, "", Database},
    HintRow{"42000", 1044, "", Database},
    HintRow{"", 0, "FATAL: database", Database},
    HintRow{"", 0, "FATAL:  database", Database},
    HintRow{"", 2005, "Unknown server host", Host},
    HintRow{"", 0, "could not translate host name", Host},
    HintRow{"", 0, "Unknown host machine name", Host},
    HintRow{"HY000", 2002, "", Refused},
    HintRow{"HY000", 2003, "", Refused},
    HintRow{"", 0, "Connection refused", Refused},
    HintRow{"", 0, "Is the server running", Refused},
    HintRow{"08S01", 20009, "", Refused},
    HintRow{"", 0, "server closed the connection", Stranger},
    HintRow{"", 0, "expected authentication request", Stranger},
    HintRow{"", 20002, "", Stranger},
    HintRow{"", 0, "connection option \"port\"", Port},
    HintRow{"", 0, "invalid port number", Port},
    HintRow{"", 0, "Can't open lib", NoDriver},
    HintRow{"IM002", 0, "", NoDataSource},
    HintRow{"HY000", 14, "connect failed", NoFile},
};

constexpr std::array kOnStatement{
    HintRow{"HY000", 0, "sends without end", Flooding},
    HintRow{"HY000", 26, "not a database", NoDatabase},
    HintRow{"HY000", 5, "locked", Locked},
    HintRow{"57014", 0, "statement timeout", Slow},
    HintRow{"HY018", 1969, "", Slow},
    HintRow{"70100", 1969, "", Slow},
    HintRow{"HYT00", 0, "", Slow},
    HintRow{"08S01", 0, "Communication link failure", Gone},
};

bool Fits(const HintRow& row, const ADOError& record)
{
    return (row.State.empty() || record.SQLState == row.State) &&
           (row.NativeError == 0 || record.NativeError == row.NativeError) &&
           record.Description.find(row.Words) != std::string::npos;
}

std::string HintFrom(std::span<const HintRow> rows, const std::vector<ADOError>& records, const FailureScene& scene)
{
    for (const HintRow& row : rows)
        if (std::any_of(records.begin(), records.end(), [&](const ADOError& record) { return Fits(row, record); }))
            return row.Says(scene);
    return {};
}

} // namespace

std::string HintOnConnecting(const std::vector<ADOError>& records, const FailureScene& scene)
{
    return HintFrom(kOnConnecting, records, scene);
}

std::string HintOnStatement(const std::vector<ADOError>& records, const FailureScene& scene)
{
    return HintFrom(kOnStatement, records, scene);
}

} // namespace veldrane
