#include "datasource/builtin_members.h"
#include "datasource/member_arguments.h"
#include "datasource/row_identifier.h"

#include <algorithm>
#include <array>

namespace veldrane {
namespace {

constexpr auto kEventsOfClass = std::to_array<std::string_view>(
    {"RecordAdded", "RecordRetrieved", "RecordUpdated", "IsModified", "RecordMarkedForDeletion"});

bool IsNamed(const std::vector<std::string>& names, std::string_view name)
{
    return std::ranges::find(names, name) != names.end();
}

void AddProperty(KZMClass& item, std::string_view name)
{
    if (!item.TTCMembers.Add(name, name))
        return;
    NewProperty property;
    property.AddToClass = true;
    property.PropertyName = name;
    property.DataType = "Boolean";
    property.Scope = "Public";
    property.PlusProperty = true;
    item.TTCProperties.Add(std::move(property), name);
}

void AddMethod(ClassEdit& edit, std::string_view name, Occasion occasion)
{
    KZMClass& item = edit.Class;
    if (item.TTCMembers.Contains(name))
        return;
    if (const auto rowMethod = RowMethodOf(name); rowMethod && !ChooseRowIdentifier(edit, *rowMethod, occasion))
        return;
    item.TTCMembers.Add(name, name);
    item.TTCMethods.AddExisting(MakeBuiltInMethod(name, item), name);
}

void AddArguments(ttcEvent& event, const KZMClass& item)
{
    if (HandsOverClass(event.EventName)) {
        GiveClassArgument(event, item.ClassName);
    } else if (event.EventName == "RecordDeleted") {
        GiveDeletedRow(event, item);
    } else {
        AddArgument(event.TTCEventParameters, PlainParameter("ErrorNumber", "Long"));
        AddArgument(event.TTCEventParameters, PlainParameter("ErrorMessage", "String"));
    }
}

void AddEvent(KZMClass& item, std::string_view name)
{
    if (!item.TTCMembers.Add(name, name))
        return;
    const auto event = std::make_shared<ttcEvent>();
    event->EventName = name;
    event->PlusEvent = true;
    AddArguments(*event, item);
    item.TTCEvents.AddExisting(event, name);
}

template <class Row>
std::vector<std::string> TickedAtFirst(std::span<const Row> rows)
{
    std::vector<std::string> names;
    for (const Row& row : rows)
        if (row.Tick == AtFirst::Ticked)
            names.emplace_back(row.Name);
    return names;
}

} // namespace

void AcceptBuiltInProperties(ClassEdit& edit, const std::vector<std::string>& names)
{
    for (const BuiltInProperty& row : BuiltInProperties())
        if (IsNamed(names, row.Name))
            Guarded(edit.Errors, "frmBuiltInProperties", "cmdOK_Click", [&] { AddProperty(edit.Class, row.Name); });
}

void AcceptBuiltInMethods(ClassEdit& edit, const std::vector<std::string>& names, Occasion occasion)
{
    for (const BuiltInMethod& row : BuiltInMethods())
        if (IsNamed(names, row.Name) && IsAvailable(row, edit.Class))
            Guarded(edit.Errors, "frmBuiltInMethods", "cmdOK_Click", [&] { AddMethod(edit, row.Name, occasion); });
}

void AcceptBuiltInEvents(ClassEdit& edit, const std::vector<std::string>& names)
{
    for (const BuiltInEvent& row : BuiltInEvents())
        if (IsNamed(names, row.Name) && IsAvailable(row, edit.Class))
            Guarded(edit.Errors, "frmBuiltInEvents", "cmdOK_Click", [&] { AddEvent(edit.Class, row.Name); });
}

void AcceptDefaultMembers(ClassEdit& edit)
{
    AcceptBuiltInProperties(edit, TickedAtFirst(BuiltInProperties()));
    AcceptBuiltInMethods(edit, TickedAtFirst(BuiltInMethods()));
    std::vector<std::string> events;
    for (const BuiltInEvent& event : EventsOnList(edit.Class))
        events.emplace_back(event.Name);
    AcceptBuiltInEvents(edit, events);
}

void GiveClassArgument(ttcEvent& event, std::string_view className)
{
    event.TTCEventParameters.Clear();
    // "a" before a vowel too: the generated code raises the event without naming its argument.
    AddArgument(event.TTCEventParameters, PlainParameter("a" + std::string(className), std::string(className)));
}

void GiveDeletedRow(ttcEvent& event, const KZMClass& item)
{
    event.TTCEventParameters.Clear();
    for (ColumnArgument column : RowArguments(item, RowMethod::Delete)) {
        column.ColumnName.clear(); // an event binds no column
        AddArgument(event.TTCEventParameters, ParameterFor(column));
    }
}

bool HandsOverClass(std::string_view eventName)
{
    return std::ranges::find(kEventsOfClass, eventName) != kEventsOfClass.end();
}

} // namespace veldrane
