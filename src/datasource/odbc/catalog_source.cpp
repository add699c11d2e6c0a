#include "datasource/odbc/catalog_source.h"

#include "datasource/odbc/driver_catalog_source.h"
#include "datasource/odbc/mariadb_catalog_source.h"
#include "datasource/odbc/postgresql_catalog_source.h"
#include "datasource/odbc/sql_server_catalog_source.h"
#include "datasource/odbc/sqlite_catalog_source.h"

#include <charconv>
#include <string>

namespace veldrane {
namespace {

// The first version whose catalog tells procedures from functions and knows copies of keys.
constexpr int kOldestPostgreSql = 11;

int MajorVersion(const OdbcSession& session)
{
    const std::string version = session.Info(SQL_DBMS_VER);
    int major = 0;
    std::from_chars(version.data(), version.data() + version.size(), major);
    return major;
}

} // namespace

std::unique_ptr<CatalogSource> MakeCatalogSource(const OdbcSession& session)
{
    if (session.Profile().Family == DriverFamily::Sqlite)
        return std::make_unique<SqliteCatalogSource>(session);
    if (session.Profile().Family == DriverFamily::PostgreSql && MajorVersion(session) >= kOldestPostgreSql)
        return std::make_unique<PostgreSqlCatalogSource>(session);
    if (session.Profile().Family == DriverFamily::MariaDb)
        return std::make_unique<MariaDbCatalogSource>(session);
    if (session.Profile().Family == DriverFamily::Tds)
        return std::make_unique<SqlServerCatalogSource>(session);
    return std::make_unique<DriverCatalogSource>(session);
}

} // namespace veldrane
