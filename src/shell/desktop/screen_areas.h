#pragma once

#include "shell/main_window/window_geometry.h"

#include <vector>

namespace veldrane {

// What windows may cover of each screen of the desktop.
[[nodiscard]] std::vector<ScreenArea> ScreenAreas();

} // namespace veldrane
