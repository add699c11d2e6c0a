#include "model/properties.h"

namespace veldrane {

std::shared_ptr<TTCLookupField> TTCLookupFields::Add(std::string_view fieldName, std::string_view fieldDataType,
                                                     std::string_view propertyName, std::string_view key)
{
    auto field = std::make_shared<TTCLookupField>();
    field->FieldName = fieldName;
    field->FieldDataType = fieldDataType;
    field->PropertyName = propertyName;
    return Insert(std::move(field), key);
}

std::shared_ptr<TTCProperty> TTCProperty::Clone() const
{
    auto clone = std::make_shared<TTCProperty>();
    CopyMeTo(*clone);
    return clone;
}

void TTCProperty::CopyMeTo(TTCProperty& target) const
{
    target.AddToClass = AddToClass;
    target.AttributeDescription = AttributeDescription;
    target.DataType = DataType;
    target.DefaultProperty = DefaultProperty;
    target.DisplayTruncationMessage = DisplayTruncationMessage;
    target.EnforceMaxLength = EnforceMaxLength;
    target.FieldDataType = FieldDataType;
    target.FieldIsIdentityCol = FieldIsIdentityCol;
    target.FieldName = FieldName;
    target.MaxLength = MaxLength;
    target.PropertyGet = PropertyGet;
    target.PropertyLetSet = PropertyLetSet;
    target.PropertyName = PropertyName;
    target.Scope = Scope;
    target.TTCLookupFields.Clear();
    for (const TTCLookupField& field : TTCLookupFields) {
        auto copy = std::make_shared<TTCLookupField>();
        copy->PropertyName = field.PropertyName;
        copy->FieldName = field.FieldName;
        copy->FieldDataType = field.FieldDataType;
        target.TTCLookupFields.AddExisting(std::move(copy), field.PropertyName);
    }
}

std::shared_ptr<TTCProperty> TTCProperties::Add(NewProperty property, std::string_view key)
{
    auto item = std::make_shared<TTCProperty>();
    item->ReadOnly = property.ReadOnly;
    item->AddToClass = property.AddToClass;
    item->FieldName = std::move(property.FieldName);
    item->FieldDataType = std::move(property.FieldDataType);
    item->FieldIsIdentityCol = property.FieldIsIdentityCol;
    item->PropertyName = std::move(property.PropertyName);
    item->DataType = std::move(property.DataType);
    item->Scope = std::move(property.Scope);
    item->DefaultProperty = property.DefaultProperty;
    item->AttributeDescription = std::move(property.AttributeDescription);
    item->PropertyGet = property.PropertyGet;
    item->PropertyLetSet = property.PropertyLetSet;
    item->EnforceMaxLength = property.EnforceMaxLength;
    item->MaxLength = property.MaxLength;
    item->DisplayTruncationMessage = property.DisplayTruncationMessage;
    item->LookupTable = std::move(property.LookupTable);
    item->LookupJoinField = std::move(property.LookupJoinField);
    item->LookupUseOuterJoin = property.LookupUseOuterJoin;
    item->PlusProperty = property.PlusProperty;
    item->TTCLookupFields = std::move(property.TTCLookupFields);
    return Insert(std::move(item), key);
}

} // namespace veldrane
