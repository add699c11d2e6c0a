#include "datasource/sql_server_string.h"

#include "datasource/connection_entries.h"
#include "datasource/quoted_value.h"
#include "text/case_folding.h"
#include "text/strings.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace veldrane {
namespace {

using namespace std::string_view_literals;
using Entries = ConnectionEntries;
using GivenValue = std::optional<std::string>; // none: the driver is told nothing

constexpr std::string_view kServer = "Server";
constexpr std::string_view kThisMachine = "localhost";

// Ways to a server that end at the machine they begin on, or that no driver here has.
struct Way
{
    std::string_view Prefix;
    std::string_view Name;
};

constexpr std::array kOtherWays{
    Way{R"(\\)", "a named pipe"},
    Way{"np:", "a named pipe (\"np:\")"},
    Way{"lpc:", "shared memory (\"lpc:\")"},
    Way{"admin:", "the administrators' connection (\"admin:\")"},
    Way{"(localdb)", "a server that runs for one user of Windows (\"(localdb)\")"},
};

bool BeginsWith(std::string_view value, std::string_view prefix)
{
    return text::EqualFolded(value.substr(0, prefix.size()), prefix);
}

std::string MachineOf(std::string_view name)
{
    constexpr std::array kOwnNames{""sv, "."sv, "(local)"sv};
    return std::string(IsOneOf(name, kOwnNames) ? kThisMachine : name);
}

[[noreturn]] void RefuseTwoPorts()
{
    RefuseConnection("The connection string names two ports for its server.");
}

// A machine and the port behind it, none if the value has none.
struct Address
{
    std::string_view Machine;
    std::optional<std::string_view> Port;
};

// "host,port", "host:port", "[address]:port"; more than one colon is an address of the newer kind.
Address SplitAddress(std::string_view value)
{
    const std::size_t comma = value.find(',');
    Address address{.Machine = text::Trim(value.substr(0, comma)), .Port = {}};
    if (comma != std::string_view::npos)
        address.Port = text::Trim(value.substr(comma + 1));
    const std::size_t bracket = address.Machine.starts_with('[') ? address.Machine.find(']') : std::string_view::npos;
    const bool isBracketed = bracket != std::string_view::npos;
    const std::size_t colon = address.Machine.find(':', isBracketed ? bracket : 0);
    if (colon != std::string_view::npos && address.Machine.find(':', colon + 1) == std::string_view::npos) {
        if (address.Port)
            RefuseTwoPorts();
        address.Port = text::Trim(address.Machine.substr(colon + 1));
        address.Machine = address.Machine.substr(0, colon);
    }
    if (isBracketed && address.Machine.ends_with(']'))
        address.Machine = address.Machine.substr(1, address.Machine.size() - 2);
    return address;
}

// "host\instance,port": the port says where the instance is.
GivenValue Server(const ConnectionEntry& entry)
{
    std::string_view value = text::Trim(entry.Value);
    if (BeginsWith(value, "tcp:"))
        value = text::Trim(value.substr(4));
    for (const Way& way : kOtherWays)
        if (BeginsWith(value, way.Prefix))
            RefuseConnection("The \"" + entry.Key + "\" of the connection string asks for " + std::string(way.Name) +
                             "; SQL Server is reached by TCP alone.");
    const Address address = SplitAddress(value);
    const std::size_t backslash = std::min(address.Machine.find('\\'), address.Machine.size());
    const std::string machine = MachineOf(text::Trim(address.Machine.substr(0, backslash)));
    if (!address.Port)
        return machine + std::string(address.Machine.substr(backslash));
    RequirePort(entry.Key, *address.Port);
    return machine + "," + std::string(*address.Port);
}

GivenValue AsItIs(const ConnectionEntry& entry)
{
    return entry.Value;
}

GivenValue Nothing(const ConnectionEntry& /*entry*/)
{
    return std::nullopt;
}

bool Says(const ConnectionEntry& entry, std::span<const std::string_view> yes, std::span<const std::string_view> no)
{
    if (!IsOneOf(entry.Value, yes) && !IsOneOf(entry.Value, no))
        RefuseConnection("The \"" + entry.Key + "\" of the connection string is neither \"" + std::string(yes.front()) +
                         "\" nor \"no\".");
    return IsOneOf(entry.Value, yes);
}

GivenValue Trusted(const ConnectionEntry& entry)
{
    constexpr std::array kYes{"SSPI"sv, "yes"sv, "true"sv, "1"sv};
    constexpr std::array kNo{""sv, "no"sv, "false"sv, "0"sv};
    return Says(entry, kYes, kNo) ? GivenValue("Yes") : std::nullopt;
}

GivenValue Encrypted(const ConnectionEntry& entry)
{
    constexpr std::array kYes{"yes"sv, "true"sv, "mandatory"sv, "1"sv};
    constexpr std::array kNo{""sv, "no"sv, "false"sv, "0"sv, "optional"sv};
    return Says(entry, kYes, kNo) ? GivenValue("require") : std::nullopt;
}

GivenValue TcpAlone(const ConnectionEntry& entry)
{
    constexpr std::array kTcp{""sv, "DBMSSOCN"sv, "TCPIP"sv};
    if (!IsOneOf(entry.Value, kTcp))
        RefuseConnection(
            "The \"" + entry.Key +
            "\" of the connection string asks for another network than TCP (\"DBMSSOCN\"), by which alone SQL "
            "Server is reached.");
    return std::nullopt;
}

GivenValue NoneOfProvider(const ConnectionEntry& entry)
{
    RefuseConnection("The provider of SQL Server has no key \"" + entry.Key +
                     "\": name the server behind \"Data Source\".");
}

struct KeyRow
{
    std::string_view Given;
    std::string_view Driver;
    GivenValue (*ValueOf)(const ConnectionEntry& entry);
};

// The published keywords of the provider, with their other names.
constexpr std::array kKeys{
    KeyRow{"Data Source", kServer, Server},
    KeyRow{"Server", kServer, Server},
    KeyRow{"Address", kServer, Server},
    KeyRow{"Addr", kServer, Server},
    KeyRow{"Network Address", kServer, Server},
    KeyRow{"Servername", "Servername", NoneOfProvider},
    KeyRow{"Initial Catalog", "Database", AsItIs},
    KeyRow{"User ID", "UID", AsItIs},
    KeyRow{"User", "UID", AsItIs},
    KeyRow{"Password", "PWD", AsItIs},
    KeyRow{"Integrated Security", "Trusted_Connection", Trusted},
    KeyRow{"Trusted_Connection", "Trusted_Connection", Trusted},
    KeyRow{"Use Encryption for Data", "Encryption", Encrypted},
    KeyRow{"Encrypt", "Encryption", Encrypted},
    KeyRow{"Application Name", "APP", AsItIs},
    KeyRow{"Workstation ID", "WSID", AsItIs},
    KeyRow{"Current Language", "Language", AsItIs},
    KeyRow{"Packet Size", "PacketSize", AsItIs},
    KeyRow{"Network", "", TcpAlone},
    KeyRow{"Net", "", TcpAlone},
    KeyRow{"Network Library", "", TcpAlone},
    KeyRow{"Auto Translate", "", Nothing},
    KeyRow{"Connect Timeout", "", Nothing}, // the settings have it
    KeyRow{"Connection Timeout", "", Nothing},
    KeyRow{"DataTypeCompatibility", "", Nothing},
    KeyRow{"General Timeout", "", Nothing},
    KeyRow{"Locale Identifier", "", Nothing},
    KeyRow{"MARS Connection", "", Nothing},
    KeyRow{"OLE DB Services", "", Nothing},
    KeyRow{"Persist Security Info", "", Nothing},
    KeyRow{"Prompt", "", Nothing},
    KeyRow{"Replication server name connect option", "", Nothing},
    KeyRow{"Tag with column collation when possible", "", Nothing},
    KeyRow{"Trust Server Certificate", "", Nothing},
    KeyRow{"Use Procedure for Prepare", "", Nothing},
    KeyRow{"Window Handle", "", Nothing},
};

bool IsServer(const ConnectionEntry& entry)
{
    return std::any_of(kKeys.begin(), kKeys.end(), [&](const KeyRow& row) {
        return row.Driver == kServer && text::EqualFolded(row.Given, entry.Key);
    });
}

bool NamesAServer(const Entries& given)
{
    return std::any_of(given.begin(), given.end(),
                       [](const ConnectionEntry& entry) { return !entry.Value.empty() && IsServer(entry); });
}

bool IsAnyRow(const KeyRow& /*row*/)
{
    return true;
}

// SQL Server's own driver knows a server and a network by the same names as the provider.
bool IsRowOfDriver(const KeyRow& row)
{
    return row.Driver.empty() || row.Driver == kServer;
}

void RefuseSecondServer(const Entries& entries)
{
    const auto isServer = [](const ConnectionEntry& entry) { return text::EqualFolded(entry.Key, kServer); };
    if (std::count_if(entries.begin(), entries.end(), isServer) > 1)
        RefuseSecond(std::string(kServer));
}

void RefuseSecondPort(const Entries& entries)
{
    const bool isInServer = std::any_of(entries.begin(), entries.end(), [](const ConnectionEntry& entry) {
        return text::EqualFolded(entry.Key, kServer) && entry.Value.find(',') != std::string::npos;
    });
    if (isInServer && HasKey(entries, "Port"))
        RefuseTwoPorts();
}

Entries Translated(const Entries& given, bool (*counts)(const KeyRow& row))
{
    const bool namesAServer = NamesAServer(given);
    Entries entries;
    for (const ConnectionEntry& entry : given) {
        if (namesAServer && entry.Value.empty() && IsServer(entry))
            continue;
        const auto row = std::find_if(kKeys.begin(), kKeys.end(), [&](const KeyRow& each) {
            return counts(each) && text::EqualFolded(each.Given, entry.Key);
        });
        if (row == kKeys.end())
            entries.push_back(entry);
        else if (GivenValue value = row->ValueOf(entry))
            entries.push_back({.Key = std::string(row->Driver), .Value = std::move(*value)});
    }
    RefuseSecondServer(entries);
    RefuseSecondPort(entries);
    return entries;
}

// The driver takes a data source or a server, not both.
void ReplaceDataSource(Entries& entries, const std::string& dataSource, const InstalledDrivers& installed)
{
    constexpr std::array kKept{"Database"sv, "TDS_Version"sv, "ClientCharset"sv, "Encryption"sv, "Language"sv};
    RemoveKey(entries, "DSN");
    for (const std::string_view each : kKept) {
        const std::string key(each);
        std::string value = installed.DataSourceSetting(dataSource, key);
        if (!value.empty() && !HasKey(entries, key))
            entries.push_back({.Key = key, .Value = std::move(value)});
    }
}

void RequireSetUp(const std::string& tdsDriver, const InstalledDrivers& installed)
{
    if (installed.DriverSetting(tdsDriver, "Driver").empty())
        RefuseConnection(
            "There is no ODBC driver named \"" + tdsDriver +
            "\" on this machine, by which SQL Server would be reached: \"odbcinst -q -d\" lists those that are set "
            "up; \"TdsDriver\" in the section Platform of the settings names another.");
}

bool NamesDriver(const ConnectionEntry& entry, std::string_view driver)
{
    return text::EqualFolded(entry.Key, "Driver") && text::EqualFolded(entry.Value, driver);
}

} // namespace

ConnectionString WithoutQuotes(const ConnectionString& given)
{
    Entries entries = given.Entries();
    for (ConnectionEntry& entry : entries) {
        std::optional<std::string> value = Unquoted(entry.Value);
        if (!value)
            RefuseConnection("The connection string opens a quote at \"" + entry.Key +
                             "\" and does not close it at the end of the value: double the quotes within, and write a "
                             "value with a semicolon in braces.");
        entry.Value = std::move(*value);
    }
    return ConnectionString(std::move(entries));
}

ConnectionString TranslateSqlServerString(const ConnectionString& given, const InstalledDrivers& installed)
{
    Entries entries = Translated(given.Entries(), IsAnyRow);
    RemoveKey(entries, "PROVIDER");
    const std::string dataSource = given.Value("DSN");
    if (!dataSource.empty() && !NamesAServer(given.Entries())) {
        RemoveKey(entries, "Server");
        return ConnectionString(std::move(entries));
    }
    if (!dataSource.empty())
        ReplaceDataSource(entries, dataSource, installed);
    if (!HasKey(entries, "Server"))
        entries.push_back({.Key = "Server", .Value = std::string(kThisMachine)});
    if (!HasKey(entries, "Driver"))
        entries.insert(entries.begin(), {.Key = "Driver", .Value = std::string(kSqlServerDriver)});
    return ConnectionString(std::move(entries));
}

ConnectionString WithStandInDriver(const ConnectionString& given, const InstalledDrivers& installed,
                                   const std::string& tdsDriver)
{
    Entries entries = given.Entries();
    if (installed.DriverSetting(std::string(kSqlServerDriver), "Driver").empty())
        for (ConnectionEntry& entry : entries)
            if (NamesDriver(entry, kSqlServerDriver)) {
                RequireSetUp(tdsDriver, installed);
                entry.Value = tdsDriver;
            }
    const bool namesStandIn = std::any_of(entries.begin(), entries.end(),
                                          [&](const ConnectionEntry& entry) { return NamesDriver(entry, tdsDriver); });
    return namesStandIn ? ConnectionString(Translated(entries, IsRowOfDriver)) : given;
}

} // namespace veldrane
