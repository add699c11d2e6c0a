#include "frm_main_fixture.h"

#include "shell/preview_colors.h"

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FrmMainCommands : public testing::FrmMainTest
{};

TEST_F(FrmMainCommands, UnknownToolsDoNothing)
{
    StartOnShop();
    for (const char* tool : {"MRU99", "Nonsense", ""})
        Form.actbar_Click(tool);
    EXPECT_THAT(Windows.Opened, IsEmpty());
    EXPECT_THAT(World.Messages.Asked(), IsEmpty());
    EXPECT_THAT(World.Errors.Reported, IsEmpty());
}

TEST_F(FrmMainCommands, EachWindowHasItsTool)
{
    StartOnShop();
    Click(Fixed(tree_key::kRoot));
    for (const char* tool : {"Startup", "Zoom", "Options", "About", "ProjectRename", "OpenDatasource", "Generate",
                             "ProjectProperties", "ReportABug", "Exit"})
        Form.actbar_Click(tool);
    EXPECT_THAT(Windows.Opened, ElementsAre("frmStartup", "frmZoom", "frmOptions", "frmAbout", "label edit",
                                            "frmODBCLogon", "frmGenCode", "frmProjectProperties", "frmBug", "end"));
}

TEST_F(FrmMainCommands, WhatARunHasAddedIsSeenInThePreview)
{
    StartWithCustomer();
    Click(Fixed(tree_key::kRoot));
    Windows.InGenCode = [](TTCProject& project, KZMClasses& classes) {
        EXPECT_NE(classes.Item("Customer"), nullptr);
        project.ProjectDescription = "Added by the run";
    };
    ASSERT_FALSE(PreviewHas("Added by the run"));
    Form.actbar_Click("Generate");
    EXPECT_TRUE(PreviewHas("Added by the run"));
    EXPECT_EQ(SelectedKey(), tree_key::kRoot);
    EXPECT_TRUE(Form.actBar().IsEnabled("ProjectRename"));
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

TEST_F(FrmMainCommands, NewAsksToSaveThenStartsAProjectAndAsksForItsPropertiesAndItsDataSource)
{
    StartWithCustomer();
    Form.Project().SetModified(true);
    World.Messages.Add(Answer::No);
    Form.actbar_Click("New");
    EXPECT_THAT(Titles(), ElementsAre("Save Changes?"));
    EXPECT_EQ(Form.Classes().Count(), 0U);
    EXPECT_EQ(World.State.ActiveConnection, nullptr);
    EXPECT_THAT(Windows.Opened, ElementsAre("frmProjectProperties", "frmODBCLogon"));
    EXPECT_THAT(Windows.Purposes, ElementsAre(LogonPurpose::NewDataSource));
    EXPECT_THAT(Rows(), ElementsAre("NONE"));
    EXPECT_EQ(SelectedKey(), tree_key::kRoot);
    EXPECT_FALSE(Form.Project().Modified());
    EXPECT_FALSE(Form.actBar().IsEnabled("RefreshTables"));
}

TEST_F(FrmMainCommands, ANewProjectWhosePropertiesAreCancelledAsksForNoDataSource)
{
    StartWithCustomer();
    Windows.InProperties = [](frmProjectProperties& /*properties*/) { return false; };
    Form.actbar_Click("New");
    EXPECT_THAT(Windows.Opened, ElementsAre("frmProjectProperties"));
    EXPECT_EQ(Form.Project().ProjectName(), "New Project");
    EXPECT_FALSE(Form.Project().Modified());
}

TEST_F(FrmMainCommands, PropertiesThatAreAcceptedAreSeenEverywhere)
{
    StartOnShop();
    Windows.InProperties = [](frmProjectProperties& properties) {
        EXPECT_EQ(properties.FirstTab(), ProjectTab::General);
        properties.Text_Change("txtProjectName", "Corner Shop");
        properties.Text_Change("txtVBProjectName", "Corner");
        properties.Check_Click("chkMTS", true);
        return properties.cmdOK_Click();
    };
    Form.actbar_Click("ProjectProperties");
    EXPECT_EQ(Form.treMain().Nodes().front().Caption, "Corner Shop");
    EXPECT_THAT(Form.Caption(), ::testing::HasSubstr("Corner Shop"));
    EXPECT_NE(Form.Classes().Item("xmlAssist"), nullptr);
    EXPECT_TRUE(Form.Project().Modified());
}

TEST_F(FrmMainCommands, TheTableOfTheLogIsExplainedUntilThePersonHasReadEnough)
{
    StartOnShop();
    Windows.InProperties = [](frmProjectProperties& properties) {
        properties.Check_Click("chkMTS", true);
        properties.Check_Click("chkLogTransactions", true);
        return false;
    };
    Form.actbar_Click("ProjectProperties");
    ASSERT_EQ(Windows.Warned.size(), 1U);
    EXPECT_THAT(Windows.Warned[0], ::testing::StartsWith("Transactions are logged in a table of a database"));
    World.UserSettings.SaveSetting(settings_section::kHelp, "warnLoggingTable", "1");
    Form.actbar_Click("ProjectProperties");
    EXPECT_EQ(Windows.Warned.size(), 1U);
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
    EXPECT_THAT(parts, ElementsAre(WindowPart::PreviewLook, WindowPart::Lists, WindowPart::Menus,
                                   WindowPart::PreviewLook, WindowPart::Navigator));
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

TEST_F(FrmMainCommands, ThePreviewsToolsAreOffWhileItIsHidden)
{
    StartOnShop();
    const auto expectTools = [&](bool on) {
        for (const char* tool :
             {"Zoom", "SavePreview", "PrintPreview", "CopyLines", "CopyAll", "Find", "FindNext", "FindPrevious"})
            EXPECT_EQ(Form.actBar().IsEnabled(tool), on) << tool;
        EXPECT_TRUE(Form.actBar().IsEnabled("Save"));
        EXPECT_TRUE(Form.actBar().IsEnabled("ViewPreviewPane"));
    };
    expectTools(true);
    Form.actbar_Click("ViewPreviewPane");
    expectTools(false);
    Click(Fixed(tree_key::kGlobals));
    expectTools(false);
    Form.actbar_Click("ViewPreviewPane");
    expectTools(true);
    EXPECT_EQ(FirstLine(), "Required: Global Module");
}

} // namespace
} // namespace veldrane
