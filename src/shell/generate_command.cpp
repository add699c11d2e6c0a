#include "generator/code_generation.h"
#include "generator/compile_step.h"
#include "shell/commands.h"
#include "shell/project_session.h"

#include <array>
#include <filesystem>
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

// With nobody to ask, a file that exists is left: the answer that loses nothing.
class LeaveAndTell : public ConflictResolver
{
  public:
    explicit LeaveAndTell(Messages& messages) : messages_(messages) {}

    [[nodiscard]] ConflictAnswer ResolveConflict(const std::string& path, const std::string& fileName) override
    {
        messages_.Tell(
            "File Conflict on " + fileName,
            "The file: '" + path +
                "' already exists in the target directory.\r\nAnswer: &Leave the existing file alone, don't overwrite it");
        return ConflictAnswer::Leave;
    }

  private:
    Messages& messages_;
};

// Passes reports on and remembers that there was one: a run that goes on after a failure has not done all it was asked.
class RememberedReports : public ErrorReport
{
  public:
    explicit RememberedReports(ErrorReport& report) : report_(report) {}

    void ReportError(const RuntimeError& error, const ErrorPlace& place) override
    {
        any_ = true;
        report_.ReportError(error, place);
    }

    [[nodiscard]] bool Any() const { return any_; }

  private:
    ErrorReport& report_;
    bool any_ = false;
};

// One generation run and how it ended.
class GenerateRun
{
  public:
    GenerateRun(const Application& application, const TTCProject& project)
        : application_(application), conflicts_(application.Asking), reports_(application.Errors),
          generation_(project,
                      {.Asking = application.Asking,
                       .Errors = reports_,
                       .Files = application.Files,
                       .Time = application.Time,
                       .Programs = application.Programs,
                       .Conflicts = conflicts_},
                      application.Generation)
    {
        connections_ = {
            generation_.Progress.Connect([this](int percent) { percent_ = percent; }),
            generation_.StatusChanged.Connect(
                [this](int /*stage*/, const std::string& line) { application_.Progress(percent_, line); }),
            generation_.OperationComplete.Connect(
                [this](const std::string& message) { End(message, exit_code::kDone); }),
            generation_.OperationAborted.Connect(
                [this](const std::string& message) { End(message, exit_code::kFailed); }),
        };
    }

    int Run(KZMClasses& classes, const GenerationTarget& target)
    {
        generation_.GenerateCode(classes, target);
        if (exitCode_ == exit_code::kDone)
            application_.Progress(percent_, "The project is in " + target.TargetFolder);
        return reports_.Any() ? exit_code::kFailed : exitCode_;
    }

  private:
    void End(const std::string& message, int exitCode)
    {
        exitCode_ = message.find(kCompilationFailed) == std::string::npos ? exitCode : exit_code::kFailed;
        if (!message.empty())
            application_.Asking.Tell("", message);
    }

    const Application& application_;
    LeaveAndTell conflicts_;
    RememberedReports reports_;
    CodeGeneration generation_;
    std::array<Connection, 4> connections_;
    int percent_ = 0;
    int exitCode_ = exit_code::kFailed; // until the run says that it came to its end
};

} // namespace

int RunGenerate(const Application& application, const GenerateCommand& command)
{
    ProjectSession session(application);
    if (!session.Open(command.File, DataSourceOnOpen::Connect))
        return exit_code::kFailed;
    const int exitCode =
        GenerateRun(application, session.Project())
            .Run(session.Classes(),
                 {.TargetFolder = std::filesystem::absolute(command.Folder).lexically_normal().string(),
                  .OverwriteMode = ModeOf(command.Existing),
                  .Compile = command.Compile});
    return session.LostClasses() ? exit_code::kFailed : exitCode;
}

} // namespace veldrane
