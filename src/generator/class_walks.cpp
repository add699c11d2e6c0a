#include "generator/class_walks.h"

namespace veldrane {
namespace {

using ColumnList = std::vector<const TTCColumn*>;

// For each of the columns, each property on it, or the first one.
std::vector<ColumnProperty> PropertiesOn(const ColumnList& columns, const KZMClass& owner, PropertiesOnColumn which)
{
    std::unordered_map<std::string_view, std::vector<TTCProperty*>> byColumn;
    for (const TTCColumn* column : columns)
        byColumn.try_emplace(column->ColumnName);
    if (byColumn.empty())
        return {};
    for (TTCProperty& property : owner.TTCProperties)
        if (const auto found = byColumn.find(property.FieldName); found != byColumn.end() && (which == PropertiesOnColumn::Every || found->second.empty()))
            found->second.push_back(&property);
    std::vector<ColumnProperty> found;
    for (const TTCColumn* column : columns)
        for (TTCProperty* property : byColumn.at(column->ColumnName))
            found.push_back({column, property});
    return found;
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

TTCProperty* FirstIdentityProperty(const KZMClass& owner)
{
    for (TTCProperty& property : owner.TTCProperties)
        if (property.FieldIsIdentityCol && !property.FieldName.empty())
            return &property;
    return nullptr;
}

ColumnIndex::ColumnIndex(const KZMClass& owner)
{
    for (TTCProperty& property : owner.TTCProperties)
        properties_.try_emplace(property.FieldName, &property);
}

TTCProperty* ColumnIndex::PropertyOn(std::string_view columnName) const
{
    const auto found = properties_.find(columnName);
    return found == properties_.end() ? nullptr : found->second;
}

std::string_view ColumnIndex::ColumnToProperty(std::string_view columnName) const
{
    const TTCProperty* property = PropertyOn(columnName);
    return property == nullptr ? std::string_view() : std::string_view(property->PropertyName);
}

RelationshipProperties::RelationshipProperties(const KZMClass& owner)
{
    const ColumnIndex columns(owner);
    for (const TTCRelationship& relationship : owner.TTCRelationships)
        for (const TTCColumn& column : relationship.Columns)
            names_.insert(columns.ColumnToProperty(column.ColumnName));
}

std::vector<ColumnProperty> PropertiesBehindKey(const KZMClass& owner, std::int32_t keyType, PropertiesOnColumn which)
{
    ColumnList columns;
    for (const TTCKey& key : owner.TTCKeys)
        if (key.KeyType == keyType)
            for (const TTCColumn& column : key.TTCColumns)
                columns.push_back(&column);
    return PropertiesOn(columns, owner, which);
}

std::vector<ColumnProperty> PropertiesBehindRelationships(const KZMClass& owner, PropertiesOnColumn which)
{
    ColumnList columns;
    for (const TTCRelationship& relationship : owner.TTCRelationships)
        for (const TTCColumn& column : relationship.Columns)
            columns.push_back(&column);
    return PropertiesOn(columns, owner, which);
}

} // namespace veldrane
