#pragma once

#include <string>
#include <string_view>
#include <vector>

// The few string functions whose exact behaviour the rules lean on. "Blank" is the space character alone.
namespace veldrane::text {

// The text without leading blanks.
[[nodiscard]] std::string_view TrimLeft(std::string_view text);

// The text without leading and trailing blanks.
[[nodiscard]] std::string_view Trim(std::string_view text);

// Every occurrence of `find` replaced, from left to right; what was put in is not looked at again. An empty `find`
// changes nothing.
[[nodiscard]] std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement);

// The text without any of the characters of `unwanted` (single bytes).
[[nodiscard]] std::string Without(std::string_view text, std::string_view unwanted);

// The pieces between the separators, empty ones included; one more than there are separators.
[[nodiscard]] std::vector<std::string_view> Split(std::string_view text, std::string_view separator);

// Puts a sentence behind the text, which is ended first unless it ends in a mark of its own.
void AppendSentence(std::string& text, std::string_view sentence);

// Left-trims both and tells whether the text then starts with the prefix, letter by letter.
[[nodiscard]] bool LineStartsWith(std::string_view text, std::string_view prefix);

// Whether the first letter is one of the vowels A, E, I, O, U in either case.
[[nodiscard]] bool StartsWithVowel(std::string_view text);

// Whether the first character is one of the digits 0 to 9.
[[nodiscard]] bool StartsWithDigit(std::string_view text);

} // namespace veldrane::text
