#pragma once

#include "datasource/class_edit.h"
#include "ports/messages.h"
#include "text/code_page.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

// The names that the dialogs of a property give: of the property itself, and of the fields that its lookup brings in.
namespace veldrane {

// The box that refuses a name for what it is made of: a blank or another character that no name may hold, or one that
// the project's files can't. None if there is nothing of the kind; cleaning may still change the name.
[[nodiscard]] std::optional<Question> SpellingRefusal(std::string_view name, const text::CodePage& codePage);

// The box that refuses a name that another member of the class has.
[[nodiscard]] Question NameTaken(const KZMClass& item, std::string_view name);

// The name that a person types for a property, which is called `present` in the class, or "" if it is a new one. It may
// keep that name, in whatever letter case.
struct TypedPropertyName
{
    const ClassEdit& Edit;
    std::string_view Present;
};

[[nodiscard]] bool IsTaken(std::string_view name, const TypedPropertyName& rules);

// What is wrong with the name as it is typed, in the words of the first box that AcceptName shows; "" if nothing.
[[nodiscard]] std::string NameTrouble(std::string_view typed, const TypedPropertyName& rules);

// Makes what was typed a valid name, telling the person if it had to be changed. False, which is told, if it can't be
// made one or if it is taken then.
[[nodiscard]] bool AcceptName(std::string& typed, const TypedPropertyName& rules);

// Whether a name of the property or of its lookup fields, entered in the register, can be given away: it is, unless
// another member of the class is called by it, too.
[[nodiscard]] bool IsOwnName(const KZMClass& item, const TTCProperty& property, std::string_view name);

// Takes a name out of the register, unless a member is still called by it.
void ReleaseName(KZMClass& item, std::string_view name);

// Adds a property that takes part in generation and has nothing but its name, which is free.
std::shared_ptr<TTCProperty> AddProperty(KZMClass& item, const std::string& name);

// Gives a property of the class another name: in the register, in the property, and as its key. It keeps its place
// among the properties. The name is free, or the present one in other letter case.
void RenameProperty(KZMClass& item, TTCProperty& property, const std::string& name);

} // namespace veldrane
