#include "part_benchmarks.h"

#include "memory_world.h"

#include "generator/code_generation.h"
#include "projectfile/file_management.h"
#include "shell/main_window/preview_pane.h"
#include "support/recorded_pointer.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <malloc.h>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace veldrane::bench {
namespace {

constexpr double kMillion = 1e6;
constexpr double kMillisecondsInASecond = 1e3;

// The counter of what a benchmark gets through: lines or bytes.
constexpr const char* kAmount = "amount";

// Nothing that a run meets is in its way: the folder is empty at its start.
class NoConflicts : public ConflictResolver
{
  public:
    [[nodiscard]] ConflictAnswer ResolveConflict(const FileConflict& /*conflict*/) override
    {
        return ConflictAnswer::Overwrite;
    }
};

// A project file opened in memory, and all that can be done with it.
class OpenedProject
{
  public:
    explicit OpenedProject(const std::string& bytes)
    {
        world_.Files.Files[kProjectPath] = bytes;
        project_.Clear();
        Require(files_.OpenProject(project_, classes_, kProjectPath) && !files_.LostClasses() &&
                    world_.Messages.Asked().empty(),
                "reading");
    }

    void Generate()
    {
        generation_.GenerateCode(classes_, {.TargetFolder = kTargetFolder});
        Require(world_.Errors.Reported.empty() && generation_.ErrorText.empty() && ToldOfLongStatementsAlone(),
                "generating");
    }

    void Save() { Require(files_.SaveProject(project_, classes_) && world_.Messages.Asked().empty(), "writing"); }

    // Shows the first class of a table in the pane and says how many lines it has.
    double Preview()
    {
        const auto item = std::find_if(classes_.begin(), classes_.end(),
                                       [](const KZMClass& candidate) { return !candidate.TableName.empty(); });
        const PreviewNode node{.Type = NodeType::Class, .Class = &*item};
        Require(pane_.DisplayPreview(node, {project_, classes_, generation_, world_.Errors}, pointer_) &&
                    world_.Errors.Reported.empty() && ToldOfLongStatementsAlone(),
                "previewing");
        world_.Messages.Forget();
        return static_cast<double>(pane_.Count());
    }

    // Removes the generated files and says how many lines they had.
    double TakeGeneratedLines()
    {
        double lines = 0;
        std::erase_if(world_.Files.Files, [&](const auto& file) {
            if (!file.first.starts_with(kTargetFolder))
                return false;
            lines += static_cast<double>(std::count(file.second.begin(), file.second.end(), '\n'));
            return true;
        });
        return lines;
    }

  private:
    static void Require(bool done, const std::string& what)
    {
        if (!done)
            throw std::runtime_error(what + " in memory does not do its work");
    }

    // A query of some hundred columns is longer than the generated language can hold, which the person is told.
    [[nodiscard]] bool ToldOfLongStatementsAlone() const
    {
        const auto& told = world_.Messages.Asked();
        return std::all_of(told.begin(), told.end(), [](const Question& message) {
            return message.Text == "Unable to add lines to code. The splitting of lines is limited to 16.";
        });
    }

    MemoryWorld world_;
    NoConflicts conflicts_;
    TTCProject project_;
    KZMClasses classes_;
    text::CodePage codePage_;
    NoFileWindows windows_;
    TTCFileManagement files_{world_.Files, world_.Messages, world_.Errors, codePage_, windows_.Windows()};
    CodeGeneration generation_{
        project_, {world_.Messages, world_.Errors, world_.Files, world_.Clock, world_.Processes, conflicts_}};
    testing::RecordedPointer pointer_;
    PreviewPane pane_;
};

void MeasureGenerating(benchmark::State& state, const std::string& bytes)
{
    OpenedProject project(bytes);
    double lines = 0;
    for ([[maybe_unused]] auto step : state) {
        project.Generate();
        state.PauseTiming();
        lines += project.TakeGeneratedLines();
        state.ResumeTiming();
    }
    state.counters[kAmount] = lines;
}

void MeasureReading(benchmark::State& state, const std::string& bytes)
{
    for ([[maybe_unused]] auto step : state) {
        auto project = std::make_unique<OpenedProject>(bytes);
        state.PauseTiming(); // to take the project down is no reading
        project.reset();
        state.ResumeTiming();
    }
    state.counters[kAmount] = static_cast<double>(bytes.size()) * static_cast<double>(state.iterations());
}

void MeasureWriting(benchmark::State& state, const std::string& bytes)
{
    OpenedProject project(bytes);
    for ([[maybe_unused]] auto step : state)
        project.Save();
    state.counters[kAmount] = static_cast<double>(bytes.size()) * static_cast<double>(state.iterations());
}

void MeasurePreviewing(benchmark::State& state, const std::string& bytes)
{
    OpenedProject project(bytes);
    double lines = 0;
    for ([[maybe_unused]] auto step : state)
        lines += project.Preview();
    state.counters[kAmount] = lines;
}

std::vector<SchemaTable> OneTable(std::size_t columns)
{
    return {MakeWideTable(columns)};
}

// One part, measured at two sizes.
struct Part
{
    const char* Name;
    void (*Run)(benchmark::State& state, const std::string& bytes);
    std::vector<SchemaTable> (*Schema)(std::size_t size);
    std::size_t Small;
    std::size_t Large;
    Measure Rate;                               // at the larger size, in millions a second
    Measure Growth;                             // from the smaller to the larger
    std::optional<Measure> Time = std::nullopt; // of one at the smaller size, in milliseconds
};

// By how much the sizes of a trial are smaller.
constexpr std::size_t kTrialDivisor = 10;

constexpr auto kParts = std::to_array<Part>({
    {"generate classes", MeasureGenerating, MakeSchema, 100, 1000, Measure::GenerationRate,
     Measure::GenerationGrowthClasses},
    {"generate properties", MeasureGenerating, OneTable, 200, 2000, Measure::GenerationRateWideClass,
     Measure::GenerationGrowthProperties},
    {"read", MeasureReading, MakeSchema, 1000, 5000, Measure::ProjectReadRate, Measure::ProjectReadGrowth},
    {"write", MeasureWriting, MakeSchema, 1000, 5000, Measure::ProjectWriteRate, Measure::ProjectWriteGrowth},
    {"preview", MeasurePreviewing, OneTable, 200, 2000, Measure::PreviewRate, Measure::PreviewGrowth,
     Measure::PreviewTime},
});

// What the repetitions of one benchmark took.
struct Repetitions
{
    std::vector<double> Seconds; // of processor time, for one iteration
    std::vector<double> Rates;   // amount a second
};

class Collector : public benchmark::BenchmarkReporter
{
  public:
    bool ReportContext(const Context& /*context*/) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.error_occurred)
                throw std::runtime_error(run.benchmark_name() + ": " + run.error_message);
            if (run.run_type != Run::RT_Iteration)
                continue;
            Repetitions& repetitions = ByName[run.run_name.function_name];
            repetitions.Seconds.push_back(run.cpu_accumulated_time / static_cast<double>(run.iterations));
            repetitions.Rates.push_back(run.counters.at(kAmount).value / run.cpu_accumulated_time);
        }
    }

    std::map<std::string, Repetitions> ByName;
};

// The project file of a part at a size, made once: the library starts a benchmark many times over.
const std::string& ProjectOf(const Part& part, std::size_t size)
{
    static std::map<std::pair<const Part*, std::size_t>, std::string> files;
    std::string& bytes = files[{&part, size}];
    if (bytes.empty())
        bytes = DefineInMemory(part.Schema(size));
    return bytes;
}

// Its ranges are the part's place in the table and the size.
void MeasurePart(benchmark::State& state)
{
    const Part& part = kParts.at(static_cast<std::size_t>(state.range(0)));
    part.Run(state, ProjectOf(part, static_cast<std::size_t>(state.range(1))));
}

std::string NameOf(const Part& part, std::size_t size)
{
    return std::string(part.Name) + " " + std::to_string(size);
}

void Register(const Part& part, std::size_t size, const PartOptions& options)
{
    benchmark::RegisterBenchmark(NameOf(part, size).c_str(), MeasurePart)
        ->Args({&part - kParts.data(), static_cast<std::int64_t>(size)})
        ->MinTime(options.SecondsEach)
        ->Repetitions(options.Repetitions);
}

} // namespace

void MeasureParts(const PartOptions& options, Figures& figures)
{
    // Memory that was given back is used again, whatever its size. Left to itself, the library keeps blocks up to some
    // size and asks the system anew for larger ones, whose cost looks like growth of the part that is measured.
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    const std::size_t divisor = options.Small ? kTrialDivisor : 1;
    for (const Part& part : kParts)
        for (const std::size_t size : {part.Small / divisor, part.Large / divisor})
            Register(part, size, options);
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector, options.Names);
    for (const Part& part : kParts) {
        const std::size_t small = part.Small / divisor;
        const std::size_t large = part.Large / divisor;
        if (!collector.ByName.contains(NameOf(part, large)) || !collector.ByName.contains(NameOf(part, small)))
            continue;
        const Repetitions& atLarge = collector.ByName.at(NameOf(part, large));
        const Repetitions& atSmall = collector.ByName.at(NameOf(part, small));
        figures[part.Rate] = Median(atLarge.Rates) / kMillion;
        figures[part.Growth] = GrowthExponent(static_cast<double>(small), Median(atSmall.Seconds),
                                              static_cast<double>(large), Median(atLarge.Seconds));
        if (part.Time)
            figures[*part.Time] = Median(atSmall.Seconds) * kMillisecondsInASecond;
    }
}

} // namespace veldrane::bench
