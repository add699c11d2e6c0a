#pragma once

#include "databases.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace veldrane::bench {

// The programs that are timed.
struct Programs
{
    std::filesystem::path Veldrane;
    std::filesystem::path FloorProbe;
};

struct WholeRun
{
    std::string Database; // its name
    std::size_t Tables = 0;
    std::size_t Files = 0; // that a run writes, the project file among them
    double Megabytes = 0;  // of those files
    double DefineSeconds = 0;
    double GenerateSeconds = 0;
    double ProgramSeconds = 0; // both commands
    double CatalogSeconds = 0;
    double WriteSeconds = 0;
    double FloorSeconds = 0;
    double PeakMiB = 0; // of the larger of both commands

    [[nodiscard]] double TimesFloor() const { return ProgramSeconds / FloorSeconds; }
    [[nodiscard]] double FilesTimesFloor() const { return GenerateSeconds / WriteSeconds; }
};

// Measures whole runs on a database against the floor, in turn, so that whatever else the machine does meets both;
// times are medians of the rounds, and the first run of each, which finds nothing in the caches, is not counted. Works
// in a new folder below the given one, which stays: to remove it would slow whatever is measured next.
//
// Throws std::runtime_error with what a program printed if it fails.
[[nodiscard]] WholeRun MeasureWholeRun(const Programs& programs, const Database& database,
                                       const std::filesystem::path& folder, int rounds);

// The same on several databases, in turn as well, so that they can be compared with each other.
[[nodiscard]] std::vector<WholeRun> MeasureWholeRuns(const Programs& programs, const std::vector<Database>& databases,
                                                     const std::filesystem::path& folder, int rounds);

// `define` of one table alone.
struct OneTable
{
    double DefineSeconds = 0;
    double CallsSeconds = 0; // of a plain program that makes the driver's calls for it

    [[nodiscard]] double TimesCalls() const { return DefineSeconds / CallsSeconds; }
};

// Measures, in the same manner, how long it takes to define a class from one table of the database.
[[nodiscard]] OneTable MeasureOneTable(const Programs& programs, const Database& database,
                                       const std::filesystem::path& folder, int rounds);

} // namespace veldrane::bench
