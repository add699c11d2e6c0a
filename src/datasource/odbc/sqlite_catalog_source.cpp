#include "datasource/odbc/sqlite_catalog_source.h"

#include "datasource/odbc/field_types.h"
#include "datasource/odbc/key_names.h"
#include "datasource/odbc/sqlite_definition.h"
#include "text/case_folding.h"
#include "text/strings.h"

#include <algorithm>
#include <string_view>

namespace veldrane {
namespace {

// Names with this beginning are SQLite's own.
constexpr std::string_view kSystemPrefix = "sqlite_";

// A virtual table has no page and keeps no keys; to ask for them fails where its module is not there.
constexpr std::string_view kOfStoredTables = " WHERE m.type = 'table' AND m.rootpage > 0";

// 1 marks the hidden columns of virtual tables, which a table does not open with.
constexpr std::string_view kOpened = "hidden <> 1";

std::string TypeWord(const std::string& name, const std::string& type)
{
    if (text::FindFolded(name, kSystemPrefix) == 0)
        return "SYSTEM TABLE";
    return type == "view" ? "VIEW" : "TABLE";
}

std::string Literal(const std::string& text)
{
    return "'" + text::ReplaceAll(text, "'", "''") + "'";
}

// The 1-based place may lie behind the end.
void PutAt(std::vector<std::string>& names, std::size_t place, const std::string& name)
{
    names.resize(std::max(names.size(), place));
    names[place - 1] = name;
}

std::string OnlyTable(const std::string& name)
{
    return " AND m.name = " + Literal(name);
}

} // namespace

std::vector<SourceTable> SqliteCatalogSource::Tables()
{
    OdbcStatement statement(session_);
    statement.Execute("SELECT name, type FROM sqlite_master WHERE type IN ('table', 'view') ORDER BY rowid");
    std::vector<SourceTable> tables;
    while (statement.Fetch()) {
        SourceTable table;
        table.Name = statement.Text(1).value_or("");
        table.Shown.Name = table.Name;
        table.Shown.Type = TypeWord(table.Name, statement.Text(2).value_or(""));
        names_.emplace(text::Fold(table.Name), table.Name);
        tables.push_back(std::move(table));
    }
    return tables;
}

CatalogField SqliteCatalogSource::FieldOf(const OdbcColumn& column)
{
    return SqliteFieldOf(column);
}

void SqliteCatalogSource::CompleteFields(const SourceTable& table, std::vector<CatalogField>& fields)
{
    RestoreNames(table, fields);
    if (table.Shown.Type == "VIEW")
        return;
    const Definition& definition = DefinitionOf(table.Name);
    if (definition.PrimaryKey.size() != 1 || definition.HasKeyIndex)
        return;
    for (CatalogField& field : fields)
        if (field.Name == definition.PrimaryKey.front())
            field.IsAutoIncrement = true;
}

void SqliteCatalogSource::RestoreNames(const SourceTable& table, std::vector<CatalogField>& fields)
{
    const std::vector<std::string>& known = DefinitionOf(table.Name).Names;
    const std::vector<std::string> names = known.empty() ? ReadNames(table.Name) : known;
    for (std::size_t at = 0; at < fields.size() && names.size() == fields.size(); ++at)
        fields[at].Name = names[at];
}

std::vector<std::string> SqliteCatalogSource::ReadNames(const std::string& table) const
{
    OdbcStatement statement(session_);
    statement.Execute("SELECT name FROM pragma_table_xinfo(" + Literal(table) + ") WHERE " + std::string(kOpened) +
                      " ORDER BY cid");
    std::vector<std::string> names;
    while (statement.Fetch())
        names.push_back(statement.Text(1).value_or(""));
    return names;
}

std::vector<CatalogIndex> SqliteCatalogSource::Indexes(const SourceTable& table)
{
    const Definition& definition = DefinitionOf(table.Name);
    std::vector<CatalogIndex> indexes;
    if (!definition.PrimaryKey.empty())
        indexes.push_back(
            {.Name = definition.PrimaryKeyName.empty() ? std::string(kUnnamedPrimaryKey) : definition.PrimaryKeyName,
             .PrimaryKey = true,
             .Unique = true,
             .Columns = definition.PrimaryKey});
    indexes.insert(indexes.end(), definition.Indexes.begin(), definition.Indexes.end());
    return indexes;
}

std::vector<CatalogKey> SqliteCatalogSource::Keys(const SourceTable& table)
{
    std::vector<CatalogKey> keys = DefinitionOf(table.Name).Keys;
    for (CatalogKey& key : keys) {
        key.RelatedTable = NameOfTable(key.RelatedTable);
        const Definition& related = DefinitionOf(key.RelatedTable);
        const bool fitsPrimaryKey = related.PrimaryKey.size() == key.Columns.size();
        for (std::size_t at = 0; at < key.Columns.size(); ++at) {
            std::string& column = key.Columns[at].RelatedColumn;
            if (column.empty() && fitsPrimaryKey)
                column = related.PrimaryKey[at];
            else if (const auto known = related.Columns.find(text::Fold(column)); known != related.Columns.end())
                column = known->second;
        }
    }
    NameUnnamedKeys(keys, table.Name);
    return keys;
}

void SqliteCatalogSource::ReadTogether()
{
    Definitions all;
    Read(all, "");
    definitions_ = std::move(all);
}

const SqliteCatalogSource::Definition& SqliteCatalogSource::DefinitionOf(const std::string& table)
{
    if (const auto found = definitions_.find(table); found != definitions_.end())
        return found->second;
    Definitions read;
    Read(read, OnlyTable(table));
    return definitions_.emplace(table, std::move(read[table])).first->second;
}

void SqliteCatalogSource::Read(Definitions& definitions, const std::string& condition) const
{
    ReadColumns(definitions, condition);
    ReadIndexes(definitions, condition);
    ReadForeignKeys(definitions, condition);
}

void SqliteCatalogSource::ReadColumns(Definitions& definitions, const std::string& condition) const
{
    OdbcStatement statements(session_);
    statements.Execute("SELECT m.name, m.sql FROM sqlite_master AS m WHERE m.type IN ('table', 'view')" + condition);
    while (statements.Fetch()) {
        const std::string table = statements.Text(1).value_or("");
        definitions[table].PrimaryKeyName = PrimaryKeyNameOf(statements.Text(2).value_or(""));
    }
    OdbcStatement columns(session_);
    columns.Execute("SELECT m.name, c.name, c.pk FROM sqlite_master AS m JOIN pragma_table_xinfo(m.name) AS c" +
                    std::string(kOfStoredTables) + " AND " + std::string(kOpened) + condition +
                    " ORDER BY m.rowid, c.cid");
    while (columns.Fetch()) {
        Definition& definition = definitions[columns.Text(1).value_or("")];
        const std::string column = columns.Text(2).value_or("");
        definition.Names.push_back(column);
        definition.Columns.emplace(text::Fold(column), column);
        if (const long place = columns.Number(3); place > 0)
            PutAt(definition.PrimaryKey, static_cast<std::size_t>(place), column);
    }
}

void SqliteCatalogSource::ReadIndexes(Definitions& definitions, const std::string& condition) const
{
    OdbcStatement statement(session_);
    statement.Execute("SELECT m.name, i.origin, i.name, i.\"unique\", c.name FROM sqlite_master AS m"
                      " JOIN pragma_index_list(m.name) AS i JOIN pragma_index_info(i.name) AS c" +
                      std::string(kOfStoredTables) + condition + " ORDER BY m.rowid, i.seq DESC, c.seqno");
    while (statement.Fetch()) {
        Definition& definition = definitions[statement.Text(1).value_or("")];
        if (statement.Text(2) == "pk") {
            definition.HasKeyIndex = true;
            continue;
        }
        const std::string name = statement.Text(3).value_or("");
        const bool unique = statement.Number(4) != 0;
        if (definition.Indexes.empty() || definition.Indexes.back().Name != name)
            definition.Indexes.push_back({.Name = name, .PrimaryKey = false, .Unique = unique, .Columns = {}});
        // An indexed expression has no column.
        if (const std::optional<std::string> column = statement.Text(5))
            definition.Indexes.back().Columns.push_back(*column);
    }
}

void SqliteCatalogSource::ReadForeignKeys(Definitions& definitions, const std::string& condition) const
{
    OdbcStatement statement(session_);
    statement.Execute("SELECT m.name, f.\"table\", f.seq, f.\"from\", f.\"to\" FROM sqlite_master AS m"
                      " JOIN pragma_foreign_key_list(m.name) AS f" +
                      std::string(kOfStoredTables) + condition + " ORDER BY m.rowid, f.id DESC, f.seq");
    while (statement.Fetch()) {
        std::vector<CatalogKey>& keys = definitions[statement.Text(1).value_or("")].Keys;
        const std::string related = statement.Text(2).value_or("");
        if (statement.Number(3) == 0)
            keys.push_back({.Name = {}, .RelatedTable = related, .Columns = {}});
        std::string column = statement.Text(4).value_or("");
        keys.back().Columns.push_back({.Name = std::move(column), .RelatedColumn = statement.Text(5).value_or("")});
    }
}

// A foreign key names its table in any case, as it does the columns there; the catalog's own letters are handed on.
std::string SqliteCatalogSource::NameOfTable(const std::string& written) const
{
    const auto found = names_.find(text::Fold(written));
    return found == names_.end() ? written : found->second;
}

} // namespace veldrane
