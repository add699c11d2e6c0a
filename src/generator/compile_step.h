#pragma once

#include "generator/code_generation.h"

#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// How the text of a run begins whose project did not compile.
inline constexpr std::string_view kCompilationFailed = "ActiveX COM Object Compilation Failed for the following reasons:";

// The words of a command line as the desktop keeps it: parts in double quotes whole, the rest at its blanks.
[[nodiscard]] std::vector<std::string> SplitCommand(std::string_view command);

// Compiles the project that was written into the folder, and puts what its log says into the generation's ErrorText.
// Nothing is compiled where the person has given up the run by then; the text says so.
// A compiler that can't be started or leaves no log in time is passed over: the run counts as complete all the same.
void CompileProject(CodeGeneration& generation, const GenerationPorts& ports, const std::string& projectName, const std::string& targetFolder);

} // namespace veldrane
