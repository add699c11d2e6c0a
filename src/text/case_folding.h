#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Comparison without regard to case, one letter to one letter (Unicode simple case folding): "Straße" and "STRASSE"
// differ, "ÄRZTE" and "ärzte" do not. Independent of the locale.
namespace veldrane::text {

// The folded form, fit as a key: two texts are equal without regard to case exactly if their folded forms are equal.
[[nodiscard]] std::string Fold(std::string_view text);

// The folded form of one code point.
[[nodiscard]] char32_t FoldCodePoint(char32_t codePoint);

// Whether the two texts are equal without regard to case.
[[nodiscard]] bool EqualFolded(std::string_view left, std::string_view right);

// The byte position of the first occurrence of `find` in `text` at or after the byte `from`, without regard to case;
// std::string_view::npos if there is none. An empty `find` is found at `from`.
[[nodiscard]] std::size_t FindFolded(std::string_view text, std::string_view find, std::size_t from = 0);

} // namespace veldrane::text
