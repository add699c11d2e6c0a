#include "frm_main_fixture.h"

namespace veldrane {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

class FrmMainFiles : public testing::FrmMainTest
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

TEST_F(FrmMainFiles, OpenAsksForTheFileAndShowsItExpanded)
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

TEST_F(FrmMainFiles, OpeningReadsTheTablesOnce)
{
    Source.Add("Odd-Name");
    WriteProject("/shop.kzm", "Shop", testing::kShopString);
    ASSERT_FALSE(Form.Load({.File = "/shop.kzm"}));
    EXPECT_THAT(Titles(), ElementsAre("Invalid Characters Detected"));
}

TEST_F(FrmMainFiles, WhileTheListsAreReadNoNodeOfTheProjectBeforeStandsInTheTree)
{
    WriteProject("/shop.kzm", "Shop", testing::kShopString);
    StartWithCustomer();
    std::vector<std::size_t> nodesMeanwhile;
    Source.Answering = [&](const std::string& /*call*/) { nodesMeanwhile.push_back(Form.treMain().Nodes().size()); };
    World.Dialogs.Add("/shop.kzm");
    Form.actbar_Click("Open");
    EXPECT_THAT(nodesMeanwhile, Contains(0U));
    EXPECT_THAT(nodesMeanwhile, Each(0U));
    EXPECT_EQ(SelectedKey(), tree_key::kRoot);
}

TEST_F(FrmMainFiles, AnOpenThatFailsLeavesTheProjectAsItIs)
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

TEST_F(FrmMainFiles, AnOpenThatBreaksOffHasTheDataSourceStillOpen)
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

TEST_F(FrmMainFiles, SaveWritesTheFileAndTellsThatItIsReady)
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

TEST_F(FrmMainFiles, SaveAsGivesTheProjectAnotherFile)
{
    StartWithCustomer();
    World.Dialogs.Add("/shop.kzm");
    Form.actbar_Click("Save");
    World.Dialogs.Add("/other.kzm");
    Form.actbar_Click("SaveAs");
    EXPECT_EQ(Form.Project().FullPath, "/other.kzm");
    EXPECT_THAT(RecentPaths(), ElementsAre(Pair("1", "/other.kzm"), Pair("2", "/shop.kzm")));
}

TEST_F(FrmMainFiles, ASaveAsThatFailsOrIsCancelledKeepsThePath)
{
    StartWithCustomer();
    World.Dialogs.Add("/shop.kzm");
    Form.actbar_Click("Save");
    Form.Status().SetStatus("Working");
    Form.actbar_Click("SaveAs");
    EXPECT_EQ(Form.Project().FullPath, "/shop.kzm");
    EXPECT_EQ(Form.Status().Status(), "Working");
    World.Dialogs.Add("/full/other.kzm");
    Form.actbar_Click("SaveAs");
    EXPECT_EQ(Form.Project().FullPath, "/shop.kzm");
    EXPECT_EQ(World.Errors.Reported.size(), 1U);
    EXPECT_EQ(Form.Status().Status(), "Unable to save file. Please try again.");
    EXPECT_THAT(RecentPaths(), ElementsAre(Pair("1", "/shop.kzm")));
}

TEST_F(FrmMainFiles, AReadOnlyFileIsReportedAndTheProjectStaysModified)
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

TEST_F(FrmMainFiles, ARecentProjectIsOpenedByItsTool)
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

TEST_F(FrmMainFiles, ARecentProjectWhoseFileIsGoneIsToldAndLeavesTheMenu)
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

TEST_F(FrmMainFiles, SavingAsksWhereItWouldDropClassesThatCouldNotBeRead)
{
    StartWithCustomer();
    World.Dialogs.Add("/shop.kzm");
    Form.actbar_Click("Save");
    std::string& file = World.Files.Files.at("/shop.kzm");
    const std::string length = "MaxLength\002"
                               "50";
    ASSERT_NE(file.find(length), std::string::npos);
    file.replace(file.find(length), length.size(), "MaxLength\2long");
    const std::string cut = file;
    World.Dialogs.Add("/shop.kzm");
    Form.actbar_Click("Open");
    World.Messages.Forget();
    for (std::size_t times = 1; times <= 2; ++times) {
        World.Messages.Add(Answer::No);
        Form.actbar_Click("Save");
        EXPECT_EQ(Titles().size(), times);
        EXPECT_TRUE(World.Files.Files.at("/shop.kzm") == cut);
    }
    ASSERT_FALSE(Titles().empty());
    const Question& asked = World.Messages.Asked().front();
    EXPECT_EQ(asked.Title, "Save Project");
    EXPECT_EQ(asked.Text, "Not all classes of /shop.kzm could be read. Saving drops the others.\r\n"
                          "Do you want to save all the same?");
    EXPECT_EQ(asked.Offered, Buttons::YesNo);
    EXPECT_EQ(asked.Icon, MessageIcon::Warning);
    EXPECT_EQ(asked.Default, Answer::No);
    World.Messages.Add(Answer::Yes);
    Form.actbar_Click("Save");
    EXPECT_FALSE(World.Files.Files.at("/shop.kzm") == cut);
    World.Messages.Forget();
    Form.actbar_Click("Save");
    EXPECT_THAT(Titles(), IsEmpty());
}

} // namespace
} // namespace veldrane
