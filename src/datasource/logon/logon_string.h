#pragma once

#include "datasource/logon/logon_page.h"
#include "datasource/logon/providers.h"

#include <string>

namespace veldrane {

// The connection string that a page's controls stand for:
//
//   PROVIDER=MSDASQL;DSN=Shop;UID=ann;PWD=;Database=main;
//   PROVIDER=MSDASQL;Driver=PostgreSQL Unicode;Server=host;UID=ann;PWD=secret;Database=main;
//   PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/data/a.mdb;USER ID=Admin;PASSWORD=;
//   PROVIDER=SQLOLEDB;DSN=Shop;Integrated Security=SSPI;Data Source=host;Initial Catalog=main;
//
// Values stand as they were typed. Only one that would end early, lose blanks at its ends or be taken for the name of a
// provider is put in braces.
[[nodiscard]] std::string BuildLogonString(const LogonProvider& provider, const LogonPage& page);

} // namespace veldrane
