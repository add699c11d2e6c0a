#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Lengths and positions that the rules count are characters, while text is held as UTF-8. A byte that belongs to no
// well-formed sequence counts as one character, so that no input makes these functions fail.
namespace veldrane::text {

// The number of bytes of the character that begins at `position` (1 to 4).
[[nodiscard]] std::size_t CharacterSize(std::string_view text, std::size_t position);

// The number of bytes before the first that is not ASCII.
[[nodiscard]] std::size_t AsciiPrefix(std::string_view text);

// The number of characters.
[[nodiscard]] std::size_t Length(std::string_view text);

// The first `count` characters, or all of them if there are fewer.
[[nodiscard]] std::string_view Left(std::string_view text, std::size_t count);

// The characters from the 1-based position `start` to the end; empty if the text is shorter.
[[nodiscard]] std::string_view From(std::string_view text, std::size_t start);

// Whether the text is well-formed UTF-8.
[[nodiscard]] bool IsWellFormed(std::string_view text);

// The text with every byte that belongs to no well-formed sequence replaced by U+FFFD.
[[nodiscard]] std::string WellFormed(std::string_view text);

// The code point of the character that begins at `position`; the byte itself if it begins no well-formed one.
[[nodiscard]] char32_t CodePoint(std::string_view text, std::size_t position);

// Appends a code point as UTF-8.
void AppendCodePoint(std::string& text, char32_t codePoint);

} // namespace veldrane::text
