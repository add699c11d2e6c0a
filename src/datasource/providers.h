#pragma once

#include <string_view>

// The providers of OLE DB, as connection strings name them.
namespace veldrane {

inline constexpr std::string_view kOdbcProvider = "MSDASQL";
inline constexpr std::string_view kJetProvider = "Microsoft.Jet.OLEDB.4.0";
inline constexpr std::string_view kSqlServerProvider = "SQLOLEDB";

// Whether a connection string's name for a provider means this one: the same, or with its version behind ("MSDASQL.1").
[[nodiscard]] bool NamesProvider(std::string_view name, std::string_view provider);

} // namespace veldrane
