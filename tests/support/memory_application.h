#pragma once

#include "shell/application.h"
#include "support/failing_file_system.h"
#include "support/failing_settings.h"
#include "support/fake_driver_manager.h"
#include "support/manual_clock.h"
#include "support/memory_recovery_store.h"
#include "support/recorded_errors.h"
#include "support/recorded_loading_form.h"
#include "support/recorded_pointer.h"
#include "support/recorded_processes.h"
#include "support/scripted_file_dialogs.h"
#include "support/scripted_messages.h"

#include <sstream>

namespace veldrane::testing {

// An application whose world is in memory: its person answers from a script, and its data sources can't be opened
// unless a test says how.
struct MemoryApplication
{
    FailingSettings UserSettings;
    ScriptedMessages Messages;
    RecordedErrors Errors;
    FailingFileSystem Files;
    MemoryRecoveryStore Recovery{Files};
    ManualClock Clock;
    RecordedProcesses Processes;
    FakeDriverManager Installed;
    ScriptedFileDialogs Dialogs;
    RecordedPointer Pointer;
    RecordedLoadingForm Loading;
    ModuleState State;
    std::ostringstream Output;
    NoProgress Unwatched;
    OpenDataSource Connect = [](const std::string& /*text*/,
                                StringOrigin /*origin*/) -> std::unique_ptr<DataSourceConnection> {
        throw DataSourceError(data_source_error::kFailed, "MemoryApplication", "There is no data source.");
    };
    Application World{.UserSettings = UserSettings,
                      .Asking = Messages,
                      .Errors = Errors,
                      .Files = Files,
                      .Recovery = Recovery,
                      .Time = Clock,
                      .Programs = Processes,
                      .Connect = [this](const std::string& text, StringOrigin origin) { return Connect(text, origin); },
                      .Installed = Installed,
                      .State = State,
                      .Output = Output,
                      .ErrorOutput = Output,
                      .Progress = Unwatched,
                      .Windows = {.Dialogs = Dialogs, .Pointer = Pointer, .Loading = Loading}};
};

} // namespace veldrane::testing
