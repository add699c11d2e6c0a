#include "shell/entry.h"

#include "shell/assembly.h"
#include "shell/command_line.h"
#include "shell/commands.h"
#include "shell/platform/console_error_report.h"
#include "shell/platform/console_messages.h"
#include "shell/platform/console_text.h"
#include "shell/platform/disk_file_system.h"
#include "shell/platform/system_clock.h"
#include "shell/terminal_progress.h"

#include <exception>
#include <memory>
#include <variant>

namespace veldrane {
namespace {

void ApplySwitches(const Command& command, ModuleState& state)
{
    const auto* start = std::get_if<StartCommand>(&command);
    if (start == nullptr)
        return;
    state.AutoCompileMode = start->AutoCompileMode;
    state.DeleteAfterCompile = start->DeleteAfterCompile;
    state.Generation.DebugTiming = start->DebugTiming;
}

// What the command line has told beforehand: by which key rows are found. Nothing else is answered for the user.
ConsoleMessages::AnswersByTitle ToldAnswers(const Command& command)
{
    const auto* define = std::get_if<DefineCommand>(&command);
    if (define == nullptr)
        return {};
    const Answer answer = define->By == RowIdentifier::Identity ? Answer::Yes : Answer::No;
    return {{"Choose Retrieval Method", answer}, {"Add Delete Method to Class", answer}};
}

std::unique_ptr<Progress> ProgressOn(const ProgramStreams& streams, const Clock& time)
{
    if (streams.ErrorOutputIsTerminal)
        return std::make_unique<TerminalProgress>(streams.ErrorOutput, time);
    return std::make_unique<NoProgress>();
}

int RunOn(const Application& application, const Command& command)
{
    struct Runner
    {
        const Application& application;
        int operator()(const StartCommand& start) const { return RunAutoCompile(application, start); }
        int operator()(const TablesCommand& tables) const { return RunTables(application, tables); }
        int operator()(const DefineCommand& define) const { return RunDefine(application, define); }
        int operator()(const GenerateCommand& generate) const { return RunGenerate(application, generate); }
        int operator()(const PreviewCommand& preview) const { return RunPreview(application, preview); }
        int operator()(const PrintAndExit& print) const { return print.ExitCode; }
    };
    return std::visit(Runner{application}, command);
}

int RunCommand(const Command& command, DiskFileSystem& files, const ProgramStreams& streams)
{
    ConsoleMessages messages(streams.ErrorOutput, ToldAnswers(command));
    ModuleState state;
    ConsoleErrorReport report(streams.ErrorOutput, [&](const RuntimeError& error) {
        return ADOErrorsOf(error, state.ActiveConnection.get());
    });
    SystemClock clock;
    const std::unique_ptr<Progress> progress = ProgressOn(streams, clock);
    NoFileWindows windows;
    const Assembly assembly(files, state,
                            {.Asking = messages,
                             .Errors = report,
                             .Time = clock,
                             .Progress = *progress,
                             .Windows = windows.Windows(),
                             .Output = streams.Output,
                             .ErrorOutput = streams.ErrorOutput,
                             .ProgramFolder = streams.Folder});
    ApplySwitches(command, state);
    return RunOn(assembly.World(), command);
}

int OpenWindows(const StartCommand& start, const ProgramStreams& streams)
{
    if (streams.OpenDesktop)
        return streams.OpenDesktop(start, streams);
    streams.ErrorOutput << "veldrane: this program was built without windows. What it does without them, veldrane "
                           "--help tells.\n";
    return exit_code::kFailed;
}

int RunArguments(const std::vector<std::string>& arguments, const ProgramStreams& streams)
{
    DiskFileSystem files;
    const Command command = ParseCommandLine(arguments, files);
    if (const auto* print = std::get_if<PrintAndExit>(&command)) {
        (print->OnStandardError ? streams.ErrorOutput : streams.Output) << print->Text;
        return print->ExitCode;
    }
    if (const auto* start = std::get_if<StartCommand>(&command); start != nullptr && !start->AutoCompileMode)
        return OpenWindows(*start, streams);
    return RunCommand(command, files, streams);
}

} // namespace

int RunProgram(const std::vector<std::string>& arguments, const ProgramStreams& streams)
{
    try {
        const int exitCode = RunArguments(arguments, streams);
        if (streams.Output.flush())
            return exitCode;
        streams.ErrorOutput << "veldrane: the output could not be written.\n";
    } catch (const std::exception& error) {
        streams.ErrorOutput << "veldrane: " << ConsoleLine(error.what()) << '\n';
    }
    return exit_code::kFailed;
}

} // namespace veldrane
