#pragma once

#include "generator/scopes.h"

// Lines that take the fields of a row into an object.
namespace veldrane {

// The forms of a line that takes one field, by what the type can hold.
template <class Scope>
struct ReadForms
{
    TemplateLine<Scope> Object;
    TemplateLine<Scope> Variant;
    TemplateLine<Scope> Value;
};

// Whether a property is read from a row.
[[nodiscard]] bool IsReadFromRow(const TTCProperty& property);

// Settles by which name the property's field is read: its alias in the latest SELECT statement, else its column's name.
void SettleFieldReference(TTCProperty& property);

// Emits the line for a field of the type.
template <class Scope>
void WriteRead(const Emitter<Scope>& emit, std::string_view typeName, const ReadForms<Scope>& forms)
{
    const std::string_view empty = DefaultValueForType(typeName, false);
    if (empty == "Null")
        emit(forms.Variant, LineClass::Code, Quotes::Convert);
    else if (IsObjectType(typeName) && empty == kObjectMark)
        emit(forms.Object, LineClass::Code, Quotes::Convert);
    else
        emit(forms.Value, LineClass::Code, Quotes::Convert);
}

// Calls `body` with an emitter of lines about each property that is read from a row, its reference settled.
template <class Body>
void ForEachReadProperty(const ClassEmitter& emit, Body&& body)
{
    ForEachProperty(emit, [&](const PropertyEmitter& property) {
        if (!IsReadFromRow(property.Scope().Property))
            return;
        SettleFieldReference(property.Scope().Property);
        body(property);
    });
}

// Lines that take a row into an object: each property, and behind it the fields of its lookup.
void WriteRetrieveFields(const ClassEmitter& emit, const ReadForms<PropertyScope>& propertyForms, const ReadForms<LookupFieldScope>& lookupForms);

} // namespace veldrane
