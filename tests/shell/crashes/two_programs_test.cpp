// Programs that run at the same time, as processes of their own.

#include "persons_work.h"

#include "support/child_process.h"

#include <array>
#include <csignal>
#include <functional>
#include <memory>
#include <unistd.h>
#include <utility>
#include <vector>

namespace veldrane::testing {
namespace {

using ::testing::SizeIs;

constexpr int kNothing = 0;

// A program in a process of its own, which begins with this, answers a version and then lives until it is killed.
class RunningProgram
{
  public:
    RunningProgram(const PersonsFolder& folder, const std::function<int(DiskProgram&)>& beginning)
    {
        EXPECT_EQ(pipe(told_.data()), 0);
        process_ = StartChild([&]() -> int {
            DiskProgram program(folder);
            const int version = beginning(program);
            if (write(told_[1], &version, sizeof version) != sizeof version)
                return 1;
            while (true)
                pause();
        });
        close(told_[1]);
    }
    ~RunningProgram()
    {
        Kill();
        close(told_[0]);
    }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    // What it answered, once it has begun.
    int Version()
    {
        if (!version_)
            version_ = Answer();
        return *version_;
    }

    void Kill()
    {
        if (process_ < 0)
            return;
        kill(process_, SIGKILL);
        EXPECT_EQ(EndOf(std::exchange(process_, -1)), kKilled + SIGKILL);
    }

  private:
    [[nodiscard]] int Answer() const
    {
        int version = kNothing;
        EXPECT_EQ(read(told_[0], &version, sizeof version), static_cast<ssize_t>(sizeof version));
        return version;
    }

    std::array<int, 2> told_{};
    pid_t process_ = -1;
    std::optional<int> version_;
};

class TwoPrograms : public PersonsWork
{
  protected:
    TwoPrograms() { Reset(); }

    // Has that version, not saved, in a copy for recovery.
    static auto Working(int version)
    {
        return [version](DiskProgram& program) {
            program.Open();
            program.ChangeTo(version);
            program.TickToAutosave();
            return version;
        };
    }

    // Recovers what it finds.
    auto Recovering() const
    {
        return [this](DiskProgram& program) {
            return program.Start() == AfterRecovery::Recovered ? VersionIn(Folder, program.Session).value() : kNothing;
        };
    }

    // The same, as soon as there is a byte to be read at the gate.
    auto RecoveringBehind(int gate) const
    {
        return [this, gate](DiskProgram& program) {
            char opened = 0;
            return read(gate, &opened, 1) == 1 ? Recovering()(program) : kNothing;
        };
    }

    [[nodiscard]] auto Entries() const { return DiskProgram(Folder).Entries(); }
};

TEST_F(TwoPrograms, LeaveEachOthersCopiesAlone)
{
    RunningProgram first(Folder, Working(1));
    ASSERT_EQ(first.Version(), 1);
    const auto entries = Entries();
    const PersonsFolder::Contents copies = PersonsFolder::FilesIn(Folder.Recovery());
    ASSERT_THAT(entries, SizeIs(1));

    RunningProgram idle(Folder, Recovering());
    EXPECT_EQ(idle.Version(), kNothing);
    RunningProgram second(Folder, [&](DiskProgram& program) {
        program.Start();
        Working(2)(program);
        program.Save();
        program.Session.ForgetCopies();
        return 2;
    });
    ASSERT_EQ(second.Version(), 2);
    EXPECT_EQ(Entries(), entries);
    for (const auto& [name, bytes] : copies)
        EXPECT_EQ(PersonsFolder::FilesIn(Folder.Recovery())[name], bytes) << name;

    first.Kill();
    EXPECT_EQ(NextStart(), 1);
}

TEST_F(TwoPrograms, ThatAreKilledAreRecoveredOneByOne)
{
    RunningProgram one(Folder, Working(1));
    ASSERT_EQ(one.Version(), 1);
    RunningProgram two(Folder, Working(2));
    ASSERT_EQ(two.Version(), 2);
    one.Kill();
    two.Kill();
    RunningProgram first(Folder, Recovering());
    EXPECT_EQ(first.Version(), 1);
    RunningProgram second(Folder, Recovering());
    EXPECT_EQ(second.Version(), 2);
    RunningProgram third(Folder, Recovering());
    EXPECT_EQ(third.Version(), kNothing);
}

TEST_F(TwoPrograms, ThatStartTogetherShareWhatCanBeRecovered)
{
    constexpr int kRounds = 24;
    std::array<int, 2> gate{};
    ASSERT_EQ(pipe(gate.data()), 0);
    for (int round = 0; round < kRounds; ++round) {
        Reset();
        Crash(1);
        Crash(2);
        RunningProgram first(Folder, RecoveringBehind(gate[0]));
        RunningProgram second(Folder, RecoveringBehind(gate[0]));
        RunningProgram third(Folder, RecoveringBehind(gate[0]));
        ASSERT_EQ(write(gate[1], "...", 3), 3);
        const std::multiset<int> recovered{first.Version(), second.Version(), third.Version()};
        EXPECT_EQ(recovered, (std::multiset<int>{kNothing, 1, 2})) << "round " << round;
        EXPECT_THAT(Entries(), SizeIs(2)) << "round " << round;
    }
    close(gate[0]);
    close(gate[1]);
}

TEST_F(TwoPrograms, ThatAreKilledWhileTheyRecoverLoseNothing)
{
    constexpr int kRounds = 24;
    for (int round = 0; round < kRounds; ++round) {
        Reset();
        Crash(1);
        Crash(2);
        const auto recovering = [this](DiskProgram& program) { return Recovering()(program); };
        RunningProgram first(Folder, recovering);
        RunningProgram second(Folder, recovering);
        usleep(static_cast<useconds_t>(round) * 1000);
        first.Kill();
        second.Kill();
        std::set<int> recovered;
        std::vector<std::unique_ptr<RunningProgram>> later;
        do {
            later.push_back(std::make_unique<RunningProgram>(Folder, recovering));
            recovered.insert(later.back()->Version());
        } while (later.back()->Version() != kNothing);
        recovered.erase(kNothing);
        EXPECT_EQ(recovered, (std::set<int>{1, 2})) << "round " << round;
    }
}

TEST_F(TwoPrograms, StoreTheirSettingsSideBySide)
{
    constexpr int kPrograms = 4;
    constexpr int kSettings = 10;
    EXPECT_TRUE(AllEndWell(kPrograms, [&](int number) {
        DiskProgram program(Folder);
        for (int setting = 0; setting < kSettings; ++setting)
            program.Store("P" + std::to_string(number) + "S" + std::to_string(setting), "stored");
    }));
    DiskProgram reader(Folder);
    for (int number = 0; number < kPrograms; ++number)
        for (int setting = 0; setting < kSettings; ++setting)
            EXPECT_EQ(reader.Stored("P" + std::to_string(number) + "S" + std::to_string(setting)), "stored");
    ExpectOtherSettings();
}

} // namespace
} // namespace veldrane::testing
