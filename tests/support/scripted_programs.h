#pragma once

#include "ports/program_runner.h"
#include "text/runtime_error.h"

#include <string>
#include <vector>

namespace veldrane::testing {

// Runs no program: keeps what was to be run, and answers what the test says.
class ScriptedPrograms : public ProgramRunner
{
  public:
    struct Call
    {
        std::vector<std::string> Command;
        std::string Input;
        ProgramLimits Limits;
    };

    [[nodiscard]] ProgramOutcome Run(const std::vector<std::string>& command, std::string_view input,
                                     const ProgramLimits& limits) override
    {
        Calls.push_back({.Command = command, .Input = std::string(input), .Limits = limits});
        if (!Failure.empty())
            throw RuntimeError(error_number::kFileNotFound, "ScriptedPrograms", Failure);
        return Outcome;
    }

    ProgramOutcome Outcome; // of every run
    std::string Failure;    // why no program can be started, "" if one can
    std::vector<Call> Calls;
};

} // namespace veldrane::testing
