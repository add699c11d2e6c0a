#include "bounds.h"
#include "part_benchmarks.h"
#include "report.h"
#include "schema.h"
#include "whole_runs.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <unistd.h>

namespace veldrane::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kDone = 0;
constexpr int kFailed = 1;

struct Options
{
    Programs Tools;
    fs::path Scratch;
    fs::path MemoryScratch;
    bool Smoke = false;
    bool WithRuns = true;
    bool WithParts = true;
    int Rounds = 5;
    std::string PartNames = ".";
    std::size_t SchemaTables = 0;
};

// The sizes of the whole runs.
struct Sizes
{
    std::size_t Few;
    std::size_t Many;
    std::size_t Most;
};

constexpr Sizes kFullSizes{10, 1000, 5000};
constexpr Sizes kSmokeSizes{3, 10, 30};

const PartOptions kSmokeParts{.SecondsEach = 0.01, .Repetitions = 1, .Small = true};

// A run of a few tables is over so soon that more rounds cost nothing, and its time is mostly noise.
constexpr int kRoundsFactorOfFew = 3;

void PrintRun(const WholeRun& run)
{
    constexpr double kMilliseconds = 1000;
    std::cout << run.Tables << " tables, " << run.Files << " files of " << run.Megabytes << " MB: define "
              << kMilliseconds * run.DefineSeconds << " + generate " << kMilliseconds * run.GenerateSeconds << " = "
              << kMilliseconds * run.ProgramSeconds << " ms, floor " << kMilliseconds * run.CatalogSeconds
              << " (catalog) + " << kMilliseconds * run.WriteSeconds
              << " (files) = " << kMilliseconds * run.FloorSeconds << " ms: " << run.TimesFloor() << " times\n"
              << std::flush;
}

// How runs grow, without the disk: how fast that makes thousands of files depends on what was removed on it before.
void MeasureGrowthInMemory(const Options& options, const Sizes& sizes, Figures& figures)
{
    const WholeRun many = MeasureWholeRun(options.Tools, options.MemoryScratch, sizes.Many, options.Rounds);
    const WholeRun most = MeasureWholeRun(options.Tools, options.MemoryScratch, sizes.Most, options.Rounds);
    const auto growth = [&](double WholeRun::*seconds) {
        return GrowthExponent(static_cast<double>(sizes.Many), many.*seconds, static_cast<double>(sizes.Most),
                              most.*seconds);
    };
    figures[Measure::WholeRunGrowth] = growth(&WholeRun::ProgramSeconds);
    figures[Measure::FilesGrowth] = growth(&WholeRun::GenerateSeconds);
}

void MeasureRuns(const Options& options, Figures& figures)
{
    const Sizes& sizes = options.Smoke ? kSmokeSizes : kFullSizes;
    const auto measure = [&](std::size_t tables, int rounds) {
        const WholeRun run = MeasureWholeRun(options.Tools, options.Scratch, tables, rounds);
        PrintRun(run);
        return run;
    };
    const WholeRun few = measure(sizes.Few, options.Rounds * kRoundsFactorOfFew);
    const WholeRun many = measure(sizes.Many, options.Rounds);
    const WholeRun most = measure(sizes.Most, options.Rounds);
    figures[Measure::WholeRun10] = few.TimesFloor();
    figures[Measure::WholeRun1000] = many.TimesFloor();
    figures[Measure::FilesOf1000] = many.FilesTimesFloor();
    figures[Measure::FilesOf5000] = most.FilesTimesFloor();
    MeasureGrowthInMemory(options, sizes, figures);
    figures[Measure::PeakMemory1000] = many.PeakMiB;
    figures[Measure::PeakMemory5000] = most.PeakMiB;
}

int Run(Options options)
{
    if (options.SchemaTables > 0) {
        WriteSql(std::cout, MakeSchema(options.SchemaTables));
        return kDone;
    }
    if (options.Smoke)
        options.Rounds = 1;
    // No settings of the user's, and nothing left in the user's folders.
    setenv("VELDRANE_SETTINGS", (options.Scratch / "settings.ini").c_str(), 1);
    setenv("XDG_STATE_HOME", (options.Scratch / "state").c_str(), 1);
    Figures figures;
    if (options.WithRuns) // first: see the note on memory in child_process.h
        MeasureRuns(options, figures);
    if (options.WithParts)
        MeasureParts(options.Smoke ? kSmokeParts : PartOptions{.Names = options.PartNames}, figures);
    std::cout << '\n';
    const bool good = options.Smoke ? PrintFigures(std::cout, figures) : PrintVerdicts(std::cout, figures);
    return good ? kDone : kFailed;
}

void Declare(CLI::App& app, Options& options)
{
    app.add_option("--program", options.Tools.Veldrane, "The program to measure")->required()->check(CLI::ExistingFile);
    app.add_option("--floor-probe", options.Tools.FloorProbe, "The program that measures the floor")
        ->required()
        ->check(CLI::ExistingFile);
    app.add_option("--memory-scratch", options.MemoryScratch, "An empty folder on a file system in memory")
        ->required()
        ->check(CLI::ExistingDirectory);
    app.add_option("--scratch", options.Scratch, "An empty folder to work in")
        ->required()
        ->check(CLI::ExistingDirectory);
    app.add_flag("--smoke", options.Smoke, "Small sizes, one round: only checks that every figure comes out");
    app.add_flag_callback(
        "--no-runs", [&] { options.WithRuns = false; }, "Leaves out the whole runs");
    app.add_flag_callback(
        "--no-parts", [&] { options.WithParts = false; }, "Leaves out the parts in memory");
    app.add_option("--parts", options.PartNames, "Only the parts whose names this regular expression finds: read");
    app.add_option("--rounds", options.Rounds, "Rounds of each whole run; the median counts")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    app.add_option("--schema", options.SchemaTables, "Prints the SQL of a schema with so many tables, and ends");
}

} // namespace
} // namespace veldrane::bench

int main(int argc, char** argv)
{
    using namespace veldrane::bench;
    try {
        CLI::App app("Measures the program's speed and memory against plain probes and judges them by the bounds.\n"
                     "Exits with 1 if a bound is missed.");
        Options options;
        Declare(app, options);
        CLI11_PARSE(app, argc, argv);
        return Run(options);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench: %s\n", error.what());
        return kFailed;
    }
}
