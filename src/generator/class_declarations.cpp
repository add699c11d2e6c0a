#include "generator/argument_list.h"
#include "generator/writers.h"

namespace veldrane {
namespace {

struct EventScope : ClassScope
{
    const ttcEvent& Event;
};

} // namespace

template <>
inline constexpr auto Vocabulary<EventScope> = std::to_array<Placeholder<EventScope>>({
    {"EventName", [](std::string& line, const EventScope& s) { line += s.Event.EventName; }},
    {"Arguments", [](std::string& line, const EventScope& s) { line += FormatArguments(s.Event.TTCEventParameters); }},
});

namespace {

void WritePropertyVariables(const PropertyEmitter& property)
{
    const PropertyScope& scope = property.Scope();
    if (scope.Property.AddToClass)
        property("Private {m:DataType}{PropertyName} as {DataType}");
    // The flag of a property that takes no part in the class as well: on purpose.
    if (scope.Project.TrackPropertyChanges && !scope.Property.PlusProperty)
        property("Private {m:Boolean}z{PropertyName} as Boolean");
    ForEachLookupField(property, [](const LookupFieldEmitter& field) { field("Private {m:L.FieldDataType}{L.PropertyName} as {L.FieldDataType}"); });
}

} // namespace

void WriteEvent(const ClassEmitter& emit, const ttcEvent& event)
{
    const EventScope scope{emit.Scope(), event};
    const LineClass lineClass = event.PlusEvent ? LineClass::MarkPlusEvent : LineClass::MarkEvent;
    emit.About(scope)("Public Event {EventName}({Arguments})", lineClass, Quotes::Convert);
}

TTCOutputs WriteClassDeclarations(const ClassScope& scope)
{
    TTCOutputs lines(scope.Settings.Colors);
    const ClassEmitter emit(lines, scope);
    for (const ttcEvent& event : scope.Class.TTCEvents)
        WriteEvent(emit, event);
    ForEachProperty(emit, WritePropertyVariables);
    if (scope.Class.ParentClassName.empty() && scope.Class.CreateCollection)
        emit("Private {m:Object}{CollectionName} as {CollectionName}");
    if (scope.Class.RetrieveByPrimaryKey)
        ForEachPrimaryKeyProperty(emit, [](const PropertyEmitter& property) { property("Private {Push}{PropertyName} as {DataType}"); });
    ForEachChild(emit, [](const ChildEmitter& child) { child("Private {m:Collection}{C.CollectionName} as {C.CollectionName}"); });
    return lines;
}

} // namespace veldrane
