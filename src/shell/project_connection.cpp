#include "shell/project_connection.h"

#include "datasource/connection_string.h"
#include "text/case_folding.h"

#include <initializer_list>
#include <string_view>

namespace veldrane {
namespace {

constexpr std::string_view kJetProvider = "Microsoft.Jet.OLEDB.4.0";

// Providers and drivers have several names for the same thing.
std::string FirstOf(const ConnectionString& parsed, std::initializer_list<std::string_view> keys)
{
    for (const std::string_view key : keys)
        if (parsed.Contains(key))
            return parsed.Value(key);
    return {};
}

} // namespace

void SetConnection(TTCProject& project, const std::string& text)
{
    const ConnectionString parsed(text);
    project.DataSourceName = parsed.Value("DSN");
    project.DataSourceDriver = parsed.Value("Driver");
    project.DataSourceDatabaseName = FirstOf(parsed, {"Database", "DBQ", "Initial Catalog", "Data Source"});
    project.DataSourceLogin = FirstOf(parsed, {"UID", "User ID"});
    // The choice is one for Jet files alone.
    if (!text::EqualFolded(parsed.Value("PROVIDER"), kJetProvider))
        project.ConnectSameDirectory = false;
    project.SetConnectionString(parsed.Contains("PROVIDER") ? text : "PROVIDER=MSDASQL;" + text);
}

} // namespace veldrane
