#include "support/random_kills.h"

#include "shell/platform/settings_document.h"
#include "support/child_process.h"
#include "support/disk_program.h"
#include "support/random_numbers.h"
#include "support/system_calls.h"

#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <new>
#include <stdexcept>
#include <string_view>
#include <sys/mman.h>
#include <thread>

namespace veldrane::testing {
namespace {

constexpr int kNever = -1;
constexpr std::size_t kLongestLife = 60'000; // microseconds: a few rounds of all that a program does
constexpr const char* kCounter = "Counter";
constexpr const char* kBystander = "Bystander"; // a setting that nobody writes

// What a version is written into.
enum Target
{
    kDocument,
    kOtherDocument,
    kCopy,
    kSetting,
    kCode,
    kTargets,
};

// What a program has come to, in memory that outlives it.
struct Journal
{
    struct Versions
    {
        std::atomic<int> Begun = kNever;
        std::atomic<int> Done = kNever;

        [[nodiscard]] bool Allow(int version) const { return version == Begun || version == Done; }
    };

    std::atomic<const char*> Call = "";
    std::atomic<const char*> Work = "";
    std::array<Versions, kTargets> Of;
};

class SharedJournal
{
  public:
    SharedJournal() : place_(mmap(nullptr, sizeof(Journal), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
    {
        if (place_ == MAP_FAILED)
            throw std::runtime_error("no memory can be shared with the programs");
        Clear();
    }
    ~SharedJournal() { munmap(place_, sizeof(Journal)); }
    SharedJournal(const SharedJournal&) = delete;
    SharedJournal& operator=(const SharedJournal&) = delete;

    void Clear() { journal_ = new (place_) Journal; }
    Journal* operator->() const { return journal_; }
    Journal& operator*() const { return *journal_; }

  private:
    void* place_;
    Journal* journal_ = nullptr;
};

// A program that works until it is killed.
class Worker
{
  public:
    Worker(const PersonsFolder& folder, Journal& journal, unsigned seed)
        : folder_(folder), journal_(journal), random_(seed), program_(folder)
    {
        program_.Open();
    }

    [[noreturn]] void WorkForever()
    {
        TellCalls(journal_.Call);
        while (true) {
            program_.ChangeTo(++version_);
            constexpr auto kDeeds = std::to_array<void (Worker::*)()>(
                {&Worker::Save, &Worker::SaveAs, &Worker::Autosave, &Worker::Store, &Worker::Generate});
            (this->*random_.Pick(kDeeds))();
        }
    }

  private:
    void Save()
    {
        Do("save", document_, [&] { program_.Save(); });
    }
    void SaveAs()
    {
        document_ = document_ == kDocument ? kOtherDocument : kDocument;
        const std::string path = document_ == kDocument ? folder_.Document() : folder_.Path("work/Other.kzm");
        Do("save as", document_, [&] { program_.SaveAs(path); });
    }
    void Autosave()
    {
        Do("autosave", kCopy, [&] { program_.TickToAutosave(); });
    }
    void Store()
    {
        Do("settings", kSetting, [&] { program_.Store(kCounter, std::to_string(version_)); });
    }
    void Generate()
    {
        Do("generation", kCode, [&] { program_.Generate(); });
    }

    template <class Body>
    void Do(const char* work, Target target, Body&& body)
    {
        journal_.Of[target].Begun = version_;
        journal_.Work = work;
        body();
        journal_.Of[target].Done = version_;
    }

    const PersonsFolder& folder_;
    Journal& journal_;
    RandomNumbers random_;
    DiskProgram program_;
    Target document_ = kDocument;
    int version_ = 0;
};

// Looks at what a killed program has left.
class Inspection
{
  public:
    Inspection(const PersonsFolder& folder, const PersonsFolder::Contents& code, const Journal& journal,
               KillFigures& figures)
        : folder_(folder), code_(code), journal_(journal), figures_(figures)
    {}

    void Run()
    {
        Documents();
        Settings();
        Code();
        NextStart();
    }

  private:
    void Expect(bool holds, std::string_view what)
    {
        if (!holds)
            figures_.Losses.push_back("kill " + std::to_string(figures_.Kills) + ", while it did '" +
                                      journal_.Work.load() + "', at " + journal_.Call.load() + ": " +
                                      std::string(what));
    }

    void Documents()
    {
        for (const auto& [name, bytes] : PersonsFolder::FilesIn(folder_.Path("work"))) {
            const std::string document = folder_.Path("work/" + name.substr(0, name.rfind('.')) + ".kzm");
            const std::optional<int> version = WholeVersion(folder_, bytes, document);
            Expect(version.has_value(), name + " is not whole");
            if (name.ends_with(".kzm"))
                Expect(journal_.Of[name == "Shop.kzm" ? kDocument : kOtherDocument].Allow(version.value_or(kNever)),
                       name + " is neither the old nor the new version");
        }
        Expect(BytesIn(folder_.Document()).has_value(), "the document is gone");
        Expect(journal_.Of[kOtherDocument].Done == kNever || BytesIn(folder_.Path("work/Other.kzm")).has_value(),
               "the other document is gone");
    }

    void Settings()
    {
        try {
            const SettingsDocument settings = SettingsDocument::Parse(BytesIn(folder_.Settings()).value_or(""));
            Expect(settings.Find(settings_section::kOptions, kBystander) == "stays", "another setting is lost");
            const std::string counter = settings.Find(settings_section::kOptions, kCounter).value_or("-1");
            Expect(journal_.Of[kSetting].Allow(std::stoi(counter)), "the setting is neither the old nor the new one");
        } catch (const RuntimeError& error) {
            Expect(false, "the settings can't be read: " + error.Description());
        }
    }

    void Code()
    {
        constexpr std::string_view kBackup = ".BAK";
        for (const auto& [name, bytes] : PersonsFolder::FilesIn(folder_.Out())) {
            const std::string original = name.ends_with(kBackup) ? name.substr(0, name.size() - kBackup.size()) : name;
            const auto whole = code_.find(original);
            Expect(whole != code_.end() && whole->second == bytes, name + " is not whole");
        }
    }

    void NextStart()
    {
        const Journal::Versions& saved = journal_.Of[kCopy];
        DiskProgram next(folder_);
        const bool recovered = next.Start() == AfterRecovery::Recovered;
        figures_.Recovered += recovered ? 1 : 0;
        Expect(recovered || saved.Done == kNever, "nothing is recovered");
        if (recovered)
            Expect(saved.Allow(VersionIn(folder_, next.Session).value_or(kNever)), "something else is recovered");
        Expect(next.Entries().size() == (recovered ? 1U : 0U), "the entries are not those of the copies");
        next.Store(kCounter, "swept");
        Expect(next.Twins.Errors.Reported.empty() && next.Twins.Messages.Asked().empty(),
               "the next start has something to say");
        Expect(PersonsFolder::PrivateFilesIn(folder_.Recovery()) +
                       PersonsFolder::PrivateFilesIn(folder_.SettingsFolder()) ==
                   0,
               "private files are left");
    }

    const PersonsFolder& folder_;
    const PersonsFolder::Contents& code_;
    const Journal& journal_;
    KillFigures& figures_;
};

void Prepare(const PersonsFolder& folder)
{
    folder.Clear();
    DiskProgram program(folder);
    program.New(0);
    program.Save();
    program.Store(kBystander, "stays");
}

PersonsFolder::Contents CodeIn(const PersonsFolder& folder)
{
    DiskProgram program(folder);
    program.New(0);
    program.Generate();
    return PersonsFolder::FilesIn(folder.Out());
}

void LetWorkAndKill(pid_t worker, const Journal& journal, std::chrono::microseconds life)
{
    while (*journal.Work.load() == '\0')
        std::this_thread::yield();
    std::this_thread::sleep_for(life);
    kill(worker, SIGKILL);
}

} // namespace

KillFigures KillAtRandom(const KillPlan& plan)
{
    const PersonsFolder folder(plan.Below);
    const PersonsFolder::Contents code = CodeIn(folder);
    RandomNumbers random(plan.Seed);
    SharedJournal journal;
    KillFigures figures;
    for (; figures.Kills < plan.Kills; ++figures.Kills) {
        Prepare(folder);
        journal.Clear();
        journal->Of[kDocument].Done = 0;
        const auto seed = static_cast<unsigned>(random.Below(1U << 31U));
        const pid_t worker = StartChild([&] {
            Worker(folder, *journal, seed).WorkForever();
            return 0;
        });
        LetWorkAndKill(worker, *journal, std::chrono::microseconds(random.Below(kLongestLife)));
        if (EndOf(worker) != kKilled + SIGKILL)
            throw std::runtime_error("a program ended before it was killed");
        ++figures.AtWork[journal->Work.load()];
        ++figures.AtCall[journal->Call.load()];
        Inspection(folder, code, *journal, figures).Run();
    }
    return figures;
}

} // namespace veldrane::testing
