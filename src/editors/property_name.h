#pragma once

#include "datasource/class_edit.h"
#include "datasource/typed_name.h"
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

// The same for the name of a lookup's field. Nothing cleans it, so that one which cleaning would change is refused; and
// one that is longer than names may be.
[[nodiscard]] std::optional<Question> AliasSpellingRefusal(std::string_view alias, const text::CodePage& codePage);

// The rules for the name of a property of the class, called `before` in it, or "" if it is a new one.
[[nodiscard]] TypedName PropertyNameRules(const ClassEdit& edit, std::string before);

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
