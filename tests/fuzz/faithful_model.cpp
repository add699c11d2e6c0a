#include "faithful_model.h"

#include "projectfile/format.h"
#include "text/case_folding.h"

#include <set>
#include <string>

namespace veldrane::testing {
namespace {

bool HasSeparator(const std::string& name)
{
    return name.find(project_format::kSeparator) != std::string::npos;
}

bool IsFaithful(const TTCProperty& property)
{
    return (property.FormatOnGet || property.FormatStringOnGet.empty()) &&
           (property.FormatOnLet || property.FormatStringOnLet.empty()) &&
           (!property.LookupTable.empty() || property.TTCLookupFields.Count() == 0);
}

bool IsFaithful(const TTCMethod& method)
{
    return !HasSeparator(method.MethodName) && method.MethodIsSP == (method.StoredProcedure != nullptr);
}

// The names of lookup fields are not asked for when they are read, and in the way of others afterwards.
bool NamesAreUnique(const KZMClass& item)
{
    std::set<std::string> names;
    const auto add = [&](const std::string& name) { return name.empty() || names.insert(text::Fold(name)).second; };
    for (const TTCProperty& property : item.TTCProperties) {
        if (!add(property.PropertyName))
            return false;
        for (const TTCLookupField& field : property.TTCLookupFields)
            if (!add(field.PropertyName))
                return false;
    }
    for (const TTCMethod& method : item.TTCMethods)
        if (!add(method.MethodName))
            return false;
    for (const ttcEvent& event : item.TTCEvents)
        if (!add(event.EventName))
            return false;
    return true;
}

bool IsFaithful(const KZMClass& item)
{
    for (const TTCRelationship& relationship : item.TTCRelationships)
        if (HasSeparator(relationship.KeyName))
            return false;
    for (const TTCProperty& property : item.TTCProperties)
        if (!IsFaithful(property))
            return false;
    for (const TTCMethod& method : item.TTCMethods)
        if (!IsFaithful(method))
            return false;
    return NamesAreUnique(item);
}

} // namespace

bool IsFaithful(const KZMClasses& classes)
{
    for (const KZMClass& item : classes)
        if (!IsFaithful(item))
            return false;
    return true;
}

} // namespace veldrane::testing
