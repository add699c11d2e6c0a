#include "shell/entry.h"

#include "datasource/odbc/installed_drivers.h"
#include "shell/command_line.h"
#include "shell/commands.h"
#include "shell/data_sources.h"
#include "shell/platform/console_error_report.h"
#include "shell/platform/console_messages.h"
#include "shell/platform/console_text.h"
#include "shell/platform/detached_process_starter.h"
#include "shell/platform/disk_file_system.h"
#include "shell/platform/limited_program_runner.h"
#include "shell/platform/paths.h"
#include "shell/platform/settings_file.h"
#include "shell/platform/system_clock.h"
#include "shell/platform_settings.h"
#include "shell/preview_colors.h"
#include "shell/terminal_progress.h"

#include <exception>
#include <memory>
#include <variant>

namespace veldrane {
namespace {

// What a failure of the data source carries; behind any other, what the shared connection still holds.
std::vector<ADOError> ADOErrorsOf(const RuntimeError& error, const DataSourceConnection* connection)
{
    if (const auto* failure = dynamic_cast<const DataSourceError*>(&error))
        return failure->Errors;
    return connection == nullptr ? std::vector<ADOError>{} : connection->Errors();
}

// The compiler's helper program of an earlier run, where that was left behind.
void RemoveLeftover(FileSystem& files, ErrorReport& report)
{
    const std::string leftover = StateFolder() + "/tmpVELDRANE.EXE";
    if (files.Kind(leftover) == FileKind::File)
        Guarded(report, kAppTitle, "RemoveLeftover", [&] { files.Remove(leftover); });
}

void ApplySwitches(const Command& command, ModuleState& state)
{
    const auto* start = std::get_if<StartCommand>(&command);
    if (start == nullptr)
        return;
    state.AutoCompileMode = true;
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
    LimitedProgramRunner runner;
    ModuleState state;
    ConsoleErrorReport report(streams.ErrorOutput, [&](const RuntimeError& error) {
        return ADOErrorsOf(error, state.ActiveConnection.get());
    });
    SystemClock clock;
    const std::unique_ptr<Progress> progress = ProgressOn(streams, clock);
    DetachedProcessStarter programs;
    SettingsFile settings(SettingsPath(), files, messages);
    const PlatformSettings platform = ReadPlatformSettings(settings);
    RemoveLeftover(files, report);
    state.Generation = {.CodePage = platform.CodePage,
                        .Colors = ReadPreviewColors(settings, messages),
                        .VisualBasicCommand = platform.VisualBasicCommand,
                        .ApplicationFolder = StateFolder()};
    ApplySwitches(command, state);
    const OdbcInstalledDrivers installed;
    NoFileWindows windows;
    const Application application{
        .UserSettings = settings,
        .Asking = messages,
        .Errors = report,
        .Files = files,
        .Time = clock,
        .Programs = programs,
        .Connect = [&](const std::string& text, StringOrigin origin) -> std::unique_ptr<DataSourceConnection> {
            auto connection = ConnectionFor(text, origin,
                                            {.ConnectTimeout = platform.ConnectTimeout,
                                             .StatementTimeout = platform.StatementTimeout,
                                             .TdsDriver = platform.TdsDriver,
                                             .ProgramFolder = streams.Folder,
                                             .Runner = runner});
            progress->Stage(0, "Connecting to the data source");
            connection->Open(text);
            return connection;
        },
        .Installed = installed,
        .State = state,
        .Output = streams.Output,
        .ErrorOutput = streams.ErrorOutput,
        .Progress = *progress,
        .Windows = windows.Windows(),
    };
    return RunOn(application, command);
}

int RunArguments(const std::vector<std::string>& arguments, const ProgramStreams& streams)
{
    DiskFileSystem files;
    const Command command = ParseCommandLine(arguments, files);
    if (const auto* print = std::get_if<PrintAndExit>(&command)) {
        (print->OnStandardError ? streams.ErrorOutput : streams.Output) << print->Text;
        return print->ExitCode;
    }
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
