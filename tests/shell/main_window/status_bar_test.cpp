#include "shell/main_window/status_bar.h"
#include "support/failing_file_system.h"
#include "support/recorded_errors.h"
#include "support/scripted_messages.h"

#include <gtest/gtest.h>

#include <vector>

namespace veldrane {
namespace {

class StatusBarTest : public ::testing::Test
{
  protected:
    StatusBarTest() { bar_.Follow(management_); }

    testing::FailingFileSystem files_;
    testing::ScriptedMessages messages_;
    testing::RecordedErrors errors_;
    text::CodePage codePage_;
    NoFileWindows windows_;
    TTCFileManagement management_{files_, messages_, errors_, codePage_, windows_.Windows()};
    StatusBar bar_;
};

TEST_F(StatusBarTest, IsReadyAtFirst)
{
    EXPECT_EQ(bar_.Status(), "Ready...");
    EXPECT_EQ(bar_.Icon(), "");
    EXPECT_FALSE(bar_.Progress().Visible);
}

TEST_F(StatusBarTest, ShowsThatAFileIsUnderWay)
{
    management_.SetMinMaxProgress.Raise(1, 50, 1);
    management_.SavingProject.Raise(0);
    EXPECT_EQ(bar_.Icon(), "Save");
    EXPECT_TRUE(bar_.Progress().Visible);
    EXPECT_EQ(bar_.Progress().Minimum, 1);
    EXPECT_EQ(bar_.Progress().Maximum, 50);
    EXPECT_EQ(bar_.Progress().Value, 1);
    management_.SavingProject.Raise(25);
    EXPECT_EQ(bar_.Progress().Value, 25);
}

TEST_F(StatusBarTest, KeepsTheBarWithinItsBounds)
{
    management_.SetMinMaxProgress.Raise(1, 50, 99);
    EXPECT_EQ(bar_.Progress().Value, 50);
    management_.SavingProject.Raise(-3);
    EXPECT_EQ(bar_.Progress().Value, 1);
    management_.SetMinMaxProgress.Raise(1, 0, 0);
    EXPECT_EQ(bar_.Progress().Value, 1);
}

TEST_F(StatusBarTest, TakesTheBarAwayAfterwards)
{
    TTCProject project;
    const KZMClasses classes;
    project.FullPath = "/a.kzm";
    std::vector<bool> seen;
    const Connection connection = bar_.Changed.Connect([&] { seen.push_back(bar_.Progress().Visible); });
    ASSERT_TRUE(management_.SaveProject(project, classes));
    EXPECT_EQ(seen, (std::vector<bool>{true, true, true, true, true, false}));
    EXPECT_EQ(bar_.Icon(), "");
}

TEST_F(StatusBarTest, TakesTheBarAwayAfterAFailure)
{
    TTCProject project;
    const KZMClasses classes;
    project.FullPath = "/a.kzm";
    files_.FailAtCall = 1;
    ASSERT_FALSE(management_.SaveProject(project, classes));
    EXPECT_FALSE(bar_.Progress().Visible);
    EXPECT_EQ(bar_.Icon(), "");
}

TEST_F(StatusBarTest, NamesTheProject)
{
    bar_.SetProjectName("Order Desk");
    EXPECT_EQ(bar_.adPanel(), "  Project: Order Desk");
}

TEST_F(StatusBarTest, SaysWhatItIsTold)
{
    bar_.SetStatus("Autosaved at 9:05 am");
    EXPECT_EQ(bar_.Status(), "Autosaved at 9:05 am");
}

} // namespace
} // namespace veldrane
