#pragma once

#include "datasource/driver_profile.h"
#include "datasource/open_data_source.h"
#include "generator/generation_settings.h"
#include "ports/clock.h"
#include "ports/error_report.h"
#include "ports/file_system.h"
#include "ports/file_windows.h"
#include "ports/messages.h"
#include "ports/process_starter.h"
#include "ports/recovery_store.h"
#include "ports/settings.h"
#include "shell/progress.h"

#include <functional>
#include <memory>
#include <ostream>
#include <string>

namespace veldrane {

// What there is one of, from start-up to the end.
struct ModuleState
{
    GenerationSettings Generation;                          // DebugTiming, the colours of lines, the title, ...
    bool AutoCompileMode = false;                           // nobody is there to ask: open, generate, compile, end
    bool DeleteAfterCompile = false;                        // the target folder is emptied first
    std::unique_ptr<DataSourceConnection> ActiveConnection; // the one open connection of the session
};

// The state of the application and the world as it meets it: made by the entry routine and handed on.
struct Application
{
    Settings& UserSettings;
    Messages& Asking;
    ErrorReport& Errors;
    FileSystem& Files;
    RecoveryStore& Recovery;
    Clock& Time;
    ProcessStarter& Programs;
    OpenDataSource Connect;
    const DriverManager& Installed;
    ModuleState& State;
    std::ostream& Output;
    std::ostream& ErrorOutput;
    veldrane::Progress& Progress;
    FileWindows Windows;
    std::string TdsDriver{kTdsDriver}; // the driver that stands in for SQL Server's own
    std::string ProgramFolder{};       // where the programs and pages lie that belong to this one
};

// Exit codes of the program.
namespace exit_code {
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1; // or something was left out
inline constexpr int kWrongUsage = 2;
} // namespace exit_code

} // namespace veldrane
