#pragma once

#include "shell/application.h"
#include "shell/command_line.h"

namespace veldrane {

// The commands of the command line. Each tells its failures on the application's ports and answers the exit code.
[[nodiscard]] int RunAutoCompile(const Application& application, const StartCommand& command);
[[nodiscard]] int RunTables(const Application& application, const TablesCommand& command);
[[nodiscard]] int RunDefine(const Application& application, const DefineCommand& command);
[[nodiscard]] int RunGenerate(const Application& application, const GenerateCommand& command);
[[nodiscard]] int RunPreview(const Application& application, const PreviewCommand& command);

} // namespace veldrane
