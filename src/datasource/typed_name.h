#pragma once

#include "ports/messages.h"
#include "text/code_page.h"

#include <cstddef>
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

// That a ready-made member can't enter the class, since its name is taken: nobody can give it another one.
[[nodiscard]] std::string CannotBeAddedText(std::string_view name, const TypedName& rules);

// The most characters that the generated language allows in a name.
inline constexpr std::size_t kMostNameCharacters = 255;

// The box that refuses a valid name which no project can hold: for its letters or for its length. Nothing if one can.
[[nodiscard]] std::optional<Question> UnfitName(std::string_view name, const text::CodePage& codePage);

// What is wrong with the name as it is typed, in the words of the first box that AcceptName would show; "" if nothing.
[[nodiscard]] std::string NameTrouble(std::string_view typed, const TypedName& rules);

// Makes what was typed a valid name, telling the person if it had to be changed. False if it is refused or unfit for
// the project, which is told.
[[nodiscard]] bool MakeFitName(std::string& typed, const TypedName& rules, Messages& messages);

// The same, and false if the name is taken, which is told too.
[[nodiscard]] bool AcceptName(std::string& typed, const TypedName& rules, Messages& messages);

} // namespace veldrane
