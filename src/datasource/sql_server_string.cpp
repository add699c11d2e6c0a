#include "datasource/sql_server_string.h"

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
using Entries = std::vector<ConnectionEntry>;
using GivenValue = std::optional<std::string>; // none: the driver is told nothing

constexpr std::string_view kThisMachine = "localhost";

[[noreturn]] void Refuse(const std::string& reason)
{
    throw DataSourceError(data_source_error::kFailed, "ConnectionString", reason);
}

bool IsOneOf(std::string_view word, std::span<const std::string_view> words)
{
    return std::any_of(words.begin(), words.end(),
                       [&](std::string_view each) { return text::EqualFolded(each, word); });
}

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

// "host\instance,port": the port says where the instance is.
GivenValue Server(const ConnectionEntry& entry)
{
    std::string_view value = text::Trim(entry.Value);
    for (const Way& way : kOtherWays)
        if (BeginsWith(value, way.Prefix))
            Refuse("The \"" + entry.Key + "\" of the connection string asks for " + std::string(way.Name) +
                   "; SQL Server is reached by TCP alone.");
    if (BeginsWith(value, "tcp:"))
        value = text::Trim(value.substr(4));
    const std::size_t comma = value.find(',');
    const std::string_view address = text::Trim(value.substr(0, comma));
    const std::size_t backslash = std::min(address.find('\\'), address.size());
    const std::string machine = MachineOf(text::Trim(address.substr(0, backslash)));
    if (comma != std::string_view::npos)
        return machine + "," + std::string(text::Trim(value.substr(comma + 1)));
    return machine + std::string(address.substr(backslash));
}

GivenValue AsItIs(const ConnectionEntry& entry)
{
    return entry.Value;
}

GivenValue Nothing(const ConnectionEntry& /*entry*/)
{
    return std::nullopt;
}

bool Says(const ConnectionEntry& entry, std::span<const std::string_view> yes)
{
    constexpr std::array kNo{""sv, "no"sv, "false"sv, "0"sv};
    if (!IsOneOf(entry.Value, yes) && !IsOneOf(entry.Value, kNo))
        Refuse("The \"" + entry.Key + "\" of the connection string is neither \"" + std::string(yes.front()) +
               "\" nor \"no\".");
    return IsOneOf(entry.Value, yes);
}

GivenValue Trusted(const ConnectionEntry& entry)
{
    constexpr std::array kYes{"SSPI"sv, "yes"sv, "true"sv, "1"sv};
    return Says(entry, kYes) ? GivenValue("Yes") : std::nullopt;
}

GivenValue Encrypted(const ConnectionEntry& entry)
{
    constexpr std::array kYes{"yes"sv, "true"sv, "mandatory"sv, "1"sv};
    return Says(entry, kYes) ? GivenValue("require") : std::nullopt;
}

GivenValue TcpAlone(const ConnectionEntry& entry)
{
    constexpr std::array kTcp{""sv, "DBMSSOCN"sv, "TCPIP"sv};
    if (!IsOneOf(entry.Value, kTcp))
        Refuse("The \"" + entry.Key +
               "\" of the connection string asks for another network than TCP (\"DBMSSOCN\"), by which alone SQL "
               "Server is reached.");
    return std::nullopt;
}

struct KeyRow
{
    std::string_view Given;
    std::string_view Driver;
    GivenValue (*ValueOf)(const ConnectionEntry& entry);
};

// The published keywords of the provider, with their other names.
constexpr std::array kKeys{
    KeyRow{"Data Source", "Server", Server},
    KeyRow{"Server", "Server", Server},
    KeyRow{"Address", "Server", Server},
    KeyRow{"Addr", "Server", Server},
    KeyRow{"Network Address", "Server", Server},
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

Entries Translated(const ConnectionString& given)
{
    Entries entries;
    for (const ConnectionEntry& entry : given.Entries()) {
        const auto row = std::find_if(kKeys.begin(), kKeys.end(),
                                      [&](const KeyRow& each) { return text::EqualFolded(each.Given, entry.Key); });
        if (row == kKeys.end())
            entries.push_back(entry);
        else if (GivenValue value = row->ValueOf(entry))
            entries.push_back({.Key = std::string(row->Driver), .Value = std::move(*value)});
    }
    return entries;
}

bool Has(const Entries& entries, std::string_view key)
{
    return std::any_of(entries.begin(), entries.end(),
                       [&](const ConnectionEntry& entry) { return text::EqualFolded(entry.Key, key); });
}

void Remove(Entries& entries, std::string_view key)
{
    std::erase_if(entries, [&](const ConnectionEntry& entry) { return text::EqualFolded(entry.Key, key); });
}

bool NamesAServer(const ConnectionString& given)
{
    const auto names = [](const ConnectionEntry& entry) {
        return !entry.Value.empty() && std::any_of(kKeys.begin(), kKeys.end(), [&](const KeyRow& row) {
            return row.Driver == "Server" && text::EqualFolded(row.Given, entry.Key);
        });
    };
    return std::any_of(given.Entries().begin(), given.Entries().end(), names);
}

// The driver takes a data source or a server, not both.
void ReplaceDataSource(Entries& entries, const std::string& dataSource, const InstalledDrivers& installed)
{
    constexpr std::array kKept{"Database"sv, "TDS_Version"sv, "ClientCharset"sv, "Encryption"sv, "Language"sv};
    Remove(entries, "DSN");
    for (const std::string_view each : kKept) {
        const std::string key(each);
        std::string value = installed.DataSourceSetting(dataSource, key);
        if (!value.empty() && !Has(entries, key))
            entries.push_back({.Key = key, .Value = std::move(value)});
    }
}

void RequireSetUp(const std::string& tdsDriver, const InstalledDrivers& installed)
{
    if (installed.DriverSetting(tdsDriver, "Driver").empty())
        Refuse("There is no ODBC driver named \"" + tdsDriver +
               "\" on this machine, by which SQL Server would be reached: \"odbcinst -q -d\" lists those that are set "
               "up; \"TdsDriver\" in the section Platform of the settings names another.");
}

} // namespace

ConnectionString TranslateSqlServerString(const ConnectionString& given, const InstalledDrivers& installed)
{
    Entries entries = Translated(given);
    Remove(entries, "PROVIDER");
    const std::string dataSource = given.Value("DSN");
    if (!dataSource.empty() && !NamesAServer(given)) {
        Remove(entries, "Server");
        return ConnectionString(std::move(entries));
    }
    if (!dataSource.empty())
        ReplaceDataSource(entries, dataSource, installed);
    if (!Has(entries, "Server"))
        entries.push_back({.Key = "Server", .Value = std::string(kThisMachine)});
    if (!Has(entries, "Driver"))
        entries.insert(entries.begin(), {.Key = "Driver", .Value = std::string(kSqlServerDriver)});
    return ConnectionString(std::move(entries));
}

ConnectionString WithStandInDriver(const ConnectionString& given, const InstalledDrivers& installed,
                                   const std::string& tdsDriver)
{
    Entries entries = given.Entries();
    for (ConnectionEntry& entry : entries) {
        if (!text::EqualFolded(entry.Key, "Driver") || !text::EqualFolded(entry.Value, kSqlServerDriver) ||
            !installed.DriverSetting(entry.Value, "Driver").empty())
            continue;
        RequireSetUp(tdsDriver, installed);
        entry.Value = tdsDriver;
    }
    return ConnectionString(std::move(entries));
}

} // namespace veldrane
