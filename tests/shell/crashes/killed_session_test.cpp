// A program that is killed before each of its calls that change a file, one after the other, whatever it does for its
// person.

#include "persons_work.h"

#include "support/child_process.h"
#include "support/system_calls.h"

#include <csignal>
#include <fstream>

namespace veldrane::testing {
namespace {

using ::testing::AnyOf;

class KilledSession : public PersonsWork
{
  protected:
    // Kills at one call of the deed after the other, until one comes to its end; `check` sees what each kill left. How
    // many kills that took.
    template <class Prepare, class Deed, class Check>
    int KillEverywhere(Prepare&& prepare, Deed&& deed, Check&& check)
    {
        constexpr int kMostCalls = 1000;
        for (int call = 1; call < kMostCalls; ++call) {
            SCOPED_TRACE("killed at call " + std::to_string(call));
            Reset();
            const int end = ExitCodeOf([&] {
                DiskProgram program(Folder);
                prepare(program);
                KillAtCall(call);
                deed(program);
                KillAtCall(0);
                return 0;
            });
            if (end == 0) {
                RecordProperty("kills", call - 1);
                return call - 1;
            }
            EXPECT_EQ(end, kKilled + SIGKILL);
            check();
            ExpectOtherSettings();
        }
        ADD_FAILURE() << "it never came to its end";
        return 0;
    }

    static constexpr auto kOpenAndChange = [](DiskProgram& program) {
        program.Open();
        program.ChangeTo(2);
    };
};

TEST_F(KilledSession, SavesTheOldOrTheNewDocumentWholeAndItsBackup)
{
    const int kills = KillEverywhere(
        kOpenAndChange, [](DiskProgram& program) { program.Save(); },
        [&] {
            EXPECT_THAT(Document(), AnyOf(0, 2));
            EXPECT_THAT(Backup(), AnyOf(kNone, 0));
            EXPECT_TRUE(Document() == 0 || Backup() == 0);
            EXPECT_EQ(NextStart(), kNone);
        });
    EXPECT_GT(kills, 12);
}

TEST_F(KilledSession, IsFollowedByASaveThatSweepsUpBehindIt)
{
    KillEverywhere(
        kOpenAndChange, [](DiskProgram& program) { program.Save(); },
        [&] {
            DiskProgram next(Folder);
            next.Open();
            next.ChangeTo(3);
            EXPECT_TRUE(next.Save());
            EXPECT_EQ(Document(), 3);
            EXPECT_EQ(PersonsFolder::PrivateFilesIn(Folder.Path("work")), 0);
        });
}

TEST_F(KilledSession, SavesAnotherFileOldOrNewAndLeavesItsOwn)
{
    const int kills = KillEverywhere(
        [&](DiskProgram& program) {
            program.Open();
            program.ChangeTo(5);
            program.SaveAs(OtherPath);
            kOpenAndChange(program);
        },
        [&](DiskProgram& program) { program.SaveAs(OtherPath); },
        [&] {
            EXPECT_EQ(Document(), 0);
            EXPECT_THAT(Other(), AnyOf(5, 2));
            EXPECT_EQ(NextStart(), kNone);
        });
    EXPECT_GT(kills, 8);
}

TEST_F(KilledSession, HasMadeItsFirstCopyWholeOrNone)
{
    const int kills = KillEverywhere(
        kOpenAndChange, [](DiskProgram& program) { program.TickToAutosave(); },
        [&] {
            EXPECT_EQ(Document(), 0);
            EXPECT_THAT(NextStart(), AnyOf(kNone, 2));
        });
    EXPECT_GT(kills, 15);
}

TEST_F(KilledSession, KeepsItsFormerCopyUntilTheNextOneStands)
{
    const int kills = KillEverywhere(
        [](DiskProgram& program) {
            program.Open();
            program.ChangeTo(1);
            program.TickToAutosave();
            program.ChangeTo(2);
        },
        [](DiskProgram& program) { program.TickToAutosave(); },
        [&] {
            EXPECT_EQ(Document(), 0);
            EXPECT_THAT(NextStart(), AnyOf(1, 2));
        });
    EXPECT_GT(kills, 6);
}

TEST_F(KilledSession, ThatSavesKeepsItsCopyUntilTheProjectIsLeft)
{
    KillEverywhere(
        [](DiskProgram& program) {
            kOpenAndChange(program);
            program.TickToAutosave();
        },
        [](DiskProgram& program) {
            program.Save();
            program.Session.ForgetCopies();
        },
        [&] {
            EXPECT_THAT(Document(), AnyOf(0, 2));
            const std::optional<int> recovered = NextStart();
            EXPECT_THAT(recovered, AnyOf(kNone, 2));
            EXPECT_TRUE(recovered == 2 || Document() == 2);
        });
}

TEST_F(KilledSession, ThatRecoversNeverLosesWhatItRecovers)
{
    const int kills = KillEverywhere([&](DiskProgram& /*program*/) { Crash(2); },
                                     [](DiskProgram& program) { static_cast<void>(program.Start()); },
                                     [&] {
                                         EXPECT_EQ(Document(), 0);
                                         EXPECT_EQ(NextStart(), 2);
                                     });
    EXPECT_GT(kills, 12);
}

TEST_F(KilledSession, StoresTheOldOrTheNewSetting)
{
    const int kills = KillEverywhere([](DiskProgram& program) { program.Store("Colour", "red"); },
                                     [](DiskProgram& program) { program.Store("Colour", "blue"); },
                                     [&] {
                                         EXPECT_THAT(DiskProgram(Folder).Stored("Colour"), AnyOf("red", "blue"));
                                         EXPECT_EQ(NextStart(), kNone);
                                     });
    EXPECT_GT(kills, 6);
}

TEST_F(KilledSession, MakesItsSettingsWholeOrNot)
{
    for (int call = 1, end = kKilled + SIGKILL; end != 0; ++call) {
        SCOPED_TRACE("killed at call " + std::to_string(call));
        Folder.Clear();
        end = ExitCodeOf([&] {
            DiskProgram program(Folder);
            KillAtCall(call);
            program.Store("Colour", "blue");
            return 0;
        });
        EXPECT_THAT(end, AnyOf(0, kKilled + SIGKILL));
        DiskProgram next(Folder);
        EXPECT_THAT(next.Stored("Colour"), AnyOf("", "blue"));
        EXPECT_TRUE(next.Twins.Messages.Asked().empty());
        next.Store("Colour", "green");
        EXPECT_EQ(next.Stored("Colour"), "green");
        EXPECT_EQ(PersonsFolder::PrivateFilesIn(Folder.SettingsFolder()), 0);
    }
}

TEST_F(KilledSession, GeneratesWholeFilesWithTheirBackups)
{
    Reset();
    PersonsFolder::Contents whole;
    {
        DiskProgram program(Folder);
        program.Open();
        program.Generate();
        whole = PersonsFolder::FilesIn(Folder.Out());
    }
    const PersonsFolder::Contents before{{"Shop.vbp", "mine"}, {"TestShop.vbp", "mine as well"}};
    const int kills = KillEverywhere(
        [&](DiskProgram& program) {
            program.Open();
            for (const auto& [name, bytes] : before)
                std::ofstream(Folder.Path("out/" + name)) << bytes;
        },
        [](DiskProgram& program) { program.Generate(); },
        [&] {
            const PersonsFolder::Contents left = PersonsFolder::FilesIn(Folder.Out());
            for (const auto& [name, old] : before) {
                EXPECT_THAT(left.at(name), AnyOf(old, whole.at(name)));
                EXPECT_TRUE(left.at(name) == old || left.at(name + ".BAK") == old) << name;
            }
            for (const auto& [name, bytes] : left)
                EXPECT_TRUE(before.contains(name) || name.ends_with(".BAK") || bytes == whole.at(name)) << name;
            EXPECT_EQ(Document(), 0);
            EXPECT_EQ(NextStart(), kNone);
        });
    EXPECT_GT(kills, static_cast<int>(whole.size()));
}

} // namespace
} // namespace veldrane::testing
