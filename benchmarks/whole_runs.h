#pragma once

#include <cstddef>
#include <filesystem>

namespace veldrane::bench {

// The programs that are timed.
struct Programs
{
    std::filesystem::path Veldrane;
    std::filesystem::path FloorProbe;
};

struct WholeRun
{
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

// Measures whole runs on a SQLite database with so many tables against the floor, in turn, so that whatever else the
// machine does meets both; times are medians of the rounds, and the first run of each, which finds nothing in the
// caches, is not counted. Works in a new folder below the given one, which stays: to remove it would slow whatever is
// measured next.
//
// Throws std::runtime_error with what a program printed if it fails.
[[nodiscard]] WholeRun MeasureWholeRun(const Programs& programs, const std::filesystem::path& folder,
                                       std::size_t tables, int rounds);

} // namespace veldrane::bench
