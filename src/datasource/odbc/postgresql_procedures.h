#pragma once

#include "datasource/catalog.h"
#include "datasource/odbc/postgresql_types.h"

#include <string>
#include <vector>

namespace veldrane {

// The functions and procedures of the user's schemas that the login can call: no aggregates and window functions, no
// functions of triggers, and none that only the server can hand its arguments. Those that a bare name finds come first,
// under it; the others follow as "schema.name". Overloaded ones are listed once.
[[nodiscard]] std::vector<std::string> ReadPostgreSqlProcedures(const OdbcSession& session);

// Their parameters; of overloaded ones, those of the eldest. A return value comes first: what comes back as rows, or
// through parameters, is none.
[[nodiscard]] std::vector<CatalogParameter> ReadPostgreSqlParameters(const OdbcSession& session,
                                                                     PostgreSqlTypes& types);

} // namespace veldrane
