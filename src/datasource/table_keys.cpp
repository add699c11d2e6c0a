#include "datasource/table_keys.h"

#include "datasource/type_table.h"
#include "text/case_folding.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace veldrane {
namespace {

using ColumnTypes = std::unordered_map<std::string, std::int32_t>; // by folded name

ColumnTypes ReadColumnTypes(Catalog& source, const std::string& table)
{
    ColumnTypes types;
    for (const CatalogColumn& column : source.Columns(table))
        types.try_emplace(text::Fold(column.Name), column.Type);
    return types;
}

// A key with a column that can't enter the project is no key; the column was told with the fields.
bool IsPrimaryKey(const CatalogIndex& index, const text::CodePage& codePage)
{
    return index.PrimaryKey && !index.Columns.empty() &&
           std::ranges::all_of(index.Columns, [&](const std::string& column) { return codePage.Holds(column); });
}

TTCColumns ColumnsOf(const CatalogIndex& index, const ColumnTypes& types)
{
    TTCColumns columns;
    for (const std::string& name : index.Columns) {
        if (columns.Contains(name))
            continue;
        const auto type = types.find(text::Fold(name));
        columns.Add(name, type == types.end() ? std::string_view{} : VBTypeOfADOType(type->second), "", name);
    }
    return columns;
}

// Everything is read before the old keys go, so that a failure leaves them.
void ReadKeys(ClassEdit& edit)
{
    Catalog& source = OpenSource(edit.Source);
    std::vector<CatalogIndex> indexes = source.Indexes(edit.Class.TableName);
    std::erase_if(indexes, [&](const CatalogIndex& index) { return !IsPrimaryKey(index, edit.CodePage); });
    const ColumnTypes types = indexes.empty() ? ColumnTypes{} : ReadColumnTypes(source, edit.Class.TableName);
    edit.Class.TTCKeys.Clear();
    for (const CatalogIndex& index : indexes)
        if (!edit.Class.TTCKeys.Contains(index.Name))
            edit.Class.TTCKeys.Add(key_type::kPrimaryKey, ColumnsOf(index, types), index.Name);
    AddIdentityKey(edit.Class);
}

void TellFailure(ClassEdit& edit, const RuntimeError& error)
{
    if (error.Number != data_source_error::kNotSupported)
        edit.Errors.ReportError(error,
                                {.ModuleName = std::string(kClassEditorModule), .RoutineName = "RetrieveTableKeys"});
    if (edit.Class.TTCKeys.Count() == 0)
        edit.Messages.Tell(
            "Unable to display Keys/Indexes",
            "Unable to display Key/Index information because the datasource provider does not supply it.\r\nYou will need to set the Primary Key for this class manually.",
            MessageIcon::Information);
}

} // namespace

void AddIdentityKey(KZMClass& item)
{
    const TTCProperty* property = IdentityProperty(item);
    if (!property || FirstKey(item, key_type::kIdentityColumn))
        return;
    auto key = std::make_shared<TTCKey>();
    key->KeyType = key_type::kIdentityColumn;
    key->TTCColumns.Add(property->FieldName, property->DataType, "", property->FieldName);
    item.TTCKeys.AddExisting(std::move(key), KeyTypeText(key_type::kIdentityColumn));
}

void RetrieveTableKeys(ClassEdit& edit)
{
    if (edit.KeysFailed) {
        AddIdentityKey(edit.Class);
        return;
    }
    try {
        ReadKeys(edit);
    } catch (const RuntimeError& error) {
        edit.KeysFailed = true;
        TellFailure(edit, error);
    }
}

std::shared_ptr<TTCKey> FirstKey(const KZMClass& item, std::int32_t keyType)
{
    for (std::size_t position = 1; position <= item.TTCKeys.Count(); ++position)
        if (auto key = item.TTCKeys.Item(position); key->KeyType == keyType)
            return key;
    return nullptr;
}

const TTCProperty* IdentityProperty(const KZMClass& item)
{
    for (const TTCProperty& property : item.TTCProperties)
        if (property.FieldIsIdentityCol)
            return &property;
    return nullptr;
}

} // namespace veldrane
