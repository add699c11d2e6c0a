#include "editors/property_name.h"

#include "datasource/naming.h"
#include "editors/put_member.h"
#include "text/case_folding.h"

#include <algorithm>
#include <utility>

namespace veldrane {
namespace {

// Whether the property or one of its lookup fields is called by the name.
bool Bears(const TTCProperty& property, std::string_view name)
{
    return text::EqualFolded(property.PropertyName, name) ||
           std::any_of(property.TTCLookupFields.begin(), property.TTCLookupFields.end(),
                       [&](const TTCLookupField& field) { return text::EqualFolded(field.PropertyName, name); });
}

// Whether a member other than the property is called by the name; the register is not asked.
bool IsBorne(const KZMClass& item, const TTCProperty* except, std::string_view name)
{
    const auto isNamed = [&](const std::string& each) { return text::EqualFolded(each, name); };
    return std::any_of(item.TTCProperties.begin(), item.TTCProperties.end(),
                       [&](const TTCProperty& each) { return &each != except && Bears(each, name); }) ||
           std::any_of(item.TTCMethods.begin(), item.TTCMethods.end(),
                       [&](const TTCMethod& each) { return isNamed(each.MethodName); }) ||
           std::any_of(item.TTCEvents.begin(), item.TTCEvents.end(),
                       [&](const ttcEvent& each) { return isNamed(each.EventName); });
}

Question InvalidName()
{
    return {.Title = "Invalid Property Name",
            .Text = "Invalid Property Name. Please enter a valid name.",
            .Icon = MessageIcon::Warning};
}

} // namespace

std::optional<Question> SpellingRefusal(std::string_view name, const text::CodePage& codePage)
{
    if (name.find_first_of(kNameDelimiters) != std::string_view::npos)
        return InvalidName();
    return NotWritable(name, codePage);
}

std::optional<Question> AliasSpellingRefusal(std::string_view alias, const text::CodePage& codePage)
{
    if (auto refusal = SpellingRefusal(alias, codePage))
        return refusal;
    return InvalidNameText(alias).empty() ? UnfitName(alias, codePage) : InvalidName();
}

TypedName PropertyNameRules(const ClassEdit& edit, std::string before)
{
    TypedName rules = PropertyNameRules(edit.Class, std::move(before), edit.CodePage);
    rules.Refuses = [&edit](std::string_view typed) { return SpellingRefusal(typed, edit.CodePage); };
    return rules;
}

bool IsOwnName(const KZMClass& item, const TTCProperty& property, std::string_view name)
{
    return Bears(property, name) && !IsBorne(item, &property, name);
}

void ReleaseName(KZMClass& item, std::string_view name)
{
    if (item.TTCMembers.Contains(name) && !IsBorne(item, nullptr, name))
        item.TTCMembers.Remove(name);
}

std::shared_ptr<TTCProperty> AddProperty(KZMClass& item, const std::string& name)
{
    auto property = std::make_shared<TTCProperty>();
    property->PropertyName = name;
    property->AddToClass = true;
    item.TTCMembers.Add(name, name);
    item.TTCProperties.AddExisting(property, "");
    KeyByName(item.TTCProperties, &TTCProperty::PropertyName);
    return property;
}

void RenameProperty(KZMClass& item, TTCProperty& property, const std::string& name)
{
    const std::string before = std::exchange(property.PropertyName, name);
    if (text::EqualFolded(before, name)) {
        if (item.TTCMembers.Contains(before))
            item.TTCMembers.Remove(before);
    } else {
        ReleaseName(item, before);
    }
    item.TTCMembers.Add(name, name);
    KeyByName(item.TTCProperties, &TTCProperty::PropertyName);
}

} // namespace veldrane
