#pragma once

#include "datasource/connection_policy.h"
#include "datasource/connection_string.h"

#include <string>
#include <string_view>

namespace veldrane {

// The name of SQL Server's own ODBC driver, which strings from elsewhere carry.
inline constexpr std::string_view kSqlServerDriver = "SQL Server";

// A string for SQL Server's own provider with the quotes taken off its values (see quoted_value.h). Throws
// DataSourceError, which names the key, for a quote that is not closed.
[[nodiscard]] ConnectionString WithoutQuotes(const ConnectionString& given);

// What such a string says, without quotes, in the keys of the ODBC driver that stands in for it:
//
//   PROVIDER=SQLOLEDB;Data Source=tcp:db,1434;Initial Catalog=shop;Integrated Security=SSPI;
//   Driver=SQL Server;Server=db,1434;Database=shop;Trusted_Connection=Yes;
//
// A server named beside a data source is reached in place of the data source's own, with what the data source says of
// the protocol and without its login: whoever wrote the string may not have that. No server, "." and "(local)" are this
// machine. An address of the newer kind may stand in brackets. Keys that tune the provider and say nothing to a driver
// are left out; those that it does not have stay as they are, for the caller to judge. Throws DataSourceError for a
// second server or port, and for a server, a network or a kind of login that the driver can't be asked for. The message
// names the key, never a password.
[[nodiscard]] ConnectionString TranslateSqlServerString(const ConnectionString& given,
                                                        const InstalledDrivers& installed);

// The same string with `tdsDriver` in place of the driver "SQL Server", unless a driver of that name is set up. For
// `tdsDriver`, in its place or by its own name, server and network are then told as the provider's are. Throws
// DataSourceError if `tdsDriver` takes the other's place and is not set up, and for a server or a network as above.
[[nodiscard]] ConnectionString WithStandInDriver(const ConnectionString& given, const InstalledDrivers& installed,
                                                 const std::string& tdsDriver);

} // namespace veldrane
