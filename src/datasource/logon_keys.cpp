#include "datasource/logon_keys.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace veldrane {
namespace {

std::string FirstWritten(const ConnectionString& given, std::initializer_list<std::string_view> names)
{
    const auto* const found =
        std::find_if(names.begin(), names.end(), [&](std::string_view name) { return !given.Value(name).empty(); });
    return std::string(found == names.end() ? *names.begin() : *found);
}

} // namespace

LogonKeys SqlServerLogonKeys(const ConnectionString& given)
{
    return {.Server = FirstWritten(given, {"Data Source", "Server", "Address", "Addr", "Network Address"}),
            .Port = given.Contains("Port") ? "Port" : "",
            .Database = FirstWritten(given, {"Initial Catalog", "Database"}),
            .User = FirstWritten(given, {"User ID", "UID", "User"}),
            .Password = FirstWritten(given, {"Password", "PWD"}),
            .Trust = FirstWritten(given, {"Integrated Security", "Trusted_Connection"})};
}

} // namespace veldrane
