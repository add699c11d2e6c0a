#include "frm_main_fixture.h"

namespace veldrane {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

class FrmMainStart : public testing::FrmMainTest
{
  protected:
    [[nodiscard]] std::string Option(std::string_view name) const
    {
        return World.UserSettings.GetKeyValue(settings_section::kOptions, name);
    }
};

TEST_F(FrmMainStart, WithoutACommandLineANewProjectIsThereAndTheStartupDialogIsDue)
{
    EXPECT_TRUE(Form.Load({}));
    EXPECT_EQ(Form.Caption(), "Veldrane Professional Edition +Forms - [New Project]");
    EXPECT_EQ(Form.Project().VBProjectName, "NewProject");
    EXPECT_FALSE(Form.Project().Modified());
    EXPECT_EQ(SelectedKey(), tree_key::kRoot);
    EXPECT_EQ(Form.treMain().Nodes().at(Node(Fixed(tree_key::kAdditionalClasses))).Caption,
              "Additional Classes/Collections");
    EXPECT_EQ(FirstLine(), "Project Summary");
    EXPECT_THAT(Rows(DataSourceTab::Tables), ElementsAre("NONE"));
    EXPECT_THAT(Rows(DataSourceTab::Views), ElementsAre("NONE"));
    EXPECT_THAT(Rows(DataSourceTab::StoredProcedures), ElementsAre("NONE"));
    EXPECT_THAT(Windows.Opened, IsEmpty());
    EXPECT_THAT(World.Messages.Asked(), IsEmpty());
}

TEST_F(FrmMainStart, TheTimerShowsTheStartupDialogUnlessItIsNotWanted)
{
    ASSERT_TRUE(Form.Load({}));
    Form.tmrStartup_Timer();
    EXPECT_THAT(Windows.Opened, ElementsAre("frmStartup"));
    Windows.Opened.clear();
    World.UserSettings.UpdateKey(settings_section::kOptions, "DontShowStartupDialog", "1");
    Form.tmrStartup_Timer();
    EXPECT_THAT(Windows.Opened, IsEmpty());
}

TEST_F(FrmMainStart, TheToolShowsTheDialogAndHasItShownAgainAtTheNextStart)
{
    World.UserSettings.UpdateKey(settings_section::kOptions, "DontShowStartupDialog", "1");
    ASSERT_TRUE(Form.Load({}));
    bool checked = true;
    Windows.InStartup = [&](frmStartup& startup) {
        checked = startup.chkDontShow();
        return StartupChoice{};
    };
    Form.actbar_Click("Startup");
    EXPECT_EQ(Option("DontShowStartupDialog"), "0");
    EXPECT_FALSE(checked);
    EXPECT_EQ(Form.Project().ProjectName(), "New Project");
}

TEST_F(FrmMainStart, NewInTheStartupDialogRunsTheTool)
{
    ASSERT_TRUE(Form.Load({}));
    Windows.InStartup = [](frmStartup& startup) { return *startup.lstNew_DblClick("New"); };
    Form.tmrStartup_Timer();
    EXPECT_THAT(Windows.Opened, ElementsAre("frmStartup", "frmProjectProperties", "frmODBCLogon"));
}

TEST_F(FrmMainStart, BrowseInTheStartupDialogOpensTheFile)
{
    WriteProject("/shop.kzm", "Shop");
    ASSERT_TRUE(Form.Load({}));
    World.Dialogs.Add("/shop.kzm");
    Windows.InStartup = [](frmStartup& startup) { return *startup.lstNew_DblClick("Browse"); };
    Form.tmrStartup_Timer();
    EXPECT_EQ(Form.Project().ProjectName(), "Shop");
    EXPECT_EQ(World.Dialogs.AskedToOpen().size(), 1U);
}

TEST_F(FrmMainStart, ARecentProjectInTheStartupDialogIsOpened)
{
    WriteProject("/shop.kzm", "Shop");
    World.UserSettings.SaveSetting(settings_section::kMRU, "1", "/shop.kzm");
    ASSERT_TRUE(Form.Load({}));
    Windows.InStartup = [](frmStartup& startup) { return *startup.lstRecent_DblClick(0); };
    Form.tmrStartup_Timer();
    EXPECT_EQ(Form.Project().ProjectName(), "Shop");
}

TEST_F(FrmMainStart, AFileOfTheCommandLineIsOpenedInsteadOfTheDialog)
{
    WriteProject("/shop.kzm", "Shop", testing::kShopString);
    EXPECT_FALSE(Form.Load({.File = "/shop.kzm"}));
    EXPECT_EQ(Form.Project().ProjectName(), "Shop");
    EXPECT_EQ(Form.Caption(), "Veldrane Professional Edition +Forms - [Shop]");
    EXPECT_THAT(Rows(), Contains("Customers"));
    EXPECT_THAT(World.UserSettings.GetAllSettings(settings_section::kMRU), ElementsAre(Pair("1", "/shop.kzm")));
    ASSERT_EQ(Form.Recent().Tools().size(), 1U);
    EXPECT_EQ(Form.Recent().Tools()[0].Caption, "&1 Shop");
}

TEST_F(FrmMainStart, AFileOfTheCommandLineThatIsGoneIsToldAndANewProjectIsThere)
{
    EXPECT_FALSE(Form.Load({.File = "/gone.kzm"}));
    ASSERT_EQ(World.Messages.Asked().size(), 1U);
    EXPECT_EQ(World.Messages.Asked()[0].Text, "Unable to open file: /gone.kzm\r\nFile no longer exists.");
    EXPECT_EQ(Form.Project().ProjectName(), "New Project");
    EXPECT_EQ(FirstLine(), "Project Summary");
}

TEST_F(FrmMainStart, AnInvalidPathIsTold)
{
    EXPECT_FALSE(Form.Load({.InvalidPath = "/no/where"}));
    ASSERT_EQ(World.Messages.Asked().size(), 1U);
    EXPECT_EQ(World.Messages.Asked()[0].Title, "Invalid Command Line Parameter");
    EXPECT_EQ(World.Messages.Asked()[0].Text,
              "Invalid Auto Compile Path in command line. \r\n/no/where is not a valid path.");
    EXPECT_EQ(Form.Project().ProjectName(), "New Project");
}

TEST_F(FrmMainStart, TheDebugSwitchReachesTheGenerator)
{
    static_cast<void>(Form.Load({.DebugTiming = true}));
    EXPECT_TRUE(World.State.Generation.DebugTiming);
    EXPECT_TRUE(Form.TTC().Settings.DebugTiming);
}

TEST_F(FrmMainStart, PanesAreAsTheyWereLeft)
{
    World.UserSettings.SaveSetting(settings_section::kWindow, "DisplayPreview", "False");
    World.UserSettings.UpdateKey(settings_section::kWindow, "DisplayPreview", "False");
    Form.LoadLook();
    ASSERT_TRUE(Form.Load({}));
    EXPECT_FALSE(Form.Panes().pmPreviewVisible);
    EXPECT_TRUE(Form.Panes().pmDatasourceVisible);
    EXPECT_EQ(Form.lstPreview().Count(), 0U);
    Form.actbar_Click("ViewPreviewPane");
    EXPECT_EQ(FirstLine(), "Project Summary");
}

TEST_F(FrmMainStart, SettingsThatMakeNoSenseAreToldAndTheUsualOnesCount)
{
    World.UserSettings.UpdateKey(settings_section::kOptions, "PreviewBackgroundColor", "mauve");
    World.UserSettings.UpdateKey(settings_section::kOptions, "PreviewPaneFontSize", "huge");
    Form.LoadLook();
    EXPECT_TRUE(Form.Load({}));
    EXPECT_THAT(Titles(), ElementsAre("Settings", "Settings"));
    EXPECT_EQ(Form.Look().Background, kDefaultPreviewBackground);
    EXPECT_EQ(Form.Look().Font, PreviewFont{});
    EXPECT_EQ(FirstLine(), "Project Summary");
}

TEST_F(FrmMainStart, SettingsThatCanNotBeWrittenHoldNothingUp)
{
    WriteProject("/shop.kzm", "Shop");
    World.UserSettings.Fails = true;
    EXPECT_FALSE(Form.Load({.File = "/shop.kzm"}));
    EXPECT_EQ(Form.Project().ProjectName(), "Shop");
    EXPECT_FALSE(World.Errors.Reported.empty());
}

TEST_F(FrmMainStart, AnUnmodifiedProjectIsLeftWithoutAWord)
{
    ASSERT_TRUE(Form.Load({}));
    EXPECT_TRUE(Form.QueryUnload());
    EXPECT_THAT(World.Messages.Asked(), IsEmpty());
}

TEST_F(FrmMainStart, ClosingAsksAboutAModifiedProjectAndCancelKeepsTheWindow)
{
    ASSERT_TRUE(Form.Load({}));
    Form.Project().SetModified(true);
    World.Messages.Add(Answer::Cancel);
    EXPECT_FALSE(Form.QueryUnload());
    ASSERT_EQ(World.Messages.Asked().size(), 1U);
    EXPECT_EQ(World.Messages.Asked()[0].Title, "Save Changes?");
    EXPECT_EQ(World.Messages.Asked()[0].Text, "This project has been modified and changes have not been saved.\r\n"
                                              "Do you want to save New Project first?");
    EXPECT_EQ(World.Messages.Asked()[0].Offered, Buttons::YesNoCancel);
    EXPECT_TRUE(Form.Project().Modified());
}

TEST_F(FrmMainStart, ClosingSavesAfterYesAndDiscardsAfterNo)
{
    ASSERT_TRUE(Form.Load({}));
    Form.Project().SetModified(true);
    World.Messages.Add(Answer::No);
    EXPECT_TRUE(Form.QueryUnload());
    EXPECT_THAT(World.Files.Files, IsEmpty());
    World.Messages.Add(Answer::Yes);
    World.Dialogs.Add("/new.kzm");
    EXPECT_TRUE(Form.QueryUnload());
    EXPECT_TRUE(World.Files.Files.contains("/new.kzm"));
}

} // namespace
} // namespace veldrane
