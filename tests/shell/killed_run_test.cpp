// A run that is killed: before each of its calls that change a file, one after the other, so that every state in which
// a kill can leave the folder is seen.

#include "program.h"
#include "shell/platform/temporary_registry.h"
#include "support/child_process.h"
#include "support/system_calls.h"

#include <gmock/gmock.h>

#include <csignal>
#include <map>

namespace veldrane {
namespace {

namespace fs = std::filesystem;

using testing::Ended;
using testing::EndOf;
using testing::kKilled;
using testing::Program;
using testing::StartChild;

using Contents = std::map<std::string, std::string>;

class KilledRun : public ::testing::Test
{
  protected:
    KilledRun()
    {
        fs::create_directory(Out);
        const Ended defined = Workspace.Run(
            {"define", Project, "--connection", Workspace.MakeShop(), "--table", "Customers", "--collections"});
        EXPECT_EQ(defined.ExitCode, 0) << defined.ErrorOutput;
    }

    // The files under their final names; private ones stand aside.
    [[nodiscard]] Contents Read() const
    {
        Contents contents;
        for (const fs::directory_entry& entry : fs::directory_iterator(Out))
            if (!entry.path().filename().string().starts_with('.'))
                contents[entry.path().filename()] = testing::BytesOf(entry.path());
        return contents;
    }

    void Reset(const Contents& contents) const
    {
        fs::remove_all(Out);
        fs::create_directory(Out);
        for (const auto& [name, bytes] : contents)
            Workspace.WriteFile("out/" + name, bytes);
    }

    // How a run ends that is killed at its `call`-th call; 0 for never.
    int RunKilledAt(int call, const std::vector<std::string>& words)
    {
        return EndOf(StartChild([&] {
            testing::KillAtCall(call);
            return Workspace.Run(words).ExitCode;
        }));
    }
    int RunKilledAt(int call) { return RunKilledAt(call, {"generate", Project, Out}); }

    // Runs on the folder as it was, killed at one call after the other until a run comes to its end; `check` sees what
    // each kill left.
    template <class Check>
    int KillEverywhere(const Contents& before, Check&& check)
    {
        return KillEverywhere(before, {"generate", Project, Out}, check);
    }
    template <class Check>
    int KillEverywhere(const Contents& before, const std::vector<std::string>& words, Check&& check)
    {
        constexpr int kMostCalls = 2000;
        for (int call = 1; call < kMostCalls; ++call) {
            Reset(before);
            const int end = RunKilledAt(call, words);
            if (end == 0)
                return call - 1;
            EXPECT_EQ(end, kKilled + SIGKILL) << call;
            check(Read(), call);
        }
        ADD_FAILURE() << "the run never came to its end";
        return 0;
    }

    Program Workspace;
    std::string Project = Workspace.Path("Shop.kzm");
    std::string Out = Workspace.Path("out");
};

TEST_F(KilledRun, LeavesWholeFilesOnlyInAnEmptyFolder)
{
    Reset({});
    EXPECT_EQ(RunKilledAt(0), 0);
    const Contents whole = Read();
    const int kills = KillEverywhere({}, [&](const Contents& left, int call) {
        for (const auto& [name, bytes] : left)
            EXPECT_EQ(bytes, whole.at(name)) << name << ", killed at call " << call;
    });
    EXPECT_GT(kills, static_cast<int>(whole.size()));
}

TEST_F(KilledRun, LeavesTheOldOrTheNewFileAndItsBackupWhole)
{
    Reset({});
    EXPECT_EQ(RunKilledAt(0), 0);
    const Contents whole = Read();
    const Contents before{{"Customer.cls", "mine"}, {"Shop.vbp", "mine as well"}};
    KillEverywhere(before, [&](const Contents& left, int call) {
        for (const auto& [name, old] : before) {
            const std::string& now = left.at(name);
            EXPECT_TRUE(now == old || now == whole.at(name)) << name << ", killed at call " << call;
            EXPECT_TRUE(now == old || left.at(name + ".BAK") == old) << name << ", killed at call " << call;
        }
        for (const auto& [name, bytes] : left)
            EXPECT_TRUE(name.ends_with(".BAK") || before.contains(name) || bytes == whole.at(name))
                << name << ", killed at call " << call;
    });
}

TEST_F(KilledRun, ThatDeletesFirstCanAlwaysBeMadeAgain)
{
    const std::vector<std::string> words{"/C", "/DELETE", Project, Out};
    Reset({});
    EXPECT_EQ(RunKilledAt(0), 0);
    const Contents whole = Read();
    Contents before = whole;
    before["OldClass.cls"] = "of an earlier run";
    KillEverywhere(before, words, [&](const Contents& left, int call) {
        for (const auto& [name, bytes] : left)
            EXPECT_EQ(bytes, before.at(name)) << name << ", killed at call " << call;
        EXPECT_EQ(RunKilledAt(0, words), 0) << "killed at call " << call;
        EXPECT_EQ(Read(), whole) << "killed at call " << call;
    });
}

TEST_F(KilledRun, ThatIsInterruptedLeavesWholeFilesAndNoPrivateOnes)
{
    Reset({});
    EXPECT_EQ(RunKilledAt(0), 0);
    const Contents whole = Read();
    int end = 128 + SIGINT;
    for (int call = 1; end != 0; ++call) {
        Reset({});
        end = EndOf(StartChild([&] {
            RemoveTemporariesOnSignal();
            testing::KillAtCall(call, SIGINT);
            return Workspace.Run({"generate", Project, Out}).ExitCode;
        }));
        EXPECT_TRUE(end == 0 || end == 128 + SIGINT) << end << ", interrupted at call " << call;
        for (const fs::directory_entry& entry : fs::directory_iterator(Out)) {
            const std::string name = entry.path().filename();
            ASSERT_TRUE(whole.contains(name)) << name << ", interrupted at call " << call;
            EXPECT_EQ(testing::BytesOf(entry.path()), whole.at(name)) << name << ", interrupted at call " << call;
        }
    }
}

TEST_F(KilledRun, OfDefineLeavesTheOldOrTheNewProjectWhole)
{
    const std::string project = Out + "/Shop.kzm";
    const std::vector<std::string> words{"define", project, "--table", "Orders"};
    const Contents before{{"Shop.kzm", Workspace.ReadFile("Shop.kzm")}};
    Reset(before);
    EXPECT_EQ(RunKilledAt(0, words), 0);
    const Contents after = Read();
    KillEverywhere(before, words, [&](const Contents& left, int call) {
        const std::string& now = left.at("Shop.kzm");
        EXPECT_TRUE(now == before.at("Shop.kzm") || now == after.at("Shop.kzm")) << "killed at call " << call;
        for (const auto& [name, bytes] : left)
            EXPECT_TRUE(name == "Shop.kzm" || bytes == after.at(name)) << name << ", killed at call " << call;
    });
}

TEST_F(KilledRun, IsFollowedByOneThatLeavesNothingOfItBehind)
{
    Reset({});
    EXPECT_EQ(RunKilledAt(0), 0);
    const Contents whole = Read();
    constexpr int kInTheMiddle = 12;
    Reset({});
    EXPECT_EQ(RunKilledAt(kInTheMiddle), kKilled + SIGKILL);
    EXPECT_EQ(RunKilledAt(0), 0);
    EXPECT_EQ(Read(), whole);
    EXPECT_EQ(static_cast<std::size_t>(std::distance(fs::directory_iterator(Out), {})), whole.size());
}

} // namespace
} // namespace veldrane
