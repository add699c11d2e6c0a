#pragma once

#include "databases.h"
#include "report.h"
#include "whole_runs.h"

#include <filesystem>

namespace veldrane::bench {

struct RunOptions
{
    Programs Tools;
    std::filesystem::path Scratch;       // an empty folder to work in
    std::filesystem::path MemoryScratch; // the same on a file system in memory
    int Rounds = 5;
    bool Small = false; // a few tables stand for the many
};

// These measure whole runs, print the times as they come, and add to the figures what the bounds judge: on SQLite; and
// on the servers, with the sources of a catalog that the program has for them and with the one that is left for a
// driver of which it knows nothing.
//
// They throw std::runtime_error with what a program printed if it fails.
void MeasureSqliteRuns(const RunOptions& options, Figures& figures);
void MeasureServerRuns(const RunOptions& options, const Servers& servers, Figures& figures);

// Measures the windows by the program `probe`, a process of its own, which draws into memory. Throws std::runtime_error
// with what the program printed if it fails.
void MeasureDesktop(const std::filesystem::path& probe, const RunOptions& options, Figures& figures);

} // namespace veldrane::bench
