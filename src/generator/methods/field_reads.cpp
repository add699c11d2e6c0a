#include "generator/methods/field_reads.h"

namespace veldrane {
namespace {

constexpr ReadForms<PropertyScope> kProperty{
    "        SET {m:DataType}{PropertyName}=IIF(IsNull({F}),{DataType}, {F})",
    "        {m:DataType}{PropertyName}={F}",
    "        {m:DataType}{PropertyName}=IIF(IsNull({F}),{Empty}, {F})",
};

// The blanks behind the commas are the other way round than a property's: on purpose.
constexpr ReadForms<LookupFieldScope> kLookupField{
    "        SET {m:L.FieldDataType}{L.PropertyName}=IIF(IsNull({L.F}), {L.FieldDataType}, {L.F})",
    "        {m:L.FieldDataType}{L.PropertyName}={L.F}",
    "        {m:L.FieldDataType}{L.PropertyName}=IIF(IsNull({L.F}),{L.Empty},{L.F})",
};

} // namespace

bool IsReadFromRow(const TTCProperty& property)
{
    return !property.PlusProperty && !property.FieldName.empty() && property.AddToClass;
}

void SettleFieldReference(TTCProperty& property)
{
    if (property.FieldReference.empty())
        property.FieldReference = property.FieldName;
    if (!property.FieldAlias.empty())
        property.FieldReference = property.FieldAlias;
}

void WriteRetrieveFields(const ClassEmitter& emit)
{
    ForEachReadProperty(emit, [](const PropertyEmitter& property) {
        WriteRead(property, property.Scope().Property.DataType, kProperty);
        ForEachLookupField(property, [](const LookupFieldEmitter& field) { WriteRead(field, field.Scope().L.FieldDataType, kLookupField); });
    });
}

} // namespace veldrane
