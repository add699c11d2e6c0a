#include "preview/preview.h"
#include "shell/commands.h"
#include "shell/no_conflicts.h"
#include "shell/open_project_file.h"
#include "shell/platform/console_text.h"
#include "shell/platform/paths.h"

namespace veldrane {
namespace {

int RefuseNode(const Application& application, const PreviewCommand& command)
{
    std::string keys;
    for (const FixedNode& node : FixedNodes())
        keys.append(keys.empty() ? "" : ", ").append(node.Key);
    application.ErrorOutput << "veldrane: '" << ConsoleLine(command.Node) << "' is neither a class nor a collection of "
                            << ConsoleLine(command.File) << ", nor one of " << keys << ".\n";
    return exit_code::kFailed;
}

int PrintNode(const Application& application, ProjectSession& session, const PreviewNode& node)
{
    NoConflicts conflicts;
    CodeGeneration generation(session.Project(),
                              {.Asking = application.Asking,
                               .Errors = application.Errors,
                               .Files = application.Files,
                               .Time = application.Time,
                               .Programs = application.Programs,
                               .Conflicts = conflicts},
                              application.State.Generation);
    const auto text = PreviewOf(node, {session.Project(), session.Classes(), generation, application.Errors});
    if (!text)
        return exit_code::kFailed;
    for (const TTCOutputs& block : text->Blocks)
        for (const TTCOutput& line : block)
            application.Output << ConsoleLine(line.LineText) << '\n';
    if (!generation.ErrorText.empty())
        application.ErrorOutput << "veldrane: " << ConsoleLine(generation.ErrorText) << '\n';
    return text->Whole && !session.LostClasses() ? exit_code::kDone : exit_code::kFailed;
}

} // namespace

int RunPreview(const Application& application, const PreviewCommand& command)
{
    ProjectSession session(application);
    if (!OpenProjectFile(application, session, PathFromRoot(command.File), DataSourceOnOpen::LeaveClosed))
        return exit_code::kFailed;
    const auto node = FindNode(command.Node, session.Classes());
    return node ? PrintNode(application, session, *node) : RefuseNode(application, command);
}

} // namespace veldrane
