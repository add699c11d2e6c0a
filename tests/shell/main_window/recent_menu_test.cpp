#include "shell/main_window/recent_menu.h"
#include "support/memory_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldrane {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

class RecentMenuTest : public ::testing::Test
{
  protected:
    void WriteProject(const std::string& path, const std::string& name)
    {
        world_.Files.Files[path] =
            "Veldrane Professional 2000 Data File\r\nBegin Project\r\nProjectName\2" + name + "\r\nEnd Project\r\n";
    }

    testing::MemoryApplication world_;
    RecentMenu menu_{world_.World};
};

TEST_F(RecentMenuTest, NumbersTheProjectsFromTheLatest)
{
    WriteProject("/a.kzm", "Apples");
    WriteProject("/b.kzm", "Berries");
    menu_.Update("/a.kzm");
    menu_.Update("/b.kzm");
    ASSERT_THAT(menu_.Tools(), SizeIs(2));
    EXPECT_EQ(menu_.Tools()[0].Name, "MRU1");
    EXPECT_EQ(menu_.Tools()[0].Caption, "&1 Berries");
    EXPECT_EQ(menu_.Tools()[0].Tag, "/b.kzm");
    EXPECT_EQ(menu_.Tools()[1].Name, "MRU2");
    EXPECT_EQ(menu_.Tools()[1].Caption, "&2 Apples");
    EXPECT_EQ(menu_.Tools()[1].Tag, "/a.kzm");
}

TEST_F(RecentMenuTest, SeparatesTheFirstFromWhatStandsAbove)
{
    for (const char* path : {"/a.kzm", "/b.kzm"}) {
        WriteProject(path, path);
        menu_.Update(path);
    }
    EXPECT_TRUE(menu_.Tools()[0].BeginsGroup);
    EXPECT_FALSE(menu_.Tools()[1].BeginsGroup);
}

TEST_F(RecentMenuTest, ShowsAnAmpersandOfAName)
{
    WriteProject("/a.kzm", "Fish & Chips");
    menu_.Update("/a.kzm");
    EXPECT_EQ(menu_.Tools().at(0).Caption, "&1 Fish && Chips");
}

TEST_F(RecentMenuTest, LeavesOutFilesThatAreGone)
{
    for (const char* path : {"/a.kzm", "/b.kzm", "/c.kzm"}) {
        WriteProject(path, path);
        menu_.Update(path);
    }
    world_.Files.Files.erase("/b.kzm");
    menu_.Rebuild();
    ASSERT_THAT(menu_.Tools(), SizeIs(2));
    EXPECT_EQ(menu_.Tools()[1].Caption, "&2 /a.kzm");
    EXPECT_EQ(menu_.PathOf("MRU2"), "/a.kzm");
}

TEST_F(RecentMenuTest, KnowsThePathsByTheNamesOfItsTools)
{
    WriteProject("/a.kzm", "A");
    menu_.Update("/a.kzm");
    EXPECT_EQ(menu_.PathOf("MRU1"), "/a.kzm");
    EXPECT_EQ(menu_.PathOf("MRU2"), std::nullopt);
    EXPECT_EQ(menu_.PathOf("Open"), std::nullopt);
}

TEST_F(RecentMenuTest, TellsThatItWasMadeAnew)
{
    int changes = 0;
    const Connection connection = menu_.Changed.Connect([&] { ++changes; });
    menu_.Rebuild();
    menu_.Update("/a.kzm");
    EXPECT_EQ(changes, 2);
}

TEST_F(RecentMenuTest, ReportsSettingsThatCanNotBeWrittenAndShowsWhatTheyHold)
{
    WriteProject("/a.kzm", "A");
    WriteProject("/b.kzm", "B");
    menu_.Update("/a.kzm");
    world_.UserSettings.Fails = true;
    menu_.Update("/b.kzm");
    ASSERT_THAT(world_.Errors.Reported, SizeIs(1));
    EXPECT_EQ(world_.Errors.Reported[0].Place.ModuleName, "frmMain");
    EXPECT_EQ(world_.Errors.Reported[0].Place.RoutineName, "LoadRecentList");
    ASSERT_THAT(menu_.Tools(), SizeIs(1));
    EXPECT_EQ(menu_.Tools()[0].Caption, "&1 A");
}

TEST_F(RecentMenuTest, AProjectWithoutAFileLeavesTheListAlone)
{
    menu_.Update("");
    EXPECT_THAT(menu_.Tools(), IsEmpty());
    EXPECT_EQ(world_.UserSettings.Writes, 0);
}

} // namespace
} // namespace veldrane
