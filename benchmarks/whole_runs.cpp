#include "whole_runs.h"

#include "child_process.h"
#include "report.h"
#include "schema.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

namespace veldrane::bench {
namespace {

namespace fs = std::filesystem;

constexpr double kBytesInMegabyte = 1e6;

struct Rounds
{
    std::vector<double> First;
    std::vector<double> Second;
    std::vector<double> Both;

    void Add(double first, double second)
    {
        First.push_back(first);
        Second.push_back(second);
        Both.push_back(first + second);
    }
};

// Files are never held whole: see the note on memory in child_process.h.
bool AreSame(const fs::path& left, const fs::path& right)
{
    using Bytes = std::istreambuf_iterator<char>;
    std::ifstream leftFile(left, std::ios::binary);
    std::ifstream rightFile(right, std::ios::binary);
    return std::equal(Bytes(leftFile), Bytes(), Bytes(rightFile), Bytes());
}

std::string ProgramConnection(const Database& database)
{
    return "PROVIDER=MSDASQL;" + database.Connection;
}

class Measurement
{
  public:
    Measurement(const Programs& programs, const Database& database, const fs::path& folder)
        : programs_(programs), database_(database), folder_(folder / database.Name)
    {
        result_.Database = database.Name;
        result_.Tables = database.Tables;
        fs::create_directory(folder_);
    }

    // Makes what every round needs, by a run that is not counted.
    void Prepare()
    {
        RunProgram();
        PackFiles();
        RunFloor();
        CompareFiles();
        result_.PeakMiB = 0;
    }

    void Round()
    {
        const auto [define, generate] = RunProgram();
        program_.Add(define, generate);
        const auto [catalog, write] = RunFloor();
        floor_.Add(catalog, write);
    }

    WholeRun Result()
    {
        result_.DefineSeconds = Median(program_.First);
        result_.GenerateSeconds = Median(program_.Second);
        result_.ProgramSeconds = Median(program_.Both);
        result_.CatalogSeconds = Median(floor_.First);
        result_.WriteSeconds = Median(floor_.Second);
        result_.FloorSeconds = Median(floor_.Both);
        return result_;
    }

  private:
    // A new folder each time, and none removed: a file system avoids what was removed just now, and looks for its
    // files' places long.
    // Everything written so far is on the disk, so that a run's own sync has its own files to sync alone.
    [[nodiscard]] fs::path NewFolder(const std::string& name)
    {
        fs::path made = folder_ / (name + std::to_string(++folders_));
        fs::create_directory(made);
        sync();
        return made;
    }

    double Time(const std::vector<std::string>& command) const { return RunProcess(command, {.Output = log_}).Seconds; }

    std::pair<double, double> RunProgram()
    {
        generated_ = NewFolder("generated");
        project_ = generated_.string() + ".kzm";
        const ProcessCost define = RunProcess({programs_.Veldrane, "define", project_, "--connection",
                                               ProgramConnection(database_), "--all", "--collections"},
                                              {.Output = log_});
        const ProcessCost generate =
            RunProcess({programs_.Veldrane, "generate", project_, generated_}, {.Output = log_});
        result_.PeakMiB = std::max({result_.PeakMiB, define.PeakMiB, generate.PeakMiB});
        return {define.Seconds, generate.Seconds};
    }

    std::pair<double, double> RunFloor()
    {
        copied_ = NewFolder("copied");
        std::vector<std::string> read{programs_.FloorProbe};
        read.insert(read.end(), database_.Read.begin(), database_.Read.end());
        const double catalog = Time(read);
        const double write = Time({programs_.FloorProbe, "write", pack_, copied_});
        return {catalog, write};
    }

    [[nodiscard]] std::vector<fs::path> WrittenFiles() const
    {
        std::vector<fs::path> files{project_};
        for (const fs::directory_entry& entry : fs::directory_iterator(generated_))
            files.push_back(entry.path());
        std::sort(files.begin() + 1, files.end());
        return files;
    }

    void PackFiles()
    {
        std::ofstream pack(pack_, std::ios::binary);
        for (const fs::path& file : WrittenFiles()) {
            const std::uintmax_t size = fs::file_size(file);
            pack << file.filename().string() << '\n' << size << '\n' << std::ifstream(file, std::ios::binary).rdbuf();
            result_.Files += 1;
            result_.Megabytes += static_cast<double>(size) / kBytesInMegabyte;
        }
    }

    void CompareFiles() const
    {
        for (const fs::path& file : WrittenFiles())
            if (!AreSame(file, copied_ / file.filename()))
                throw std::runtime_error("The floor did not write the same bytes: " + file.string());
    }

    const Programs& programs_;
    const Database& database_;
    fs::path folder_;
    fs::path pack_ = folder_ / "pack";
    fs::path log_ = folder_ / "log";
    int folders_ = 0;
    fs::path project_; // of the latest run, as the folders are
    fs::path generated_;
    fs::path copied_;
    Rounds program_;
    Rounds floor_;
    WholeRun result_;
};

} // namespace

WholeRun MeasureWholeRun(const Programs& programs, const Database& database, const fs::path& folder, int rounds)
{
    return MeasureWholeRuns(programs, {database}, folder, rounds).front();
}

std::vector<WholeRun> MeasureWholeRuns(const Programs& programs, const std::vector<Database>& databases,
                                       const fs::path& folder, int rounds)
{
    std::vector<Measurement> measurements;
    for (const Database& database : databases)
        measurements.emplace_back(programs, database, folder).Prepare();
    for (int round = 0; round < rounds; ++round)
        for (Measurement& measurement : measurements)
            measurement.Round();
    std::vector<WholeRun> results;
    results.reserve(measurements.size());
    for (Measurement& measurement : measurements)
        results.push_back(measurement.Result());
    return results;
}

OneTable MeasureOneTable(const Programs& programs, const Database& database, const fs::path& folder, int rounds)
{
    // The last but one: every tenth has a primary key that says less of how such a table is found.
    const std::string table = MakeSchema(database.Tables).at(database.Tables - 2).Name;
    const fs::path log = folder / "log";
    int projects = 0;
    const auto define = [&] {
        const fs::path project = folder / (database.Name + "-one-table-" + std::to_string(++projects) + ".kzm");
        return RunProcess({programs.Veldrane, "define", project, "--connection", ProgramConnection(database), "--table",
                           table},
                          {.Output = log})
            .Seconds;
    };
    const auto call = [&] {
        return RunProcess({programs.FloorProbe, "calls", database.Connection, table}, {.Output = log}).Seconds;
    };
    define();
    call();
    Rounds taken;
    for (int round = 0; round < rounds; ++round) {
        const double defining = define();
        taken.Add(defining, call());
    }
    return {.DefineSeconds = Median(taken.First), .CallsSeconds = Median(taken.Second)};
}

} // namespace veldrane::bench
