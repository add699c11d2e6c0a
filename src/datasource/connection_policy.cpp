#include "datasource/connection_policy.h"

#include "datasource/connection_entries.h"
#include "datasource/providers.h"
#include "datasource/sql_server_string.h"
#include "text/case_folding.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace veldrane {
namespace {

using namespace std::string_view_literals;
using Entries = ConnectionEntries;

constexpr std::array kPasswordKeys{"PWD"sv, "Password"sv};
constexpr std::array kServerKeys{"Server"sv, "Servername"sv};

enum class Provider
{
    Odbc,
    SqlServer,
    Jet,
};

Provider ProviderCalled(const std::string& name)
{
    constexpr std::array kProviders{std::pair{kOdbcProvider, Provider::Odbc},
                                    std::pair{kSqlServerProvider, Provider::SqlServer},
                                    std::pair{kJetProvider, Provider::Jet}};
    for (const auto& [known, provider] : kProviders)
        if (NamesProvider(name, known))
            return provider;
    RefuseConnection("The connection string asks for the provider \"" + name +
                     "\"; there are MSDASQL, SQLOLEDB and Microsoft.Jet.OLEDB.4.0, to be named without quotes.");
}

Provider ProviderOf(const ConnectionString& given)
{
    std::optional<Provider> told;
    for (const ConnectionEntry& entry : given.Entries()) {
        if (!text::EqualFolded(entry.Key, "PROVIDER"))
            continue;
        const Provider provider = ProviderCalled(entry.Value);
        if (told.value_or(provider) != provider)
            RefuseConnection("The connection string asks for two providers.");
        told = provider;
    }
    if (told == Provider::Jet)
        RefuseConnection("The connection string asks for the provider \"" + std::string(kJetProvider) +
                         "\", which does not lead to an ODBC driver as MSDASQL and SQLOLEDB do.");
    return told.value_or(Provider::Odbc);
}

// The string as a driver manager could read it.
ConnectionString InKeysOfOdbc(const ConnectionString& given, Provider provider, const InstalledDrivers& installed,
                              const LogonRules& rules)
{
    return WithStandInDriver(provider == Provider::SqlServer ? TranslateSqlServerString(given, installed) : given,
                             installed, rules.TdsDriver);
}

// What the string is to reach, and the driver that stands behind it.
struct Target
{
    std::string DataSource; // "" if the string names a driver
    std::string Driver;
    const DriverProfile* Profile = nullptr;
};

bool IsPath(std::string_view driver)
{
    return driver.find_first_of("/\\") != std::string_view::npos;
}

// The driver that the settings name for SQL Server is one for it, whatever its library is called.
const DriverProfile& ProfileOfTarget(const std::string& driver, const InstalledDrivers& installed,
                                     const LogonRules& rules)
{
    const DriverProfile& profile = ProfileOfDriver(driver, installed);
    const bool isStandIn = profile.Family == DriverFamily::Other && text::EqualFolded(driver, rules.TdsDriver);
    return isStandIn ? ProfileOf(kTdsLibrary) : profile;
}

Target FindTarget(const ConnectionString& given, const InstalledDrivers& installed, const LogonRules& rules)
{
    for (const ConnectionEntry& entry : given.Entries())
        if (entry.Value.empty() && text::EqualFolded(entry.Key, "Driver"))
            RefuseConnection("The connection string has an empty \"Driver\".");
    Target target{.DataSource = given.Value("DSN"), .Driver = given.Value("Driver")};
    if (target.DataSource.empty() && target.Driver.empty())
        RefuseConnection("The connection string names neither a data source (DSN) nor a driver (Driver).");
    const std::string driver =
        target.Driver.empty() ? installed.DataSourceSetting(target.DataSource, "Driver") : target.Driver;
    target.Profile = &ProfileOfTarget(driver, installed, rules);
    return target;
}

void RefuseOtherDatabase(const Target& target)
{
    if (target.Profile->Family == DriverFamily::Tds || target.Profile->Family == DriverFamily::Other)
        return;
    RefuseConnection("The connection string asks for SQL Server, and the " +
                     (target.Driver.empty() ? "data source \"" + target.DataSource : "driver \"" + target.Driver) +
                     "\" is for another kind of database.");
}

void RefuseUnknownDataSource(const std::string& name, const InstalledDrivers& installed)
{
    if (!name.empty() && installed.DataSourceSetting(name, "Driver").empty())
        RefuseConnection("There is no ODBC data source named \"" + name +
                         "\" on this machine: \"odbcinst -q -s\" lists those that are set up.");
}

// A server beside it takes its place; so it is looked at before.
void RefuseOtherDataSource(const ConnectionString& given, const InstalledDrivers& installed, const LogonRules& rules)
{
    const std::string name = given.Value("DSN");
    if (name.empty())
        return;
    RefuseUnknownDataSource(name, installed);
    const std::string driver = installed.DataSourceSetting(name, "Driver");
    RefuseOtherDatabase({.DataSource = name, .Driver = {}, .Profile = &ProfileOfTarget(driver, installed, rules)});
}

// The driver manager loads what stands behind "Driver" as a library when it knows no driver of that name.
void RefuseUnknownTarget(const Target& target, const InstalledDrivers& installed)
{
    if (!target.DataSource.empty() && !target.Driver.empty())
        RefuseConnection("The connection string of a project may set \"DSN\" or \"Driver\", not both.");
    if (IsPath(target.Driver))
        RefuseConnection("A project may not name a library as its \"Driver\".");
    if (!target.Driver.empty() && installed.DriverSetting(target.Driver, "Driver").empty())
        RefuseConnection("There is no ODBC driver named \"" + target.Driver +
                         "\" on this machine: \"odbcinst -q -d\" lists those that are set up.");
    RefuseUnknownDataSource(target.DataSource, installed);
}

// The wide calls of the driver manager look for another name then.
void RefuseNameBeyondAscii(const Target& target, const InstalledDrivers& installed)
{
    const std::string& name = target.DataSource;
    const bool isAscii = std::all_of(name.begin(), name.end(), [](unsigned char c) { return c < 0x80; });
    if (!isAscii && target.Profile->Width == CallWidth::Wide && !installed.DataSourceSetting(name, "Driver").empty())
        RefuseConnection(
            "The ODBC driver manager can't find the data source \"" + name +
            "\" for its driver, for the name has letters beyond ASCII: rename the data source, or name its driver "
            "(Driver) and its keys in the connection string instead.");
}

void RefuseForeignKeys(const ConnectionString& given, const DriverProfile& profile)
{
    Entries seen;
    for (const ConnectionEntry& entry : given.Entries()) {
        if (!text::EqualFolded(entry.Key, "PROVIDER") && !IsOneOf(entry.Key, profile.ProjectKeys))
            RefuseConnection("A project may not set the key \"" + entry.Key +
                             "\" of a connection string; a data source that you have set up yourself may.");
        // A password for the database comes as a second one, behind that of the login.
        if (HasKey(seen, entry.Key) && !IsOneOf(entry.Key, kPasswordKeys))
            RefuseSecond(entry.Key);
        seen.push_back(entry);
        if (text::EqualFolded(entry.Key, "Database") && profile.IsPlainDatabase &&
            !profile.IsPlainDatabase(entry.Value))
            RefuseConnection("The \"Database\" of a project's connection string may not carry options.");
    }
}

// Beside a data source the connection dialog writes login and password even where none was typed. To a driver such an
// entry would be the login, in place of the data source's own.
bool IsIdle(const ConnectionEntry& entry, const Target& target)
{
    constexpr std::array kLoginKeys{"UID"sv, "PWD"sv};
    return entry.Value.empty() &&
           (text::EqualFolded(entry.Key, "DSN") || (!target.DataSource.empty() && IsOneOf(entry.Key, kLoginKeys)));
}

bool IsNumber(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// "host,port" and "host:port"; more than one colon is an address of the newer kind.
void SplitPort(Entries& entries)
{
    if (HasKey(entries, "Port"))
        return;
    for (ConnectionEntry& entry : entries) {
        const std::size_t comma = entry.Value.find(',');
        const std::size_t at = comma != std::string::npos ? comma : entry.Value.find(':');
        if (!IsOneOf(entry.Key, kServerKeys) || at == std::string::npos || !IsNumber(entry.Value.substr(at + 1)))
            continue;
        const std::string port = entry.Value.substr(at + 1);
        entry.Value.erase(at);
        entries.push_back({.Key = "Port", .Value = port});
        return;
    }
}

// The driver takes any number modulo 65536, and what is none for some port.
void RequirePorts(const Entries& entries)
{
    for (const ConnectionEntry& entry : entries)
        if (!entry.Value.empty() && text::EqualFolded(entry.Key, "Port"))
            RequirePort(entry.Key, entry.Value);
}

bool Stands(std::string_view value, const DriverAddition& addition)
{
    return !value.empty() && (addition.Accepted.empty() || IsOneOf(value, addition.Accepted));
}

void RemoveWhatDoesNotStand(Entries& entries, const Target& target)
{
    for (const DriverAddition& addition : target.Profile->Additions)
        std::erase_if(entries, [&](const ConnectionEntry& entry) {
            return text::EqualFolded(entry.Key, addition.Key) && !Stands(entry.Value, addition);
        });
}

bool IsSet(const Entries& entries, const Target& target, const InstalledDrivers& installed,
           const DriverAddition& addition)
{
    return HasKey(entries, addition.Key) ||
           (!target.DataSource.empty() &&
            Stands(installed.DataSourceSetting(target.DataSource, std::string(addition.Key)), addition));
}

bool IsTimeout(const DriverAddition& addition)
{
    return addition.Value.empty();
}

std::string TimeoutKeyOf(const Entries& entries, const Target& target, const InstalledDrivers& installed)
{
    const auto& additions = target.Profile->Additions;
    const auto found = std::find_if(additions.begin(), additions.end(), [&](const DriverAddition& addition) {
        return IsTimeout(addition) && IsSet(entries, target, installed, addition);
    });
    return found == additions.end() ? "" : std::string(found->Key);
}

void AddForDriver(Entries& entries, const Target& target, const InstalledDrivers& installed, const LogonRules& rules)
{
    for (const DriverAddition& addition : target.Profile->Additions) {
        const std::string key(addition.Key);
        if (addition.Rule == AdditionRule::AlwaysOfProject && rules.Origin == StringOrigin::ProjectFile)
            RemoveKey(entries, key);
        else if (IsSet(entries, target, installed, addition))
            continue;
        entries.push_back({.Key = key,
                           .Value = IsTimeout(addition) ? std::to_string(rules.ConnectTimeout.count())
                                                        : std::string(addition.Value)});
    }
}

bool NeedsBraces(const ConnectionEntry& entry)
{
    return !entry.Value.empty() &&
           (IsOneOf(entry.Key, kPasswordKeys) || entry.Value.front() == ' ' || entry.Value.back() == ' ' ||
            entry.Value.find_first_of("[]{}(),;?*=!@%") != std::string::npos);
}

bool MayStandInBraces(const ConnectionEntry& entry, const DriverProfile& profile, StringOrigin origin)
{
    if (!profile.BracedKeys.empty() && !IsOneOf(entry.Key, profile.BracedKeys))
        return false;
    switch (profile.Syntax) {
    case ValueSyntax::Braced:
        return true;
    case ValueSyntax::Unescaped:
        return entry.Value.find('}') == std::string::npos;
    case ValueSyntax::Plain:
        return false;
    case ValueSyntax::Unknown:
        break;
    }
    return origin == StringOrigin::CommandLine;
}

std::string Written(const ConnectionEntry& entry, const DriverProfile& profile, StringOrigin origin)
{
    if (MayStandInBraces(entry, profile, origin))
        return NeedsBraces(entry) ? Braced(entry.Value) : entry.Value;
    if (entry.Value.find(';') != std::string::npos || entry.Value.starts_with('{'))
        RefuseConnection("The driver can't be given the value of \"" + entry.Key +
                         "\": it has a semicolon in it or begins with a brace.");
    return entry.Value;
}

// Where the string names no login, the drivers for SQL Server take that of the system, whatever a data source has.
bool IsTrusted(const ConnectionString& given, const DriverProfile& profile)
{
    return text::EqualFolded(given.Value("Trusted_Connection"), "Yes") ||
           (profile.Family == DriverFamily::Tds && given.Value("UID").empty());
}

std::string ServerOf(const ConnectionString& given)
{
    for (const std::string_view key : kServerKeys)
        if (!given.Value(key).empty())
            return given.Value(key);
    return given.Value("Socket");
}

} // namespace

const DriverProfile& ProfileOfDriver(const std::string& driver, const InstalledDrivers& installed)
{
    const std::string library = IsPath(driver) ? driver : installed.DriverSetting(driver, "Driver");
    return ProfileOf(library.empty() ? driver : library);
}

OdbcLogon BuildOdbcLogon(const ConnectionString& text, const InstalledDrivers& installed, const LogonRules& rules)
{
    const Provider provider = ProviderOf(text);
    const ConnectionString given = provider == Provider::SqlServer ? WithoutQuotes(text) : text;
    if (provider == Provider::SqlServer)
        RefuseOtherDataSource(given, installed, rules);
    const ConnectionString odbc = InKeysOfOdbc(given, provider, installed, rules);
    const Target target = FindTarget(odbc, installed, rules);
    if (provider == Provider::SqlServer)
        RefuseOtherDatabase(target);
    if (rules.Origin == StringOrigin::ProjectFile) {
        RefuseUnknownTarget(target, installed);
        RefuseForeignKeys(odbc, *target.Profile);
    }
    RefuseNameBeyondAscii(target, installed);
    Entries entries = odbc.Entries();
    RemoveKey(entries, "PROVIDER");
    std::erase_if(entries, [&](const ConnectionEntry& entry) { return IsIdle(entry, target); });
    if (target.Profile->PortIsOwnKey)
        SplitPort(entries);
    if (target.Profile->Family == DriverFamily::Tds)
        RequirePorts(entries);
    RemoveWhatDoesNotStand(entries, target);
    const std::string timeoutKey = TimeoutKeyOf(entries, target, installed);
    AddForDriver(entries, target, installed, rules);

    OdbcLogon logon{.Text = {},
                    .Profile = target.Profile,
                    .Database = odbc.Value("Database"),
                    .Server = ServerOf(odbc),
                    .Driver = target.Driver,
                    .DataSource = target.DataSource,
                    .IsTrusted = IsTrusted(odbc, *target.Profile),
                    .TimeoutKey = timeoutKey,
                    .Keys = provider == Provider::SqlServer ? SqlServerLogonKeys(given) : LogonKeys()};
    for (const ConnectionEntry& entry : entries)
        logon.Text += entry.Key + "=" + Written(entry, *target.Profile, rules.Origin) + ";";
    return logon;
}

} // namespace veldrane
