#pragma once

#include "collections/keyed_collection.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace veldrane {

// One extra field that a lookup brings in.
struct TTCLookupField
{
    std::string FieldName;
    std::string FieldDataType; // a Visual Basic type name
    std::string PropertyName;  // the name it gets in the class

    // Working values of the generator, never saved.
    std::string FieldReference;
    std::string FieldAlias;
};

class TTCLookupFields : public KeyedCollection<TTCLookupField, CollectionRules{.Extra = Extras::AddExistingAndClear}>
{
  public:
    // Throws RuntimeError 457 if the key is in use.
    std::shared_ptr<TTCLookupField> Add(std::string_view fieldName, std::string_view fieldDataType,
                                        std::string_view propertyName, std::string_view key);
};

// A name under resolution while a query is built.
struct TrackFields
{
    std::string FieldName;
    std::string PropertyName;
    std::string FieldReference;
    std::string FieldAlias;
};

// One property of a class, and the database field behind it if there is one.
struct TTCProperty
{
    // An independent copy, without the lookup's table, join field and outer join, ReadOnly, PlusProperty,
    // FieldAllowsNull, AllowPropertyToBeNull, the format members and the working values: whoever edits a property sets
    // those itself.
    [[nodiscard]] std::shared_ptr<TTCProperty> Clone() const;

    // The same into an existing property, whose lookup fields are replaced.
    void CopyMeTo(TTCProperty& target) const;

    veldrane::TTCLookupFields TTCLookupFields;
    std::string PropertyName; // its key in TTCProperties and TTCMembers
    std::string DataType;     // a Visual Basic type name
    std::string Scope;        // "Public" or "Friend"
    bool DefaultProperty = false;
    std::string AttributeDescription;
    bool PropertyGet = false;
    bool PropertyLetSet = false;
    bool EnforceMaxLength = false;
    std::int32_t MaxLength = 0; // characters; 0 for none
    bool DisplayTruncationMessage = false;
    std::string FieldName;
    std::string FieldDataType; // the display name of the column's data type
    bool FieldIsIdentityCol = false;
    bool AddToClass = false; // the property takes part in generation
    std::string LookupTable; // "" if this is no lookup
    std::string LookupJoinField;
    bool LookupUseOuterJoin = false;
    bool ReadOnly = false;
    bool PlusProperty = false; // a built-in property, not derived from a column
    bool FieldAllowsNull = false;
    std::string FormatStringOnLet;
    std::string FormatStringOnGet;
    bool FormatOnLet = false;
    bool FormatOnGet = false;
    bool AllowPropertyToBeNull = false;

    // Working values of the generator, never saved.
    std::string FieldReference;
    std::string FieldAlias;
    bool Include = false;
};

// What TTCProperties::Add takes, in its order; what is left out is empty.
struct NewProperty
{
    bool ReadOnly = false;
    bool AddToClass = false;
    bool FieldAllowsNull = false; // accepted and dropped
    std::string FieldName{};
    std::string FieldDataType{};
    bool FieldIsIdentityCol = false;
    std::string PropertyName{};
    std::string DataType{};
    std::string Scope{};
    bool DefaultProperty = false;
    std::string AttributeDescription{};
    bool PropertyGet = false;
    bool PropertyLetSet = false;
    bool EnforceMaxLength = false;
    std::int32_t MaxLength = 0;
    bool DisplayTruncationMessage = false;
    std::string LookupTable{};
    std::string LookupJoinField{};
    bool LookupUseOuterJoin = false;
    bool PlusProperty = false;
    veldrane::TTCLookupFields TTCLookupFields{};
};

class TTCProperties : public KeyedCollection<TTCProperty, CollectionRules{.Item = OnMissing::YieldsNothing,
                                                                          .Extra = Extras::AddExistingAndLastIndex}>
{
  public:
    // Stores all that is given but `FieldAllowsNull`: that is False until someone sets it on the result. Throws
    // RuntimeError 457 if the key is in use.
    std::shared_ptr<TTCProperty> Add(NewProperty property, std::string_view key);
};

} // namespace veldrane
