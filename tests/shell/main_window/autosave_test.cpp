#include "shell/main_window/autosave.h"
#include "support/memory_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace veldrane {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::SizeIs;

class AutosaveTest : public ::testing::Test
{
  protected:
    AutosaveTest()
    {
        setenv("TZ", "UTC", 1); // NOLINT(concurrency-mt-unsafe): one thread
        tzset();
        session_.New(DataSourceOnOpen::LeaveClosed);
        session_.Project().SetModified(true);
    }

    void Minutes(int minutes)
    {
        for (int tick = 0; tick < 2 * minutes; ++tick)
            autosave_.Tick();
    }

    [[nodiscard]] auto Entries() const { return world_.UserSettings.GetAllSettings(settings_section::kTempFiles); }

    testing::MemoryApplication world_;
    ProjectSession session_{world_.World};
    StatusBar status_;
    Autosave autosave_{world_.World, session_, status_};
};

TEST_F(AutosaveTest, TheFirstComesAfterTheIntervalsMinutes)
{
    ASSERT_EQ(session_.Project().AutosaveProjectInterval, 5);
    Minutes(4);
    autosave_.Tick();
    EXPECT_THAT(Entries(), IsEmpty());
    autosave_.Tick();
    EXPECT_THAT(Entries(), ElementsAre(Pair("copy1.kzm", "/recovery/copy1.kzm")));
    EXPECT_EQ(session_.Project().TempFileName, "/recovery/copy1.kzm");
    EXPECT_THAT(world_.Files.Files["/recovery/copy1.kzm"],
                HasSubstr("ProjectName\2" + session_.Project().ProjectName()));
}

TEST_F(AutosaveTest, TheLastCopyIsKeptAtOnceEvenOfAProjectThatIsNotAutosaved)
{
    session_.Project().AutosaveProject = false;
    autosave_.KeepLastCopy();
    EXPECT_THAT(Entries(), ElementsAre(Pair("copy1.kzm", "/recovery/copy1.kzm")));
    EXPECT_TRUE(session_.Project().Modified());
}

TEST_F(AutosaveTest, NoLastCopyIsKeptOfAProjectThatIsSaved)
{
    session_.Project().SetModified(false);
    autosave_.KeepLastCopy();
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(AutosaveTest, NobodyIsToldThatTheLastCopyFailed)
{
    world_.UserSettings.Fails = true;
    autosave_.KeepLastCopy();
    EXPECT_THAT(world_.Errors.Reported, IsEmpty());
}

TEST_F(AutosaveTest, AProjectThatWasNeverSavedStaysWithoutAFile)
{
    int used = 0;
    const Connection listening = session_.FileUsed.Connect([&](const std::string&) { ++used; });
    Minutes(5);
    EXPECT_EQ(session_.Project().FullPath, "");
    EXPECT_EQ(used, 0);
    EXPECT_THAT(Entries(), ElementsAre(Pair("copy1.kzm", "/recovery/copy1.kzm")));
}

TEST_F(AutosaveTest, TheProjectStaysModified)
{
    Minutes(5);
    EXPECT_TRUE(session_.Project().Modified());
    EXPECT_EQ(session_.Project().AutosaveCurrentInterval, 0);
}

TEST_F(AutosaveTest, TheCopyIsWrittenOverTheNextTime)
{
    Minutes(5);
    session_.Project().SetProjectName("Later");
    Minutes(4);
    EXPECT_THAT(world_.Files.Files["/recovery/copy1.kzm"], Not(HasSubstr("Later")));
    Minutes(1);
    EXPECT_THAT(world_.Files.Files["/recovery/copy1.kzm"], HasSubstr("Later"));
    EXPECT_EQ(world_.Recovery.Made, 1);
}

TEST_F(AutosaveTest, AfterAQuietSpellTheFirstChangeIsSavedAtTheNextMinute)
{
    session_.Project().SetModified(false);
    Minutes(20); // they are counted all the same
    EXPECT_THAT(Entries(), IsEmpty());
    session_.Project().SetModified(true);
    Minutes(1);
    EXPECT_EQ(Entries().size(), 1U);
}

TEST_F(AutosaveTest, WhereTheProjectWantsNoneTheMinutesBeginAnew)
{
    autosave_.Tick();
    session_.Project().AutosaveProject = false;
    Minutes(10);
    EXPECT_THAT(Entries(), IsEmpty());
    session_.Project().AutosaveProject = true;
    autosave_.Tick();
    EXPECT_EQ(session_.Project().AutosaveCurrentInterval, 0);
    autosave_.Tick();
    EXPECT_EQ(session_.Project().AutosaveCurrentInterval, 1);
}

TEST_F(AutosaveTest, TheStatusTellsTheTime)
{
    Minutes(5);
    EXPECT_EQ(status_.Status(), "Autosaved at 12:00 am");
    world_.Clock.Wait(std::chrono::hours(13) + std::chrono::minutes(5));
    Minutes(5);
    EXPECT_EQ(status_.Status(), "Autosaved at 1:05 pm");
    world_.Clock.Wait(std::chrono::hours(23));
    Minutes(5);
    EXPECT_EQ(status_.Status(), "Autosaved at 12:05 pm");
}

TEST_F(AutosaveTest, AFailureIsReportedAndTriedAgainAfterTheInterval)
{
    world_.Files.FailAtCall = 2; // the copy was made, and its text does not fit any more
    Minutes(5);
    ASSERT_EQ(world_.Errors.Reported.size(), 1U);
    EXPECT_EQ(world_.Errors.Reported[0].Place.ModuleName, "TTCFileManagement");
    EXPECT_EQ(world_.Errors.Reported[0].Place.RoutineName, "SaveProject");
    EXPECT_THAT(Entries(), IsEmpty());
    EXPECT_TRUE(session_.Project().Modified());
    EXPECT_EQ(status_.Status(), "Autosave failed at 12:00 am");
    EXPECT_FALSE(status_.Progress().Visible);
    Minutes(4);
    EXPECT_EQ(world_.Errors.Reported.size(), 1U);
    Minutes(1);
    EXPECT_EQ(Entries().size(), 1U);
    EXPECT_EQ(status_.Status(), "Autosaved at 12:00 am");
}

TEST_F(AutosaveTest, AFailureThatComesAgainIsOnlyToldInTheStatus)
{
    world_.UserSettings.Fails = true;
    Minutes(5);
    world_.Clock.Wait(std::chrono::minutes(5));
    Minutes(5);
    EXPECT_EQ(world_.Errors.Reported.size(), 1U);
    EXPECT_EQ(status_.Status(), "Autosave failed at 12:05 am");
    EXPECT_TRUE(session_.Project().Modified());
}

TEST_F(AutosaveTest, AnotherFailureIsReportedThoughOneWasBefore)
{
    world_.UserSettings.Fails = true;
    Minutes(5);
    world_.Files.FailAtCall = world_.Files.Calls + 1;
    Minutes(5);
    Minutes(5);
    std::vector<std::string> told;
    for (const testing::RecordedError& reported : world_.Errors.Reported)
        told.push_back(reported.Error.Description());
    ASSERT_EQ(told.size(), 3U);
    EXPECT_NE(told[0], told[1]);
    EXPECT_EQ(told[0], told[2]);
}

TEST_F(AutosaveTest, TheSameFailureIsReportedAgainOnceACopyWasWritten)
{
    for (const bool fails : {true, false}) {
        world_.UserSettings.Fails = fails;
        Minutes(5);
    }
    EXPECT_EQ(status_.Status(), "Autosaved at 12:00 am");
    session_.New(DataSourceOnOpen::LeaveClosed); // its copy needs an entry of its own
    session_.Project().SetModified(true);
    world_.UserSettings.Fails = true;
    Minutes(5);
    Minutes(5);
    EXPECT_EQ(world_.Errors.Reported.size(), 2U);
}

// The report's box stands open for a while, and time goes on.
TEST_F(AutosaveTest, TheNextTryBehindTheReportsBoxOpensNoOther)
{
    world_.Errors.WhileShown = [this] {
        if (world_.Errors.Reported.size() < 3)
            Minutes(5);
    };
    world_.UserSettings.Fails = true;
    Minutes(5);
    EXPECT_EQ(world_.Errors.Reported.size(), 1U);
}

TEST_F(AutosaveTest, AProjectThatHasLostClassesHasItsCopyToo)
{
    world_.Files.Files["/Shop.kzm"] =
        "Veldrane Professional 2000 Data File\r\nBegin Project\r\nAutosaveProject\2True\r\nEnd Project\r\n"
        "Begin Classes\r\nBegin Class B\r\nBegin Property P\r\nMaxLength\2x\r\nEnd Property P\r\nEnd Class B\r\n"
        "End Classes\r\n";
    ASSERT_TRUE(session_.Open("/Shop.kzm", DataSourceOnOpen::LeaveClosed));
    ASSERT_TRUE(session_.LostClasses());
    session_.Project().SetModified(true);
    world_.Errors.Reported.clear();
    Minutes(5);
    EXPECT_THAT(world_.Errors.Reported, IsEmpty());
    EXPECT_THAT(Entries(), SizeIs(1));
}

TEST_F(AutosaveTest, ACopyThatIsGoneIsMadeAnew)
{
    Minutes(5);
    world_.Files.Files.erase("/recovery/copy1.kzm");
    Minutes(5);
    EXPECT_TRUE(world_.Files.Files.contains("/recovery/copy2.kzm"));
    EXPECT_THAT(Entries(), Contains(Pair("copy2.kzm", "/recovery/copy2.kzm")));
}

TEST_F(AutosaveTest, AnEntryThatIsGoneIsMadeAnew)
{
    Minutes(5);
    world_.UserSettings.DeleteSetting(settings_section::kTempFiles, "");
    Minutes(5);
    EXPECT_THAT(Entries(), ElementsAre(Pair("copy1.kzm", "/recovery/copy1.kzm")));
}

TEST_F(AutosaveTest, TheProjectsOwnFileIsOnTopOfTheRecentList)
{
    std::vector<std::string> used;
    const Connection listening = session_.FileUsed.Connect([&](const std::string& path) { used.push_back(path); });
    Minutes(5);
    EXPECT_THAT(used, IsEmpty());
    session_.Project().FullPath = "/Shop.kzm";
    Minutes(5);
    EXPECT_THAT(used, ElementsAre("/Shop.kzm"));
    session_.Project().Recovered = true;
    session_.Project().FullPath = "/recovery/copy1.kzm";
    Minutes(5);
    EXPECT_THAT(used, ElementsAre("/Shop.kzm"));
}

TEST_F(AutosaveTest, LettersThatTheCodePageLacksAreToldWhenThePersonSaves)
{
    session_.Project().Author = "\xE2\x98\x83"; // a snowman
    Minutes(5);
    EXPECT_THAT(world_.Messages.Asked(), IsEmpty());
}

} // namespace
} // namespace veldrane
