#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace veldrane {

struct ProgramStreams;
struct StartCommand;

// Opens the windows of the program and answers its exit code when they are closed. Throws RuntimeError where there are
// none to open.
using DesktopOpener = std::function<int(const StartCommand& start, const ProgramStreams& streams)>;

// Where the program writes, who watches, and where it lies.
struct ProgramStreams
{
    std::ostream& Output;
    std::ostream& ErrorOutput;
    bool ErrorOutputIsTerminal = false; // somebody watches: show how far a run is
    std::string Folder{};               // of the program, and of those that belong to it
    DesktopOpener OpenDesktop{};        // nothing for a program without windows
};

// The entry routine: runs the command that the arguments (without the program's own name) ask for, and answers the exit
// code. Never throws.
[[nodiscard]] int RunProgram(const std::vector<std::string>& arguments, const ProgramStreams& streams);

} // namespace veldrane
