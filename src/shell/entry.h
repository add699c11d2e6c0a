#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace veldrane {

// Where the program writes, and who watches.
struct ProgramStreams
{
    std::ostream& Output;
    std::ostream& ErrorOutput;
    bool ErrorOutputIsTerminal = false; // somebody watches: show how far a run is
};

// The entry routine: runs the command that the arguments (without the program's own name) ask for, and answers the exit
// code. Never throws.
[[nodiscard]] int RunProgram(const std::vector<std::string>& arguments, const ProgramStreams& streams);

} // namespace veldrane
