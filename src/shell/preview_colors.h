#pragma once

#include "generator/line_class.h"
#include "ports/messages.h"
#include "ports/settings.h"

namespace veldrane {

// Reads the six colours of generated lines from the options. An absent or empty value gives the default, and so does
// one that is no 32-bit number, which is told.
[[nodiscard]] LineColors ReadPreviewColors(const RegistryAccess& registry, Messages& messages);

// Stores the six colours where they are read from, as decimal text. Throws as UpdateKey does.
void WritePreviewColors(RegistryAccess& registry, const LineColors& colors);

} // namespace veldrane
