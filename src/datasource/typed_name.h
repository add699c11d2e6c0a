#pragma once

#include "ports/messages.h"
#include "text/code_page.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

// A name that a person types in a dialog.
namespace veldrane {

struct KZMClass;

// The rules for one name.
struct TypedName
{
    std::string_view Kind;                              // of what it names: "method"
    std::string_view TakenTitle;                        // of the box that tells of a name that is taken
    std::string Rival;                                  // what may have the name already: "member of the Order class"
    std::function<bool(std::string_view name)> IsTaken; // asked about a valid name
    const text::CodePage& CodePage;
    std::function<std::optional<Question>(std::string_view typed)> Refuses{}; // with a box, before it is made valid
};

// The rules for the name of a method of the class. Its name from before is "" for a new one.
[[nodiscard]] TypedName MethodNameRules(const KZMClass& item, std::string before, const text::CodePage& codePage);

// The same for an event.
[[nodiscard]] TypedName EventNameRules(const KZMClass& item, std::string before, const text::CodePage& codePage);

// The same for a property; what it refuses for its spelling is up to the caller.
[[nodiscard]] TypedName PropertyNameRules(const KZMClass& item, std::string before, const text::CodePage& codePage);

// The box that tells that the name is taken.
[[nodiscard]] Question NameTaken(std::string_view name, const TypedName& rules);

// What is wrong with the name as it is typed, in the words of the first box that AcceptName would show; "" if nothing.
[[nodiscard]] std::string NameTrouble(std::string_view typed, const TypedName& rules);

// Makes what was typed a valid name, telling the person if it had to be changed. False if it is
// refused, if the project can't hold it or if it is taken, which is told.
[[nodiscard]] bool AcceptName(std::string& typed, const TypedName& rules, Messages& messages);

} // namespace veldrane
