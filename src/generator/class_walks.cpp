#include "generator/class_walks.h"

namespace veldrane {
namespace {

using ColumnProperties = std::unordered_map<std::string_view, std::vector<TTCProperty*>>;

ColumnProperties PropertiesByColumn(const KZMClass& owner, std::int32_t keyType)
{
    ColumnProperties byColumn;
    for (const TTCKey& key : owner.TTCKeys)
        if (key.KeyType == keyType)
            for (const TTCColumn& column : key.TTCColumns)
                byColumn.try_emplace(column.ColumnName);
    if (byColumn.empty())
        return byColumn;
    for (TTCProperty& property : owner.TTCProperties)
        if (const auto found = byColumn.find(property.FieldName); found != byColumn.end())
            found->second.push_back(&property);
    return byColumn;
}

} // namespace

ChildIndex::ChildIndex(const KZMClasses& classes)
{
    for (KZMClass& child : classes)
        children_[child.ParentClassName].push_back(&child);
}

const std::vector<KZMClass*>& ChildIndex::Of(std::string_view className) const
{
    static const std::vector<KZMClass*> kNone;
    const auto found = children_.find(std::string(className));
    return found == children_.end() ? kNone : found->second;
}

ColumnIndex::ColumnIndex(const KZMClass& owner)
{
    for (const TTCProperty& property : owner.TTCProperties)
        properties_.try_emplace(property.FieldName, property.PropertyName);
}

std::string_view ColumnIndex::ColumnToProperty(std::string_view columnName) const
{
    const auto found = properties_.find(columnName);
    return found == properties_.end() ? std::string_view() : found->second;
}

RelationshipProperties::RelationshipProperties(const KZMClass& owner)
{
    const ColumnIndex columns(owner);
    for (const TTCRelationship& relationship : owner.TTCRelationships)
        for (const TTCColumn& column : relationship.Columns)
            names_.insert(columns.ColumnToProperty(column.ColumnName));
}

std::vector<KeyColumnProperty> PropertiesBehindKey(const KZMClass& owner, std::int32_t keyType, PropertiesOnColumn which)
{
    const ColumnProperties byColumn = PropertiesByColumn(owner, keyType);
    std::vector<KeyColumnProperty> found;
    for (const TTCKey& key : owner.TTCKeys) {
        if (key.KeyType != keyType)
            continue;
        for (const TTCColumn& column : key.TTCColumns)
            for (TTCProperty* property : byColumn.at(column.ColumnName)) {
                found.push_back({&column, property});
                if (which == PropertiesOnColumn::First)
                    break;
            }
    }
    return found;
}

} // namespace veldrane
