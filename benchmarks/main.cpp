#include "bounds.h"
#include "part_benchmarks.h"
#include "report.h"
#include "run_measurements.h"
#include "schema_sql.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>
#include <stdexcept>
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
    RunOptions Runs;
    fs::path PlainDriver;
    fs::path DesktopProbe;
    bool Smoke = false;
    bool WithRuns = true;
    bool WithServers = true;
    bool WithParts = true;
    bool WithDesktop = true;
    std::string PartNames = ".";
    std::size_t SchemaTables = 0;
    Dialect SchemaDialect = Dialect::Sqlite;
};

const PartOptions kSmokeParts{.SecondsEach = 0.01, .Repetitions = 1, .Small = true};

// As scripts/database-servers tells them.
Servers RunningServers(const fs::path& plainDriver)
{
    const char* postgreSql = std::getenv("VELDRANE_TEST_POSTGRESQL");
    const char* mariaDb = std::getenv("VELDRANE_TEST_MARIADB");
    if (postgreSql == nullptr || mariaDb == nullptr)
        throw std::runtime_error(
            "No servers are running: start this program through scripts/database-servers, as ./bench does, or leave them "
            "out with --no-servers.");
    return {.PostgreSqlFolder = postgreSql, .MariaDbSocket = mariaDb, .PlainDriver = plainDriver};
}

void MeasureRuns(const Options& options, Figures& figures)
{
    if (options.WithRuns)
        MeasureSqliteRuns(options.Runs, figures);
    if (options.WithServers)
        MeasureServerRuns(options.Runs, RunningServers(options.PlainDriver), figures);
}

const std::map<std::string, Dialect> kDialects{
    {"sqlite", Dialect::Sqlite}, {"postgresql", Dialect::PostgreSql}, {"mariadb", Dialect::MariaDb}};

int Run(Options options)
{
    if (options.SchemaTables > 0) {
        WriteSql(std::cout, MakeSchema(options.SchemaTables), options.SchemaDialect);
        return kDone;
    }
    if (options.Smoke) {
        options.Runs.Rounds = 1;
        options.Runs.Small = true;
    }
    // No settings of the user's, and nothing left in the user's folders.
    setenv("VELDRANE_SETTINGS", (options.Runs.Scratch / "settings.ini").c_str(), 1);
    setenv("XDG_STATE_HOME", (options.Runs.Scratch / "state").c_str(), 1);
    Figures figures;
    MeasureRuns(options, figures); // first: see the note on memory in child_process.h
    if (options.WithDesktop)
        MeasureDesktop(options.DesktopProbe, options.Runs, figures);
    if (options.WithParts)
        MeasureParts(options.Smoke ? kSmokeParts : PartOptions{.Names = options.PartNames}, figures);
    std::cout << '\n';
    const bool good = options.Smoke ? PrintFigures(std::cout, figures) : PrintVerdicts(std::cout, figures);
    return good ? kDone : kFailed;
}

void Declare(CLI::App& app, Options& options)
{
    app.add_option("--program", options.Runs.Tools.Veldrane, "The program to measure")
        ->required()
        ->check(CLI::ExistingFile);
    app.add_option("--floor-probe", options.Runs.Tools.FloorProbe, "The program that measures the floor")
        ->required()
        ->check(CLI::ExistingFile);
    app.add_option("--desktop-probe", options.DesktopProbe, "The program that measures the windows")
        ->required()
        ->check(CLI::ExistingFile);
    app.add_option("--memory-scratch", options.Runs.MemoryScratch, "An empty folder on a file system in memory")
        ->required()
        ->check(CLI::ExistingDirectory);
    app.add_option("--scratch", options.Runs.Scratch, "An empty folder to work in")
        ->required()
        ->check(CLI::ExistingDirectory);
    app.add_option("--plain-driver", options.PlainDriver,
                   "The driver of PostgreSQL under a name that tells nothing of it")
        ->check(CLI::ExistingFile);
    app.add_flag("--smoke", options.Smoke, "Small sizes, one round: only checks that every figure comes out");
    app.add_flag_callback(
        "--no-runs", [&] { options.WithRuns = false; }, "Leaves out the whole runs on SQLite");
    app.add_flag_callback(
        "--no-servers", [&] { options.WithServers = false; }, "Leaves out those on PostgreSQL and MariaDB");
    app.add_flag_callback(
        "--no-parts", [&] { options.WithParts = false; }, "Leaves out the parts in memory");
    app.add_flag_callback(
        "--no-desktop", [&] { options.WithDesktop = false; }, "Leaves out the windows");
    app.add_option("--parts", options.PartNames, "Only the parts whose names this regular expression finds: read");
    app.add_option("--rounds", options.Runs.Rounds, "Rounds of each whole run; the median counts")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    app.add_option("--schema", options.SchemaTables, "Prints the SQL of a schema with so many tables, and ends");
    app.add_option("--dialect", options.SchemaDialect, "Its dialect: sqlite, postgresql or mariadb")
        ->transform(CLI::CheckedTransformer(kDialects));
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
