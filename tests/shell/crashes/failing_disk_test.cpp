// A disk that fails: at one call after the other, and from one call on until it is free again.

#include "persons_work.h"

#include "support/system_calls.h"

#include <cerrno>
#include <climits>
#include <fstream>
#include <memory>
#include <system_error>

namespace veldrane::testing {
namespace {

using ::testing::AnyOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct Disk
{
    int Error;
    bool StaysFull; // from the failing call on, until it is free again
};

class FailingDisk : public PersonsWork, public ::testing::WithParamInterface<Disk>
{
  protected:
    // Does the deed on a disk that fails at one call after the other, until none fails; `check` sees each failure, with
    // the program still running and the disk free again. How many failures that took.
    template <class Prepare, class Deed, class Check>
    int FailEverywhere(Prepare&& prepare, Deed&& deed, Check&& check)
    {
        constexpr int kMostCalls = 1000;
        for (int call = 1; call < kMostCalls; ++call) {
            Reset();
            Program = std::make_unique<DiskProgram>(Folder);
            prepare(*Program);
            const std::string failed = Fail(call, deed);
            if (failed.empty()) {
                RecordProperty("failures", call - 1);
                return call - 1;
            }
            SCOPED_TRACE("call " + std::to_string(call) + " failed: " + failed);
            check();
            EXPECT_EQ(PersonsFolder::PrivateFilesIn(Folder.Path("work")), 0);
            EXPECT_EQ(PersonsFolder::PrivateFilesIn(Folder.Out()), 0);
            EXPECT_EQ(PersonsFolder::PrivateFilesIn(Folder.Recovery()), 0);
            EXPECT_EQ(PersonsFolder::PrivateFilesIn(Folder.SettingsFolder()), 0);
            ExpectOtherSettings();
        }
        ADD_FAILURE() << "it never came to its end";
        return 0;
    }

    // The name of the call that failed, "" for none.
    template <class Deed>
    std::string Fail(int call, Deed&& deed)
    {
        const FailingCalls failing(GetParam().Error, call, GetParam().StaysFull ? INT_MAX : call);
        deed(*Program);
        return failing.Failed();
    }

    // The one report, which names what could not be written and says why; of several folders the last one is named.
    void ExpectTold(const std::string& path) const
    {
        ASSERT_THAT(Program->Twins.Errors.Reported, SizeIs(1));
        const std::string& told = Program->Twins.Errors.Reported[0].Error.Description();
        EXPECT_THAT(told, HasSubstr(path));
        EXPECT_THAT(told, AnyOf(HasSubstr(std::generic_category().message(GetParam().Error)),
                                HasSubstr(Folder.Recovery() + ": No such file or directory")));
        EXPECT_THAT(Program->Twins.Messages.Asked(), IsEmpty());
    }

    void Restart() { Program.reset(); }

    static constexpr auto kOpenAndChange = [](DiskProgram& program) {
        program.Open();
        program.ChangeTo(2);
    };

    std::unique_ptr<DiskProgram> Program;
};

TEST_P(FailingDisk, KeepsTheDocumentOldOrNewAndModifiedUntilItIsSaved)
{
    bool saved = false;
    const int failures = FailEverywhere(
        kOpenAndChange, [&](DiskProgram& program) { saved = program.Save(); },
        [&] {
            EXPECT_THAT(Document(), AnyOf(0, 2));
            EXPECT_THAT(Backup(), AnyOf(kNone, 0));
            EXPECT_NE(Program->Session.Project().Modified(), saved);
            ExpectTold(saved ? Folder.SettingsFolder() : Folder.Path("work/"));
            EXPECT_TRUE(Program->Save());
            EXPECT_EQ(Document(), 2);
            EXPECT_FALSE(Program->Session.Project().Modified());
            EXPECT_THAT(Program->Twins.Errors.Reported, SizeIs(1));
        });
    EXPECT_GT(failures, 8);
}

TEST_P(FailingDisk, KeepsNamesAndFilesWhereItCanNotSaveUnderAnotherName)
{
    bool saved = false;
    FailEverywhere(
        [&](DiskProgram& program) {
            program.Open();
            program.ChangeTo(5);
            program.SaveAs(OtherPath);
            kOpenAndChange(program);
        },
        [&](DiskProgram& program) { saved = program.SaveAs(OtherPath); },
        [&] {
            EXPECT_EQ(Document(), 0);
            EXPECT_THAT(Other(), AnyOf(5, 2));
            EXPECT_NE(Program->Session.Project().Modified(), saved);
            EXPECT_EQ(Program->Session.Project().FullPath, saved ? OtherPath : Folder.Document());
            ExpectTold(saved ? Folder.SettingsFolder() : Folder.Path("work/"));
            EXPECT_TRUE(Program->SaveAs(OtherPath));
            EXPECT_EQ(Other(), 2);
        });
}

TEST_P(FailingDisk, TellsOfAnAutosaveThatFailsAndTheNextOneSucceeds)
{
    const int failures = FailEverywhere(
        kOpenAndChange, [](DiskProgram& program) { program.TickToAutosave(); },
        [&] {
            EXPECT_TRUE(Program->Session.Project().Modified());
            EXPECT_EQ(Document(), 0);
            ExpectTold(Folder.Path(""));
            Program->TickToAutosave();
            EXPECT_THAT(Program->Twins.Errors.Reported, SizeIs(1));
            EXPECT_THAT(Program->Entries(), SizeIs(1));
            EXPECT_THAT(PersonsFolder::FilesIn(Folder.Recovery()), SizeIs(2)); // the copy and its lock
            Restart();
            EXPECT_EQ(NextStart(), 2);
        });
    EXPECT_GT(failures, 8);
}

TEST_P(FailingDisk, KeepsTheFormerCopyWhereTheNextOneFails)
{
    FailEverywhere(
        [](DiskProgram& program) {
            program.Open();
            program.ChangeTo(1);
            program.TickToAutosave();
            program.ChangeTo(2);
        },
        [](DiskProgram& program) { program.TickToAutosave(); },
        [&] {
            EXPECT_TRUE(Program->Session.Project().Modified());
            ExpectTold(Folder.Recovery());
            Restart();
            EXPECT_THAT(NextStart(), AnyOf(1, 2));
        });
}

TEST_P(FailingDisk, NeverLosesWhatItRecovers)
{
    bool recovered = false;
    FailEverywhere([&](DiskProgram& /*program*/) { Crash(2); },
                   [&](DiskProgram& program) { recovered = program.Start() == AfterRecovery::Recovered; },
                   [&] {
                       if (recovered) {
                           EXPECT_EQ(VersionIn(Folder, Program->Session), 2);
                           EXPECT_TRUE(Program->Session.Project().Modified());
                       }
                       Restart();
                       EXPECT_EQ(NextStart(), 2);
                   });
}

TEST_P(FailingDisk, KeepsTheFormerSettingOrHasTheNewOne)
{
    std::string told;
    FailEverywhere([](DiskProgram& program) { program.Store("Colour", "red"); },
                   [&](DiskProgram& program) {
                       try {
                           told.clear();
                           program.Store("Colour", "blue");
                       } catch (const RuntimeError& error) {
                           told = error.Description();
                       }
                   },
                   [&] {
                       EXPECT_THAT(told, HasSubstr(Folder.SettingsFolder()));
                       EXPECT_THAT(Program->Stored("Colour"), AnyOf("red", "blue"));
                       Program->Store("Colour", "blue");
                       EXPECT_EQ(Program->Stored("Colour"), "blue");
                   });
}

TEST_P(FailingDisk, GeneratesWholeFilesAndTellsWhatItCouldNotWrite)
{
    Reset();
    Program = std::make_unique<DiskProgram>(Folder);
    Program->Open();
    Program->Generate();
    const PersonsFolder::Contents whole = PersonsFolder::FilesIn(Folder.Out());
    const PersonsFolder::Contents before{{"Shop.vbp", "mine"}, {"TestShop.vbp", "mine as well"}};
    std::string end;
    FailEverywhere(
        [&](DiskProgram& program) {
            program.Open();
            for (const auto& [name, bytes] : before)
                std::ofstream(Folder.Path("out/" + name)) << bytes;
        },
        [&](DiskProgram& program) { end = program.Generate(); },
        [&] {
            const PersonsFolder::Contents left = PersonsFolder::FilesIn(Folder.Out());
            for (const auto& [name, old] : before)
                EXPECT_THAT(left.at(name), AnyOf(old, whole.at(name)));
            for (const auto& [name, bytes] : left)
                EXPECT_TRUE(before.contains(name) || name.ends_with(".BAK") || bytes == whole.at(name)) << name;
            for (const RecordedError& report : Program->Twins.Errors.Reported)
                end += report.Error.Description();
            EXPECT_THAT(end, HasSubstr(std::generic_category().message(GetParam().Error)));
            EXPECT_THAT(end, AnyOf(HasSubstr(Folder.Out()), HasSubstr(Folder.SettingsFolder())));
        });
}

INSTANTIATE_TEST_SUITE_P(Disks, FailingDisk,
                         ::testing::Values(Disk{.Error = EIO, .StaysFull = false},
                                           Disk{.Error = ENOSPC, .StaysFull = true}),
                         [](const auto& test) { return test.param.StaysFull ? "Full" : "Bad"; });

} // namespace
} // namespace veldrane::testing
