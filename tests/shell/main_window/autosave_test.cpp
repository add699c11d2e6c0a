#include "shell/main_window/autosave.h"
#include "support/memory_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;

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
    EXPECT_EQ(status_.Status(), kReadyStatus);
    Minutes(4);
    EXPECT_EQ(world_.Errors.Reported.size(), 1U);
    Minutes(1);
    EXPECT_EQ(Entries().size(), 1U);
}

TEST_F(AutosaveTest, LettersThatTheCodePageLacksAreToldWhenThePersonSaves)
{
    session_.Project().Author = "\xE2\x98\x83"; // a snowman
    Minutes(5);
    EXPECT_THAT(world_.Messages.Asked(), IsEmpty());
}

} // namespace
} // namespace veldrane
