#include "datasource/naming.h"

#include "text/characters.h"
#include "text/strings.h"

#include <algorithm>
#include <array>
#include <utility>

namespace veldrane {
namespace {

constexpr auto kReservedWords = std::to_array<std::string_view>(
    {"ADDRESSOF", "AND",    "ARRAY",      "AS",      "ATTRIBUTE",  "BINARY",   "BOOLEAN", "BYREF",    "BYVAL",
     "CASE",      "CLASS",  "COLLECTION", "CURSOR",  "DATE",       "DATETIME", "DIM",     "ELSE",     "EMPTY",
     "END",       "ENUM",   "EQV",        "ERROR",   "FALSE",      "FOR",      "FORMAT",  "FRIEND",   "FUNCTION",
     "GET",       "IMP",    "INPUT",      "INTEGER", "IS",         "LEN",      "LET",     "LIKE",     "LOCK",
     "LONG",      "ME",     "MID",        "MOD",     "NEW",        "NEXT",     "NOT",     "NOTHING",  "NULL",
     "ON",        "OPTION", "OPTIONAL",   "OR",      "PARAMARRAY", "PRINT",    "PRIVATE", "PROPERTY", "PUBLIC",
     "RESUME",    "SCALE",  "SEEK",       "SELECT",  "SET",        "STATIC",   "STEP",    "STOP",     "STRING",
     "SUB",       "THEN",   "TIME",       "TO",      "TRUE",       "TYPE",     "VARCHAR", "WITH",     "WITHEVENTS",
     "XOR"});
static_assert(std::ranges::is_sorted(kReservedWords));

constexpr std::string_view kNothingLeft = "InvalidName";

// The rules compare with words of plain letters, so other letters need no upper case.
std::string UpperCase(std::string_view text)
{
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

std::string CutLast(std::string_view text, std::size_t count)
{
    return std::string(text.substr(0, text.size() - count));
}

} // namespace

std::string MakeValidName(std::string_view name)
{
    std::string valid(name);
    for (char& c : valid)
        if (kNameDelimiters.find(c) != std::string_view::npos)
            c = '_';
    if (valid.empty())
        valid = kNothingLeft;
    if (text::StartsWithDigit(valid))
        valid.insert(0, "A");
    if (std::ranges::binary_search(kReservedWords, UpperCase(valid)))
        valid.insert(0, "a");
    return valid;
}

std::string InvalidNameText(std::string_view name)
{
    const std::string valid = MakeValidName(name);
    if (valid == name)
        return {};
    return "The name: '" + std::string(name) +
           "' is invalid because it is either a reserved word or contains invalid characters. It has been changed to '" +
           valid + "'";
}

std::string MakeValidName(std::string_view name, Messages& messages)
{
    if (std::string text = InvalidNameText(name); !text.empty())
        messages.Tell("Invalid Name Detected", std::move(text), MessageIcon::Information);
    return MakeValidName(name);
}

std::string MakeMemberName(std::string_view name, Messages& messages)
{
    std::string cleaned = text::Without(MakeValidName(name, messages), "_");
    return cleaned.empty() ? std::string(kNothingLeft) : cleaned;
}

std::string Singularize(std::string_view name)
{
    const std::string upper = UpperCase(name);
    const std::size_t length = text::Length(name);
    if (length <= 2 || upper.ends_with("SS") || !upper.ends_with("S"))
        return std::string(name);
    if (length > 4 && upper.ends_with("IES"))
        return CutLast(name, 3) + "y";
    return CutLast(name, 1);
}

std::string Pluralize(std::string_view name)
{
    const std::string upper = UpperCase(name);
    if (upper.ends_with("Y"))
        return CutLast(name, 1) + "ies"; // after a vowel too
    if (upper.ends_with("SS"))
        return std::string(name) + "es";
    return upper.ends_with("S") ? std::string(name) : std::string(name) + "s";
}

std::string ClassNameOfTable(std::string_view tableName, Messages& messages)
{
    return Singularize(MakeMemberName(tableName, messages));
}

std::string CollectionNameOfTable(std::string_view tableName, Messages& messages)
{
    return Pluralize(MakeMemberName(tableName, messages));
}

std::string ArgumentName(std::string_view columnName)
{
    const std::string cleaned = MakeValidName(columnName);
    return (text::StartsWithVowel(cleaned) ? "an" : "a") + cleaned;
}

bool HasControlCharacter(std::string_view text)
{
    constexpr unsigned char kDelete = 0x7F;
    return std::ranges::any_of(text, [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < ' ' || byte == kDelete;
    });
}

std::string UnwritablePart(std::string_view text, const text::CodePage& codePage)
{
    if (HasControlCharacter(text))
        return "a control character in it";
    return codePage.Holds(text) ? "" : "letters that code page " + std::to_string(codePage.Number()) + " lacks";
}

std::string NotWritableText(std::string_view name, const text::CodePage& codePage)
{
    const std::string part = UnwritablePart(name, codePage);
    if (part.empty())
        return {};
    const std::string remedy =
        HasControlCharacter(name)
            ? "Rename it."
            : "Rename it, or set another code page with CodePage in the section Platform of the settings.";
    return "The name '" + std::string(name) + "' has " + part + ", so it can't enter the project. " + remedy;
}

std::optional<Question> NotWritable(std::string_view name, const text::CodePage& codePage)
{
    std::string trouble = NotWritableText(name, codePage);
    if (trouble.empty())
        return std::nullopt;
    return Question{.Title = std::string(kNotWritableTitle), .Text = std::move(trouble), .Icon = MessageIcon::Warning};
}

bool FitsProject(std::string_view name, const text::CodePage& codePage, Messages& messages)
{
    const std::optional<Question> trouble = NotWritable(name, codePage);
    if (trouble)
        messages.Ask(*trouble);
    return !trouble;
}

} // namespace veldrane
