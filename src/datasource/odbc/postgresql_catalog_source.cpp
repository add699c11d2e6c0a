#include "datasource/odbc/postgresql_catalog_source.h"

#include "datasource/ado_types.h"
#include "datasource/odbc/postgresql_procedures.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <string_view>

namespace veldrane {
namespace {

// Tables, partitioned ones, views, materialised views and foreign tables.
constexpr std::string_view kTableKinds = "c.relkind IN ('r', 'p', 'v', 'm', 'f')";

// Nobody else may give a schema a name with this beginning.
constexpr std::string_view kIsUsers = "(pg_catalog.left(n.nspname, 3) <> 'pg_' AND n.nspname <> 'information_schema')";

constexpr std::string_view kFromTables =
    " FROM pg_catalog.pg_class c JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace WHERE ";

// The server's own pg_table_is_visible says the same, and looks each table up by itself: its schema is on the search
// path, and nothing of its name stands in one further ahead.
constexpr std::string_view kIsFoundBare =
    "(n.nspname = ANY (pg_catalog.current_schemas(true)) AND (c.relname, n.oid) NOT IN"
    " (SELECT ahead.relname, behind.oid FROM pg_catalog.pg_class ahead"
    " JOIN pg_catalog.pg_namespace a ON a.oid = ahead.relnamespace JOIN pg_catalog.pg_namespace behind"
    " ON pg_catalog.array_position(pg_catalog.current_schemas(true), a.nspname)"
    " < pg_catalog.array_position(pg_catalog.current_schemas(true), behind.nspname)))";

// An owner whose rights nobody has touched may read; to ask for each table's rights takes the server longer. Column by
// column where the table as a whole is refused: what opens it needs them all.
constexpr std::string_view kIsReadable =
    "(pg_catalog.has_schema_privilege(n.oid, 'USAGE')"
    " AND ((c.relacl IS NULL AND c.relowner = (SELECT oid FROM pg_catalog.pg_roles WHERE rolname = current_user))"
    " OR pg_catalog.has_table_privilege(c.oid, 'SELECT')"
    " OR (pg_catalog.has_any_column_privilege(c.oid, 'SELECT') AND NOT EXISTS (SELECT FROM pg_catalog.pg_attribute a"
    " WHERE a.attrelid = c.oid AND a.attnum > 0 AND NOT a.attisdropped"
    " AND NOT pg_catalog.has_column_privilege(c.oid, a.attnum, 'SELECT')))))";

std::string UserTables()
{
    return " IN (SELECT c.oid" + std::string(kFromTables) + std::string(kTableKinds) + " AND " + std::string(kIsUsers) +
           ")";
}

std::string Only(const std::vector<PostgreSqlOid>& tables)
{
    std::string list;
    for (const PostgreSqlOid table : tables)
        list += (list.empty() ? " IN (" : ", ") + std::to_string(table);
    return list + ")";
}

// The numbers in the text of an array or a vector: "{1,2}", "1 2".
std::vector<int> NumbersIn(std::string_view text)
{
    std::vector<int> numbers;
    const char* const end = text.data() + text.size();
    for (const char* at = text.data(); at != end;) {
        int number = 0;
        const auto read = std::from_chars(at, end, number);
        if (read.ec == std::errc())
            numbers.push_back(number);
        at = read.ec == std::errc() ? read.ptr : at + 1;
    }
    return numbers;
}

PostgreSqlOid OidFrom(OdbcStatement& statement, SQLUSMALLINT column)
{
    return static_cast<PostgreSqlOid>(statement.Number(column));
}

// No name holds a zero.
std::string KeyOf(const SourceTable& table)
{
    return table.Schema.value_or("") + '\0' + table.Name;
}

} // namespace

std::vector<SourceTable> PostgreSqlCatalogSource::Tables()
{
    OdbcStatement statement(session_);
    statement.Execute("SELECT c.oid, n.nspname, c.relname, " + std::string(kIsUsers) + "::int, CASE WHEN NOT " +
                      std::string(kIsUsers) +
                      " THEN 'SYSTEM TABLE' WHEN c.relkind = 'v' THEN 'VIEW' WHEN c.relkind = 'm' THEN 'MATVIEW'"
                      " WHEN c.relkind = 'f' THEN 'FOREIGN TABLE' ELSE 'TABLE' END, " +
                      std::string(kIsFoundBare) + "::int, " + std::string(kIsReadable) + "::int" +
                      std::string(kFromTables) + std::string(kTableKinds) +
                      " AND (n.nspname = 'pg_catalog' OR pg_catalog.left(n.nspname, 3) <> 'pg_')"
                      " ORDER BY 4 DESC, 6 DESC, n.nspname COLLATE \"C\", c.relname COLLATE \"C\"");
    std::vector<SourceTable> tables;
    while (statement.Fetch()) {
        SourceTable table;
        const PostgreSqlOid oid = OidFrom(statement, 1);
        table.Schema = statement.Text(2).value_or("");
        table.Name = statement.Text(3).value_or("");
        const bool isUsers = statement.Number(4) != 0;
        table.Shown.Type = statement.Text(5).value_or("");
        if (statement.Number(6) == 0)
            table.Shown.SchemaSize = table.Schema->size() + 1;
        table.Shown.Name = table.Shown.SchemaSize == 0 ? table.Name : *table.Schema + "." + table.Name;
        const bool isReadable = statement.Number(7) != 0;
        if (isUsers) {
            userTables_.push_back(oid);
            shown_.emplace(oid, table.Shown.Name);
        }
        if (isReadable) {
            oids_.emplace(KeyOf(table), oid);
            tables.push_back(std::move(table));
        } else if (isUsers) {
            hidden_.push_back(table.Shown.Name);
        }
    }
    return tables;
}

void PostgreSqlCatalogSource::ReadTogether()
{
    const std::string all = UserTables();
    ReadColumns(all);
    ReadIndexes(all);
    ReadKeys(all);
    for (const PostgreSqlOid table : userTables_) {
        columns_.try_emplace(table);
        indexes_.try_emplace(table);
        keys_.try_emplace(table);
    }
}

void PostgreSqlCatalogSource::ReadColumns(const std::string& tables)
{
    OdbcStatement statement(session_);
    statement.Execute(
        "SELECT a.attrelid, a.attname, a.attnum, a.atttypid, a.atttypmod, a.attnotnull::int,"
        // Only whole numbers and what may be a domain of them: to write a default out takes the server long.
        " (a.attidentity <> '' OR (a.atthasdef AND (a.atttypid IN (20, 21, 23) OR a.atttypid >= 16384)"
        " AND coalesce(pg_catalog.pg_get_expr(d.adbin, d.adrelid) LIKE 'nextval(%', false)))::int"
        " FROM pg_catalog.pg_attribute a LEFT JOIN pg_catalog.pg_attrdef d"
        " ON d.adrelid = a.attrelid AND d.adnum = a.attnum"
        " WHERE a.attnum > 0 AND NOT a.attisdropped AND a.attrelid" +
        tables + " ORDER BY a.attrelid, a.attnum");
    std::set<PostgreSqlTypeId> types;
    Facts<Column> read;
    while (statement.Fetch()) {
        Column& column = read[OidFrom(statement, 1)].emplace_back();
        column.Name = statement.Text(2).value_or("");
        column.Number = static_cast<int>(statement.Number(3));
        column.Type.Oid = OidFrom(statement, 4);
        column.Type.Modifier = static_cast<std::int32_t>(statement.Number(5));
        column.IsRequired = statement.Number(6) != 0;
        column.IsCounted = statement.Number(7) != 0;
        types.insert(column.Type);
    }
    types_.Learn(types);
    columns_.merge(read);
}

void PostgreSqlCatalogSource::RequireColumns(std::vector<PostgreSqlOid> tables)
{
    std::erase_if(tables, [&](PostgreSqlOid table) { return columns_.contains(table); });
    if (tables.empty())
        return;
    ReadColumns(Only(tables));
    for (const PostgreSqlOid table : tables)
        columns_.try_emplace(table);
}

std::string PostgreSqlCatalogSource::NameOf(PostgreSqlOid table, int column) const
{
    const auto columns = columns_.find(table);
    if (columns == columns_.end())
        return "";
    const auto found = std::ranges::find(columns->second, column, &Column::Number);
    return found == columns->second.end() ? "" : found->Name;
}

std::optional<std::vector<CatalogField>> PostgreSqlCatalogSource::FieldsOf(const SourceTable& table)
{
    const PostgreSqlOid oid = oids_.at(KeyOf(table));
    RequireColumns({oid});
    std::vector<CatalogField> fields;
    for (const Column& column : columns_.at(oid))
        fields.push_back(FieldOf(column, table));
    return fields.empty() ? std::nullopt : std::optional(std::move(fields));
}

CatalogField PostgreSqlCatalogSource::FieldOf(const Column& column, const SourceTable& table) const
{
    const PostgreSqlType& type = types_.Of(column.Type);
    CatalogField field = type.Field;
    field.Name = column.Name;
    field.Attributes =
        column.IsRequired || type.IsRequired ? 0 : field_attribute::kIsNullable | field_attribute::kMayBeNull;
    const bool isWhole = field.Type == adSmallInt || field.Type == adInteger || field.Type == adBigInt;
    field.IsAutoIncrement = column.IsCounted && isWhole && table.Shown.Type != "VIEW";
    return field;
}

CatalogField PostgreSqlCatalogSource::FieldOf(const OdbcColumn& column)
{
    return PostgreSqlFieldOf(column, session_.Profile().Width);
}

std::vector<CatalogIndex> PostgreSqlCatalogSource::Indexes(const SourceTable& table)
{
    const PostgreSqlOid oid = oids_.at(KeyOf(table));
    if (!indexes_.contains(oid)) {
        RequireColumns({oid});
        ReadIndexes(Only({oid}));
    }
    return indexes_[oid];
}

void PostgreSqlCatalogSource::ReadIndexes(const std::string& tables)
{
    OdbcStatement statement(session_);
    statement.Execute("SELECT i.indrelid, x.relname, i.indisprimary::int,"
                      " (i.indisunique AND i.indpred IS NULL)::int, i.indkey, i.indnkeyatts"
                      " FROM pg_catalog.pg_index i JOIN pg_catalog.pg_class x ON x.oid = i.indexrelid"
                      " WHERE i.indrelid" +
                      tables + " ORDER BY i.indrelid, i.indisprimary DESC, x.relname COLLATE \"C\"");
    while (statement.Fetch()) {
        const PostgreSqlOid table = OidFrom(statement, 1);
        CatalogIndex& index = indexes_[table].emplace_back();
        index.Name = statement.Text(2).value_or("");
        index.PrimaryKey = statement.Number(3) != 0;
        index.Unique = statement.Number(4) != 0;
        std::vector<int> columns = NumbersIn(statement.Text(5).value_or(""));
        columns.resize(std::min(columns.size(), static_cast<std::size_t>(statement.Number(6))));
        // An indexed expression has no column.
        for (const int column : columns)
            if (column != 0)
                index.Columns.push_back(NameOf(table, column));
    }
}

std::vector<CatalogKey> PostgreSqlCatalogSource::Keys(const SourceTable& table)
{
    const PostgreSqlOid oid = oids_.at(KeyOf(table));
    if (!keys_.contains(oid))
        ReadKeys(Only({oid}));
    return keys_[oid];
}

std::vector<PostgreSqlCatalogSource::NumberedKey> PostgreSqlCatalogSource::NumberedKeys(const std::string& tables) const
{
    OdbcStatement statement(session_);
    statement.Execute(
        "SELECT k.conrelid, k.confrelid, k.conname, k.conkey, k.confkey FROM pg_catalog.pg_constraint k"
        " LEFT JOIN pg_catalog.pg_constraint parent ON parent.oid = k.conparentid"
        " WHERE k.contype = 'f' AND (parent.oid IS NULL OR parent.confrelid = k.confrelid) AND k.conrelid" +
        tables + " ORDER BY k.conrelid, k.conname COLLATE \"C\"");
    std::vector<NumberedKey> keys;
    while (statement.Fetch()) {
        NumberedKey& key = keys.emplace_back();
        key.Table = OidFrom(statement, 1);
        key.Related = OidFrom(statement, 2);
        key.Name = statement.Text(3).value_or("");
        key.Columns = NumbersIn(statement.Text(4).value_or(""));
        key.RelatedColumns = NumbersIn(statement.Text(5).value_or(""));
    }
    return keys;
}

void PostgreSqlCatalogSource::ReadKeys(const std::string& tables)
{
    const std::vector<NumberedKey> numbered = NumberedKeys(tables);
    std::set<PostgreSqlOid> involved;
    for (const NumberedKey& key : numbered)
        involved.insert({key.Table, key.Related});
    RequireColumns({involved.begin(), involved.end()});
    for (const NumberedKey& from : numbered) {
        const auto related = shown_.find(from.Related);
        // A table that was not there when the tables were read.
        if (related == shown_.end())
            continue;
        CatalogKey& key = keys_[from.Table].emplace_back();
        key.Name = from.Name;
        key.RelatedTable = related->second;
        for (std::size_t at = 0; at < std::min(from.Columns.size(), from.RelatedColumns.size()); ++at)
            key.Columns.push_back({.Name = NameOf(from.Table, from.Columns[at]),
                                   .RelatedColumn = NameOf(from.Related, from.RelatedColumns[at])});
    }
}

std::vector<std::string> PostgreSqlCatalogSource::Procedures()
{
    return ReadPostgreSqlProcedures(session_);
}

std::vector<CatalogParameter> PostgreSqlCatalogSource::Parameters()
{
    return ReadPostgreSqlParameters(session_, types_);
}

} // namespace veldrane
