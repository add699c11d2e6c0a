#pragma once

#include "datasource/catalog.h"
#include "datasource/odbc/statement.h"

#include <functional>
#include <string>
#include <vector>

namespace veldrane {

// A stored procedure or function, as the driver lists it. Overloaded ones share their names.
struct DriverProcedure
{
    OdbcName Schema;
    std::string Name;
    std::string Shown;
};

// The procedures that SQLProcedures lists for the schema, shown by their bare names; without a schema, those that the
// driver finds so. Throws DataSourceError, kNotSupported for a driver that has no such call.
[[nodiscard]] std::vector<DriverProcedure> ReadDriverProcedures(const OdbcSession& session, const OdbcName& catalog,
                                                                const OdbcName& schema);

// The field that a column of the driver's stands for.
using FieldOfColumn = std::function<CatalogField(const OdbcColumn&)>;

// The parameters of the procedures, with one call of SQLProcedureColumns a schema: told none, some drivers answer with
// those of the whole server. The type words are the driver's own, their numbers those of `fieldOf`. Columns of a result
// are left out; of procedures that share a name the first alone has parameters, whose end shows in ORDINAL_POSITION.
// Throws as above.
[[nodiscard]] std::vector<CatalogParameter> ReadDriverParameters(const OdbcSession& session, const OdbcName& catalog,
                                                                 const std::vector<DriverProcedure>& procedures,
                                                                 const FieldOfColumn& fieldOf);

} // namespace veldrane
