#include "generator/file_names.h"
#include "shell/commands.h"
#include "shell/empty_folder.h"
#include "shell/generation_run.h"
#include "shell/invalid_path.h"
#include "shell/open_project_file.h"
#include "shell/platform/paths.h"

namespace veldrane {
namespace {

// Why the folder may not be emptied. What could not be generated anew is not given up.
std::optional<std::string> ReasonAgainstDelete(const Application& application, ProjectSession& session,
                                               const FolderOfProject& project)
{
    if (session.LostClasses())
        return "the project file could not be read whole.";
    if (auto reason = ReasonAgainstNames({session.Project(), application.State.Generation}, session.Classes()))
        return reason;
    return ReasonAgainstEmptying(application.Files, project);
}

bool MayDelete(const Application& application, ProjectSession& session, const FolderOfProject& project)
{
    const auto reason = ReasonAgainstDelete(application, session, project);
    if (reason)
        application.Asking.Tell("/DELETE is refused", *reason + " Nothing was removed, and nothing was generated.",
                                MessageIcon::Critical);
    return !reason;
}

int RunOpened(const Application& application, ProjectSession& session, const StartCommand& command)
{
    const std::string& folder = command.Folder.empty() ? session.Project().OutputPath : command.Folder;
    if (folder.empty()) {
        application.Asking.Tell("Invalid Command Line Parameter",
                                "No folder was given, and the project has no OutputPath.", MessageIcon::Critical);
        return exit_code::kWrongUsage;
    }
    const FolderOfProject target{
        .Folder = PathFromRoot(folder), .ProjectFile = command.File, .VBProjectName = session.Project().VBProjectName};
    bool whole = !session.LostClasses();
    if (application.State.DeleteAfterCompile) {
        if (!MayDelete(application, session, target))
            return exit_code::kFailed;
        whole = EmptyFolder(application.Files, application.Errors, target);
    }
    const int exitCode = RunGeneration(application, session.Project(), session.Classes(),
                                       {.TargetFolder = target.Folder,
                                        .OverwriteMode = overwrite_mode::kBackupAndOverwrite,
                                        .Compile = WantsCompile(application.UserSettings)});
    return whole ? exitCode : exit_code::kFailed;
}

} // namespace

int RunAutoCompile(const Application& application, const StartCommand& command)
{
    if (!command.Folder.empty() && application.Files.Kind(command.Folder) != FileKind::Folder) {
        application.State.AutoCompileMode = false;
        TellInvalidPath(application.Asking, command.Folder);
        return exit_code::kWrongUsage;
    }
    ProjectSession session(application);
    if (!OpenProjectFile(application, session, command.File, DataSourceOnOpen::Connect))
        return exit_code::kFailed;
    return RunOpened(application, session, command);
}

} // namespace veldrane
