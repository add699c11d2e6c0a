#include "datasource/odbc/driver_catalog_source.h"

#include "datasource/odbc/field_types.h"
#include "datasource/odbc/key_names.h"

#include <algorithm>
#include <set>

namespace veldrane {
namespace {

// Places of the columns in the answers of the catalog functions, as ODBC fixes them; the names differ by driver.
namespace tables_column {
constexpr SQLUSMALLINT kSchema = 2;
constexpr SQLUSMALLINT kName = 3;
constexpr SQLUSMALLINT kType = 4;
} // namespace tables_column

namespace primary_keys_column {
constexpr SQLUSMALLINT kColumn = 4;
constexpr SQLUSMALLINT kSequence = 5;
constexpr SQLUSMALLINT kName = 6;
} // namespace primary_keys_column

namespace statistics_column {
constexpr SQLUSMALLINT kNonUnique = 4;
constexpr SQLUSMALLINT kName = 6;
constexpr SQLUSMALLINT kType = 7;
constexpr SQLUSMALLINT kSequence = 8;
constexpr SQLUSMALLINT kColumn = 9;
} // namespace statistics_column

namespace foreign_keys_column {
constexpr SQLUSMALLINT kRelatedSchema = 2;
constexpr SQLUSMALLINT kRelatedTable = 3;
constexpr SQLUSMALLINT kRelatedColumn = 4;
constexpr SQLUSMALLINT kColumn = 8;
constexpr SQLUSMALLINT kSequence = 9;
constexpr SQLUSMALLINT kName = 12;
} // namespace foreign_keys_column

constexpr SQLUSMALLINT kProcedureName = 3;

// A column's name with its place in the key, for answers that come in the table's order.
template <class Column>
struct Placed
{
    long Sequence = 0;
    Column Value;
};

template <class Column>
std::vector<Column> InOrder(std::vector<Placed<Column>> placed)
{
    std::stable_sort(placed.begin(), placed.end(),
                     [](const auto& left, const auto& right) { return left.Sequence < right.Sequence; });
    std::vector<Column> columns;
    columns.reserve(placed.size());
    for (Placed<Column>& each : placed)
        columns.push_back(std::move(each.Value));
    return columns;
}

// A key while its rows come in; those of several keys may be mixed.
struct KeyRows
{
    std::string Name;
    std::string RelatedTable;
    std::vector<Placed<CatalogKeyColumn>> Columns;
};

struct IndexRows
{
    CatalogIndex Index;
    std::vector<Placed<std::string>> Columns;
};

// The rows of the named thing; a new one at the end if there is none yet.
template <class Rows, class IsIt>
Rows& FindOrAdd(std::vector<Rows>& all, IsIt isIt)
{
    const auto found = std::find_if(all.begin(), all.end(), isIt);
    return found == all.end() ? all.emplace_back() : *found;
}

// Without a name, a key begins where its columns are counted from 1 again.
KeyRows& RowsOfKey(std::vector<KeyRows>& keys, const std::string& name, long sequence)
{
    if (name.empty())
        return keys.empty() || sequence == 1 ? keys.emplace_back() : keys.back();
    return FindOrAdd(keys, [&](const KeyRows& key) { return key.Name == name; });
}

} // namespace

DriverCatalogSource::DriverCatalogSource(const OdbcSession& session) : session_(session)
{
    // Unless it is named, some drivers list every database of the server.
    const std::string catalog = session.Info(SQL_DATABASE_NAME);
    if (!catalog.empty() && session.Info(SQL_CATALOG_NAME) == "Y")
        catalog_ = catalog;
    hasSchemas_ = !session.Info(SQL_SCHEMA_TERM).empty();
}

std::vector<SourceTable> DriverCatalogSource::TablesOf(const OdbcName& schema) const
{
    OdbcStatement statement(session_);
    statement.Tables(catalog_, schema, "%");
    std::vector<SourceTable> tables;
    while (statement.Fetch()) {
        SourceTable table;
        table.Catalog = catalog_;
        table.Schema = statement.Text(tables_column::kSchema);
        table.Name = statement.Text(tables_column::kName).value_or("");
        table.Shown.Name = table.Name;
        table.Shown.Type = statement.Text(tables_column::kType).value_or("");
        tables.push_back(std::move(table));
    }
    return tables;
}

namespace {

void ShowWithSchema(SourceTable& table)
{
    const std::string prefix = table.Schema.value_or("") + ".";
    table.Shown.Name = prefix + table.Name;
    table.Shown.SchemaSize = prefix.size();
}

} // namespace

std::vector<SourceTable> DriverCatalogSource::Tables()
{
    std::vector<SourceTable> tables = TablesOf(std::nullopt);
    std::set<std::string> taken;
    for (SourceTable& table : tables) {
        const std::string schema = table.Schema.value_or("");
        if (!taken.insert(table.Name).second && table.Schema)
            ShowWithSchema(table);
        else
            table.Schema.reset();
        shown_.emplace(std::pair(schema, table.Name), table.Shown.Name);
    }
    if (!hasSchemas_)
        return tables;
    for (SourceTable& table : TablesOf("%")) {
        ShowWithSchema(table);
        if (table.Schema && shown_.emplace(std::pair(*table.Schema, table.Name), table.Shown.Name).second)
            tables.push_back(std::move(table));
    }
    return tables;
}

CatalogField DriverCatalogSource::FieldOf(const OdbcColumn& column)
{
    return veldrane::FieldOf(column, session_.Profile().Width);
}

std::vector<CatalogIndex> DriverCatalogSource::PrimaryKeyOf(const SourceTable& table) const
{
    OdbcStatement statement(session_);
    statement.PrimaryKeys(table.Catalog, table.Schema, table.Name);
    std::string name;
    std::vector<Placed<std::string>> columns;
    while (statement.Fetch()) {
        std::string column = statement.Text(primary_keys_column::kColumn).value_or("");
        const long sequence = statement.Number(primary_keys_column::kSequence);
        columns.push_back({sequence, std::move(column)});
        name = statement.Text(primary_keys_column::kName).value_or("");
    }
    if (columns.empty())
        return {};
    return {{.Name = name.empty() ? std::string(kUnnamedPrimaryKey) : name,
             .PrimaryKey = true,
             .Unique = true,
             .Columns = InOrder(std::move(columns))}};
}

std::vector<CatalogIndex> DriverCatalogSource::StatisticsOf(const SourceTable& table) const
{
    OdbcStatement statement(session_);
    statement.Statistics(table.Catalog, table.Schema, table.Name);
    std::vector<IndexRows> indexes;
    while (statement.Fetch()) {
        const bool unique = statement.Number(statistics_column::kNonUnique) == SQL_FALSE;
        const std::string name = statement.Text(statistics_column::kName).value_or("");
        if (statement.Number(statistics_column::kType) == SQL_TABLE_STAT)
            continue;
        IndexRows& rows = FindOrAdd(indexes, [&](const IndexRows& each) { return each.Index.Name == name; });
        rows.Index.Name = name;
        rows.Index.Unique = unique;
        const long sequence = statement.Number(statistics_column::kSequence);
        rows.Columns.push_back({sequence, statement.Text(statistics_column::kColumn).value_or("")});
    }
    std::vector<CatalogIndex> result;
    for (IndexRows& rows : indexes) {
        rows.Index.Columns = InOrder(std::move(rows.Columns));
        result.push_back(std::move(rows.Index));
    }
    return result;
}

std::vector<CatalogIndex> DriverCatalogSource::Indexes(const SourceTable& table)
{
    std::vector<CatalogIndex> indexes = PrimaryKeyOf(table);
    for (CatalogIndex& index : StatisticsOf(table))
        if (indexes.empty() || index.Name != indexes.front().Name)
            indexes.push_back(std::move(index));
    return indexes;
}

std::vector<CatalogKey> DriverCatalogSource::Keys(const SourceTable& table)
{
    OdbcStatement statement(session_);
    statement.ForeignKeys(table.Catalog, table.Schema, table.Name);
    std::vector<KeyRows> rows;
    while (statement.Fetch()) {
        const std::string schema = statement.Text(foreign_keys_column::kRelatedSchema).value_or("");
        const std::string related = statement.Text(foreign_keys_column::kRelatedTable).value_or("");
        std::string relatedColumn = statement.Text(foreign_keys_column::kRelatedColumn).value_or("");
        std::string column = statement.Text(foreign_keys_column::kColumn).value_or("");
        const long sequence = statement.Number(foreign_keys_column::kSequence);
        const std::string name = statement.Text(foreign_keys_column::kName).value_or("");
        KeyRows& key = RowsOfKey(rows, name, sequence);
        key.Name = name;
        const auto shown = shown_.find({schema, related});
        key.RelatedTable = shown == shown_.end() ? related : shown->second;
        key.Columns.push_back({sequence, {.Name = std::move(column), .RelatedColumn = std::move(relatedColumn)}});
    }
    std::vector<CatalogKey> keys;
    keys.reserve(rows.size());
    for (KeyRows& key : rows)
        keys.push_back(
            {.Name = key.Name, .RelatedTable = key.RelatedTable, .Columns = InOrder(std::move(key.Columns))});
    NameUnnamedKeys(keys, table.Shown.Name);
    return keys;
}

std::vector<std::string> DriverCatalogSource::Procedures()
{
    OdbcStatement statement(session_);
    statement.Procedures(catalog_, std::nullopt);
    std::vector<std::string> names;
    while (statement.Fetch())
        names.push_back(statement.Text(kProcedureName).value_or(""));
    return names;
}

} // namespace veldrane
