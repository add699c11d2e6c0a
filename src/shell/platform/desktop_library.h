#pragma once

#include <string>

namespace veldrane {

// The shared library with every window of the program. It lies in the program's own folder.
inline constexpr const char* kDesktopLibrary = "libveldrane-desktop.so";

// Loads the library from `folder` and returns the address of its function `name`. The library stays until the process
// ends. Throws RuntimeError (53) with a sentence that says what is missing: a display to draw on, by the variables of
// the environment that name one (DISPLAY, WAYLAND_DISPLAY, QT_QPA_PLATFORM), the library, something that it needs, or
// the function.
[[nodiscard]] void* DesktopFunction(const std::string& folder, const char* name);

} // namespace veldrane
