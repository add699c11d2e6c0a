#pragma once

#include "generator/scopes.h"

// What the routines that write a row to the database have in common.
namespace veldrane {

// Whether the property's value is stored in a column.
[[nodiscard]] bool IsStored(const TTCProperty& property);

// Whether only a change of the property is written: changes are tracked, and code outside the class can make one.
[[nodiscard]] bool IsTracked(const PropertyScope& scope);

// Calls `body` with an emitter of lines about each property that is stored.
template <class Body>
void ForEachStoredProperty(const ClassEmitter& emit, Body&& body)
{
    ForEachProperty(emit, [&](const PropertyEmitter& property) {
        if (IsStored(property.Scope().Property))
            body(property);
    });
}

// The comment on the workaround for Jet, where the routine has one.
void WriteJetComment(const ClassEmitter& emit);

// The routine whose fields are assigned: Update has two kinds of lines of its own.
enum class AssignmentIn
{
    Add,
    Update,
};

// A line, or a block, for each stored property: its value goes to the field of the recordset. Identity columns are left
// to the database.
void WriteAssignments(const ClassEmitter& emit, AssignmentIn routine);

// A line that hands a value of this object to a child that is about to be written.
struct HandedDownScope : PropertyScope
{
    const KZMClass& C;
    const TTCProperty& ChildProperty;
};

template <>
inline constexpr auto Vocabulary<HandedDownScope> = JoinVocabularies(std::to_array<Placeholder<HandedDownScope>>({
                                                                         {"C.ClassName", [](std::string& line, const HandedDownScope& s) { line += s.C.ClassName; }},
                                                                         {"ChildProperty", [](std::string& line, const HandedDownScope& s) { line += s.ChildProperty.PropertyName; }},
                                                                     }),
                                                                     InheritedVocabulary<HandedDownScope, PropertyScope>());

// A line for each column that joins the child to this class, whose properties `columns` knows. Throws DatasourceChanged if
// one of the two classes has a property for it and the other has lost its own.
void WriteHandedDownKeys(const ChildEmitter& emit, const ColumnIndex& columns, const TemplateLine<HandedDownScope>& line);

} // namespace veldrane
