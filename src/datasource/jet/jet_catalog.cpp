#include "datasource/jet/jet_catalog.h"

#include "datasource/field_statement.h"
#include "datasource/jet/answer_format.h"
#include "text/case_folding.h"

#include <optional>
#include <utility>

namespace veldrane {
namespace {

[[noreturn]] void Fail(long number, const std::string& reason)
{
    throw DataSourceError(number, "Jet", reason);
}

} // namespace

void JetCatalog::RequireRead()
{
    const std::shared_ptr<const JetFile> file = file_.lock();
    if (!file)
        Fail(data_source_error::kNoOpenConnection, "The Jet file has been closed.");
    if (read_)
        return;
    Add(file->Read());
    read_ = true;
}

void JetCatalog::Add(JetDatabase database)
{
    for (JetTable& table : database.Tables)
        if (table.Type != jet_answer::kLinkedTable)
            AddEntry(
                {.Name = std::move(table.Name), .Type = std::move(table.Type)},
                {.IsView = false, .Fields = std::move(table.Columns), .Indexes = std::move(table.Indexes), .Keys = {}});
    for (JetQuery& query : database.Queries)
        if (query.Kind == JetQueryKind::Procedure)
            procedures_.push_back(std::move(query.Name));
        else
            AddEntry({.Name = std::move(query.Name), .Type = "VIEW"},
                     {.IsView = true, .Fields = std::move(query.Columns), .Indexes = {}, .Keys = {}});
    for (JetRelationship& relationship : database.Relationships)
        if (const auto table = byFoldedName_.find(text::Fold(relationship.Table)); table != byFoldedName_.end())
            entries_[table->second].Keys.push_back(std::move(relationship.Key));
}

void JetCatalog::AddEntry(const CatalogTable& shown, Entry entry)
{
    byName_.emplace(shown.Name, entries_.size());
    byFoldedName_.emplace(text::Fold(shown.Name), entries_.size());
    tables_.push_back(shown);
    entries_.push_back(std::move(entry));
}

const JetCatalog::Entry& JetCatalog::Find(const std::string& table)
{
    RequireRead();
    if (const auto found = byName_.find(table); found != byName_.end())
        return entries_[found->second];
    if (const auto found = byFoldedName_.find(text::Fold(table)); found != byFoldedName_.end())
        return entries_[found->second];
    Fail(data_source_error::kTableUnknown,
         "The Jet file has no table or query named \"" + table + "\": check how the name is spelt.");
}

const std::vector<CatalogTable>& JetCatalog::Tables()
{
    RequireRead();
    return tables_;
}

const std::vector<CatalogField>& JetCatalog::FieldsOf(const std::string& table)
{
    const Entry& entry = Find(table);
    if (entry.Fields.empty() && entry.IsView)
        Fail(data_source_error::kFailed,
             "The columns of \"" + table + "\" can't be told without running it, which only the Jet engine can.");
    if (entry.Fields.empty())
        Fail(data_source_error::kFailed, "The table \"" + table + "\" has no columns: add some to it.");
    return entry.Fields;
}

std::vector<CatalogField> JetCatalog::Fields(const std::string& statement)
{
    const std::optional<std::string> table = TableOfStatement(statement);
    if (!table)
        Fail(data_source_error::kFailed, "The statement does not open a table for its fields.");
    return FieldsOf(*table);
}

std::vector<CatalogColumn> JetCatalog::Columns(const std::string& table)
{
    std::vector<CatalogColumn> columns;
    for (const CatalogField& field : FieldsOf(table))
        columns.push_back({.Name = field.Name, .Type = field.Type});
    return columns;
}

std::vector<CatalogIndex> JetCatalog::Indexes(const std::string& table)
{
    return Find(table).Indexes;
}

std::vector<CatalogKey> JetCatalog::Keys(const std::string& table)
{
    return Find(table).Keys;
}

std::vector<std::string> JetCatalog::Procedures()
{
    RequireRead();
    return procedures_;
}

std::vector<CatalogParameter> JetCatalog::ProcedureParameters()
{
    Fail(data_source_error::kNotSupported, "The provider of Jet files lists no parameters of procedures.");
}

} // namespace veldrane
