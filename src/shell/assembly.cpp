#include "shell/assembly.h"

#include "shell/data_sources.h"
#include "shell/platform/paths.h"
#include "shell/preview_colors.h"

#include <utility>

namespace veldrane {
namespace {

// The compiler's helper program of an earlier run, where that was left behind.
void RemoveLeftover(FileSystem& files, ErrorReport& report)
{
    const std::string leftover = StateFolder() + "/tmpVELDRANE.EXE";
    if (files.Kind(leftover) == FileKind::File)
        Guarded(report, kAppTitle, "RemoveLeftover", [&] { files.Remove(leftover); });
}

} // namespace

Assembly::Assembly(FileSystem& files, ModuleState& state, const FrontEnd& frontEnd)
    : frontEnd_(frontEnd), settings_(SettingsPath(), files, frontEnd_.Asking),
      recovery_(RecoveryFolder(), frontEnd_.Time), platform_(ReadPlatformSettings(settings_)),
      application_(MakeApplication(files, state))
{
    RemoveLeftover(files, frontEnd_.Errors);
    state.Generation = {.CodePage = platform_.CodePage,
                        .Colors = ReadPreviewColors(settings_, frontEnd_.Asking),
                        .VisualBasicCommand = platform_.VisualBasicCommand,
                        .ApplicationFolder = StateFolder()};
}

Application Assembly::MakeApplication(FileSystem& files, ModuleState& state)
{
    return {
        .UserSettings = settings_,
        .Asking = frontEnd_.Asking,
        .Errors = frontEnd_.Errors,
        .Files = files,
        .Recovery = recovery_,
        .Time = frontEnd_.Time,
        .Programs = programs_,
        .Connect = [this](const std::string& text, StringOrigin origin) { return Connect(text, origin); },
        .Installed = installed_,
        .State = state,
        .Output = frontEnd_.Output,
        .ErrorOutput = frontEnd_.ErrorOutput,
        .Progress = frontEnd_.Progress,
        .Windows = frontEnd_.Windows,
        .TdsDriver = platform_.TdsDriver,
        .ProgramFolder = frontEnd_.ProgramFolder,
    };
}

std::unique_ptr<DataSourceConnection> Assembly::Connect(const std::string& text, StringOrigin origin)
{
    auto connection = ConnectionFor(text, origin,
                                    {.ConnectTimeout = platform_.ConnectTimeout,
                                     .StatementTimeout = platform_.StatementTimeout,
                                     .TdsDriver = platform_.TdsDriver,
                                     .ProgramFolder = frontEnd_.ProgramFolder,
                                     .Runner = runner_,
                                     .Watch = frontEnd_.Watch});
    frontEnd_.Progress.Stage(0, "Connecting to the data source");
    connection->Open(text);
    return connection;
}

std::vector<ADOError> ADOErrorsOf(const RuntimeError& error, const DataSourceConnection* connection)
{
    if (const auto* failure = dynamic_cast<const DataSourceError*>(&error))
        return failure->Errors;
    return connection == nullptr ? std::vector<ADOError>{} : connection->Errors();
}

} // namespace veldrane
