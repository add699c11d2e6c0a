#pragma once

#include "datasource/class_edit.h"
#include "datasource/row_identifier.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The members that the generator knows how to write, and how a class takes them.
namespace veldrane {

enum class AtFirst
{
    Unticked,
    Ticked, // part of what a new class has
};

struct BuiltInProperty
{
    std::string_view Name;
    std::string_view Description;
    AtFirst Tick;
};

// What a class must have for a built-in method.
enum class MethodNeeds
{
    Nothing,
    Table,
    UpdatableTable,
    IdentityAndPrimaryKey, // of a table
};

// Whether the list of the built-in methods shows a row.
enum class OnList
{
    Shown,
    Hidden, // taken by name only
};

struct BuiltInMethod
{
    std::string_view Name;
    std::string_view Description;
    MethodNeeds Needs;
    AtFirst Tick;
    OnList List;
};

struct BuiltInEvent
{
    std::string_view Name;
    std::string_view Needs; // the member that must exist; "" for none
    std::string_view Description;
};

// The catalogues, in the order of the lists.
[[nodiscard]] std::span<const BuiltInProperty> BuiltInProperties();
[[nodiscard]] std::span<const BuiltInMethod> BuiltInMethods();
[[nodiscard]] std::span<const BuiltInEvent> BuiltInEvents();

// Whether the class has what the row needs.
[[nodiscard]] bool IsAvailable(const BuiltInMethod& method, const KZMClass& item);
[[nodiscard]] bool IsAvailable(const BuiltInEvent& event, const KZMClass& item);

// The rows that the lists show for a class.
[[nodiscard]] std::vector<BuiltInMethod> MethodsOnList(const KZMClass& item);
[[nodiscard]] std::vector<BuiltInEvent> EventsOnList(const KZMClass& item);

// A built-in method as the class would have it: return type and arguments. Nothing for a name that is not built in.
[[nodiscard]] std::shared_ptr<TTCMethod> MakeBuiltInMethod(std::string_view name, const KZMClass& item);

// Adds the named rows, in the order of the list, to the class. A row that is not there for the class, and one whose
// name is in use in it, is passed over. Methods may ask for the row identifier or be refused, which is told. A failure
// on one row is reported, and the others go on.
void AcceptBuiltInProperties(ClassEdit& edit, const std::vector<std::string>& names);
void AcceptBuiltInMethods(ClassEdit& edit, const std::vector<std::string>& names,
                          Occasion occasion = Occasion::NewClass);
void AcceptBuiltInEvents(ClassEdit& edit, const std::vector<std::string>& names);

// Adds what a new class has: the rows that are ticked at first, and every event on the list.
void AcceptDefaultMembers(ClassEdit& edit);

// The one argument of the events that hand over the class itself. What the event had before goes.
void GiveClassArgument(ttcEvent& event, std::string_view className);

// The arguments of the event RecordDeleted: what the method Delete of the class finds its row by. What the event had
// before goes.
void GiveDeletedRow(ttcEvent& event, const KZMClass& item);

// Whether an event hands over the class itself.
[[nodiscard]] bool HandsOverClass(std::string_view eventName);

} // namespace veldrane
