#pragma once

#include <array>
#include <string_view>

// The one place of the bounds that the program's speed and memory are held to.
namespace veldrane::bench {

enum class Measure
{
    WholeRun10,
    WholeRun1000,
    WholeRunGrowth,
    FilesOf1000,
    FilesOf5000,
    FilesGrowth,
    PeakMemory1000,
    PeakMemory5000,
    PostgreSqlRun1000,
    PostgreSqlGrowth,
    PostgreSqlPeakMemory1000,
    PostgreSqlPeakMemory5000,
    MariaDbRun1000,
    MariaDbGrowth,
    PlainDriverRun1000,
    PlainDriverOneTable,
    GenerationRate,
    GenerationRateWideClass,
    GenerationGrowthClasses,
    GenerationGrowthProperties,
    ProjectReadRate,
    ProjectReadGrowth,
    ProjectWriteRate,
    ProjectWriteGrowth,
    PreviewTime,
    PreviewRate,
    PreviewGrowth,
    ClickToPicture,
};

enum class Better
{
    Lower,
    Higher,
};

struct Bound
{
    Measure Of;
    std::string_view What;
    std::string_view Unit;
    Better Side;
    double Must; // missed, the measurements fail
    double Aim;  // what the program strives for
};

// Growth is the exponent e with which the time rises as size^e: 1 is linear. A whole run is `define --all` and then
// `generate` into an empty folder, both as processes, on a database with as many tables, of SQLite unless another is
// named; its time is wall time, and stands as a multiple of the floor, which the folder floor defines; its growth is
// measured on a file system in memory. The way from a project to its files is `generate` alone, against the part of the
// floor that composes and writes them. A driver of which the program knows nothing (here that of PostgreSQL under
// another name) leaves it the driver's own calls; the floor makes the same ones. For one table, `define --table` stands
// against its calls alone. Memory is that of a process, its driver included. Rates are by processor time, on one core.
// From the click to the preview is what a window waits for before it paints: the text written and the pane filled. From
// the click to the picture is the wall time of all of it in a window that draws into memory, navigator and paint
// included.
inline constexpr auto kBounds = std::to_array<Bound>({
    {Measure::WholeRun10, "whole run, 10 tables", "x floor", Better::Lower, 6, 3},
    {Measure::WholeRun1000, "whole run, 1,000 tables", "x floor", Better::Lower, 4, 2},
    {Measure::WholeRunGrowth, "whole run, growth from 1,000 to 5,000 tables", "exponent", Better::Lower, 1.15, 1.05},
    {Measure::FilesOf1000, "project to files, 1,000 classes", "x floor", Better::Lower, 4, 2},
    {Measure::FilesOf5000, "project to files, 5,000 classes", "x floor", Better::Lower, 4, 2},
    {Measure::FilesGrowth, "project to files, growth from 1,000 to 5,000", "exponent", Better::Lower, 1.1, 1.05},
    {Measure::PeakMemory1000, "peak memory, 1,000 tables", "MiB", Better::Lower, 64, 32},
    {Measure::PeakMemory5000, "peak memory, 5,000 tables", "MiB", Better::Lower, 256, 128},
    {Measure::PostgreSqlRun1000, "whole run on PostgreSQL, 1,000 tables", "x floor", Better::Lower, 4, 2},
    {Measure::PostgreSqlGrowth, "whole run on PostgreSQL, growth from 1,000 to 5,000", "exponent", Better::Lower, 1.15,
     1.05},
    {Measure::PostgreSqlPeakMemory1000, "peak memory on PostgreSQL, 1,000 tables", "MiB", Better::Lower, 96, 48},
    {Measure::PostgreSqlPeakMemory5000, "peak memory on PostgreSQL, 5,000 tables", "MiB", Better::Lower, 256, 128},
    {Measure::MariaDbRun1000, "whole run on MariaDB, 1,000 tables", "x floor", Better::Lower, 4, 2},
    {Measure::MariaDbGrowth, "whole run on MariaDB, growth from 1,000 to 5,000", "exponent", Better::Lower, 1.15, 1.05},
    {Measure::PlainDriverRun1000, "whole run by the driver's calls, 1,000 tables", "x floor", Better::Lower, 1.25, 1.1},
    {Measure::PlainDriverOneTable, "one table of 5,000 by the driver's calls", "x calls", Better::Lower, 1.5, 1.1},
    {Measure::GenerationRate, "generation in memory, 1,000 classes", "million lines/s", Better::Higher, 1, 5},
    {Measure::GenerationRateWideClass, "generation in memory, 1 class of 2,000 properties", "million lines/s",
     Better::Higher, 1, 5},
    {Measure::GenerationGrowthClasses, "generation, growth from 100 to 1,000 classes", "exponent", Better::Lower, 1.1,
     1.05},
    {Measure::GenerationGrowthProperties, "generation, growth from 200 to 2,000 properties", "exponent", Better::Lower,
     1.1, 1.05},
    {Measure::ProjectReadRate, "reading a .kzm of 5,000 classes", "MB/s", Better::Higher, 100, 300},
    {Measure::ProjectReadGrowth, "reading, growth from 1,000 to 5,000 classes", "exponent", Better::Lower, 1.15, 1.05},
    {Measure::ProjectWriteRate, "writing a .kzm of 5,000 classes", "MB/s", Better::Higher, 100, 300},
    {Measure::ProjectWriteGrowth, "writing, growth from 1,000 to 5,000 classes", "exponent", Better::Lower, 1.15, 1.05},
    {Measure::PreviewTime, "click to preview, a class of 200 properties", "ms", Better::Lower, 50, 10},
    {Measure::PreviewRate, "preview, a class of 2,000 properties", "million lines/s", Better::Higher, 1, 5},
    {Measure::PreviewGrowth, "preview, growth from 200 to 2,000 properties", "exponent", Better::Lower, 1.1, 1.05},
    {Measure::ClickToPicture, "click to painted preview, 200 properties", "ms", Better::Lower, 50, 20},
});

} // namespace veldrane::bench
