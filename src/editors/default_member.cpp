#include "editors/default_member.h"

#include "text/case_folding.h"

#include <algorithm>

namespace veldrane {
namespace {

bool IsItself(const WantedDefault& wanted, MemberKind kind, std::string_view name)
{
    return wanted.Kind == kind && text::EqualFolded(wanted.Present, name);
}

std::string_view Title(MemberKind kind)
{
    return kind == MemberKind::Property ? "Confirm Change Default Property" : "Confirm Change Default Method";
}

std::string NowDefault(const DefaultMember& present)
{
    return present.Kind == MemberKind::Property
               ? "The " + present.Name + " property is currently set as the default property."
               : "The " + present.Name + " method is currently set as the default method.";
}

// The two dialogs word it differently where the present default is of the other kind.
std::string Change(const WantedDefault& wanted, MemberKind present)
{
    const std::string name(wanted.Name);
    if (wanted.Kind == MemberKind::Property)
        return present == MemberKind::Property
                   ? "Are you sure you want to change the default property to " + name
                   : "Are you sure you want to change the default interface setting to " + name;
    return present == MemberKind::Method ? "Are you sure you want to change the default method to " + name
                                         : "Are you sure you want to change the default interface to " + name;
}

void ClearDefaultProperties(KZMClass& item)
{
    for (TTCProperty& property : item.TTCProperties)
        property.DefaultProperty = false;
}

} // namespace

std::optional<DefaultMember> OtherDefault(const KZMClass& item, const WantedDefault& wanted)
{
    const auto property =
        std::find_if(item.TTCProperties.begin(), item.TTCProperties.end(), [&](const TTCProperty& each) {
            return each.DefaultProperty && !IsItself(wanted, MemberKind::Property, each.PropertyName);
        });
    if (property != item.TTCProperties.end())
        return DefaultMember{.Kind = MemberKind::Property, .Name = property->PropertyName};
    const auto method = std::find_if(item.TTCMethods.begin(), item.TTCMethods.end(), [&](const TTCMethod& each) {
        return each.DefaultMethod && !IsItself(wanted, MemberKind::Method, each.MethodName);
    });
    if (method != item.TTCMethods.end())
        return DefaultMember{.Kind = MemberKind::Method, .Name = method->MethodName};
    return std::nullopt;
}

bool ConfirmDefaultMember(const KZMClass& item, const WantedDefault& wanted, Messages& messages)
{
    const std::optional<DefaultMember> present = OtherDefault(item, wanted);
    if (!present)
        return true;
    return messages.Ask({.Title = std::string(Title(wanted.Kind)),
                         .Text = NowDefault(*present) + "\r\n" + Change(wanted, present->Kind),
                         .Offered = Buttons::YesNo,
                         .Icon = MessageIcon::Question,
                         .Default = Answer::No}) == Answer::Yes;
}

void ClearDefaultMembers(KZMClass& item)
{
    ClearDefaultProperties(item);
    for (TTCMethod& method : item.TTCMethods)
        method.DefaultMethod = false;
}

void SetDefaultProperty(KZMClass& item, TTCProperty& property, const DefaultBox& box)
{
    if (box.Ticked && box.Touched)
        ClearDefaultMembers(item);
    else if (box.Ticked)
        ClearDefaultProperties(item);
    property.DefaultProperty = box.Ticked;
}

} // namespace veldrane
