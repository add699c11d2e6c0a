#include "catalog_queries.h"

#include "driver.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <span>
#include <stdexcept>
#include <vector>

namespace veldrane::floor_probe {
namespace {

constexpr std::array kSqlite{
    "SELECT name, type FROM sqlite_master WHERE type IN ('table', 'view') ORDER BY rowid",
    "SELECT m.name, c.name, c.type, c.\"notnull\" FROM sqlite_master AS m JOIN pragma_table_info(m.name) AS c"
    " WHERE m.type = 'table' ORDER BY m.rowid, c.cid",
    "SELECT m.name, c.name, c.pk FROM sqlite_master AS m JOIN pragma_table_info(m.name) AS c"
    " WHERE m.type = 'table' AND c.pk > 0 ORDER BY m.rowid, c.pk",
    "SELECT m.name, f.\"table\", f.seq, f.\"from\", f.\"to\" FROM sqlite_master AS m"
    " JOIN pragma_foreign_key_list(m.name) AS f WHERE m.type = 'table' ORDER BY m.rowid, f.id DESC, f.seq",
};

// A number by itself comes from an identity or from a sequence in the default.
constexpr std::array kPostgreSql{
    "SELECT c.relname, a.attname, format_type(a.atttypid, a.atttypmod), a.attnotnull,"
    " a.attidentity <> '' OR coalesce(pg_get_expr(d.adbin, d.adrelid) LIKE 'nextval(%', false)"
    " FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace JOIN pg_attribute a ON a.attrelid = c.oid"
    " LEFT JOIN pg_attrdef d ON d.adrelid = c.oid AND d.adnum = a.attnum"
    " WHERE c.relkind IN ('r', 'v') AND n.nspname = 'public' AND a.attnum > 0 AND NOT a.attisdropped"
    " ORDER BY c.relname, a.attnum",
    "SELECT c.relname, k.conname, a.attname, p.place FROM pg_constraint k JOIN pg_class c ON c.oid = k.conrelid"
    " JOIN pg_namespace n ON n.oid = c.relnamespace"
    " CROSS JOIN unnest(k.conkey) WITH ORDINALITY AS p (attnum, place)"
    " JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum = p.attnum"
    " WHERE k.contype = 'p' AND n.nspname = 'public' ORDER BY c.relname, p.place",
    "SELECT c.relname, k.conname, f.relname, a.attname, b.attname FROM pg_constraint k"
    " JOIN pg_class c ON c.oid = k.conrelid JOIN pg_namespace n ON n.oid = c.relnamespace"
    " JOIN pg_class f ON f.oid = k.confrelid"
    " CROSS JOIN unnest(k.conkey, k.confkey) WITH ORDINALITY AS p (own, related, place)"
    " JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum = p.own"
    " JOIN pg_attribute b ON b.attrelid = f.oid AND b.attnum = p.related"
    " WHERE k.contype = 'f' AND n.nspname = 'public' ORDER BY c.relname, k.conname, p.place",
};

constexpr std::array kMariaDb{
    "SELECT TABLE_NAME, COLUMN_NAME, COLUMN_TYPE, IS_NULLABLE, EXTRA FROM information_schema.COLUMNS"
    " WHERE TABLE_SCHEMA = DATABASE() ORDER BY TABLE_NAME, ORDINAL_POSITION",
    "SELECT TABLE_NAME, COLUMN_NAME, SEQ_IN_INDEX FROM information_schema.STATISTICS"
    " WHERE TABLE_SCHEMA = DATABASE() AND INDEX_NAME = 'PRIMARY' ORDER BY TABLE_NAME, SEQ_IN_INDEX",
    "SELECT TABLE_NAME, CONSTRAINT_NAME, COLUMN_NAME, REFERENCED_TABLE_NAME, REFERENCED_COLUMN_NAME"
    " FROM information_schema.KEY_COLUMN_USAGE"
    " WHERE TABLE_SCHEMA = DATABASE() AND REFERENCED_TABLE_NAME IS NOT NULL"
    " ORDER BY TABLE_NAME, CONSTRAINT_NAME, ORDINAL_POSITION",
};

std::span<const char* const> QueriesOf(std::string_view database)
{
    if (database == "sqlite")
        return kSqlite;
    if (database == "postgresql")
        return kPostgreSql;
    if (database == "mariadb")
        return kMariaDb;
    throw std::runtime_error("no queries for \"" + std::string(database) + "\"");
}

std::vector<Row> Answer(const Connection& connection, const char* query)
{
    Statement statement(connection);
    statement.Execute(query);
    std::vector<SQLUSMALLINT> places(statement.CountColumns());
    std::iota(places.begin(), places.end(), SQLUSMALLINT{1});
    return statement.Rows(places);
}

} // namespace

void ReadCatalogByQueries(std::string_view database, const std::string& connectionString)
{
    const std::span queries = QueriesOf(database);
    const Connection connection(connectionString);
    std::vector<std::vector<Row>> catalog;
    catalog.reserve(queries.size());
    for (const char* query : queries)
        catalog.push_back(Answer(connection, query));
    if (std::any_of(catalog.begin(), catalog.end(), [](const std::vector<Row>& rows) { return rows.empty(); }))
        throw std::runtime_error("a query found nothing");
}

} // namespace veldrane::floor_probe
