#pragma once

#include "shell/command_line.h"
#include "shell/entry.h"

namespace veldrane {

// Shows the main window as the command asks, serves its events until it is closed, and answers the program's exit code.
// Where Qt finds no display that answers, it ends the process: then a sentence on standard error says so, and the exit
// code is 1.
[[nodiscard]] int OpenDesktop(const StartCommand& command, const ProgramStreams& streams);

} // namespace veldrane
