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

namespace foreign_keys_column {
constexpr SQLUSMALLINT kRelatedSchema = 2;
constexpr SQLUSMALLINT kRelatedTable = 3;
constexpr SQLUSMALLINT kRelatedColumn = 4;
constexpr SQLUSMALLINT kColumn = 8;
constexpr SQLUSMALLINT kSequence = 9;
constexpr SQLUSMALLINT kName = 12;
} // namespace foreign_keys_column

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

// Without a name, a key begins where its columns are counted from 1 again.
KeyRows& RowsOfKey(std::vector<KeyRows>& keys, const std::string& name, long sequence)
{
    if (name.empty())
        return keys.empty() || sequence == 1 ? keys.emplace_back() : keys.back();
    const auto found = std::find_if(keys.begin(), keys.end(), [&](const KeyRows& key) { return key.Name == name; });
    return found == keys.end() ? keys.emplace_back() : *found;
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

std::vector<SourceTable> DriverCatalogSource::TablesOf(const OdbcName& schema, const std::string& pattern) const
{
    OdbcStatement statement(session_);
    statement.Tables(catalog_, schema, pattern);
    std::vector<SourceTable> tables;
    while (statement.Fetch()) {
        SourceTable table;
        table.Catalog = catalog_;
        // Kept where the bare name would do: told no schema, some drivers first ask the server for one.
        if (hasSchemas_)
            table.Schema = statement.Text(tables_column::kSchema);
        table.Name = statement.Text(tables_column::kName).value_or("");
        table.Shown.Name = table.Name;
        table.Shown.Type = statement.Text(tables_column::kType).value_or("");
        tables.push_back(std::move(table));
    }
    return tables;
}

TableId IdOf(const SourceTable& table)
{
    return {table.Schema.value_or(""), table.Name};
}

namespace {

void ShowWithSchema(SourceTable& table)
{
    const std::string prefix = table.Schema.value_or("") + ".";
    table.Shown.Name = prefix + table.Name;
    table.Shown.SchemaSize = prefix.size();
}

// A bare name "a.b" gives way to a table "b" of a schema "a".
void ShowApart(std::vector<SourceTable>& tables)
{
    std::set<std::string> taken;
    for (const SourceTable& table : tables)
        if (table.Shown.SchemaSize > 0)
            taken.insert(table.Shown.Name);
    for (SourceTable& table : tables)
        if (table.Shown.SchemaSize == 0 && table.Schema && taken.contains(table.Name))
            ShowWithSchema(table);
}

bool HasEachNameOnce(const std::vector<SourceTable>& tables)
{
    std::set<std::string_view> names;
    return std::ranges::all_of(tables, [&](const SourceTable& table) { return names.insert(table.Name).second; });
}

} // namespace

bool DriverCatalogSource::FindsBare(const SourceTable& table) const
{
    const std::string name = PatternOf(table.Name, session_.Info(SQL_SEARCH_PATTERN_ESCAPE));
    return std::ranges::any_of(TablesOf(std::nullopt, name),
                               [&](const SourceTable& found) { return IdOf(found) == IdOf(table); });
}

// One table tells for its whole schema, unless another schema has a table of some name too.
std::set<TableId> DriverCatalogSource::BareTablesAmong(const std::vector<SourceTable>& tables) const
{
    std::set<TableId> bare;
    if (!HasEachNameOnce(tables)) {
        std::set<std::string> taken;
        for (const SourceTable& table : TablesOf(std::nullopt, "%"))
            if (taken.insert(table.Name).second)
                bare.insert(IdOf(table));
        return bare;
    }
    std::map<std::string, bool> schemas;
    for (const SourceTable& table : tables) {
        const auto [schema, isNew] = schemas.emplace(table.Schema.value_or(""), false);
        if (isNew)
            schema->second = FindsBare(table);
        if (schema->second)
            bare.insert(IdOf(table));
    }
    return bare;
}

std::vector<SourceTable> DriverCatalogSource::Tables()
{
    std::vector<SourceTable> tables = TablesOf(hasSchemas_ ? OdbcName("%") : std::nullopt, "%");
    if (hasSchemas_) {
        const std::set<TableId> bare = BareTablesAmong(tables);
        const auto others = std::stable_partition(tables.begin(), tables.end(), [&](const SourceTable& table) {
            return !table.Schema || bare.contains(IdOf(table));
        });
        std::for_each(others, tables.end(), ShowWithSchema);
        ShowApart(tables);
    }
    for (const SourceTable& table : tables)
        shown_.emplace(IdOf(table), table.Shown.Name);
    return tables;
}

CatalogField DriverCatalogSource::FieldOf(const OdbcColumn& column)
{
    return veldrane::FieldOf(column, session_.Profile().Width);
}

std::vector<CatalogIndex> DriverCatalogSource::Indexes(const SourceTable& table)
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

// Those with a table: a list of all holds the system's own, with thousands of functions.
std::set<std::string> DriverCatalogSource::Schemas() const
{
    std::set<std::string> schemas;
    for (const auto& [table, name] : shown_)
        schemas.insert(table.first);
    if (hasSchemas_ && shown_.empty())
        for (const SourceTable& table : TablesOf("%", "%"))
            schemas.insert(table.Schema.value_or(""));
    schemas.erase("");
    return schemas;
}

std::vector<DriverProcedure> DriverCatalogSource::ListProcedures() const
{
    std::vector<DriverProcedure> procedures = ReadDriverProcedures(session_, catalog_, std::nullopt);
    std::set<std::string> read;
    for (const DriverProcedure& procedure : procedures)
        read.insert(procedure.Schema.value_or(""));
    for (const std::string& schema : Schemas())
        if (read.insert(schema).second)
            for (DriverProcedure& procedure : ReadDriverProcedures(session_, catalog_, schema)) {
                procedure.Shown = schema + "." + procedure.Name;
                procedures.push_back(std::move(procedure));
            }
    return procedures;
}

const std::vector<DriverProcedure>& DriverCatalogSource::ReadProcedures()
{
    if (!procedures_)
        procedures_ = ListProcedures();
    return *procedures_;
}

std::vector<std::string> DriverCatalogSource::Procedures()
{
    std::vector<std::string> names;
    for (const DriverProcedure& procedure : ReadProcedures())
        names.push_back(procedure.Shown);
    return names;
}

std::vector<CatalogParameter> DriverCatalogSource::Parameters()
{
    return ReadDriverParameters(session_, catalog_, ReadProcedures(),
                                [this](const OdbcColumn& column) { return FieldOf(column); });
}

} // namespace veldrane
