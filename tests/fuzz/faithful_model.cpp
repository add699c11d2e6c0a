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

// In the order of the file: a lookup field takes its name without asking, in front of its own property, and every other
// member asks for its own.
bool NamesAreFree(const KZMClass& item)
{
    std::set<std::string> names;
    const auto take = [&](const std::string& name) { return names.insert(text::Fold(name)).second || name.empty(); };
    for (const TTCProperty& property : item.TTCProperties) {
        for (const TTCLookupField& field : property.TTCLookupFields)
            take(field.PropertyName);
        if (!take(property.PropertyName))
            return false;
    }
    for (const TTCMethod& method : item.TTCMethods)
        if (!take(method.MethodName))
            return false;
    for (const ttcEvent& event : item.TTCEvents)
        if (!take(event.EventName))
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
    return NamesAreFree(item);
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
