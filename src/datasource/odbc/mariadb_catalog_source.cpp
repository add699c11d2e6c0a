#include "datasource/odbc/mariadb_catalog_source.h"

#include "datasource/odbc/field_types.h"
#include "datasource/odbc/mariadb_procedures.h"
#include "datasource/odbc/mariadb_types.h"

#include <string_view>

namespace veldrane {
namespace {

constexpr std::string_view kPrimaryKeyName = "PRIMARY"; // of every table; no other key may be called so

// The word of a table in the driver's own list is TABLE; one that keeps its history is a table for its users.
constexpr std::string_view kTables =
    "SELECT TABLE_NAME, IF(TABLE_TYPE IN ('BASE TABLE', 'SYSTEM VERSIONED'), 'TABLE', TABLE_TYPE)"
    " FROM information_schema.TABLES WHERE TABLE_SCHEMA = DATABASE() ORDER BY TABLE_NAME, BINARY TABLE_NAME";

namespace field_column {
constexpr SQLUSMALLINT kTable = 1;
constexpr SQLUSMALLINT kName = 2;
constexpr SQLUSMALLINT kType = 3;
constexpr SQLUSMALLINT kSize = 4;
constexpr SQLUSMALLINT kIsUnsigned = 5;
constexpr SQLUSMALLINT kIsBinary = 6;
constexpr SQLUSMALLINT kIsNullable = 7;
constexpr SQLUSMALLINT kIsAutoIncrement = 8;
constexpr SQLUSMALLINT kIsInvisible = 9;
constexpr SQLUSMALLINT kIsReadable = 10;
} // namespace field_column

// The driver calls every timestamp and every auto-increment column nullable, for the server puts a value where NULL is
// stored.
std::string FieldsQuestion()
{
    return "SELECT TABLE_NAME, COLUMN_NAME, DATA_TYPE, COALESCE(" + std::string(kMariaDbLength) +
           ", NUMERIC_PRECISION), COLUMN_TYPE LIKE '%unsigned%', COLLATION_NAME = 'binary',"
           " IS_NULLABLE = 'YES' OR DATA_TYPE = 'timestamp' OR EXTRA LIKE '%auto_increment%',"
           " EXTRA LIKE '%auto_increment%', EXTRA LIKE '%INVISIBLE%', PRIVILEGES LIKE '%select%'"
           " FROM information_schema.COLUMNS WHERE TABLE_SCHEMA = DATABASE() ORDER BY TABLE_NAME, ORDINAL_POSITION";
}

namespace key_column {
constexpr SQLUSMALLINT kTable = 1;
constexpr SQLUSMALLINT kName = 2;
constexpr SQLUSMALLINT kColumn = 3;
constexpr SQLUSMALLINT kIsFirst = 4;
constexpr SQLUSMALLINT kRelatedDatabase = 5;
constexpr SQLUSMALLINT kRelatedTable = 6;
constexpr SQLUSMALLINT kRelatedColumn = 7;
} // namespace key_column

// A unique key and a foreign one of the same table may share a name.
constexpr std::string_view kKeys =
    "SELECT TABLE_NAME, CONSTRAINT_NAME, COLUMN_NAME, ORDINAL_POSITION = 1,"
    " IF(BINARY REFERENCED_TABLE_SCHEMA = DATABASE(), NULL, REFERENCED_TABLE_SCHEMA), REFERENCED_TABLE_NAME, REFERENCED_COLUMN_NAME"
    " FROM information_schema.KEY_COLUMN_USAGE WHERE TABLE_SCHEMA = DATABASE()";
constexpr std::string_view kKeyOrder = " ORDER BY TABLE_NAME, REFERENCED_TABLE_NAME IS NOT NULL,"
                                       " CONSTRAINT_NAME <> 'PRIMARY', BINARY CONSTRAINT_NAME, ORDINAL_POSITION";

// In hexadecimal digits, which mean the same in every mode of the server; quotes and backslashes do not.
std::string Literal(std::string_view name)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string literal = "_utf8mb4 X'";
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        literal.push_back(digits[byte >> 4U]);
        literal.push_back(digits[byte & 0xFU]);
    }
    return literal + "'";
}

} // namespace

std::vector<SourceTable> MariaDbCatalogSource::Tables()
{
    OdbcStatement statement(session_);
    statement.Execute(std::string(kTables));
    std::vector<SourceTable> tables;
    while (statement.Fetch()) {
        SourceTable& table = tables.emplace_back();
        table.Name = statement.Text(1).value_or("");
        table.Shown.Name = table.Name;
        table.Shown.Type = statement.Text(2).value_or("");
        names_.insert(table.Name);
    }
    if (tables.empty())
        RequireDatabase();
    return tables;
}

void MariaDbCatalogSource::RequireDatabase() const
{
    OdbcStatement statement(session_);
    statement.Execute("SELECT DATABASE()");
    if (statement.Fetch() && !statement.Text(1))
        throw DataSourceError(data_source_error::kFailed, "ODBC",
                              "The connection names no database: add the key Database to its string, such as "
                              "\"Database=shop;\".");
}

std::optional<std::vector<CatalogField>> MariaDbCatalogSource::FieldsOf(const SourceTable& table)
{
    const auto found = columns_.find(table.Name);
    if (table.Shown.Type != "TABLE" || found == columns_.end() || found->second.OpeningTells)
        return std::nullopt;
    return found->second.Fields;
}

CatalogField MariaDbCatalogSource::FieldOf(const OdbcColumn& column)
{
    return veldrane::FieldOf(column, session_.Profile().Width);
}

std::vector<CatalogIndex> MariaDbCatalogSource::Indexes(const SourceTable& table)
{
    return KeysOf(table.Name).Indexes;
}

std::vector<CatalogKey> MariaDbCatalogSource::Keys(const SourceTable& table)
{
    return KeysOf(table.Name).Foreign;
}

std::vector<std::string> MariaDbCatalogSource::Procedures()
{
    std::vector<std::string> names = MariaDbProcedures(session_);
    if (names.empty())
        RequireDatabase();
    return names;
}

std::vector<CatalogParameter> MariaDbCatalogSource::Parameters()
{
    return MariaDbParameters(session_);
}

void MariaDbCatalogSource::ReadTogether()
{
    if (!HoldsColumnGrants())
        ReadColumns();
    ReadKeys("");
    together_ = true;
}

// A login that may read some columns of a table sees those alone, and nothing tells that there are more. To open such a
// table fails.
bool MariaDbCatalogSource::HoldsColumnGrants() const
{
    try {
        OdbcStatement statement(session_);
        statement.Execute("SHOW GRANTS");
        while (statement.Fetch())
            if (statement.Text(1).value_or("").find("SELECT (") != std::string::npos)
                return true;
        return false;
    } catch (const DataSourceError& error) {
        if (error.Number == data_source_error::kNoOpenConnection)
            throw;
        return true; // a server that keeps no grants does not say what may be read
    }
}

void MariaDbCatalogSource::ReadColumns()
{
    OdbcStatement statement(session_);
    statement.Execute(FieldsQuestion());
    while (statement.Fetch())
        AddColumn(statement);
}

void MariaDbCatalogSource::AddColumn(OdbcStatement& row)
{
    TableColumns& columns = columns_[row.Text(field_column::kTable).value_or("")];
    std::string name = row.Text(field_column::kName).value_or("");
    MariaDbType type{.Name = row.Text(field_column::kType).value_or("")};
    type.Size = static_cast<std::uint64_t>(row.Number(field_column::kSize));
    type.IsUnsigned = row.Number(field_column::kIsUnsigned) != 0;
    type.IsBinary = row.Number(field_column::kIsBinary) != 0;
    const bool isNullable = row.Number(field_column::kIsNullable) != 0;
    const bool isAutoIncrement = row.Number(field_column::kIsAutoIncrement) != 0;
    if (row.Number(field_column::kIsInvisible) != 0)
        return;
    std::optional<OdbcColumn> column = DescribedColumn(type);
    if (!column || row.Number(field_column::kIsReadable) == 0) {
        columns.OpeningTells = true;
        return;
    }
    column->Name = std::move(name);
    column->Nullable = isNullable ? SQL_NULLABLE : SQL_NO_NULLS;
    column->IsAutoIncrement = isAutoIncrement;
    columns.Fields.push_back(FieldOf(*column));
}

void MariaDbCatalogSource::ReadKeys(const std::string& condition)
{
    OdbcStatement statement(session_);
    statement.Execute(std::string(kKeys) + condition + std::string(kKeyOrder));
    while (statement.Fetch())
        AddKeyColumn(statement);
}

void MariaDbCatalogSource::AddKeyColumn(OdbcStatement& row)
{
    TableKeys& keys = keys_[row.Text(key_column::kTable).value_or("")];
    const std::string name = row.Text(key_column::kName).value_or("");
    std::string column = row.Text(key_column::kColumn).value_or("");
    const bool isFirst = row.Number(key_column::kIsFirst) != 0;
    const std::optional<std::string> relatedDatabase = row.Text(key_column::kRelatedDatabase);
    const std::optional<std::string> relatedTable = row.Text(key_column::kRelatedTable);
    if (!relatedTable) {
        if (isFirst)
            keys.Indexes.push_back(
                {.Name = name, .PrimaryKey = name == kPrimaryKeyName, .Unique = true, .Columns = {}});
        keys.Indexes.back().Columns.push_back(std::move(column));
        return;
    }
    if (isFirst)
        keys.Foreign.push_back(
            {.Name = name,
             .RelatedTable = relatedDatabase ? RelatedName(*relatedDatabase, *relatedTable) : *relatedTable,
             .Columns = {}});
    keys.Foreign.back().Columns.push_back(
        {.Name = std::move(column), .RelatedColumn = row.Text(key_column::kRelatedColumn).value_or("")});
}

const MariaDbCatalogSource::TableKeys& MariaDbCatalogSource::KeysOf(const std::string& table)
{
    if (!together_ && !keys_.contains(table))
        ReadKeys(" AND TABLE_NAME = " + Literal(table));
    return keys_[table];
}

// A table of this database may have a point in its name.
std::string MariaDbCatalogSource::RelatedName(const std::string& database, const std::string& table) const
{
    std::string name = database + "." + table;
    return names_.contains(name) ? "`" + database + "`.`" + table + "`" : name;
}

} // namespace veldrane
