#pragma once

#include "schema.h"

#include "shell/application.h"
#include "support/manual_clock.h"
#include "support/memory_file_system.h"
#include "support/memory_recovery_store.h"
#include "support/memory_settings.h"
#include "support/recorded_errors.h"
#include "support/recorded_processes.h"
#include "support/scripted_messages.h"

#include <sstream>
#include <string>
#include <vector>

namespace veldrane::bench {

// Where project files stand in the memory world, and where generated files go.
inline constexpr const char* kProjectPath = "/Bench.kzm";
inline constexpr const char* kTargetFolder = "/out";

// The program's surroundings in memory: nothing of what happens in it touches the machine.
struct MemoryWorld
{
    testing::MemoryFileSystem Files;
    testing::MemoryRecoveryStore Recovery{Files};
    testing::ScriptedMessages Messages;
    testing::RecordedErrors Errors;
    testing::ManualClock Clock;
    testing::RecordedProcesses Processes;
    testing::MemorySettings UserSettings;
    std::ostringstream Output;

    MemoryWorld() { Files.Folders.insert(kTargetFolder); }
};

// The bytes of the project file that `define --all --collections` makes of these tables. Throws std::runtime_error with
// what the command printed if it leaves something out.
[[nodiscard]] std::string DefineInMemory(const std::vector<SchemaTable>& schema);

} // namespace veldrane::bench
