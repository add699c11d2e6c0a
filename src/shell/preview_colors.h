#pragma once

#include "generator/line_class.h"
#include "ports/messages.h"
#include "ports/settings.h"

namespace veldrane {

// Reads the six colours of generated lines from the options. An absent or empty value gives the default, and so does
// one that is no 32-bit number, which is told.
[[nodiscard]] LineColors ReadPreviewColors(const RegistryAccess& registry, Messages& messages);

} // namespace veldrane
