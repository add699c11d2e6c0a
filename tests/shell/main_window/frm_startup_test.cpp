#include "shell/main_window/frm_startup.h"
#include "support/memory_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldrane {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

class Startup : public ::testing::Test
{
  protected:
    void Remember(int number, const std::string& path, const std::string& name)
    {
        world_.Files.Files[path] =
            "Veldrane Professional 2000 Data File\r\nBegin Project\r\nProjectName\2" + name + "\r\nEnd Project\r\n";
        world_.UserSettings.SaveSetting(settings_section::kMRU, std::to_string(number), path);
    }

    [[nodiscard]] std::string Option() const
    {
        return world_.UserSettings.GetKeyValue(settings_section::kOptions, "DontShowStartupDialog");
    }

    testing::MemoryApplication world_;
};

TEST_F(Startup, IsWantedUnlessTheOptionSaysOne)
{
    EXPECT_TRUE(WantsStartupDialog(world_.UserSettings));
    for (const char* value : {"0", " ", "True"}) {
        world_.UserSettings.SaveSetting(settings_section::kOptions, "DontShowStartupDialog", value);
        EXPECT_TRUE(WantsStartupDialog(world_.UserSettings)) << value;
    }
    world_.UserSettings.SaveSetting(settings_section::kOptions, "DontShowStartupDialog", "1");
    EXPECT_FALSE(WantsStartupDialog(world_.UserSettings));
}

TEST_F(Startup, OffersANewProjectAndAnyFile)
{
    ASSERT_THAT(frmStartup::lstNew(), SizeIs(2));
    EXPECT_EQ(frmStartup::lstNew()[0].Key, "New");
    EXPECT_EQ(frmStartup::lstNew()[1].Key, "Browse");
}

TEST_F(Startup, ListsTheRecentProjectsThatAreThereByTheirNames)
{
    Remember(1, "/a.kzm", "Apples");
    Remember(2, "/b.kzm", "Berries");
    world_.Files.Files.erase("/a.kzm");
    const frmStartup form(world_.World);
    ASSERT_THAT(form.lstRecent(), SizeIs(1));
    EXPECT_EQ(form.lstRecent()[0].ProjectName, "Berries");
}

TEST_F(Startup, NewIsLeftToTheTool)
{
    frmStartup form(world_.World);
    const auto choice = form.lstNew_DblClick("New");
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->Action, StartupAction::New);
    EXPECT_FALSE(form.lstNew_DblClick("Nothing"));
}

TEST_F(Startup, BrowseAsksForAFile)
{
    Remember(1, "/folder/a.kzm", "Apples");
    world_.Dialogs.Add("/b.kzm");
    frmStartup form(world_.World);
    const auto choice = form.lstNew_DblClick("Browse");
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->Action, StartupAction::Open);
    EXPECT_EQ(choice->Path, "/b.kzm");
    ASSERT_THAT(world_.Dialogs.AskedToOpen(), SizeIs(1));
    EXPECT_EQ(world_.Dialogs.AskedToOpen()[0].Title, "Open Project");
    EXPECT_EQ(world_.Dialogs.AskedToOpen()[0].Filter, "Veldrane Project|*.kzm|All Files|*.*");
    EXPECT_EQ(world_.Dialogs.AskedToOpen()[0].StartFolder, "/folder");
}

TEST_F(Startup, StaysWhenBrowsingIsCancelled)
{
    frmStartup form(world_.World);
    EXPECT_FALSE(form.lstNew_DblClick("Browse"));
    EXPECT_EQ(world_.Dialogs.AskedToOpen().at(0).StartFolder, "");
}

TEST_F(Startup, ARecentProjectIsOpenedByItsPath)
{
    Remember(1, "/a.kzm", "Apples");
    Remember(2, "/b.kzm", "Berries");
    const frmStartup form(world_.World);
    const auto choice = form.lstRecent_DblClick(1);
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->Action, StartupAction::Open);
    EXPECT_EQ(choice->Path, "/b.kzm");
    EXPECT_FALSE(form.lstRecent_DblClick(2));
}

TEST_F(Startup, TheBoxIsWrittenWhenItIsClicked)
{
    frmStartup form(world_.World);
    EXPECT_FALSE(form.chkDontShow());
    form.chkDontShow_Click();
    EXPECT_TRUE(form.chkDontShow());
    EXPECT_EQ(Option(), "1");
    EXPECT_TRUE(frmStartup(world_.World).chkDontShow());
    form.chkDontShow_Click();
    EXPECT_EQ(Option(), "0");
}

TEST_F(Startup, TheBoxStaysWhenTheSettingsCanNotBeWritten)
{
    world_.UserSettings.Fails = true;
    frmStartup form(world_.World);
    form.chkDontShow_Click();
    EXPECT_FALSE(form.chkDontShow());
    ASSERT_THAT(world_.Errors.Reported, SizeIs(1));
    EXPECT_EQ(world_.Errors.Reported[0].Place.ModuleName, "frmStartup");
}

TEST_F(Startup, WithoutRecentProjectsTheListIsEmpty)
{
    EXPECT_THAT(frmStartup(world_.World).lstRecent(), IsEmpty());
}

} // namespace
} // namespace veldrane
