#pragma once

#include "model/class.h"
#include "ports/messages.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// The default member of a class: the one property or method that stands for an object of it.
namespace veldrane {

enum class MemberKind : std::uint8_t
{
    Property,
    Method,
};

struct DefaultMember
{
    MemberKind Kind;
    std::string Name;
};

// A member that is to become the default of its class.
struct WantedDefault
{
    MemberKind Kind;
    std::string_view Present; // its name in the class; "" while it is a new one
    std::string_view Name;    // as it is called in its dialog
};

// The class's default other than the member itself; a property before a method, should a class have both.
[[nodiscard]] std::optional<DefaultMember> OtherDefault(const KZMClass& item, const WantedDefault& wanted);

// Whether the member may become the default: the person is asked if another one is, in the words of the dialog of the
// member's kind.
[[nodiscard]] bool ConfirmDefaultMember(const KZMClass& item, const WantedDefault& wanted, Messages& messages);

// Leaves the class without a default member.
void ClearDefaultMembers(KZMClass& item);

// The box by which a property is made the default of its class.
struct DefaultBox
{
    bool Ticked = false;
    bool Touched = false; // by the person, who was asked about another default then
};

// Makes a property of the class its default, or no longer so. No other property is the default then; a default method
// gives way where the box was touched.
void SetDefaultProperty(KZMClass& item, TTCProperty& property, const DefaultBox& box);

} // namespace veldrane
