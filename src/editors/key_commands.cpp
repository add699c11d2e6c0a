#include "editors/key_commands.h"

#include "datasource/builtin_members.h"
#include "datasource/member_arguments.h"
#include "datasource/table_keys.h"

#include <optional>

namespace veldrane {
namespace {

void SetFlags(KZMClass& item, RowMethod method, RowKey key)
{
    const bool byIdentity = key == RowKey::IdentityColumn;
    if (method == RowMethod::Retrieve) {
        item.RetrieveByIdentityCol = byIdentity;
        item.RetrieveByPrimaryKey = !byIdentity;
    } else {
        item.DeleteByIdentityColumn = byIdentity;
        item.DeleteByPrimaryKey = !byIdentity;
    }
}

} // namespace

bool CanFindBy(const KZMClass& item, const TTCMethod& method, RowKey key)
{
    if (!RowMethodOf(method.MethodName))
        return false;
    return key == RowKey::IdentityColumn ? IdentityProperty(item) != nullptr
                                         : FirstKey(item, key_type::kPrimaryKey) != nullptr;
}

void FindBy(KZMClass& item, TTCMethod& method, RowKey key)
{
    const std::optional<RowMethod> rowMethod = RowMethodOf(method.MethodName);
    if (!rowMethod)
        return;
    SetFlags(item, *rowMethod, key);
    method.Arguments.Clear();
    for (const ColumnArgument& column : RowArguments(item, *rowMethod))
        AddArgument(method.Arguments, ParameterFor(column));
    const auto event = item.TTCEvents.Item("RecordDeleted");
    if (rowMethod == RowMethod::Delete && event != nullptr && event->PlusEvent)
        GiveDeletedRow(*event, item); // the generated Delete raises it with its own arguments
}

void SetPrimaryKey(KZMClass& item, const std::vector<std::shared_ptr<TTCProperty>>& properties)
{
    auto key = std::make_shared<TTCKey>();
    key->KeyType = key_type::kPrimaryKey;
    for (const auto& property : properties)
        if (!key->TTCColumns.Contains(property->FieldName))
            key->TTCColumns.Add(property->FieldName, property->DataType, "", property->FieldName);
    item.TTCKeys.Clear();
    item.TTCKeys.AddExisting(key, KeyTypeText(key_type::kPrimaryKey));
    AddIdentityKey(item);
}

} // namespace veldrane
