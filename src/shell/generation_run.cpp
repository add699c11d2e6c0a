#include "shell/generation_run.h"

#include "generator/code_generation.h"
#include "generator/compile_step.h"
#include "shell/option_text.h"
#include "shell/platform/paths.h"
#include "shell/remembered_reports.h"

#include <array>
#include <utility>

namespace veldrane {
namespace {

// With nobody to ask, a file that exists is left: the answer that loses nothing.
class LeaveAndTell : public ConflictResolver
{
  public:
    explicit LeaveAndTell(Messages& messages) : messages_(messages) {}

    [[nodiscard]] ConflictAnswer ResolveConflict(const FileConflict& conflict) override
    {
        messages_.Tell(ConflictTitle(conflict), ConflictText(conflict) + "\r\nAnswer: " + kLeaveCaption);
        return ConflictAnswer::Leave;
    }

  private:
    Messages& messages_;
};

// One generation run and how it ended.
class GenerationRun
{
  public:
    GenerationRun(const Application& application, const TTCProject& project)
        : application_(application), conflicts_(application.Asking), reports_(application.Errors),
          generation_(project,
                      {.Asking = application.Asking,
                       .Errors = reports_,
                       .Files = application.Files,
                       .Time = application.Time,
                       .Programs = application.Programs,
                       .Conflicts = conflicts_},
                      application.State.Generation)
    {
        connections_ = {
            generation_.Progress.Connect([this](int percent) { percent_ = percent; }),
            generation_.StatusChanged.Connect([this](int stage, const std::string& line) { Show(stage, line); }),
            generation_.OperationComplete.Connect([this](const std::string& message) { Complete(message); }),
            generation_.OperationAborted.Connect([this](const std::string& message) { Abort(message); }),
        };
    }

    int Run(KZMClasses& classes, const GenerationTarget& target)
    {
        generation_.GenerateCode(classes, target);
        if (exitCode_ == exit_code::kDone)
            application_.Progress.Stage(percent_, "The project is in " + target.TargetFolder);
        return reports_.Any() || generation_.FilesShareNames ? exit_code::kFailed : exitCode_;
    }

  private:
    void Show(int stage, const std::string& line)
    {
        if (std::exchange(stage_, stage) == stage)
            application_.Progress.Step(percent_, line);
        else
            application_.Progress.Stage(percent_, line);
    }

    void Complete(const std::string& message)
    {
        exitCode_ = message.find(kCompilationFailed) == std::string::npos ? exit_code::kDone : exit_code::kFailed;
        const RunEnd end = EndOfCompleteRun(message);
        if (!message.empty())
            application_.Asking.Tell(end.Instructions, end.Heading + "\r\n" + end.Text);
    }

    void Abort(const std::string& message)
    {
        exitCode_ = exit_code::kFailed;
        application_.Asking.Tell("Errors Occurred", EndOfAbortedRun(message).Text, MessageIcon::Critical);
    }

    const Application& application_;
    LeaveAndTell conflicts_;
    RememberedReports reports_;
    CodeGeneration generation_;
    std::array<Connection, 4> connections_;
    int stage_ = 0;
    int percent_ = 0;
    int exitCode_ = exit_code::kFailed; // until the run says that it came to its end
};

} // namespace

RunEnd EndOfCompleteRun(const std::string& message)
{
    if (message.empty())
        return {.Instructions = "Code Generation Complete!",
                .Heading = {},
                .Text = "The operation completed successfully."};
    return {.Instructions = "Code Generation Complete!",
            .Heading = "The operation completed with the following messages:",
            .Text = message};
}

RunEnd EndOfAbortedRun(const std::string& message)
{
    if (message.empty())
        return {.Instructions = "Code Generation Incomplete...",
                .Heading = {},
                .Text = "The operation did not complete successfully."};
    return {.Instructions = "Code Generation Incomplete...",
            .Heading = "The operation completed with the following warnings:",
            .Text = message};
}

std::string ConflictTitle(const FileConflict& conflict)
{
    return "File Conflict on " + conflict.FileName;
}

std::string ConflictText(const FileConflict& conflict)
{
    return "The file: '" + conflict.Path + "' already exists in the target directory.";
}

bool WantsCompile(const RegistryAccess& registry)
{
    return BooleanOf(registry.GetKeyValue(settings_section::kGenerateCodeSettings, kAutoCompile), true);
}

// The compiler writes its log there and makes no folder.
void MakeFolderOfCompileLog(const Application& application)
{
    Guarded(application.Errors, "frmGenCode", "MakeFolder",
            [&] { MakeFolder(application.State.Generation.ApplicationFolder); });
}

int RunGeneration(const Application& application, const TTCProject& project, KZMClasses& classes,
                  const GenerationTarget& target)
{
    if (target.Compile && !application.State.Generation.VisualBasicCommand.empty())
        MakeFolderOfCompileLog(application);
    return GenerationRun(application, project).Run(classes, target);
}

} // namespace veldrane
