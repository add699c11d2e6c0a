#include "datasource/odbc/catalog_source.h"

#include "datasource/odbc/driver_catalog_source.h"
#include "datasource/odbc/sqlite_catalog_source.h"

namespace veldrane {

std::unique_ptr<CatalogSource> MakeCatalogSource(const OdbcSession& session)
{
    if (session.Profile().Family == DriverFamily::Sqlite)
        return std::make_unique<SqliteCatalogSource>(session);
    return std::make_unique<DriverCatalogSource>(session);
}

} // namespace veldrane
