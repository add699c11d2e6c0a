#include "shell/project_connection.h"

#include "datasource/connection_string.h"
#include "datasource/jet/jet_logon.h"
#include "datasource/logon/logon_string.h"
#include "datasource/logon/providers.h"
#include "datasource/logon/store_logon.h"
#include "text/case_folding.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace veldrane {
namespace {

bool AsksForSqlServer(const ConnectionString& parsed)
{
    return NamesProvider(parsed.Value("PROVIDER"), kSqlServerProvider);
}

// Of the providers, that for ODBC alone takes no quotes off.
std::string ValueOf(const ConnectionString& parsed, std::string_view key)
{
    return AsksForJet(parsed) || AsksForSqlServer(parsed) ? JetValue(parsed, key) : parsed.Value(key);
}

// Providers and drivers have several names for the same thing.
std::string FirstOf(const ConnectionString& parsed, std::initializer_list<std::string_view> keys)
{
    for (const std::string_view key : keys)
        if (parsed.Contains(key))
            return ValueOf(parsed, key);
    return {};
}

// Behind "Data Source" Jet has its file, SQL Server the machine it runs on.
std::string DatabaseOf(const ConnectionString& parsed, bool isJet)
{
    return isJet ? ValueOf(parsed, "Data Source") : FirstOf(parsed, {"Database", "DBQ", "Initial Catalog"});
}

// A login that nobody typed stands in a Jet string too.
std::string LoginOf(const ConnectionString& parsed, bool isJet)
{
    std::string login = ValueOf(parsed, parsed.Contains("UID") ? "UID" : "User ID");
    return isJet && text::EqualFolded(login, kJetUser) ? "" : login;
}

// For SQL Server it is the one that is chosen, beside a data source too.
std::string DriverOf(const ConnectionString& parsed, const DriverManager& installed)
{
    if (AsksForJet(parsed))
        return std::string(kJetProvider);
    const std::string name = parsed.Value("DSN");
    if (name.empty() || AsksForSqlServer(parsed))
        return ValueOf(parsed, "Driver");
    const std::vector<OdbcDataSource> sources = installed.DataSources();
    const auto found = std::find_if(sources.begin(), sources.end(),
                                    [&](const OdbcDataSource& source) { return text::EqualFolded(source.Name, name); });
    return found == sources.end() ? "" : found->Driver;
}

bool IsProvider(const ConnectionEntry& entry)
{
    return text::EqualFolded(entry.Key, "PROVIDER");
}

std::string WithProviderFirst(const std::string& text, const ConnectionString& parsed)
{
    if (!parsed.Contains("PROVIDER"))
        return "PROVIDER=MSDASQL;" + text;
    std::vector<ConnectionEntry> entries = parsed.Entries();
    if (IsProvider(entries.front()))
        return text;
    std::stable_partition(entries.begin(), entries.end(), IsProvider);
    std::string moved;
    for (const ConnectionEntry& entry : entries)
        moved += IsProvider(entry) ? entry.Key + "=" + entry.Value + ";" : LogonEntry(entry.Key + "=", entry.Value);
    return moved;
}

} // namespace

void SetConnection(TTCProject& project, const std::string& text, const DriverManager& installed)
{
    const ConnectionString parsed(text);
    const bool isJet = AsksForJet(parsed);
    StoreLogon(project, {.ConnectionString = WithProviderFirst(text, parsed),
                         .DataSourceName = ValueOf(parsed, "DSN"),
                         .DataSourceDriver = DriverOf(parsed, installed),
                         .DataSourceDatabaseName = DatabaseOf(parsed, isJet),
                         .DataSourceLogin = LoginOf(parsed, isJet),
                         .ConnectSameDirectory = isJet && project.ConnectSameDirectory});
}

} // namespace veldrane
