#pragma once

#include "generator/code_generation.h"
#include "shell/application.h"

#include <string>

namespace veldrane {

// What a person is shown when a run has ended.
struct RunEnd
{
    std::string Instructions; // the line that says so
    std::string Heading;      // above the text; "" for none
    std::string Text;
};

// `message` is what the run had to say, "" for nothing.
[[nodiscard]] RunEnd EndOfCompleteRun(const std::string& message);
[[nodiscard]] RunEnd EndOfAbortedRun(const std::string& message);

// Generates the project with nobody to ask: a file in the way is left where the mode would ask. Tells how the run ended
// where there is something to tell, and answers the exit code: kFailed for a run that was aborted, did not compile, had
// a failure on its way or wrote two files under one name.
[[nodiscard]] int RunGeneration(const Application& application, const TTCProject& project, KZMClasses& classes,
                                const GenerationTarget& target);

} // namespace veldrane
