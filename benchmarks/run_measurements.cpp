#include "run_measurements.h"

#include "child_process.h"

#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

namespace veldrane::bench {
namespace {

constexpr double kMilliseconds = 1000;

// The sizes of the whole runs, in tables.
struct Sizes
{
    std::size_t Few;
    std::size_t Many;
    std::size_t Most;
};

constexpr Sizes kFullSizes{10, 1000, 5000};
constexpr Sizes kSmallSizes{3, 10, 30};

// A run of a few tables, or of one, is over so soon that more rounds cost nothing, and its time is mostly noise.
constexpr int kRoundsFactorOfFew = 3;

const Sizes& SizesOf(const RunOptions& options)
{
    return options.Small ? kSmallSizes : kFullSizes;
}

void PrintRun(const WholeRun& run)
{
    std::cout << run.Database << ": " << run.Files << " files of " << run.Megabytes << " MB: define "
              << kMilliseconds * run.DefineSeconds << " + generate " << kMilliseconds * run.GenerateSeconds << " = "
              << kMilliseconds * run.ProgramSeconds << " ms, floor " << kMilliseconds * run.CatalogSeconds
              << " (catalog) + " << kMilliseconds * run.WriteSeconds
              << " (files) = " << kMilliseconds * run.FloorSeconds << " ms: " << run.TimesFloor() << " times; peak "
              << run.PeakMiB << " MiB\n"
              << std::flush;
}

WholeRun MeasureOnDisk(const RunOptions& options, const Database& database, int rounds)
{
    WholeRun run = MeasureWholeRun(options.Tools, database, options.Scratch, rounds);
    PrintRun(run);
    return run;
}

// Two runs without the disk, for growth: how fast it makes thousands of files depends on what was removed on it before.
struct RunsInMemory
{
    WholeRun Many;
    WholeRun Most;

    [[nodiscard]] double Growth(double WholeRun::*seconds) const
    {
        return GrowthExponent(static_cast<double>(Many.Tables), Many.*seconds, static_cast<double>(Most.Tables),
                              Most.*seconds);
    }
};

RunsInMemory MeasureInMemory(const RunOptions& options, const Database& many, const Database& most)
{
    const std::vector<WholeRun> runs =
        MeasureWholeRuns(options.Tools, {many, most}, options.MemoryScratch, options.Rounds);
    for (const WholeRun& run : runs) {
        std::cout << "in memory, ";
        PrintRun(run);
    }
    return {.Many = runs.front(), .Most = runs.back()};
}

// Without the disk: what a sync of one file takes there has nothing to do with the calls.
OneTable MeasureOneTableInMemory(const RunOptions& options, const Database& database, int rounds)
{
    const OneTable one = MeasureOneTable(options.Tools, database, options.MemoryScratch, rounds);
    std::cout << database.Name << ", one table: define " << kMilliseconds * one.DefineSeconds << " ms, its calls "
              << kMilliseconds * one.CallsSeconds << " ms: " << one.TimesCalls() << " times\n"
              << std::flush;
    return one;
}

void MeasurePostgreSql(const RunOptions& options, const Servers& servers, Figures& figures)
{
    const Sizes& sizes = SizesOf(options);
    const Database many = MakePostgreSqlDatabase(servers, options.Scratch, sizes.Many);
    const Database most = MakePostgreSqlDatabase(servers, options.Scratch, sizes.Most);
    const WholeRun run = MeasureOnDisk(options, many, options.Rounds);
    figures[Measure::PostgreSqlRun1000] = run.TimesFloor();
    figures[Measure::PostgreSqlPeakMemory1000] = run.PeakMiB;
    const RunsInMemory inMemory = MeasureInMemory(options, many, most);
    figures[Measure::PostgreSqlGrowth] = inMemory.Growth(&WholeRun::ProgramSeconds);
    figures[Measure::PostgreSqlPeakMemory5000] = inMemory.Most.PeakMiB;
    MeasureOneTableInMemory(options, most, options.Rounds);
}

// On the databases of PostgreSQL.
void MeasurePlainDriver(const RunOptions& options, const Servers& servers, Figures& figures)
{
    const Sizes& sizes = SizesOf(options);
    figures[Measure::PlainDriverRun1000] =
        MeasureOnDisk(options, BehindPlainDriver(servers, sizes.Many), options.Rounds).TimesFloor();
    figures[Measure::PlainDriverOneTable] =
        MeasureOneTableInMemory(options, BehindPlainDriver(servers, sizes.Most), options.Rounds * kRoundsFactorOfFew)
            .TimesCalls();
}

void MeasureMariaDb(const RunOptions& options, const Servers& servers, Figures& figures)
{
    const Sizes& sizes = SizesOf(options);
    const Database many = MakeMariaDbDatabase(servers, options.Scratch, sizes.Many);
    const Database most = MakeMariaDbDatabase(servers, options.Scratch, sizes.Most);
    figures[Measure::MariaDbRun1000] = MeasureOnDisk(options, many, options.Rounds).TimesFloor();
    figures[Measure::MariaDbGrowth] = MeasureInMemory(options, many, most).Growth(&WholeRun::ProgramSeconds);
    MeasureOneTableInMemory(options, most, options.Rounds);
}

} // namespace

void MeasureSqliteRuns(const RunOptions& options, Figures& figures)
{
    const Sizes& sizes = SizesOf(options);
    const auto measure = [&](std::size_t tables, int rounds) {
        return MeasureOnDisk(options, MakeSqliteDatabase(options.Scratch, tables), rounds);
    };
    const WholeRun few = measure(sizes.Few, options.Rounds * kRoundsFactorOfFew);
    const WholeRun many = measure(sizes.Many, options.Rounds);
    const WholeRun most = measure(sizes.Most, options.Rounds);
    figures[Measure::WholeRun10] = few.TimesFloor();
    figures[Measure::WholeRun1000] = many.TimesFloor();
    figures[Measure::FilesOf1000] = many.FilesTimesFloor();
    figures[Measure::FilesOf5000] = most.FilesTimesFloor();
    const RunsInMemory inMemory = MeasureInMemory(options, MakeSqliteDatabase(options.MemoryScratch, sizes.Many),
                                                  MakeSqliteDatabase(options.MemoryScratch, sizes.Most));
    figures[Measure::WholeRunGrowth] = inMemory.Growth(&WholeRun::ProgramSeconds);
    figures[Measure::FilesGrowth] = inMemory.Growth(&WholeRun::GenerateSeconds);
    figures[Measure::PeakMemory1000] = many.PeakMiB;
    figures[Measure::PeakMemory5000] = most.PeakMiB;
}

void MeasureServerRuns(const RunOptions& options, const Servers& servers, Figures& figures)
{
    MeasurePostgreSql(options, servers, figures);
    MeasurePlainDriver(options, servers, figures);
    MeasureMariaDb(options, servers, figures);
}

void MeasureDesktop(const std::filesystem::path& probe, const RunOptions& options, Figures& figures)
{
    constexpr std::size_t kProperties = 200;
    constexpr int kClicksEachRound = 5;
    const ProcessFiles files{.Output = options.Scratch / "desktop_probe.out"};
    RunProcess({probe.string(), std::to_string(options.Small ? kProperties / 10 : kProperties),
                std::to_string(options.Rounds * kClicksEachRound)},
               files);
    std::ifstream output(files.Output);
    double milliseconds = 0;
    if (!(output >> milliseconds))
        throw std::runtime_error(probe.string() + " prints no number");
    figures[Measure::ClickToPicture] = milliseconds;
}

} // namespace veldrane::bench
