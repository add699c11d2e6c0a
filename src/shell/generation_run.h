#pragma once

#include "generator/code_generation.h"
#include "ports/settings.h"
#include "shell/application.h"

#include <string>
#include <string_view>

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

// What is said of a target file that exists, and the answer that loses nothing.
[[nodiscard]] std::string ConflictTitle(const FileConflict& conflict);
[[nodiscard]] std::string ConflictText(const FileConflict& conflict);
inline constexpr const char* kLeaveCaption = "&Leave the existing file alone, don't overwrite it";

// The setting of the wizard's box for compiling, in the section GenerateCodeSettings.
inline constexpr std::string_view kAutoCompile = "AutoCompile";

// Whether the project is to be compiled, as the box was left: on unless set.
[[nodiscard]] bool WantsCompile(const RegistryAccess& registry);

// Makes the program's own folder, which the log of a compilation lies in. A failure is reported.
void MakeFolderOfCompileLog(const Application& application);

// Generates the project with nobody to ask: a file in the way is left where the mode would ask. Tells how the run ended
// where there is something to tell, and answers the exit code: kFailed for a run that was aborted, did not compile, had
// a failure on its way or wrote two files under one name.
[[nodiscard]] int RunGeneration(const Application& application, const TTCProject& project, KZMClasses& classes,
                                const GenerationTarget& target);

} // namespace veldrane
