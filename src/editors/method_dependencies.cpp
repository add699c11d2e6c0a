#include "editors/method_dependencies.h"

#include <algorithm>
#include <array>

namespace veldrane {
namespace {

// The generated text of the first method calls the second, or can't be compiled without it.
struct Need
{
    std::string_view MethodName;
    std::string_view Needed;
};

constexpr auto kNeeds = std::to_array<Need>({
    {"Delete", "Clear"},
    {"Retrieve", "Clear"},
    {"RetrieveIdentity", "Clear"},
    {"Update", "Retrieve"},
});

struct MethodEvent
{
    std::string_view MethodName;
    std::string_view EventName;
    std::string_view Note;
};

constexpr auto kEvents = std::to_array<MethodEvent>({
    {"Add", "RecordAdded", "The RecordAdded plus event will also be removed because it is dependant on this method."},
    {"Delete", "RecordDeleted",
     "The RecordDeleted plus event will also be removed because it is dependant on this method."},
    {"Retrieve", "RecordRetrieved",
     "The RecordRetrieved plus event will also be removed because it is dependant on this method."},
    {"Update", "RecordUpdated",
     "The RecordUpdated plus event will also be removed because it is dependant on this method."},
});

const MethodEvent* EventRow(std::string_view methodName)
{
    const auto* const found = std::find_if(kEvents.begin(), kEvents.end(),
                                           [&](const MethodEvent& row) { return row.MethodName == methodName; });
    return found == kEvents.end() ? nullptr : found;
}

// A class that does one of these does it with its children.
constexpr auto kNeededBelow = std::to_array<std::string_view>({"Add", "Retrieve", "Clone", "Update", "Delete"});

} // namespace

std::string_view EventOfMethod(std::string_view methodName)
{
    const MethodEvent* const row = EventRow(methodName);
    return row == nullptr ? std::string_view{} : row->EventName;
}

std::string DependantsText(const KZMClass& item, const std::vector<std::string>& names)
{
    std::string lines;
    for (const std::string& name : names)
        for (const Need& need : kNeeds)
            if (need.Needed == name && item.TTCMethods.Contains(need.MethodName))
                lines += "The " + name + " Method is needed by the " + std::string(need.MethodName) + " method.\r\n";
    return lines;
}

std::string DeletionText(const KZMClass& item, std::string_view methodName)
{
    std::string text = "Are you sure you want to delete the '" + std::string(methodName) + "' method from this class?";
    const MethodEvent* const row = EventRow(methodName);
    if (row != nullptr && item.TTCEvents.Contains(row->EventName))
        text += "\r\n" + std::string(row->Note);
    return text;
}

bool IsNeededBelow(std::string_view methodName)
{
    return std::find(kNeededBelow.begin(), kNeededBelow.end(), methodName) != kNeededBelow.end();
}

std::string MissingMethodsText(const KZMClass& item, const KZMClass& subclass)
{
    std::string lines;
    for (const TTCMethod& method : item.TTCMethods)
        if (IsNeededBelow(method.MethodName) && !subclass.TTCMethods.Contains(method.MethodName))
            lines += "The " + method.MethodName + " method must be added to the " + subclass.ClassName + " class.\r\n";
    return lines;
}

} // namespace veldrane
