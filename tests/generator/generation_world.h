#pragma once

#include "generator/code_generation.h"
#include "run_recorder.h"
#include "support/manual_clock.h"
#include "support/memory_file_system.h"
#include "support/recorded_errors.h"
#include "support/recorded_processes.h"
#include "support/scripted_messages.h"

#include <algorithm>
#include <map>
#include <string>

namespace veldrane::testing {

// A generator and its surroundings in memory.
struct GenerationWorld
{
    explicit GenerationWorld(const TTCProject& project, const GenerationSettings& settings = {}) : Generation(project, {Asking, Errors, Files, Time, Programs, Conflicts}, settings)
    {
        Files.Folders.insert(kTargetFolder);
    }

    // Writes all files over those that are there; gives the bytes of each, by its path.
    const std::map<std::string, std::string>& Generate(KZMClasses& classes)
    {
        Generation.GenerateCode(classes, {.TargetFolder = kTargetFolder, .OverwriteMode = 0});
        return Files.Files;
    }

    // How often a run has ended, well or not.
    [[nodiscard]] std::size_t Endings() const
    {
        return static_cast<std::size_t>(std::count_if(Run.Events.begin(), Run.Events.end(), [](const std::string& event) { return event.starts_with("complete:") || event.starts_with("aborted:"); }));
    }

    static constexpr const char* kTargetFolder = "/out";

    struct NoConflicts : ConflictResolver
    {
        ConflictAnswer ResolveConflict(const FileConflict& /*conflict*/) override { return ConflictAnswer::Cancel; }
    };

    ScriptedMessages Asking;
    RecordedErrors Errors;
    MemoryFileSystem Files;
    ManualClock Time;
    RecordedProcesses Programs;
    NoConflicts Conflicts;
    CodeGeneration Generation;
    RunRecorder Run{Generation};
};

} // namespace veldrane::testing
