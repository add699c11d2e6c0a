#include "generator/methods/field_reads.h"

namespace veldrane {

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

void WriteRetrieveFields(const ClassEmitter& emit, const ReadForms<PropertyScope>& propertyForms, const ReadForms<LookupFieldScope>& lookupForms)
{
    ForEachReadProperty(emit, [&](const PropertyEmitter& property) {
        WriteRead(property, property.Scope().Property.DataType, propertyForms);
        ForEachLookupField(property, [&](const LookupFieldEmitter& field) { WriteRead(field, field.Scope().L.FieldDataType, lookupForms); });
    });
}

} // namespace veldrane
