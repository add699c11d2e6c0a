#include "frm_main_fixture.h"

#include "shell/preview_colors.h"

namespace veldrane {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

class FrmMainCommands : public testing::FrmMainTest
{
  protected:
    [[nodiscard]] std::vector<std::string> RecentCaptions()
    {
        std::vector<std::string> captions;
        for (const RecentTool& tool : Form.Recent().Tools())
            captions.push_back(tool.Caption);
        return captions;
    }

    [[nodiscard]] auto RecentPaths() const { return World.UserSettings.GetAllSettings(settings_section::kMRU); }
};

TEST_F(FrmMainCommands, ToolsWithoutAWindowAndUnknownOnesDoNothing)
{
    StartOnShop();
    for (const char* tool :
         {"Generate", "EditClass", "NewClass", "ProjectProperties", "ReportABug", "MRU99", "Nonsense", ""})
        Form.actbar_Click(tool);
    EXPECT_THAT(Windows.Opened, IsEmpty());
    EXPECT_THAT(World.Messages.Asked(), IsEmpty());
    EXPECT_THAT(World.Errors.Reported, IsEmpty());
}

TEST_F(FrmMainCommands, EachWindowHasItsTool)
{
    StartOnShop();
    Click(Fixed(tree_key::kRoot));
    for (const char* tool : {"Startup", "Zoom", "Options", "About", "ProjectRename", "OpenDatasource", "Exit"})
        Form.actbar_Click(tool);
    EXPECT_THAT(Windows.Opened,
                ElementsAre("frmStartup", "frmZoom", "frmOptions", "frmAbout", "label edit", "frmODBCLogon", "end"));
}

TEST_F(FrmMainCommands, TheHelpPageIsOpenedByTheDesktop)
{
    World.World.ProgramFolder = "/opt/veldrane";
    StartOnShop();
    Form.actbar_Click("HelpContents");
    EXPECT_THAT(World.Processes.Started, ElementsAre(ElementsAre("xdg-open", "/opt/veldrane/help.html")));
}

TEST_F(FrmMainCommands, AToolThatFailsIsReported)
{
    StartOnShop();
    World.Processes.OnStart = [](const std::vector<std::string>& /*command*/) {
        throw RuntimeError(error_number::kFileNotFound, "Test", "xdg-open: not found");
    };
    Form.actbar_Click("HelpContents");
    ASSERT_EQ(World.Errors.Reported.size(), 1U);
    EXPECT_EQ(World.Errors.Reported[0].Place.ModuleName, "Veldrane Professional Edition +Forms");
    EXPECT_EQ(World.Errors.Reported[0].Place.RoutineName, "Menu");
}

TEST_F(FrmMainCommands, TheTreeExpandsAndCollapsesAndKeepsItsSelection)
{
    StartOnShop();
    Click(Fixed(tree_key::kGlobals));
    Form.actbar_Click("Colapse");
    EXPECT_TRUE(Form.treMain().IsExpanded(Node(Fixed(tree_key::kRoot))));
    EXPECT_FALSE(Form.treMain().IsExpanded(Node(Fixed(tree_key::kRequired))));
    EXPECT_EQ(SelectedKey(), tree_key::kGlobals);
    Form.actbar_Click("ExpandTree");
    EXPECT_TRUE(Form.treMain().IsExpanded(Node(Fixed(tree_key::kRequired))));
    EXPECT_EQ(SelectedKey(), tree_key::kGlobals);
}

TEST_F(FrmMainCommands, NewAsksToSaveThenStartsAProjectAndAsksForItsDataSource)
{
    StartWithCustomer();
    Form.Project().SetModified(true);
    World.Messages.Add(Answer::No);
    Form.actbar_Click("New");
    EXPECT_THAT(Titles(), ElementsAre("Save Changes?"));
    EXPECT_EQ(Form.Classes().Count(), 0U);
    EXPECT_EQ(World.State.ActiveConnection, nullptr);
    EXPECT_THAT(Windows.Opened, ElementsAre("frmODBCLogon"));
    EXPECT_THAT(Windows.Purposes, ElementsAre(LogonPurpose::NewDataSource));
    EXPECT_THAT(Rows(), ElementsAre("NONE"));
    EXPECT_EQ(SelectedKey(), tree_key::kRoot);
    EXPECT_FALSE(Form.Project().Modified());
    EXPECT_FALSE(Form.actBar().IsEnabled("RefreshTables"));
}

TEST_F(FrmMainCommands, ANewProjectCanBeRenamedAtOnce)
{
    StartOnShop();
    Form.actbar_Click("New");
    EXPECT_EQ(SelectedKey(), tree_key::kRoot);
    EXPECT_TRUE(Form.actBar().IsEnabled("ProjectRename"));
}

TEST_F(FrmMainCommands, CancelAtTheQuestionKeepsTheProject)
{
    StartWithCustomer();
    Form.Project().SetModified(true);
    World.UserSettings.SaveSetting(settings_section::kMRU, "1", "/shop.kzm");
    World.Files.Files["/shop.kzm"] = "";
    Form.Recent().Rebuild();
    for (const char* tool : {"New", "Open", "MRU1"}) {
        World.Messages.Add(Answer::Cancel);
        Form.actbar_Click(tool);
    }
    EXPECT_THAT(Titles(), ElementsAre("Save Changes?", "Save Changes?", "Save Changes?"));
    EXPECT_EQ(Form.Classes().Count(), 1U);
    EXPECT_THAT(Windows.Opened, IsEmpty());
    EXPECT_THAT(World.Dialogs.AskedToOpen(), IsEmpty());
}

TEST_F(FrmMainCommands, OpenAsksForTheFileAndShowsItExpanded)
{
    WriteProject("/shop.kzm", "Shop", testing::kShopString);
    StartOnShop();
    Click(Fixed(tree_key::kGlobals));
    World.Dialogs.Add("/shop.kzm");
    Form.actbar_Click("Open");
    EXPECT_EQ(Form.Project().ProjectName(), "Shop");
    EXPECT_FALSE(Form.Project().Modified());
    EXPECT_EQ(SelectedKey(), tree_key::kRoot);
    EXPECT_TRUE(PreviewHas("Project Name:  Shop"));
    EXPECT_EQ(Form.treMain().Nodes().at(Node(Fixed(tree_key::kAdditionalClasses))).Caption,
              "Additional Collections/Classes");
    for (std::size_t i = 0; i < Form.treMain().Nodes().size(); ++i)
        EXPECT_TRUE(Form.treMain().IsExpanded(i));
    EXPECT_EQ(Form.Status().Status(), "Ready...");
    EXPECT_TRUE(Form.actBar().IsEnabled("ProjectRename"));
    EXPECT_THAT(RecentPaths(), ElementsAre(Pair("1", "/shop.kzm")));
}

TEST_F(FrmMainCommands, OpeningReadsTheTablesOnce)
{
    Source.Add("Odd-Name");
    WriteProject("/shop.kzm", "Shop", testing::kShopString);
    ASSERT_FALSE(Form.Load({.File = "/shop.kzm"}));
    EXPECT_THAT(Titles(), ElementsAre("Invalid Characters Detected"));
}

TEST_F(FrmMainCommands, AnOpenThatFailsLeavesTheProjectAsItIs)
{
    StartWithCustomer();
    World.Files.Files["/letter.kzm"] = "Dear customer\r\n";
    World.Dialogs.Add("/letter.kzm");
    Form.actbar_Click("Open");
    ASSERT_THAT(Titles(), ElementsAre("Invalid File"));
    EXPECT_EQ(World.Messages.Asked()[0].Text,
              "This file is not a Veldrane Professional 2000 Data File. Unable to open file.");
    EXPECT_EQ(Form.Classes().Count(), 1U);
    EXPECT_NE(World.State.ActiveConnection, nullptr);
    EXPECT_THAT(Rows(), Contains("Customers"));
    EXPECT_THAT(RecentPaths(), IsEmpty());
}

TEST_F(FrmMainCommands, AnOpenThatBreaksOffHasTheDataSourceStillOpen)
{
    StartWithCustomer();
    World.Files.Files["/broken.kzm"] = "Veldrane Professional 2000 Data File\r\nBegin Project\r\n"
                                       "ConnectionString\2DSN=Other;\r\nMTSEnabled\2perhaps\r\nEnd Project\r\n";
    World.Dialogs.Add("/broken.kzm");
    Form.actbar_Click("Open");
    EXPECT_EQ(World.Errors.Reported.size(), 1U);
    EXPECT_EQ(Form.Project().ConnectionString(), testing::kShopString);
    ASSERT_NE(World.State.ActiveConnection, nullptr);
    EXPECT_EQ(World.State.ActiveConnection->ConnectionString(), testing::kShopString);
    EXPECT_THAT(Rows(), Contains("Customers"));
    EXPECT_TRUE(Form.actBar().IsEnabled("RefreshTables"));
}

TEST_F(FrmMainCommands, SaveWritesTheFileAndTellsThatItIsReady)
{
    StartWithCustomer();
    Form.Project().SetModified(true);
    Form.Status().SetStatus("Working");
    World.Dialogs.Add("/shop.kzm");
    Form.actbar_Click("Save");
    EXPECT_TRUE(World.Files.Files.contains("/shop.kzm"));
    EXPECT_FALSE(Form.Project().Modified());
    EXPECT_EQ(Form.Status().Status(), "Ready...");
    EXPECT_EQ(Form.Status().Icon(), "");
    EXPECT_THAT(RecentCaptions(), ElementsAre("&1 New Project"));
    Form.actbar_Click("Save");
    EXPECT_EQ(World.Dialogs.AskedToSave().size(), 1U);
    EXPECT_TRUE(World.Files.Files.contains("/shop.bak"));
}

TEST_F(FrmMainCommands, SaveAsGivesTheProjectAnotherFile)
{
    StartWithCustomer();
    World.Dialogs.Add("/shop.kzm");
    Form.actbar_Click("Save");
    World.Dialogs.Add("/other.kzm");
    Form.actbar_Click("SaveAs");
    EXPECT_EQ(Form.Project().FullPath, "/other.kzm");
    EXPECT_THAT(RecentPaths(), ElementsAre(Pair("1", "/other.kzm"), Pair("2", "/shop.kzm")));
}

TEST_F(FrmMainCommands, ASaveAsThatFailsOrIsCancelledKeepsThePath)
{
    StartWithCustomer();
    World.Dialogs.Add("/shop.kzm");
    Form.actbar_Click("Save");
    Form.Status().SetStatus("Working");
    Form.actbar_Click("SaveAs");
    EXPECT_EQ(Form.Project().FullPath, "/shop.kzm");
    World.Dialogs.Add("/full/other.kzm");
    Form.actbar_Click("SaveAs");
    EXPECT_EQ(Form.Project().FullPath, "/shop.kzm");
    EXPECT_EQ(World.Errors.Reported.size(), 1U);
    EXPECT_EQ(Form.Status().Status(), "Working");
    EXPECT_THAT(RecentPaths(), ElementsAre(Pair("1", "/shop.kzm")));
}

TEST_F(FrmMainCommands, AReadOnlyFileIsReportedAndTheProjectStaysModified)
{
    StartWithCustomer();
    World.Dialogs.Add("/shop.kzm");
    Form.actbar_Click("Save");
    Form.Project().SetModified(true);
    World.Files.FailingPaths = {"/shop.kzm"};
    World.Files.Reason = "Permission denied";
    Form.actbar_Click("Save");
    ASSERT_EQ(World.Errors.Reported.size(), 1U);
    EXPECT_EQ(World.Errors.Reported[0].Place.ModuleName, "TTCFileManagement");
    EXPECT_EQ(World.Errors.Reported[0].Place.RoutineName, "SaveProject");
    EXPECT_TRUE(Form.Project().Modified());
    EXPECT_EQ(Form.Status().Icon(), "");
    EXPECT_FALSE(Form.Status().Progress().Visible);
    World.Messages.Add(Answer::Yes);
    EXPECT_FALSE(Form.QueryUnload());
}

TEST_F(FrmMainCommands, ARecentProjectIsOpenedByItsTool)
{
    WriteProject("/shop.kzm", "Shop");
    WriteProject("/desk.kzm", "Desk");
    World.UserSettings.SaveSetting(settings_section::kMRU, "1", "/desk.kzm");
    World.UserSettings.SaveSetting(settings_section::kMRU, "2", "/shop.kzm");
    ASSERT_TRUE(Form.Load({}));
    Form.actbar_Click("MRU2");
    EXPECT_EQ(Form.Project().ProjectName(), "Shop");
    EXPECT_THAT(RecentCaptions(), ElementsAre("&1 Shop", "&2 Desk"));
}

TEST_F(FrmMainCommands, ARecentProjectWhoseFileIsGoneIsToldAndLeavesTheMenu)
{
    WriteProject("/shop.kzm", "Shop");
    World.UserSettings.SaveSetting(settings_section::kMRU, "1", "/shop.kzm");
    ASSERT_TRUE(Form.Load({}));
    World.Files.Files.erase("/shop.kzm");
    Form.actbar_Click("MRU1");
    ASSERT_THAT(Titles(), ElementsAre("Unable to open file"));
    EXPECT_EQ(World.Messages.Asked()[0].Text, "Unable to open file: /shop.kzm\r\nFile no longer exists.");
    EXPECT_EQ(Form.Project().ProjectName(), "New Project");
    EXPECT_THAT(RecentCaptions(), IsEmpty());
}

TEST_F(FrmMainCommands, APaneGoesAndComesBackAndIsRemembered)
{
    StartOnShop();
    const auto flag = [&](std::string_view name) {
        return World.UserSettings.GetKeyValue(settings_section::kWindow, name);
    };
    Form.actbar_Click("ViewDataSourceTables");
    EXPECT_FALSE(Form.Panes().pmDatasourceVisible);
    EXPECT_EQ(flag("DisplayDatasource"), "False");
    Form.actbar_Click("ViewDataSourceTables");
    EXPECT_EQ(flag("DisplayDatasource"), "True");
    Form.actbar_Click("ViewNavigator");
    EXPECT_FALSE(Form.Panes().pmNavigatorVisible);
}

TEST_F(FrmMainCommands, APreviewThatComesBackIsOfTheSelectedNode)
{
    StartOnShop();
    Form.actbar_Click("ViewPreviewPane");
    EXPECT_EQ(World.UserSettings.GetKeyValue(settings_section::kWindow, "DisplayPreview"), "False");
    Click(Fixed(tree_key::kRequiredModules));
    EXPECT_EQ(FirstLine(), "Project Summary");
    Form.SetPane(&PaneManagement::pmPreviewVisible, true);
    EXPECT_EQ(FirstLine(), "Required Modules:");
    EXPECT_EQ(World.UserSettings.GetKeyValue(settings_section::kWindow, "DisplayPreview"), "True");
}

TEST_F(FrmMainCommands, OptionsAreTakenUpInTheirOrder)
{
    StartOnShop();
    std::vector<WindowPart> parts;
    const Connection changes = Form.Changed.Connect([&](WindowPart part) { parts.push_back(part); });
    Windows.LooksChosen.ColorChosen = Color{0x123456};
    Windows.InOptions = [](frmOptions& options) {
        options.cmbMaxTablesToDisplay = ":-1";
        options.UseFontNamed("Courier");
        options.ChooseColor(OptionColor::Background);
        options.ChooseColor(OptionColor::Header);
        ASSERT_TRUE(options.OK());
    };
    Form.actbar_Click("Options");
    EXPECT_THAT(
        parts, ElementsAre(WindowPart::PreviewLook, WindowPart::Lists, WindowPart::PreviewLook, WindowPart::Navigator));
    EXPECT_EQ(Form.Look().Font.Name, "Courier");
    EXPECT_EQ(Form.Look().Background, 0x123456);
    EXPECT_THAT(Rows(), ElementsAre(":ADD"));
    EXPECT_EQ(Form.lstPreview().Row(0).ForeColor, 0x123456);
    EXPECT_EQ(World.State.Generation.Colors.ColorHeader, 0x123456);
}

TEST_F(FrmMainCommands, OptionsThatAreCancelledChangeNothing)
{
    StartOnShop();
    Windows.LooksChosen.ColorChosen = Color{0x123456};
    const Color before = Form.lstPreview().Row(0).ForeColor;
    Windows.InOptions = [](frmOptions& options) { options.ChooseColor(OptionColor::Header); };
    Form.actbar_Click("Options");
    EXPECT_EQ(Form.lstPreview().Row(0).ForeColor, before);
    EXPECT_EQ(Form.Look().Background, kDefaultPreviewBackground);
}

TEST_F(FrmMainCommands, AFontOfEqualLettersIsUsedAndRemembered)
{
    StartOnShop();
    Form.UseFontNamed("Monospace");
    EXPECT_EQ(Form.Look().Font.Name, "Monospace");
    EXPECT_EQ(World.UserSettings.GetKeyValue(settings_section::kOptions, "PreviewPaneFontName"), "Monospace");
}

} // namespace
} // namespace veldrane
