#pragma once

#include "ports/messages.h"
#include "text/code_page.h"

#include <functional>
#include <string>
#include <string_view>

// A name that a person types in a dialog.
namespace veldrane {

class TTCMembers;

// What is told of a name that something else has already.
struct TakenNotice
{
    std::string_view Title;
    std::string_view Text;
};

inline constexpr TakenNotice kMethodNameTaken{
    "Duplicate Method Name",
    "The Method Name already exists in this class. Please change the Method Name then click OK."};

// The rules for one name.
struct TypedName
{
    std::function<bool(std::string_view name)> IsTaken; // by something else; asked about a valid name
    TakenNotice Taken;
    const text::CodePage& CodePage;
};

// Whether another member of the class has the name. The member's name from before, "" for a new one, is in nobody's
// way, in whatever letter case.
[[nodiscard]] bool IsTakenMember(const TTCMembers& members, std::string_view before, std::string_view name);

// What is wrong with the name as it is typed, in the words of the first box that AcceptName would show; "" if nothing.
[[nodiscard]] std::string NameTrouble(std::string_view typed, const TypedName& rules);

// Makes what was typed a valid name, telling the person if it had to be changed. False if the project can't hold it or
// if it is taken, which is told.
[[nodiscard]] bool AcceptName(std::string& typed, const TypedName& rules, Messages& messages);

} // namespace veldrane
