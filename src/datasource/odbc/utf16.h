#pragma once

#include <string>
#include <string_view>

namespace veldrane {

// The UTF-16 form of a UTF-8 text; a byte that belongs to no well-formed sequence becomes U+FFFD.
[[nodiscard]] std::u16string ToUtf16(std::string_view text);

// The UTF-8 form of a UTF-16 text; half a surrogate pair becomes U+FFFD.
[[nodiscard]] std::string FromUtf16(std::u16string_view text);

} // namespace veldrane
