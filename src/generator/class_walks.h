#pragma once

#include "model/classes.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace veldrane {

// The child classes of every class of a project. Made once for many lookups, so that a project of thousands of classes
// is not scanned again for each class. It is a picture: it does not follow later changes of the classes.
class ChildIndex
{
  public:
    explicit ChildIndex(const KZMClasses& classes);

    // The classes whose ParentClassName is exactly this name, in collection order.
    [[nodiscard]] const std::vector<KZMClass*>& Of(std::string_view className) const;

  private:
    std::unordered_map<std::string, std::vector<KZMClass*>> children_; // by the parent's name
};

// A column of a key or of a relationship, and a property on that column.
struct ColumnProperty
{
    const TTCColumn* Column;
    TTCProperty* Property;
};

enum class PropertiesOnColumn
{
    Every,
    First,
};

// The properties behind the keys of a type: for each such key, each of its columns, each property (or the first one)
// whose FieldName is exactly the column's name.
[[nodiscard]] std::vector<ColumnProperty> PropertiesBehindKey(const KZMClass& owner, std::int32_t keyType, PropertiesOnColumn which = PropertiesOnColumn::Every);

// The same for the columns of the class's relationships.
[[nodiscard]] std::vector<ColumnProperty> PropertiesBehindRelationships(const KZMClass& owner, PropertiesOnColumn which);

// The first property on a column that is an identity column; null if there is none.
[[nodiscard]] TTCProperty* FirstIdentityProperty(const KZMClass& owner);

// The first property on each column of a class. A picture, as ChildIndex is.
class ColumnIndex
{
  public:
    explicit ColumnIndex(const KZMClass& owner);

    // The first property whose FieldName is exactly the column's name; null if there is none.
    [[nodiscard]] TTCProperty* PropertyOn(std::string_view columnName) const;

    // Its name; "" if there is none.
    [[nodiscard]] std::string_view ColumnToProperty(std::string_view columnName) const;

  private:
    std::unordered_map<std::string_view, TTCProperty*> properties_; // by the column's name
};

// The properties on the columns of a class's relationships: the values of its foreign keys. A picture, too.
class RelationshipProperties
{
  public:
    explicit RelationshipProperties(const KZMClass& owner);

    // Whether a property of this name, compared exactly, is one of them.
    [[nodiscard]] bool Contains(std::string_view propertyName) const { return names_.contains(propertyName); }

  private:
    std::unordered_set<std::string_view> names_;
};

} // namespace veldrane
