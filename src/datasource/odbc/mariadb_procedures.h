#pragma once

#include "datasource/catalog.h"
#include "datasource/odbc/session.h"

#include <string>
#include <vector>

namespace veldrane {

// The names of the procedures and functions of the current database that the login may see, by name. Where a procedure
// and a function share one, the procedure comes first.
[[nodiscard]] std::vector<std::string> MariaDbProcedures(const OdbcSession& session);

// Their parameters, a function's return value at place 0. Of a procedure and a function of one name the procedure alone
// has its parameters here. The server allows NULL for every one and knows no defaults.
[[nodiscard]] std::vector<CatalogParameter> MariaDbParameters(const OdbcSession& session);

} // namespace veldrane
