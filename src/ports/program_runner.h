#pragma once

#include "ports/reading_watch.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// How far a program may go.
struct ProgramLimits
{
    std::chrono::milliseconds Time{};
    std::size_t OutputBytes = 0;
    ReadingWatch* Watch = nullptr; // told how many lines the program has said, which it may cancel; nothing for nobody
};

enum class ProgramEnd
{
    Exited,
    Signalled,     // killed from elsewhere, or by a limit of its own
    OutOfTime,     // killed at the limit of time
    TooMuchOutput, // killed at the limit of output
};

struct ProgramOutcome
{
    ProgramEnd End = ProgramEnd::Exited;
    int Code = 0;       // the exit code, or the number of the signal
    std::string Output; // its standard output, cut off at the limit
};

// Runs other programs and takes what they say.
class ProgramRunner
{
  public:
    virtual ~ProgramRunner() = default;

    // Runs the program `command[0]` with the other elements as its arguments, without a shell, and waits for its end.
    // It gets `input` as its standard input; its standard error goes nowhere. At a limit it is killed; nothing of it
    // is left when this returns, nor when the watch cancels it, which is thrown. Throws RuntimeError (53 if there is no
    // such program, 75 if it can't be started), naming it.
    [[nodiscard]] virtual ProgramOutcome Run(const std::vector<std::string>& command, std::string_view input,
                                             const ProgramLimits& limits) = 0;
};

} // namespace veldrane
