#pragma once

#include "datasource/providers.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace veldrane {

// The pages of `tabMain`.
namespace logon_page {
inline constexpr std::size_t kOdbc = 0;
inline constexpr std::size_t kJet = 1;
inline constexpr std::size_t kSqlServer = 2;
inline constexpr std::size_t kCount = 3;
} // namespace logon_page

// A provider and the page that asks for what it wants to know.
struct LogonProvider
{
    std::string_view Key;
    std::string_view Text;
    std::size_t Page;
};

// Who opens a Jet file where no login is typed.
inline constexpr std::string_view kJetUser = "Admin";

// In the order in which they are offered.
inline constexpr std::array kLogonProviders{
    LogonProvider{kOdbcProvider, "Microsoft OLE DB Provider for ODBC", logon_page::kOdbc},
    LogonProvider{kJetProvider, "Microsoft OLE DB Provider for Microsoft Jet (4.0)", logon_page::kJet},
    LogonProvider{kSqlServerProvider, "Microsoft OLE DB Provider for SQL Server", logon_page::kSqlServer},
};

} // namespace veldrane
