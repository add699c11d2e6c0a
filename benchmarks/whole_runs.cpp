#include "whole_runs.h"

#include "child_process.h"
#include "report.h"
#include "schema.h"

#include <algorithm>
#include <fstream>
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

std::string TextOf(const fs::path& file)
{
    std::string text(fs::file_size(file), '\0');
    std::ifstream(file, std::ios::binary).read(text.data(), static_cast<std::streamsize>(text.size()));
    return text;
}

class Measurement
{
  public:
    Measurement(const Programs& programs, const fs::path& folder, std::size_t tables)
        : programs_(programs), folder_(folder / std::to_string(tables))
    {
        result_.Tables = tables;
        fs::create_directory(folder_);
    }

    WholeRun Take(int rounds)
    {
        MakeDatabase();
        RunProgram();
        PackFiles();
        RunFloor();
        CompareFiles();
        result_.PeakMiB = 0;
        Rounds program;
        Rounds floor;
        for (int round = 0; round < rounds; ++round) {
            const auto [define, generate] = RunProgram();
            program.Add(define, generate);
            const auto [catalog, write] = RunFloor();
            floor.Add(catalog, write);
        }
        result_.DefineSeconds = Median(program.First);
        result_.GenerateSeconds = Median(program.Second);
        result_.ProgramSeconds = Median(program.Both);
        result_.CatalogSeconds = Median(floor.First);
        result_.WriteSeconds = Median(floor.Second);
        result_.FloorSeconds = Median(floor.Both);
        return result_;
    }

  private:
    void MakeDatabase()
    {
        std::ofstream sql(sql_);
        WriteSql(sql, MakeSchema(result_.Tables));
        sql.close();
        RunProcess({"sqlite3", database_}, {.Input = sql_, .Output = log_});
    }

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
                                               "PROVIDER=MSDASQL;Driver=SQLite3;Database=" + database_.string() + ";",
                                               "--all", "--collections"},
                                              {.Output = log_});
        const ProcessCost generate =
            RunProcess({programs_.Veldrane, "generate", project_, generated_}, {.Output = log_});
        result_.PeakMiB = std::max({result_.PeakMiB, define.PeakMiB, generate.PeakMiB});
        return {define.Seconds, generate.Seconds};
    }

    std::pair<double, double> RunFloor()
    {
        copied_ = NewFolder("copied");
        const double catalog =
            Time({programs_.FloorProbe, "catalog", "Driver=SQLite3;Database=" + database_.string() + ";"});
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
            const std::string bytes = TextOf(file);
            pack << file.filename().string() << '\n' << bytes.size() << '\n' << bytes;
            result_.Files += 1;
            result_.Megabytes += static_cast<double>(bytes.size()) / kBytesInMegabyte;
        }
    }

    void CompareFiles() const
    {
        for (const fs::path& file : WrittenFiles())
            if (TextOf(file) != TextOf(copied_ / file.filename()))
                throw std::runtime_error("The floor did not write the same bytes: " + file.string());
    }

    const Programs& programs_;
    const fs::path folder_;
    const fs::path sql_ = folder_ / "schema.sql";
    const fs::path database_ = folder_ / "schema.db";
    const fs::path pack_ = folder_ / "pack";
    const fs::path log_ = folder_ / "log";
    int folders_ = 0;
    fs::path project_; // of the latest run, as the folders are
    fs::path generated_;
    fs::path copied_;
    WholeRun result_;
};

} // namespace

WholeRun MeasureWholeRun(const Programs& programs, const fs::path& folder, std::size_t tables, int rounds)
{
    return Measurement(programs, folder, tables).Take(rounds);
}

} // namespace veldrane::bench
