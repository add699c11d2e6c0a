// Copies for recovery that are not as the program left them, and folders that are not as it needs them.

#include "persons_work.h"

#include "shell/platform/recovery_files.h"
#include "support/random_numbers.h"

#include <chrono>
#include <filesystem>
#include <fstream>

namespace veldrane::testing {
namespace {

namespace fs = std::filesystem;

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class DamagedCopies : public PersonsWork
{
  protected:
    DamagedCopies()
    {
        Reset();
        Crash(2);
        for (const auto& [name, bytes] : PersonsFolder::FilesIn(Folder.Recovery()))
            if (name.ends_with(".kzm"))
                Copy = Folder.Recovery() + "/" + name;
    }

    static void Put(const std::string& path, const std::string& bytes)
    {
        std::ofstream(path, std::ios::binary) << bytes;
    }

    void MakeEntry(const std::string& name, const std::string& path) const
    {
        DiskProgram(Folder).World().UserSettings.SaveSetting(settings_section::kTempFiles, name, path);
    }

    // The start passes over what can't be recovered, and a program that works goes on from there.
    void ExpectWorksWithoutIt()
    {
        DiskProgram next(Folder);
        EXPECT_EQ(next.Start(), AfterRecovery::CommandLine);
        next.Open();
        next.ChangeTo(3);
        EXPECT_TRUE(next.Save());
        EXPECT_EQ(Document(), 3);
    }

    std::string Copy;
};

TEST_F(DamagedCopies, OfBytesOfChanceAreToldAndStayOnTheDisk)
{
    RandomNumbers random(7);
    std::string bytes(5000, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random.Below(256));
    for (const std::string& damaged : {bytes, std::string()}) {
        Reset();
        Crash(2);
        for (const auto& [name, content] : PersonsFolder::FilesIn(Folder.Recovery()))
            if (name.ends_with(".kzm"))
                Copy = Folder.Recovery() + "/" + name;
        Put(Copy, damaged);
        DiskProgram next(Folder);
        EXPECT_EQ(next.Start(), AfterRecovery::CommandLine);
        ASSERT_THAT(next.Twins.Messages.Asked(), SizeIs(2));
        EXPECT_EQ(next.Twins.Messages.Asked()[0].Text,
                  "This file is not a Veldrane Professional 2000 Data File. Unable to open file.");
        EXPECT_EQ(next.Twins.Messages.Asked()[1].Text, "Unable to recover lost file. It stays as " + Copy + ".");
        EXPECT_THAT(next.Entries(), IsEmpty());
        EXPECT_EQ(BytesIn(Copy), damaged);
    }
}

TEST_F(DamagedCopies, ThatWereCutOffAreNeverWrittenOver)
{
    const std::string whole = BytesIn(Copy).value_or("");
    for (const std::size_t size : {whole.size() / 4, whole.size() / 2, whole.size() - 40}) {
        Put(Copy, whole.substr(0, size));
        DiskProgram next(Folder);
        next.Start();
        EXPECT_FALSE(next.Twins.Errors.Reported.empty()) << size;
        EXPECT_EQ(BytesIn(Copy), whole.substr(0, size));
        MakeEntry(fs::path(Copy).filename(), Copy);
    }
}

TEST_F(DamagedCopies, ThatAreFoldersOrLeadNowhereLoseTheirEntriesAlone)
{
    fs::remove(Copy);
    fs::create_directory(Copy);
    ExpectWorksWithoutIt();
    EXPECT_TRUE(fs::is_directory(Copy));
    fs::remove(Copy);
    fs::create_symlink(Folder.Path("nowhere"), Copy);
    MakeEntry(fs::path(Copy).filename(), Copy);
    ExpectWorksWithoutIt();
    EXPECT_THAT(DiskProgram(Folder).Entries(), IsEmpty());
}

TEST_F(DamagedCopies, MayBeGoneWithTheirFolder)
{
    fs::remove_all(Folder.Recovery());
    ExpectWorksWithoutIt();
    DiskProgram next(Folder);
    next.Open();
    next.ChangeTo(4);
    next.TickToAutosave();
    EXPECT_THAT(next.Twins.Errors.Reported, IsEmpty());
    EXPECT_THAT(next.Entries(), SizeIs(2)); // its own, and that of the copy whose folder may come back
}

TEST_F(DamagedCopies, MayHaveAFileInPlaceOfTheirFolder)
{
    fs::remove_all(Folder.Recovery());
    Put(Folder.Recovery(), "a file");
    ExpectWorksWithoutIt();
    DiskProgram next(Folder);
    next.Open();
    next.ChangeTo(4);
    next.TickToAutosave();
    ASSERT_THAT(next.Twins.Errors.Reported, SizeIs(1));
    EXPECT_THAT(next.Twins.Errors.Reported[0].Error.Description(), HasSubstr(Folder.Recovery()));
    EXPECT_TRUE(next.Session.Project().Modified());
    EXPECT_EQ(BytesIn(Folder.Recovery()), "a file");
}

TEST_F(DamagedCopies, EntriesWithoutAPathLeadNowhere)
{
    fs::remove(Copy);
    MakeEntry("empty.kzm", "");
    MakeEntry("relative.kzm", "nowhere.kzm");
    ExpectWorksWithoutIt();
    EXPECT_THAT(DiskProgram(Folder).Entries(), IsEmpty());
}

TEST_F(DamagedCopies, AnEntryThatNamesSomebodysFileLeavesItAsItIs)
{
    fs::remove(Copy);
    Put(Folder.Path("work/letter.txt"), "Dear all");
    MakeEntry("letter.txt", Folder.Path("work/letter.txt"));
    DiskProgram next(Folder);
    EXPECT_EQ(next.Start(), AfterRecovery::CommandLine);
    EXPECT_THAT(next.Twins.Messages.Asked(), SizeIs(2));
    EXPECT_EQ(BytesIn(Folder.Path("work/letter.txt")), "Dear all");
    EXPECT_THAT(next.Entries(), IsEmpty());

    MakeEntry("Shop.kzm", Folder.Document());
    DiskProgram third(Folder);
    EXPECT_EQ(third.Start(), AfterRecovery::Recovered);
    third.ChangeTo(9);
    third.TickToAutosave();
    EXPECT_FALSE(third.Save()); // asks for a name
    EXPECT_EQ(Document(), 0);
}

TEST_F(DamagedCopies, AClockThatJumpsTakesNothingThatHasAnEntryOrAnOwner)
{
    for (const auto years : {std::chrono::years(-40), std::chrono::years(40)}) {
        Reset();
        Crash(2);
        ManualClock clock;
        clock.Wait(std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::system_clock::now().time_since_epoch() + years));
        DiskProgram running(Folder);
        running.Open();
        running.ChangeTo(3);
        running.TickToAutosave();
        RecoveryFiles store(Folder.Recovery(), clock);
        std::vector<std::string> kept;
        for (const auto& [name, path] : running.Entries())
            kept.push_back(path);
        store.RemoveOld({kept.front()}); // the other one is held
        for (const std::string& path : kept)
            EXPECT_TRUE(fs::exists(path)) << path << ", " << years.count();
        EXPECT_EQ(NextStart(), 2);
    }
}

} // namespace
} // namespace veldrane::testing
