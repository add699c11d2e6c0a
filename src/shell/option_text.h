#pragma once

#include <string_view>

namespace veldrane {

// What a yes-or-no option means: `whenEmpty` for an absent or empty text, and False for one that does not convert.
[[nodiscard]] bool BooleanOf(std::string_view text, bool whenEmpty);

} // namespace veldrane
