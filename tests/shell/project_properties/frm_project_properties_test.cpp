#include "project_properties_fixture.h"
#include "shell/project_defaults.h"

#include <array>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ProjectProperties : public testing::ProjectPropertiesTest
{
  protected:
    std::string Option(std::string_view name) { return settings.GetKeyValue(settings_section::kOptions, name); }
};

TEST_F(ProjectProperties, ShowTheProject)
{
    project.ProjectDescription = "Sells things";
    project.LogTableName = "Journal";
    project.AutosaveProjectInterval = 12;
    project.MTSEnabled = true;
    project.LoggingLevel = logging_level::kBoth;
    project.VBVersion = visual_basic_version::kVisualBasic5;
    project.ModulePrefix = "bas";
    const frmProjectProperties form = Open(ProjectTab::ComponentServices);
    EXPECT_EQ(form.Caption(), "Project Properties");
    EXPECT_EQ(form.FirstTab(), ProjectTab::ComponentServices);
    EXPECT_EQ(form.Text("txtProjectName"), "Shop");
    EXPECT_EQ(form.Text("txtProjectDescription"), "Sells things");
    EXPECT_EQ(form.Text("txtTableName"), "Journal");
    EXPECT_EQ(form.Text("txtAutoSave"), "12");
    EXPECT_TRUE(form.IsChecked("chkMTS"));
    EXPECT_FALSE(form.IsChecked("chkWeb"));
    EXPECT_EQ(form.LoggingLevel(), logging_level::kBoth);
    EXPECT_EQ(form.cmbVBVersion(), visual_basic_version::kVisualBasic5);
    EXPECT_EQ(form.Prefix(1), "bas");
}

TEST_F(ProjectProperties, EachTextGoesIntoItsMember)
{
    for (const ProjectText& text : kProjectTexts) {
        const std::string before = project.*text.Member;
        frmProjectProperties form = Open();
        form.Text_Change(text.Control, "Value");
        EXPECT_EQ(form.Text(text.Control), "Value");
        EXPECT_TRUE(form.cmdOK_Click()) << text.Control;
        EXPECT_EQ(project.*text.Member, "Value") << text.Control;
        project.*text.Member = before;
    }
}

TEST_F(ProjectProperties, EachBoxGoesIntoItsMember)
{
    for (const ProjectCheck& check : kProjectChecks)
        for (const bool on : {true, false}) {
            frmProjectProperties form = Open();
            form.Check_Click(check.Control, on);
            form.Text_Change("txtDBConnection", "DSN=x;");
            form.Text_Change("txtTableName", "Journal");
            EXPECT_TRUE(form.cmdOK_Click()) << check.Control;
            EXPECT_EQ(project.*check.Member, on) << check.Control;
        }
}

TEST_F(ProjectProperties, TheOtherControlsGoIntoTheirMembers)
{
    project.AutosaveProject = true;
    frmProjectProperties form = Open();
    form.Text_Change("txtProjectName", "Corner Shop");
    form.Text_Change("txtAutoSave", "7");
    form.LoggingLevel_Click(logging_level::kClient);
    form.cmbVBVersion_Click(visual_basic_version::kVisualBasic5);
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(project.ProjectName(), "Corner Shop");
    EXPECT_EQ(project.AutosaveProjectInterval, 7);
    EXPECT_EQ(project.LoggingLevel, 2);
    EXPECT_EQ(project.VBVersion, 1);
}

TEST_F(ProjectProperties, CancelLeavesEverything)
{
    frmProjectProperties form = Open();
    form.Text_Change("txtProjectName", "Corner Shop");
    form.Check_Click("chkMTS", true);
    form.Check_Click("chkTrackPropertyChanges", true);
    EXPECT_TRUE(form.cmdCancel_Click());
    EXPECT_EQ(project.ProjectName(), "Shop");
    EXPECT_FALSE(project.MTSEnabled);
    EXPECT_EQ(classes.Count(), 1U);
    EXPECT_FALSE(project.Modified());
    EXPECT_EQ(Option("TrackPropertyChanges"), "");
}

TEST_F(ProjectProperties, OKMarksTheProjectAsModified)
{
    frmProjectProperties form = Open();
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_TRUE(project.Modified());
}

TEST_F(ProjectProperties, OKMakesTheTrackingOfChangesTheDefault)
{
    frmProjectProperties form = Open();
    form.Check_Click("chkTrackPropertyChanges", true);
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Option("TrackPropertyChanges"), "True");
    form.Check_Click("chkTrackPropertyChanges", false);
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Option("TrackPropertyChanges"), "False");
}

TEST_F(ProjectProperties, OKMakesComponentServicesTheDefaultWhereTheyAreOn)
{
    settings.SaveSetting("Options", "MTSEnabled", "False");
    frmProjectProperties form = Open();
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Option("MTSEnabled"), "False");
    form.Check_Click("chkMTS", true);
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Option("MTSEnabled"), "True");
    form.Check_Click("chkMTS", false);
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Option("MTSEnabled"), "True");
}

TEST_F(ProjectProperties, ComponentServicesBringTheirClassAndTakeIt)
{
    frmProjectProperties form = Open();
    form.Check_Click("chkMTS", true);
    EXPECT_EQ(classes.Count(), 1U);
    EXPECT_TRUE(form.cmdOK_Click());
    ASSERT_TRUE(classes.Item(kXmlAssistName));
    EXPECT_TRUE(classes.Item(kXmlAssistName)->IsMTSRequiredClass);
    EXPECT_TRUE(project.ClassCollectionNames.ClassNameExists("xmlAssist"));

    frmProjectProperties again = Open();
    EXPECT_TRUE(again.cmdOK_Click());
    EXPECT_EQ(classes.Count(), 2U);

    again.Check_Click("chkMTS", false);
    EXPECT_TRUE(again.cmdOK_Click());
    EXPECT_FALSE(classes.Item(kXmlAssistName));
    EXPECT_FALSE(project.ClassCollectionNames.ClassNameExists("xmlAssist"));
}

TEST_F(ProjectProperties, AClassOfTheUsersOfThatNameStaysWithoutComponentServices)
{
    AddClass("xmlAssist");
    frmProjectProperties form = Open();
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_TRUE(classes.Item("xmlAssist"));
}

TEST_F(ProjectProperties, OptionsThatCanNotBeStoredKeepTheDialogAndTheProject)
{
    frmProjectProperties form = Open();
    form.Text_Change("txtProjectName", "Corner Shop");
    settings.Fails = true;
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(project.ProjectName(), "Shop");
    settings.Fails = false;
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(project.ProjectName(), "Corner Shop");
}

struct Dependence
{
    const char* Box;
    bool On;
    std::vector<const char*> Enabled;
};

TEST_F(ProjectProperties, ControlsFollowTheBoxesThatTheyDependOn)
{
    frmProjectProperties form = Open();
    form.Check_Click("chkAutoSave", false);
    form.Check_Click("chkWriteToLog", false);
    EXPECT_TRUE(form.IsEnabled("chkUseTransactions"));
    for (const char* const control :
         {"txtAutoSave", "optClient", "optServer", "optBoth", "chkDontRetrieve", "chkUseADOR", "chkLogTransactions",
          "chkAllowLogChange", "txtDBConnection", "txtTableName", "cmdLoggingTable"})
        EXPECT_FALSE(form.IsEnabled(control)) << control;
    const std::array<Dependence, 4> steps{{
        {"chkAutoSave", true, {"txtAutoSave"}},
        {"chkWriteToLog", true, {"optClient", "optServer", "optBoth"}},
        {"chkMTS", true, {"chkDontRetrieve", "chkUseADOR", "chkLogTransactions"}},
        {"chkLogTransactions", true, {"chkAllowLogChange", "txtDBConnection", "txtTableName", "cmdLoggingTable"}},
    }};
    for (const Dependence& step : steps) {
        form.Check_Click(step.Box, step.On);
        for (const char* const control : step.Enabled)
            EXPECT_TRUE(form.IsEnabled(control)) << control;
    }
    EXPECT_FALSE(form.IsEnabled("chkUseTransactions"));
    form.Check_Click("chkMTS", false);
    EXPECT_FALSE(form.IsEnabled("cmdLoggingTable"));
    EXPECT_TRUE(form.IsEnabled("chkUseTransactions"));
}

TEST_F(ProjectProperties, TransactionsKeepTheirMarkWhileTheyAreOff)
{
    project.UseTransactions = true;
    frmProjectProperties form = Open();
    form.Check_Click("chkMTS", true);
    EXPECT_TRUE(form.IsChecked("chkUseTransactions"));
    EXPECT_EQ(form.Help("chkUseTransactions").Text,
              "This option is disabled when 'Enable Microsoft Component Services Support' is selected because "
              "transactions are automatically implemented when the Component Services component writes to the "
              "database.");
}

TEST_F(ProjectProperties, FormsAreCalledByWhatTheyAreFor)
{
    frmProjectProperties form = Open();
    EXPECT_EQ(form.chkForms_Caption(), "Enable Visual Basic Form Generation");
    EXPECT_EQ(form.Help("chkForms").Heading, "Enable Visual Basic Form Generation Help:");
    form.Check_Click("chkWeb", true);
    EXPECT_EQ(form.chkForms_Caption(), "Enable HTML/ASP Form Generation");
    EXPECT_EQ(form.Help("chkForms").Heading, "Enable HTML/ASP Form Generation Help:");
}

TEST_F(ProjectProperties, EveryBoxHasItsHelp)
{
    const frmProjectProperties form = Open();
    for (const ProjectCheck& check : kProjectChecks) {
        EXPECT_NE(form.Help(check.Control).Heading, "") << check.Control;
        EXPECT_NE(form.Help(check.Control).Text, "") << check.Control;
    }
    EXPECT_EQ(form.Help("chkAllowLogChange").Heading, "Allow Log Target to be Changed at Runtime:");
    EXPECT_EQ(form.Help("chkDoNotExposeChildren").Heading, "Do Not Expose Children Methods Publicly:");
    EXPECT_EQ(form.Help("chkMTS").Heading, "Enable Microsoft Component Services Support Help:");
    EXPECT_EQ(form.Help("chkTrackPropertyChanges").Heading, "Track Individual Property Changes:");
    EXPECT_EQ(form.Help("chkUseTransactions").Heading, "Use Database Transactions Help:");
    EXPECT_EQ(form.Help("chkWeb").Heading, "Make Web Compatible Help:");
    EXPECT_EQ(form.Help("chkWriteToLog").Heading, "Write Errors to Application Log Help:");
    EXPECT_EQ(form.Help("txtAuthor").Heading, "");
}

TEST_F(ProjectProperties, TheLogIsExplainedWhenItIsTurnedOn)
{
    frmProjectProperties form = Open();
    form.Check_Click("chkMTS", true);
    EXPECT_EQ(loggingTurnedOn, 0);
    form.Check_Click("chkLogTransactions", true);
    EXPECT_EQ(loggingTurnedOn, 1);
    form.Check_Click("chkLogTransactions", false);
    EXPECT_EQ(loggingTurnedOn, 1);
}

TEST_F(ProjectProperties, APrefixIsChangedInItsDialog)
{
    project.PrefixLong = "l";
    frmProjectProperties form = Open();
    dialogs.atPrefix = [](frmEditPrefix& prefix) {
        prefix.txtPrefix = "lng";
        return true;
    };
    form.lstPrefixes_DblClick(10);
    EXPECT_THAT(dialogs.captions, ElementsAre("Edit Long Prefix"));
    EXPECT_EQ(form.Prefix(10), "lng");
    EXPECT_EQ(project.PrefixLong, "l");
    dialogs.atPrefix = [](frmEditPrefix& prefix) {
        prefix.txtPrefix = "x";
        return false;
    };
    form.lstPrefixes_DblClick(10);
    EXPECT_EQ(form.Prefix(10), "lng");
    form.lstPrefixes_DblClick(kProjectPrefixes.size());
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(project.PrefixLong, "lng");
}

TEST_F(ProjectProperties, TheLoggingTableIsMadeUnderAValidName)
{
    frmProjectProperties form = Open();
    form.Check_Click("chkMTS", true);
    form.Check_Click("chkLogTransactions", true);
    form.cmdLoggingTable_Click();
    EXPECT_EQ(messages.Asked().size(), 1U); // without a name
    form.Text_Change("txtTableName", "a b");
    messages.Add(Answer::Cancel);
    form.cmdLoggingTable_Click();
    EXPECT_THAT(dialogs.scripts, IsEmpty());
    messages.Add(Answer::Ok);
    form.cmdLoggingTable_Click();
    ASSERT_EQ(dialogs.scripts.size(), 1U);
    EXPECT_EQ(dialogs.scripts[0].substr(0, 26), "CREATE TABLE [dbo].[a_b] (");
    EXPECT_EQ(form.Text("txtTableName"), "a_b");
    EXPECT_EQ(project.LogTableName, "");
}

} // namespace
} // namespace veldrane
