#include "shell/commands.h"
#include "shell/generation_run.h"
#include "shell/open_project_file.h"
#include "shell/platform/paths.h"

#include <array>
#include <utility>

namespace veldrane {
namespace {

constexpr auto kOverwriteModes = std::to_array<std::pair<Overwrite, std::int32_t>>({
    {Overwrite::Prompt, overwrite_mode::kPrompt},
    {Overwrite::Leave, overwrite_mode::kLeave},
    {Overwrite::Backup, overwrite_mode::kBackupAndOverwrite},
});

std::int32_t ModeOf(Overwrite existing)
{
    for (const auto& [choice, mode] : kOverwriteModes)
        if (choice == existing)
            return mode;
    return overwrite_mode::kPrompt;
}

} // namespace

int RunGenerate(const Application& application, const GenerateCommand& command)
{
    ProjectSession session(application);
    if (!OpenProjectFile(application, session, command.File, DataSourceOnOpen::Connect))
        return exit_code::kFailed;
    const int exitCode = RunGeneration(application, session.Project(), session.Classes(),
                                       {.TargetFolder = PathFromRoot(command.Folder),
                                        .OverwriteMode = ModeOf(command.Existing),
                                        .Compile = command.Compile});
    return session.LostClasses() ? exit_code::kFailed : exitCode;
}

} // namespace veldrane
