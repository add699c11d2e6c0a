#include "datasource/connection_string.h"
#include "datasource/connection_policy.h"
#include "datasource/providers.h"
#include "datasource/sql_server_string.h"
#include "fuzz_input.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// An input is a connection string as a project file may hold it. What comes out for the driver is read again here in
// every way in which a driver manager or a driver of that kind would read it.
namespace veldrane {
namespace {

using namespace std::string_view_literals;

using veldrane::testing::Require;

using Pair = std::pair<std::string, std::string>;
using Pairs = std::vector<Pair>;

constexpr const char* kStandIn = "t"; // for SQL Server's own driver

std::string Lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

std::string Trimmed(const std::string& text)
{
    const auto isBlank = [](unsigned char c) { return std::isspace(c) != 0; };
    const auto begin = std::find_if_not(text.begin(), text.end(), isBlank);
    const auto end = std::find_if_not(text.rbegin(), std::make_reverse_iterator(begin), isBlank).base();
    return {begin, end};
}

// Drivers and data sources of every kind. Names are compared as the driver manager does, without regard to case.
class Machine : public InstalledDrivers
{
  public:
    [[nodiscard]] std::string DataSourceSetting(const std::string& dataSource, const std::string& key) const override
    {
        return Setting(kDataSources, dataSource, key);
    }

    [[nodiscard]] std::string DriverSetting(const std::string& driver, const std::string& key) const override
    {
        return Setting(kDrivers, driver, key);
    }

  private:
    using Sections = std::map<std::string, std::map<std::string, std::string>>;

    static std::string Setting(const Sections& sections, const std::string& section, const std::string& key)
    {
        const auto found = sections.find(Lower(section));
        if (found == sections.end() || !found->second.contains(Lower(key)))
            return "";
        return found->second.at(Lower(key));
    }

    inline static const Sections kDrivers{
        {"s", {{"driver", "libsqlite3odbc.so"}}}, {"p", {{"driver", "/usr/lib/odbc/psqlodbcw.so"}}},
        {"m", {{"driver", "libmaodbc.so"}}},      {"t", {{"driver", "libtdsodbc.so"}}},
        {"o", {{"driver", "libother.so"}}},       {"drivers' own {name}", {{"driver", "libtdsodbc.so"}}},
    };
    inline static const Sections kDataSources{
        {"s", {{"driver", "S"}, {"nocreat", "0"}, {"timeout", "5"}}},
        {"p", {{"driver", "psqlodbcw.so"}, {"boolsaschar", "1"}}},
        {"m", {{"driver", "m"}}},
        {"t", {{"driver", "libtdsodbc.so"}, {"tds_version", "7.1"}, {"pwd", "its own"}, {"encryption", "require"}}},
        {"o", {{"driver", "/opt/other.so"}}},
    };
};

// How a value that begins with a brace comes to its end.
enum class Brace
{
    IsALetter,       // at the next semicolon, as any other
    ClosesUnlessTwo, // at the first brace that is not doubled
    ClosesAtOne,     // at the first closing brace
    ClosesAtTheEnd,  // at the first closing brace before a semicolon or the end
};

// How a value that begins with a quote comes to its end.
enum class Quote
{
    IsALetter,
    Closes, // at the next quote
};

// Whose braces count.
enum class BracesOf
{
    AllKeys,
    Passwords, // and of the keys that hold options of their own
};

struct Reading
{
    Brace AtBrace = Brace::IsALetter;
    Quote AtQuote = Quote::IsALetter;
    BracesOf Keys = BracesOf::AllKeys;
};

bool Closes(std::string_view text, std::size_t at, Brace brace)
{
    if (text[at] != '}')
        return false;
    return brace != Brace::ClosesAtTheEnd || at + 1 == text.size() || text[at + 1] == ';';
}

std::string TakeBraced(std::string_view text, std::size_t& at, Brace brace)
{
    std::string value;
    for (++at; at < text.size(); ++at) {
        if (brace == Brace::ClosesUnlessTwo && text.substr(at, 2) == "}}")
            ++at;
        else if (Closes(text, at, brace))
            break;
        value += text[at];
    }
    return value;
}

std::string TakeValue(std::string_view text, std::size_t& at, const Reading& reading)
{
    std::string value;
    if (at < text.size() && text[at] == '{' && reading.AtBrace != Brace::IsALetter)
        value = TakeBraced(text, at, reading.AtBrace);
    else if (at < text.size() && (text[at] == '"' || text[at] == '\'') && reading.AtQuote == Quote::Closes)
        for (const char quote = text[at++]; at < text.size() && text[at] != quote; ++at)
            value += text[at];
    else
        while (at < text.size() && text[at] != ';')
            value += text[at++];
    at = std::min(text.find(';', at), text.size());
    return value;
}

Reading ReadingOf(const std::string& key, const Reading& reading)
{
    constexpr std::array<std::string_view, 5> kBraced{"pwd", "password", "connsettings", "a6", "pqopt"};
    if (reading.Keys == BracesOf::AllKeys || std::find(kBraced.begin(), kBraced.end(), key) != kBraced.end())
        return reading;
    return {};
}

Pairs Read(std::string_view text, const Reading& reading)
{
    Pairs pairs;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::size_t end = std::min(text.find_first_of("=;", at), text.size());
        Pair pair{Lower(Trimmed(std::string(text.substr(at, end - at)))), ""};
        at = end;
        if (at < text.size() && text[at] == '=')
            pair.second = TakeValue(text, ++at, ReadingOf(pair.first, reading));
        if (!pair.first.empty() || !pair.second.empty())
            pairs.push_back(std::move(pair));
    }
    return pairs;
}

// The driver manager reads the string before the driver does: braces close unless they are doubled.
std::vector<Reading> ReadingsOf(DriverFamily family)
{
    const Reading driverManager{.AtBrace = Brace::ClosesUnlessTwo};
    switch (family) {
    case DriverFamily::Sqlite:
        return {driverManager, {.AtBrace = Brace::IsALetter}};
    case DriverFamily::PostgreSql:
        return {driverManager, {.AtBrace = Brace::ClosesUnlessTwo, .Keys = BracesOf::Passwords}};
    case DriverFamily::MariaDb:
        return {driverManager};
    case DriverFamily::Tds:
        return {driverManager, {.AtBrace = Brace::ClosesAtTheEnd}};
    case DriverFamily::Other:
        break;
    }
    return {driverManager,
            {.AtBrace = Brace::IsALetter},
            {.AtBrace = Brace::ClosesAtOne},
            {.AtBrace = Brace::ClosesAtTheEnd},
            {.AtBrace = Brace::IsALetter, .AtQuote = Quote::Closes}};
}

// Keys that load a library, run a statement or reach a file that no project has to do with, of all drivers.
const std::vector<std::string> kHarmful{
    "loadext",      "tracefile",     "journalmode",         "filedsn",
    "savefile",     "trace",         "plugin_dir",          "initstmt",
    "option",       "dumpfile",      "connsettings",        "pqopt",
    "commlog",      "debug",         "debugflags",          "translationdll",
    "default_file", "default_group", "extended properties", "provider",
};

bool IsListed(const std::string& key, const DriverProfile& profile)
{
    return std::any_of(profile.ProjectKeys.begin(), profile.ProjectKeys.end(),
                       [&](std::string_view listed) { return Lower(std::string(listed)) == key; });
}

Pairs::const_iterator FindKey(const Pairs& pairs, const std::string& key)
{
    return std::find_if(pairs.begin(), pairs.end(), [&](const Pair& pair) { return pair.first == key; });
}

void CheckTarget(const Pairs& pairs)
{
    const Machine machine;
    const auto dataSource = FindKey(pairs, "dsn");
    const auto driver = FindKey(pairs, "driver");
    Require((dataSource == pairs.end()) != (driver == pairs.end()), "a project names a data source or a driver");
    if (driver == pairs.end())
        Require(!machine.DataSourceSetting(dataSource->second, "Driver").empty(), "the data source is set up");
    else
        Require(!machine.DriverSetting(driver->second, "Driver").empty(), "the driver is set up");
}

// A path that makes a file, and names in which options hide.
void CheckDatabase(const Pairs& pairs, DriverFamily family)
{
    const auto database = FindKey(pairs, "database");
    const std::string name = database == pairs.end() ? "" : database->second;
    if (family == DriverFamily::Sqlite) {
        const auto noCreate = FindKey(pairs, "nocreat");
        Require(noCreate != pairs.end() && noCreate->second == "1", "a project makes no database file");
        Require(!Lower(name).starts_with("file:"), "a project's file carries no options");
    }
    if (family == DriverFamily::PostgreSql)
        Require(name.find('=') == name.npos && !name.starts_with("postgres://") && !name.starts_with("postgresql://"),
                "a project's database carries no options");
}

void CheckKeys(const Pairs& pairs, const DriverProfile& profile)
{
    for (auto pair = pairs.begin(); pair != pairs.end(); ++pair) {
        Require(IsListed(pair->first, profile), "a project sets listed keys alone");
        Require(std::find(kHarmful.begin(), kHarmful.end(), pair->first) == kHarmful.end(),
                "a project sets no key that does harm");
        const bool isPassword = pair->first == "pwd" || pair->first == "password";
        Require(isPassword || FindKey(pairs, pair->first) == pair, "a project sets a key once");
    }
}

void CheckProjectLogon(const OdbcLogon& logon)
{
    Require(logon.Profile != nullptr, "a logon knows its driver");
    Require(std::none_of(logon.Text.begin(), logon.Text.end(), [](unsigned char c) { return std::iscntrl(c); }),
            "a driver is given no control characters");
    for (const Reading& reading : ReadingsOf(logon.Profile->Family)) {
        const Pairs pairs = Read(logon.Text, reading);
        CheckKeys(pairs, *logon.Profile);
        CheckTarget(pairs);
        CheckDatabase(pairs, logon.Profile->Family);
    }
}

// A value with which the driver could do nothing, or nothing good, gives way to the program's own.
bool GivesWay(const ConnectionEntry& entry, const DriverProfile& profile)
{
    return std::any_of(profile.Additions.begin(), profile.Additions.end(), [&](const DriverAddition& addition) {
        const auto& accepted = addition.Accepted;
        return Lower(std::string(addition.Key)) == Lower(entry.Key) &&
               (entry.Value.empty() ||
                (!accepted.empty() && std::find(accepted.begin(), accepted.end(), entry.Value) == accepted.end()));
    });
}

// Whether the entry names SQL Server's own driver, or the one that stands in for it.
bool IsTranslated(const ConnectionEntry& entry)
{
    return Lower(entry.Key) == "driver" &&
           (Lower(entry.Value) == "sql server" || Lower(entry.Value) == Lower(std::string(kStandIn)));
}

// A value that names a server of SQL Server, without what says nothing of the place: "tcp:[fe80::1]:9" as "fe80::1:9".
std::string BarePlace(const std::string& value)
{
    std::string place = Lower(Trimmed(value));
    if (place.starts_with("tcp:"))
        place.erase(0, 4);
    std::erase_if(place, [](char c) { return c == ' ' || c == '[' || c == ']'; });
    return place;
}

bool IsPort(const std::string& text)
{
    constexpr int kLast = 65535;
    const bool isNumber = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
    return isNumber && std::stod(text) >= 1 && std::stod(text) <= kLast;
}

// Whether "machine", "machine\\instance" or "machine,port" is the place that the value names. A port says where the
// instance is, which is then left out.
bool IsPlaceOf(const std::string& value, const std::string& arrived)
{
    std::string given = BarePlace(value);
    const std::size_t comma = std::min(arrived.find(','), arrived.size());
    const std::string port = arrived.substr(comma);
    if (!port.empty()) {
        const bool isGiven = given.ends_with(port) || given.ends_with(":" + port.substr(1));
        if (!isGiven || !IsPort(port.substr(1)))
            return false;
        given.erase(given.size() - port.size());
    }
    const std::size_t backslash = std::min(given.find('\\'), given.size());
    const std::string machine = given.substr(0, backslash);
    const bool isThisMachine = machine.empty() || machine == "." || machine == "(local)";
    return BarePlace(arrived.substr(0, comma)) ==
           (isThisMachine ? "localhost" : machine) + (port.empty() ? given.substr(backslash) : "");
}

// Its port may have been taken off.
void CheckServerArrives(const ConnectionEntry& entry, const std::string& server, const Pairs& arrived)
{
    const auto found = FindKey(arrived, "port");
    const std::string port = found == arrived.end() ? "" : found->second;
    Require(server == entry.Value || server + "," + port == entry.Value || server + ":" + port == entry.Value,
            "a server arrives with its port");
}

void CheckValuesArrive(const ConnectionString& given, const Pairs& arrived, const DriverProfile& profile)
{
    auto next = arrived.begin();
    for (const ConnectionEntry& entry : given.Entries()) {
        const std::string key = Lower(entry.Key);
        const bool isIdle =
            entry.Value.empty() && (key == "dsn" || (!given.Value("DSN").empty() && (key == "uid" || key == "pwd")));
        if (key == "provider" || isIdle || GivesWay(entry, profile))
            continue;
        Require(next != arrived.end() && next->first == key, "keys arrive in their order");
        if (key == "server" || key == "servername")
            CheckServerArrives(entry, next->second, arrived);
        else
            Require(next->second == entry.Value, "values arrive as they are");
        ++next;
    }
}

bool IsQuoted(const std::string& value)
{
    return value.starts_with('"') || value.starts_with('\'');
}

// A string for SQL Server is translated: whatever else changes, the password that counts does not. Quotes are taken
// off, which is tested by itself.
void CheckPasswordArrives(const ConnectionString& given, const OdbcLogon& logon,
                          std::initializer_list<std::string_view> keys)
{
    std::string password;
    for (const ConnectionEntry& entry : given.Entries())
        if (std::find(keys.begin(), keys.end(), Lower(entry.Key)) != keys.end())
            password = entry.Value;
    if (IsQuoted(password))
        return;
    if (password.empty())
        return;
    for (const Reading& reading : ReadingsOf(logon.Profile->Family)) {
        const Pairs arrived = Read(logon.Text, reading);
        const auto last =
            std::find_if(arrived.rbegin(), arrived.rend(), [](const Pair& pair) { return pair.first == "pwd"; });
        Require(last != arrived.rend() && last->second == password, "the password arrives as it is");
    }
}

// Of a driver for SQL Server the names of a server are translated too.
void CheckTranslationArrives(const ConnectionString& given, const OdbcLogon& logon)
{
    constexpr std::array kServerKeys{"data source"sv, "server"sv, "address"sv, "addr"sv, "network address"sv};
    CheckPasswordArrives(given, logon, {"pwd"});
    for (const Reading& reading : ReadingsOf(logon.Profile->Family)) {
        const Pairs arrived = Read(logon.Text, reading);
        const auto server = FindKey(arrived, "server");
        const auto port = FindKey(arrived, "port");
        for (const ConnectionEntry& entry : given.Entries()) {
            const bool isServer =
                std::find(kServerKeys.begin(), kServerKeys.end(), Lower(entry.Key)) != kServerKeys.end();
            // Brackets around an address are taken off, others belong to the name.
            const bool hasBrackets = entry.Value.find_first_of("[]") != std::string::npos;
            if (!isServer || hasBrackets || Trimmed(entry.Value).empty() || IsQuoted(Trimmed(entry.Value)))
                continue;
            Require(server != arrived.end(), "a server arrives");
            Require(IsPlaceOf(entry.Value, server->second) ||
                        (port != arrived.end() && IsPlaceOf(entry.Value, server->second + "," + port->second)),
                    "a server of SQL Server arrives as a machine with its port or its instance");
        }
    }
}

// Whoever gives it, a string means to a driver that reads braces what it means to us.
void CheckValuesArrive(const ConnectionString& given, const OdbcLogon& logon)
{
    if (logon.Profile->Syntax != ValueSyntax::Braced && logon.Profile->Syntax != ValueSyntax::Unescaped)
        return;
    if (NamesProvider(given.Value("PROVIDER"), kSqlServerProvider))
        CheckPasswordArrives(given, logon, {"pwd", "password"});
    else if (std::any_of(given.Entries().begin(), given.Entries().end(), IsTranslated))
        CheckTranslationArrives(given, logon);
    else
        for (const Reading& reading : ReadingsOf(logon.Profile->Family))
            CheckValuesArrive(given, Read(logon.Text, reading), *logon.Profile);
}

std::optional<ConnectionString> Parsed(const std::string& text)
{
    try {
        return ConnectionString(text);
    } catch (const DataSourceError& error) {
        Require(error.Number == data_source_error::kFailed, "a connection string is refused as a failure");
        return std::nullopt;
    }
}

LogonRules RulesOf(StringOrigin origin)
{
    return {.Origin = origin, .ConnectTimeout = std::chrono::seconds(7), .TdsDriver = kStandIn};
}

std::string RefusalOf(const std::string& text, StringOrigin origin)
{
    try {
        static_cast<void>(BuildOdbcLogon(ConnectionString(text), Machine(), RulesOf(origin)));
    } catch (const DataSourceError& error) {
        return error.Description();
    }
    return "";
}

// Quotes and braces stand doubled where they are written, so the value itself may stand elsewhere.
bool IsWrittenOtherwise(const std::string& value)
{
    return value.find_first_of("\"'}") != std::string::npos;
}

// Another one of the same shape, which the rules treat alike.
std::string OtherPassword(std::string password)
{
    std::replace_if(
        password.begin(), password.end(), [](unsigned char c) { return std::isalnum(c) != 0; }, 'Z');
    return password;
}

// A refusal that shows a password shows it with any other password too: the words were its own.
void CheckKeepsSecret(const std::string& refusal, const std::string& text, const ConnectionString& given,
                      StringOrigin origin)
{
    for (const ConnectionEntry& entry : given.Entries()) {
        const std::size_t at = text.find(entry.Value);
        if (Lower(entry.Key) != "pwd" || entry.Value.size() < 8 || at == std::string::npos ||
            at != text.rfind(entry.Value) || refusal.find(entry.Value) == std::string::npos ||
            IsWrittenOtherwise(entry.Value))
            continue;
        std::string other = text;
        other.replace(at, entry.Value.size(), OtherPassword(entry.Value));
        Require(RefusalOf(other, origin) == refusal, "a refusal keeps the password");
    }
}

std::optional<OdbcLogon> Built(const std::string& text, const ConnectionString& given, StringOrigin origin)
{
    try {
        return BuildOdbcLogon(given, Machine(), RulesOf(origin));
    } catch (const DataSourceError& error) {
        Require(error.Number == data_source_error::kFailed, "a connection string is refused as a failure");
        CheckKeepsSecret(error.Description(), text, given, origin);
        return std::nullopt;
    }
}

} // namespace
} // namespace veldrane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace veldrane;
    const std::string text(testing::TextOf(data, size));
    const auto given = Parsed(text);
    if (!given)
        return 0;
    if (const auto logon = Built(text, *given, StringOrigin::ProjectFile)) {
        CheckProjectLogon(*logon);
        CheckValuesArrive(*given, *logon);
    }
    if (const auto logon = Built(text, *given, StringOrigin::CommandLine))
        CheckValuesArrive(*given, *logon);
    return 0;
}
