#include "datasource/builtin_members.h"

#include "datasource/table_keys.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace veldrane {
namespace {

constexpr auto kProperties = std::to_array<BuiltInProperty>({
    {"Modified", "Reflects 'True' when any property value in this class has changed.", AtFirst::Ticked},
    {"Deleted", "Reflects 'True' when the database record is marked for deletion.", AtFirst::Ticked},
    {"FormatProperties", "Turn Property Formatting on or off for this class. (Default = On)", AtFirst::Unticked},
});

constexpr auto kMethods = std::to_array<BuiltInMethod>({
    {"Add", "Add the class as a record to the datasource table using current property values.",
     MethodNeeds::UpdatableTable, AtFirst::Ticked, OnList::Shown},
    {"Delete", "Delete either the current record or a specific record.", MethodNeeds::UpdatableTable, AtFirst::Ticked,
     OnList::Shown},
    {"Update", "Update the current record, writing changed properties to fields.", MethodNeeds::UpdatableTable,
     AtFirst::Ticked, OnList::Shown},
    {"Clone", "Create an independent duplicate of the current class values.", MethodNeeds::Nothing, AtFirst::Ticked,
     OnList::Shown},
    {"Clear", "Clear all class properties and reset all objects.", MethodNeeds::Nothing, AtFirst::Ticked,
     OnList::Shown},
    {"Retrieve", "Retrieve a record and populate property values with field values.", MethodNeeds::Table,
     AtFirst::Ticked, OnList::Shown},
    {"RetrieveIdentity", "Retrieve the Identity Column Value of a Primary Key", MethodNeeds::IdentityAndPrimaryKey,
     AtFirst::Ticked, OnList::Shown},
    {"RetrieveList", "Retrieve a list of records (Useful for populating lists)", MethodNeeds::Table, AtFirst::Unticked,
     OnList::Shown},
    {"RetrieveListToTreeView", "", MethodNeeds::Table, AtFirst::Unticked, OnList::Hidden},
});

constexpr auto kEvents = std::to_array<BuiltInEvent>({
    {"RecordAdded", "Add", "This event triggers when a database record has been successfully added."},
    {"RecordUpdated", "Update", "This event triggers when a database record has been successfully updated."},
    {"RecordDeleted", "Delete", "This event triggers when a database record has been successfully deleted."},
    {"RecordMarkedForDeletion", "Deleted", "This event triggers when the deleted property is set to True."},
    {"IsModified", "", "This event triggers when any property value in the class changes."},
    {"RecordRetrieved", "Retrieve", "This event triggers when a database record has been successfully retrieved."},
    {"ErrorOccurred", "", "This event triggers whenever there is an error in any property or method."},
});

} // namespace

std::span<const BuiltInProperty> BuiltInProperties()
{
    return kProperties;
}

std::span<const BuiltInMethod> BuiltInMethods()
{
    return kMethods;
}

std::span<const BuiltInEvent> BuiltInEvents()
{
    return kEvents;
}

bool IsAvailable(const BuiltInMethod& method, const KZMClass& item)
{
    const bool hasTable = !item.TableName.empty();
    switch (method.Needs) {
    case MethodNeeds::Nothing:
        return true;
    case MethodNeeds::Table:
        return hasTable;
    case MethodNeeds::UpdatableTable:
        return hasTable && !item.ReadOnly;
    case MethodNeeds::IdentityAndPrimaryKey:
        return hasTable && IdentityProperty(item) && FirstKey(item, key_type::kPrimaryKey);
    }
    return false;
}

bool IsAvailable(const BuiltInEvent& event, const KZMClass& item)
{
    return event.Needs.empty() || item.TTCMembers.Contains(event.Needs);
}

std::vector<BuiltInMethod> MethodsOnList(const KZMClass& item)
{
    std::vector<BuiltInMethod> rows;
    std::ranges::copy_if(kMethods, std::back_inserter(rows), [&](const BuiltInMethod& method) {
        return method.List == OnList::Shown && IsAvailable(method, item);
    });
    return rows;
}

std::vector<BuiltInEvent> EventsOnList(const KZMClass& item)
{
    std::vector<BuiltInEvent> rows;
    std::ranges::copy_if(kEvents, std::back_inserter(rows),
                         [&](const BuiltInEvent& event) { return IsAvailable(event, item); });
    return rows;
}

} // namespace veldrane
