#include "datasource/parent_relationships.h"

#include "datasource/table_keys.h"
#include "datasource/type_table.h"

#include <algorithm>
#include <utility>

namespace veldrane {
namespace {

bool Fits(const CatalogKey& key, const text::CodePage& codePage)
{
    return std::ranges::all_of(key.Columns, [&](const CatalogKeyColumn& column) {
        return codePage.Holds(column.Name) && codePage.Holds(column.RelatedColumn);
    });
}

Columns ColumnsOf(const CatalogKey& key)
{
    Columns columns;
    for (const CatalogKeyColumn& column : key.Columns)
        if (!columns.Contains(column.Name))
            columns.Add(column.Name, "", column.RelatedColumn, column.Name);
    return columns;
}

// A key of a table to itself comes from both directions and is taken once.
void AddRelationships(ClassEdit& edit, const std::vector<CatalogKey>& keys, const std::string& relatedTable,
                      const std::string& parentTable)
{
    for (const CatalogKey& key : keys) {
        if (key.Type != catalog_key_type::kForeign || key.RelatedTable != relatedTable || !Fits(key, edit.CodePage))
            continue;
        if (!edit.Class.TTCRelationships.Contains(key.Name))
            edit.Class.TTCRelationships.Add(key.Name, parentTable, ColumnsOf(key), key.Name);
    }
}

bool TellFailure(ClassEdit& edit, const RuntimeError& error)
{
    const bool isSupported = error.Number != data_source_error::kNotSupported;
    if (isSupported)
        edit.Errors.ReportError(
            error, {.ModuleName = std::string(kClassEditorModule), .RoutineName = "RetrieveParentRelationships"});
    edit.Messages.Tell("Unable to display Relationships",
                       "Unable to display Relationship information because the datasource provider does not supply it.",
                       MessageIcon::Information);
    return !isSupported;
}

std::vector<JoinField> ReadFields(ClassEdit& edit, const std::string& table)
{
    std::vector<JoinField> fields;
    Guarded(edit.Errors, kClassEditorModule, "DisplayFields", [&] {
        for (const CatalogColumn& column : OpenSource(edit.Source).Columns(table))
            fields.push_back({.ColumnName = column.Name, .DataType = std::string(VBTypeOfADOType(column.Type))});
    });
    return fields;
}

} // namespace

bool RetrieveParentRelationships(ClassEdit& edit, const std::string& parentTable)
{
    const std::string& ownTable = edit.Class.TableName;
    if (parentTable.empty() || ownTable.empty())
        return true;
    edit.Class.TTCKeys.Clear();
    RetrieveTableKeys(edit);
    try {
        Catalog& source = OpenSource(edit.Source);
        const std::vector<CatalogKey> parentKeys = source.Keys(parentTable);
        const std::vector<CatalogKey> ownKeys = source.Keys(ownTable);
        // The columns mean the same in both directions, whichever table the key belongs to: on purpose.
        AddRelationships(edit, parentKeys, ownTable, parentTable);
        AddRelationships(edit, ownKeys, parentTable, parentTable);
        return true;
    } catch (const RuntimeError& error) {
        return TellFailure(edit, error);
    }
}

JoinFields ReadJoinFields(ClassEdit& edit, const std::string& parentTable)
{
    return {.ParentCaption = "P&arent Table: " + parentTable,
            .Parent = ReadFields(edit, parentTable),
            .OwnCaption = "&This Table: " + edit.Class.TableName,
            .Own = ReadFields(edit, edit.Class.TableName)};
}

std::vector<JoinRow> JoinRows(const KZMClass& item)
{
    std::vector<JoinRow> rows;
    for (const TTCRelationship& relationship : item.TTCRelationships)
        for (const TTCColumn& column : relationship.Columns)
            rows.push_back({.Key = relationship.KeyName + "." + column.ColumnName,
                            .Text = item.TableName + "." + column.ColumnName + "=" + relationship.ParentTableName +
                                    "." + column.JoinColumnName,
                            .KeyName = relationship.KeyName});
    return rows;
}

} // namespace veldrane
