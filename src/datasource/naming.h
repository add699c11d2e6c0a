#pragma once

#include "ports/messages.h"
#include "text/code_page.h"

#include <optional>
#include <string>
#include <string_view>

// The rules that make names of the generated language from any text.
namespace veldrane {

// The characters that no name may hold. A name is cut at them by ActiveParse, each being a delimiter of its own.
inline constexpr std::string_view kNameDelimiters = "~`!@#$%^&*()-=+\\|]}[{';:/?.>,< \"";

// The same without the blank: what makes the name of a table suspect in a list.
inline constexpr std::string_view kTableNameDelimiters = "~`!@#$%^&*()-=+\\|]}[{';:/?.>,<\"";

// A legal name: each delimiter becomes "_", an empty text "InvalidName", "A" goes before a leading digit and "a" before
// a reserved word.
[[nodiscard]] std::string MakeValidName(std::string_view name);

// What MakeValidName tells of a name that is none; "" for a valid one.
[[nodiscard]] std::string InvalidNameText(std::string_view name);

// A legal name, telling the person when the given one had to be changed.
[[nodiscard]] std::string MakeValidName(std::string_view name, Messages& messages);

// The valid name without its underscores, telling the person as MakeValidName does. "InvalidName" if nothing is left.
[[nodiscard]] std::string MakeMemberName(std::string_view name, Messages& messages);

// English endings by plain rules: "Status" gives "Statu". That is kept.
[[nodiscard]] std::string Singularize(std::string_view name);
[[nodiscard]] std::string Pluralize(std::string_view name);

// The names of a class and its collection from the name of its table. Each cleans the name for itself, so that an
// illegal name is told twice.
[[nodiscard]] std::string ClassNameOfTable(std::string_view tableName, Messages& messages);
[[nodiscard]] std::string CollectionNameOfTable(std::string_view tableName, Messages& messages);

// The name of an argument that stands for a column: "anOrderID", "aCustomerID".
[[nodiscard]] std::string ArgumentName(std::string_view columnName);

// Whether a text has a control character in it: a project file ends a value at a line break or a separator.
[[nodiscard]] bool HasControlCharacter(std::string_view text);

// What there is in a text that no project can hold: "a control character in it", or "letters that code page 1252
// lacks"; "" if a project can hold all of it.
[[nodiscard]] std::string UnwritablePart(std::string_view text, const text::CodePage& codePage);

// Why no project can hold the name, in words; "" if one can. The title is that of the box that says so.
inline constexpr std::string_view kNotWritableTitle = "Name Not Writable";
[[nodiscard]] std::string NotWritableText(std::string_view name, const text::CodePage& codePage);

// The box that says so; nothing if a project can hold the name.
[[nodiscard]] std::optional<Question> NotWritable(std::string_view name, const text::CodePage& codePage);

// Whether a project can hold the name: every letter has a place in the code page of its files, and none is a control
// character. If not, the person is told: such a name can't enter a project.
[[nodiscard]] bool FitsProject(std::string_view name, const text::CodePage& codePage, Messages& messages);

} // namespace veldrane
