#include "datasource/odbc/odbc_catalog.h"

#include "datasource/field_statement.h"
#include "generator/column_names.h"
#include "text/case_folding.h"
#include "text/strings.h"

#include <algorithm>
#include <cctype>

namespace veldrane {
namespace {

// Whether the name can stand in a statement as it is and be nothing but a name.
bool IsPlainName(std::string_view name)
{
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 0x80 || std::isalnum(byte) != 0 || c == '_' || c == '.' || c == '$';
    });
}

// Sent on, the name might be one that the server does not know as it stands.
[[noreturn]] void RefuseHidden(const std::string& table)
{
    throw DataSourceError(data_source_error::kPermissionDenied, "ODBC",
                          "The login may not read the table \"" + table + "\".");
}

} // namespace

OdbcCatalog::OdbcCatalog(std::shared_ptr<OdbcSession> session, std::unique_ptr<CatalogSource> source)
    : session_(std::move(session)), source_(std::move(source)), quote_(session_->Info(SQL_IDENTIFIER_QUOTE_CHAR))
{}

const std::vector<CatalogTable>& OdbcCatalog::Tables()
{
    session_->RequireOpen();
    ReadTables();
    return tables_;
}

void OdbcCatalog::ReadTables()
{
    if (tablesRead_)
        return;
    for (SourceTable& table : source_->Tables()) {
        byName_.emplace(table.Shown.Name, entries_.size());
        if (!table.Schema.value_or("").empty() && table.Shown.SchemaSize == 0)
            table.Shown.WithSchema = *table.Schema + "." + table.Name;
        tables_.push_back(table.Shown);
        entries_.push_back({.Table = std::move(table), .Fields = {}, .Indexes = {}, .Keys = {}});
    }
    // A name as it is shown goes before the same one with a schema.
    for (std::size_t at = 0; at < entries_.size(); ++at)
        if (!tables_[at].WithSchema.empty())
            byName_.emplace(tables_[at].WithSchema, at);
    for (const auto& [name, at] : byName_)
        if (const auto [known, isNew] = byFoldedName_.emplace(text::Fold(name), at); !isNew)
            known->second = std::min(known->second, at);
    tablesRead_ = true;
}

OdbcCatalog::Entry* OdbcCatalog::Find(const std::string& table)
{
    session_->RequireOpen();
    ReadTables();
    if (const auto found = byName_.find(table); found != byName_.end())
        return &entries_[found->second];
    const std::vector<std::string> hidden = source_->HiddenTables();
    if (std::find(hidden.begin(), hidden.end(), table) != hidden.end())
        RefuseHidden(table);
    if (const auto found = byFoldedName_.find(text::Fold(table)); found != byFoldedName_.end())
        return &entries_[found->second];
    if (std::any_of(hidden.begin(), hidden.end(), [&](const auto& name) { return text::EqualFolded(name, table); }))
        RefuseHidden(table);
    return nullptr;
}

OdbcCatalog::Entry& OdbcCatalog::FindOrThrow(const std::string& table)
{
    if (Entry* entry = Find(table))
        return *entry;
    throw DataSourceError(data_source_error::kTableUnknown, "ODBC",
                          "The data source has no table named \"" + table + "\".");
}

std::vector<CatalogField> OdbcCatalog::Fields(const std::string& statement)
{
    const std::optional<std::string> name = TableOfStatement(statement);
    if (!name)
        throw DataSourceError(data_source_error::kFailed, "ODBC",
                              "The statement does not open a table for its fields.");
    // Around a name that could stand bare, brackets may be its own.
    const bool isBracketed = statement.size() > FieldStatementOf(*name).size();
    if (Entry* entry = isBracketed && !NeedsBrackets(*name) ? Find("[" + *name + "]") : nullptr)
        return FieldsOf(*entry);
    if (Entry* entry = Find(*name))
        return FieldsOf(*entry);
    return Open(IsPlainName(*name) ? *name : Quoted(*name));
}

const std::vector<CatalogField>& OdbcCatalog::FieldsOf(Entry& entry)
{
    if (!entry.Fields) {
        entry.Fields = source_->FieldsOf(entry.Table);
    }
    if (!entry.Fields) {
        std::vector<CatalogField> fields = Open(ReferenceTo(entry.Table));
        source_->CompleteFields(entry.Table, fields);
        entry.Fields = std::move(fields);
    }
    return *entry.Fields;
}

std::vector<CatalogField> OdbcCatalog::Open(const std::string& reference) const
{
    OdbcStatement opened(*session_);
    opened.Execute(FieldStatementOf(reference));
    std::vector<CatalogField> fields;
    for (const OdbcColumn& column : opened.Columns())
        fields.push_back(source_->FieldOf(column));
    return fields;
}

// A driver that quotes no names says so with a blank.
std::string OdbcCatalog::Quoted(const std::string& name) const
{
    if (quote_.empty() || quote_ == " ")
        return name;
    return quote_ + text::ReplaceAll(name, quote_, quote_ + quote_) + quote_;
}

std::string OdbcCatalog::ReferenceTo(const SourceTable& table) const
{
    return table.Schema ? Quoted(*table.Schema) + "." + Quoted(table.Name) : Quoted(table.Name);
}

std::vector<CatalogColumn> OdbcCatalog::Columns(const std::string& table)
{
    std::vector<CatalogColumn> columns;
    for (const CatalogField& field : FieldsOf(FindOrThrow(table)))
        columns.push_back({.Name = field.Name, .Type = field.Type});
    return columns;
}

std::vector<CatalogIndex> OdbcCatalog::Indexes(const std::string& table)
{
    Entry& entry = FindOrThrow(table);
    if (!entry.Indexes)
        entry.Indexes = source_->Indexes(entry.Table);
    return *entry.Indexes;
}

std::vector<CatalogKey> OdbcCatalog::Keys(const std::string& table)
{
    Entry& entry = FindOrThrow(table);
    if (!entry.Keys)
        entry.Keys = source_->Keys(entry.Table);
    return *entry.Keys;
}

std::vector<std::string> OdbcCatalog::HiddenTables()
{
    session_->RequireOpen();
    ReadTables();
    return source_->HiddenTables();
}

std::vector<std::string> OdbcCatalog::Procedures()
{
    session_->RequireOpen();
    if (!procedures_)
        procedures_ = source_->Procedures();
    return *procedures_;
}

std::vector<CatalogParameter> OdbcCatalog::ProcedureParameters()
{
    session_->RequireOpen();
    if (!parameters_)
        parameters_ = source_->Parameters();
    return *parameters_;
}

void OdbcCatalog::ExpectManyTables()
{
    session_->RequireOpen();
    ReadTables();
    source_->ReadTogether();
}

} // namespace veldrane
