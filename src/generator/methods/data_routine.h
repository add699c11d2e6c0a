#pragma once

#include "generator/methods/where_text.h"

#include <type_traits>

// Lines that the routines which read and write rows have in common. A line that names the routine is given whole, as a
// template, so that it stands in the source of that routine.
namespace veldrane {

using ClassLine = TemplateLine<ClassScope>;

// A line that only programs made for timing have.
void WriteTimingLine(const ClassEmitter& emit, const ClassLine& line);

// What a component tells of its errors.
void WriteErrorVariables(const ClassEmitter& emit);

// A variable for each child class, as `line` declares it.
void WriteChildVariables(const ClassEmitter& emit, const TemplateLine<ChildScope>& line);

// A line with a SELECT statement in it.
struct SelectScope : ClassScope
{
    const std::string& Select;
};

template <>
inline constexpr auto Vocabulary<SelectScope> = JoinVocabularies(std::to_array<Placeholder<SelectScope>>({{"Select", [](std::string& line, const SelectScope& s) { line += s.Select; }}}),
                                                                 InheritedVocabulary<SelectScope, ClassScope>());

// The line with the class's SELECT statement in it; a long statement goes over several lines.
void WriteSelectStatement(const ClassEmitter& emit, const TemplateLine<SelectScope>& line);

// A line with the condition in it.
void WriteConditionLine(const ClassEmitter& emit, const std::string& where, const TemplateLine<WhereScope>& line);

// Has the component read the rows of `SQL`; `raise` passes on its error.
void WriteReadThroughComponent(const ClassEmitter& emit, const ClassLine& raise);

// Keeps the values of the primary key as they now stand in the database, where the class keeps them: a line for each
// property behind it, by whether that is an object.
void WritePushCopies(const ClassEmitter& emit, const TemplateLine<PropertyScope>& object, const TemplateLine<PropertyScope>& value);

// What a routine does about an error: `message` forms the text. The event is raised if the class has it.
template <class ScopeType>
void WriteErrorReport(const Emitter<ScopeType>& emit, const TemplateLine<std::type_identity_t<ScopeType>>& message)
{
    emit("    nbr = Err.Number");
    emit(message);
    if (HasEvent(emit.Scope(), "ErrorOccurred"))
        emit("    RaiseEvent ErrorOccurred(nbr, msg)");
}

} // namespace veldrane
