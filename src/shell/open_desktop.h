#pragma once

#include "shell/command_line.h"
#include "shell/entry.h"

namespace veldrane {

// What the desktop's library offers, under this name and with C linkage: shows the main window as the command asks, and
// answers the program's exit code when it is closed. Never throws.
inline constexpr const char* kOpenDesktopName = "VeldraneOpenDesktop";
using OpenDesktopFunction = int (*)(const StartCommand& command, const ProgramStreams& streams);

// Loads the library of the program's folder and calls it, so that a run without a window loads no part of Qt. Throws
// RuntimeError (53) as DesktopFunction does.
[[nodiscard]] int OpenDesktopLibrary(const StartCommand& command, const ProgramStreams& streams);

} // namespace veldrane
