#pragma once

#include "datasource/logon/logon_page.h"
#include "datasource/logon/providers.h"

#include <string>
#include <string_view>

namespace veldrane {

// The connection string that a page's controls stand for:
//
//   PROVIDER=MSDASQL;DSN=Shop;UID=ann;PWD=;Database=main;
//   PROVIDER=MSDASQL;Driver=PostgreSQL Unicode;Server=host;UID=ann;PWD=secret;Database=main;
//   PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/data/a.mdb;USER ID=Admin;PASSWORD=;
//   PROVIDER=SQLOLEDB;DSN=Shop;Integrated Security=SSPI;Data Source=host;Initial Catalog=main;
//
// What is typed for Jet or SQL Server is quoted if it begins with a quote, as their providers read such values. Throws
// as LogonEntry does.
[[nodiscard]] std::string BuildLogonString(const LogonProvider& provider, const LogonPage& page);

// One entry of such a string, "UID=ann;", which opens with its key and "=". The value stands as it was typed; only one
// that would end early, lose blanks at its ends or be taken for the name of a provider is put in braces. Throws
// DataSourceError, which names the key, for a value in which a provider stands between "=" and ";", for in braces too
// it would decide the project's kind of connection.
[[nodiscard]] std::string LogonEntry(std::string_view opening, const std::string& value);

} // namespace veldrane
