#pragma once

#include "ports/program_runner.h"

namespace veldrane {

// Runs programs as children in a group of their own: at a limit the group is killed, with whatever the program has
// started itself. One runs at a time.
class LimitedProgramRunner : public ProgramRunner
{
  public:
    [[nodiscard]] ProgramOutcome Run(const std::vector<std::string>& command, std::string_view input,
                                     const ProgramLimits& limits) override;
};

// Kills the program that is running, if there is one. May be called by a signal handler, before this program ends.
void KillRunningProgram() noexcept;

} // namespace veldrane
