#include "datasource/driver_profile.h"

#include "text/case_folding.h"

#include <algorithm>
#include <array>
#include <string>

namespace veldrane {
namespace {

using namespace std::string_view_literals;

// No key stands in these lists that loads a library, writes a file or runs a statement.

constexpr std::array kGeneralKeys{
    "Driver"sv, "DSN"sv, "Server"sv,   "Port"sv,        "Database"sv,          "DBQ"sv, "UID"sv, "Username"sv,
    "User"sv,   "PWD"sv, "Password"sv, "Description"sv, "Trusted_Connection"sv};

// Server, UID and PWD say nothing to this driver, but the connection dialog writes them for every one.
constexpr std::array kSqliteKeys{"Driver"sv,     "DSN"sv,       "Server"sv,  "Port"sv,    "Database"sv,
                                 "UID"sv,        "PWD"sv,       "NoCreat"sv, "Timeout"sv, "BigInt"sv,
                                 "ShortNames"sv, "LongNames"sv, "NoWCHAR"sv, "JDConv"sv,  "Description"sv};

constexpr std::array kPostgreSqlKeys{"Driver"sv,
                                     "DSN"sv,
                                     "Server"sv,
                                     "Servername"sv,
                                     "Port"sv,
                                     "Database"sv,
                                     "UID"sv,
                                     "Username"sv,
                                     "PWD"sv,
                                     "Password"sv,
                                     "SSLmode"sv,
                                     "ReadOnly"sv,
                                     "BoolsAsChar"sv,
                                     "MaxVarcharSize"sv,
                                     "MaxLongVarcharSize"sv,
                                     "TextAsLongVarchar"sv,
                                     "UnknownsAsLongVarchar"sv,
                                     "UnknownSizes"sv,
                                     "ByteaAsLongVarBinary"sv,
                                     "TrueIsMinus1"sv,
                                     "LFConversion"sv,
                                     "RowVersioning"sv,
                                     "ShowSystemTables"sv,
                                     "ShowOidColumn"sv,
                                     "FakeOidIndex"sv,
                                     "UseDeclareFetch"sv,
                                     "Fetch"sv,
                                     "UpdatableCursors"sv,
                                     "UseServerSidePrepare"sv,
                                     "KeepaliveTime"sv,
                                     "KeepaliveInterval"sv,
                                     "Description"sv};

// Elsewhere a brace is a letter to this driver.
constexpr std::array kPostgreSqlBracedKeys{"PWD"sv, "Password"sv, "ConnSettings"sv, "A6"sv, "pqopt"sv};

constexpr std::array kMariaDbKeys{"Driver"sv,    "DSN"sv,        "Server"sv,       "Servername"sv,   "Port"sv,
                                  "Socket"sv,    "Database"sv,   "DB"sv,           "UID"sv,          "User"sv,
                                  "PWD"sv,       "Password"sv,   "CONN_TIMEOUT"sv, "READ_TIMEOUT"sv, "WRITE_TIMEOUT"sv,
                                  "CHARSET"sv,   "FORCETLS"sv,   "SSLVERIFY"sv,    "SSLCA"sv,        "SSLCAPATH"sv,
                                  "SSLCIPHER"sv, "TLSVERSION"sv, "Description"sv};

constexpr std::array kTdsKeys{
    "Driver"sv,   "DSN"sv, "Server"sv,      "Servername"sv,    "Port"sv,       "Database"sv,
    "UID"sv,      "PWD"sv, "TDS_Version"sv, "ClientCharset"sv, "Encryption"sv, "Trusted_Connection"sv,
    "Language"sv, "APP"sv, "WSID"sv,        "TextSize"sv,      "PacketSize"sv, "Description"sv};

constexpr std::array kSqliteAdditions{
    // Without it a wrong path makes an empty file and counts as opened.
    DriverAddition{"NoCreat", "1", AdditionRule::AlwaysOfProject},
    // Milliseconds that a locked file is waited for; the driver's own 100 seconds freeze the program.
    DriverAddition{"Timeout", "2000"},
};

constexpr std::array kPostgreSqlAdditions{
    DriverAddition{"BoolsAsChar", "0"},
    // The driver's own 255 turns every longer text column into a memo.
    DriverAddition{"MaxVarcharSize", kAddedMaxVarcharSize},
};

// The attribute for it is accepted and not heeded.
constexpr std::array kMariaDbAdditions{DriverAddition{"CONN_TIMEOUT", ""}};

// With others the driver tries one version after the other and no time limit holds, or sends the password as it is.
constexpr std::array kTdsVersions{"7.0"sv, "7.1"sv, "7.2"sv, "7.3"sv, "7.4"sv};

// What the driver says is read in it: in another, nobody could read an error.
constexpr std::array kTdsCharsets{"UTF-8"sv};

constexpr std::array kTdsAdditions{
    DriverAddition{.Key = "TDS_Version", .Value = kTdsVersions.back(), .Accepted = kTdsVersions},
    DriverAddition{.Key = "ClientCharset", .Value = kTdsCharsets.front(), .Accepted = kTdsCharsets},
};

constexpr std::array kSqliteMarks{"sqlite"sv};
constexpr std::array kPostgreSqlMarks{"psqlodbc"sv, "postgresql"sv};
constexpr std::array kMariaDbMarks{"maodbc"sv, "mariadb"sv};
constexpr std::array kTdsMarks{kTdsLibrary, "freetds"sv};

// A URI carries options of the database library.
bool IsPlainPath(std::string_view name)
{
    return text::FindFolded(name, "file:") != 0;
}

// The client library takes a name of this form for a whole connection string.
bool IsNoConnectionInfo(std::string_view name)
{
    return name.find('=') == std::string_view::npos && name.find("://") == std::string_view::npos;
}

// Told with each statement, the driver sends a SET before nearly every one, and another before each of its own.
std::string StatementTimeout(std::chrono::seconds limit)
{
    return "SET statement_timeout = '" + std::to_string(limit.count()) + "s'";
}

// The attribute for it is accepted and not heeded.
std::string MaxStatementTime(std::chrono::seconds limit)
{
    return "SET SESSION max_statement_time = " + std::to_string(limit.count());
}

constexpr std::array kProfiles{
    DriverProfile{.Family = DriverFamily::Sqlite,
                  .Width = CallWidth::Narrow,
                  .ValueWidth = CallWidth::Narrow,
                  .Syntax = ValueSyntax::Plain,
                  .Marks = kSqliteMarks,
                  .ProjectKeys = kSqliteKeys,
                  .Additions = kSqliteAdditions,
                  .DatabaseIsFile = true,
                  .IsPlainDatabase = IsPlainPath,
                  .Probe = "SELECT count(*) FROM sqlite_master"},
    DriverProfile{.Family = DriverFamily::PostgreSql,
                  .BracedKeys = kPostgreSqlBracedKeys,
                  .Marks = kPostgreSqlMarks,
                  .ProjectKeys = kPostgreSqlKeys,
                  .Additions = kPostgreSqlAdditions,
                  .PortIsOwnKey = true,
                  .IsPlainDatabase = IsNoConnectionInfo,
                  .LimitStatements = StatementTimeout},
    DriverProfile{.Family = DriverFamily::MariaDb,
                  .ValueWidth = CallWidth::Narrow, // wide ones cost the driver more than all the rest
                  .Marks = kMariaDbMarks,
                  .ProjectKeys = kMariaDbKeys,
                  .Additions = kMariaDbAdditions,
                  .PortIsOwnKey = true,
                  .LimitStatements = MaxStatementTime},
    DriverProfile{.Family = DriverFamily::Tds,
                  .Syntax = ValueSyntax::Unescaped,
                  .Marks = kTdsMarks,
                  .ProjectKeys = kTdsKeys,
                  .Additions = kTdsAdditions,
                  .PortIsOwnKey = true},
};

constexpr DriverProfile kGeneral{.Syntax = ValueSyntax::Unknown, .ProjectKeys = kGeneralKeys};

} // namespace

const DriverProfile& ProfileOf(std::string_view library)
{
    const std::string name = text::Fold(library.substr(library.rfind('/') + 1));
    const auto isMarked = [&](const DriverProfile& profile) {
        return std::any_of(profile.Marks.begin(), profile.Marks.end(),
                           [&](std::string_view mark) { return name.find(mark) != std::string::npos; });
    };
    const auto found = std::find_if(kProfiles.begin(), kProfiles.end(), isMarked);
    return found == kProfiles.end() ? kGeneral : *found;
}

} // namespace veldrane
