#include "model/class.h"

#include <utility>

namespace veldrane {
namespace {

void CopyRelationships(const KZMClass& from, KZMClass& to)
{
    for (const TTCRelationship& relationship : from.TTCRelationships) {
        const auto copy = to.TTCRelationships.Add(relationship.KeyName, relationship.ParentTableName, Columns{},
                                                  relationship.KeyName);
        for (const TTCColumn& column : relationship.Columns)
            copy->Columns.Add(column.ColumnName, column.ColumnDataType, column.JoinColumnName, column.ColumnName);
    }
}

void CopyEnumerations(const KZMClass& from, KZMClass& to)
{
    for (const TTCEnum& enumeration : from.Enumerations) {
        const auto copy = to.Enumerations.Add(enumeration.EnumName, enumeration.EnumName);
        for (const TTCEnumValue& value : enumeration.EnumValues)
            copy->EnumValues.Add(value.VariableName, value.Value, value.VariableName);
    }
}

// The list is cleared on every pass, so that the last key alone comes through: that is what a clone is.
void CopyKeys(const KZMClass& from, KZMClass& to)
{
    for (const TTCKey& key : from.TTCKeys) {
        to.TTCKeys.Clear();
        const auto copy = to.TTCKeys.Add(key.KeyType, TTCColumns{}, KeyTypeText(key.KeyType));
        for (const TTCColumn& column : key.TTCColumns)
            copy->TTCColumns.Add(column.ColumnName, column.ColumnDataType, column.JoinColumnName, "");
    }
}

NewProperty AddableCopy(const TTCProperty& property)
{
    return {.ReadOnly = property.ReadOnly,
            .AddToClass = property.AddToClass,
            .FieldAllowsNull = property.FieldAllowsNull,
            .FieldName = property.FieldName,
            .FieldDataType = property.FieldDataType,
            .FieldIsIdentityCol = property.FieldIsIdentityCol,
            .PropertyName = property.PropertyName,
            .DataType = property.DataType,
            .Scope = property.Scope,
            .DefaultProperty = property.DefaultProperty,
            .AttributeDescription = property.AttributeDescription,
            .PropertyGet = property.PropertyGet,
            .PropertyLetSet = property.PropertyLetSet,
            .EnforceMaxLength = property.EnforceMaxLength,
            .MaxLength = property.MaxLength,
            .DisplayTruncationMessage = property.DisplayTruncationMessage,
            .LookupTable = property.LookupTable,
            .LookupJoinField = property.LookupJoinField,
            .LookupUseOuterJoin = property.LookupUseOuterJoin,
            .PlusProperty = property.PlusProperty,
            .TTCLookupFields = {}};
}

void CopyProperties(const KZMClass& from, KZMClass& to)
{
    for (const TTCProperty& property : from.TTCProperties) {
        const auto copy = to.TTCProperties.Add(AddableCopy(property), property.PropertyName);
        for (const TTCLookupField& field : property.TTCLookupFields)
            copy->TTCLookupFields.Add(field.FieldName, field.FieldDataType, field.PropertyName, field.PropertyName);
    }
}

void CopyMethods(const KZMClass& from, KZMClass& to)
{
    for (const TTCMethod& method : from.TTCMethods) {
        const auto copy = to.TTCMethods.Add(method.MethodName, method.PlusMethod, KZMArguments{}, method.ReturnDataType,
                                            method.Scope, method.DefaultMethod, method.MethodName);
        for (const TTCParameter& argument : method.Arguments)
            copy->Arguments.Add(argument.ColumnName, argument.Index, argument.ByValIndicator, argument.VariableName,
                                argument.ParameterDataType, argument.OptionalIndicator, argument.DefaultValue,
                                argument.IsArray, argument.VariableName);
    }
}

void CopyEvents(const KZMClass& from, KZMClass& to)
{
    for (const ttcEvent& event : from.TTCEvents)
        to.TTCEvents.Add(event.EventName, std::move(event.Clone()->TTCEventParameters), event.PlusEvent,
                         event.EventName);
}

} // namespace

std::shared_ptr<KZMClass> KZMClass::Clone() const
{
    auto clone = std::make_shared<KZMClass>();
    clone->ClassName = ClassName;
    clone->CollectionName = CollectionName;
    clone->CreateCollection = CreateCollection;
    clone->IncludeAddExisting = IncludeAddExisting;
    clone->IsDomainTable = IsDomainTable;
    clone->ParentClassName = ParentClassName;
    clone->TableName = TableName;
    clone->RetrieveByIdentityCol = RetrieveByIdentityCol;
    clone->RetrieveByPrimaryKey = RetrieveByPrimaryKey;
    clone->DeleteByIdentityColumn = DeleteByIdentityColumn;
    clone->DeleteByPrimaryKey = DeleteByPrimaryKey;
    clone->CollectionAddNewKey = CollectionAddNewKey;
    CopyRelationships(*this, *clone);
    CopyEnumerations(*this, *clone);
    CopyKeys(*this, *clone);
    for (const TTCMember& member : TTCMembers)
        clone->TTCMembers.Add(member.MemberName, member.MemberName);
    CopyProperties(*this, *clone);
    CopyMethods(*this, *clone);
    CopyEvents(*this, *clone);
    return clone;
}

} // namespace veldrane
