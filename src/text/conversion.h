#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Conversions between text and the value types of the model, as the Boolean and Long conversions of Visual Basic do
// them.
namespace veldrane::text {

// The text of the Boolean values, in files and in generated code alike.
inline constexpr std::string_view TrueText = "True";
inline constexpr std::string_view FalseText = "False";

// "True" or "False".
[[nodiscard]] std::string_view TextOf(bool value);

// "True" and "False" in any case, blanks around them allowed; a number is True unless it is 0. Anything else throws
// RuntimeError 13, the description naming the text.
[[nodiscard]] bool ToBoolean(std::string_view text);

// A decimal number, blanks around it allowed, a fraction rounded to the nearest integer with halves to even. Throws
// RuntimeError 13 for anything else and 6 for a value outside 32 bits, the description naming the text.
[[nodiscard]] std::int32_t ToLong(std::string_view text);

// The same for 16 bits.
[[nodiscard]] std::int16_t ToInteger(std::string_view text);

// The number at the start of a text as `Val` reads it: blanks are passed over, reading stops at the first character
// that belongs to no decimal number, and a text without a number gives 0. A value outside 32 bits is clamped.
[[nodiscard]] std::int32_t LeadingNumber(std::string_view text);

} // namespace veldrane::text
