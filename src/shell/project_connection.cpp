#include "shell/project_connection.h"

#include "datasource/connection_string.h"
#include "datasource/logon/providers.h"
#include "datasource/logon/store_logon.h"
#include "text/case_folding.h"

#include <initializer_list>
#include <string_view>

namespace veldrane {
namespace {

// Providers and drivers have several names for the same thing.
std::string FirstOf(const ConnectionString& parsed, std::initializer_list<std::string_view> keys)
{
    for (const std::string_view key : keys)
        if (parsed.Contains(key))
            return parsed.Value(key);
    return {};
}

// Behind "Data Source" Jet has its file, SQL Server the machine it runs on.
std::string DatabaseOf(const ConnectionString& parsed, bool isJet)
{
    return isJet ? parsed.Value("Data Source") : FirstOf(parsed, {"Database", "DBQ", "Initial Catalog"});
}

} // namespace

void SetConnection(TTCProject& project, const std::string& text)
{
    const ConnectionString parsed(text);
    const bool isJet = text::EqualFolded(parsed.Value("PROVIDER"), kJetProvider);
    const std::string driver = isJet ? std::string(kJetProvider) : parsed.Value("Driver");
    StoreLogon(project, {.ConnectionString = parsed.Contains("PROVIDER") ? text : "PROVIDER=MSDASQL;" + text,
                         .DataSourceName = parsed.Value("DSN"),
                         .DataSourceDriver = driver,
                         .DataSourceDatabaseName = DatabaseOf(parsed, isJet),
                         .DataSourceLogin = FirstOf(parsed, {"UID", "User ID"}),
                         .ConnectSameDirectory = isJet && project.ConnectSameDirectory});
}

} // namespace veldrane
