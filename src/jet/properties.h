#pragma once

#include "jet/text_decoder.h"

#include <set>
#include <string>
#include <string_view>

namespace veldrane::jet {

// The names of the columns whose property Required is on, from the property block of a table. An empty block, which
// files of other programs have, gives none. Throws Refusal(kDamaged) for a block that contradicts itself.
[[nodiscard]] std::set<std::string> RequiredColumns(std::string_view block, const TextDecoder& text);

} // namespace veldrane::jet
