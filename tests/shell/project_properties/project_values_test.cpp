#include "project_properties_fixture.h"
#include "shell/project_defaults.h"

namespace veldrane {
namespace {

// What a project is new with.
class ProjectDefaults : public testing::ProjectPropertiesTest
{
  protected:
    std::string Option(std::string_view name) { return settings.GetKeyValue(settings_section::kOptions, name); }
};

TEST_F(ProjectDefaults, GoToTheOptionsAndBackAgain)
{
    project.Author = "Ann";
    project.WrapperClassName = "Gate";
    project.UseTransactions = false;
    project.MakeWebCompatible = true;
    project.PrefixLong = "lng";
    project.FormPrefix = "frm";
    frmProjectProperties form = Open();
    form.cmdSetAsDefault_Click();
    EXPECT_EQ(Option("Author"), "Ann");
    EXPECT_EQ(Option("UseTransactions"), "False");
    EXPECT_EQ(Option("Long"), "lng");

    TTCProject fresh;
    ReadProjectDefaults(fresh, settings, DefaultsOf::WholeProject);
    EXPECT_EQ(fresh.Author, "Ann");
    EXPECT_EQ(fresh.WrapperClassName, "Gate");
    EXPECT_FALSE(fresh.UseTransactions);
    EXPECT_TRUE(fresh.MakeWebCompatible);
    EXPECT_EQ(fresh.PrefixLong, "lng");
    EXPECT_EQ(fresh.FormPrefix, "frm");
}

TEST_F(ProjectDefaults, AnEmptiedPrefixIsNoBlankInTheNextProject)
{
    settings.SaveSetting("Options", "Long", "lng");
    frmProjectProperties form = Open();
    form.cmdSetDefaults_Click();
    form.cmdRestorePrefixes_Click();
    EXPECT_EQ(form.Prefix(10), "");
    EXPECT_EQ(kProjectPrefixes.at(10).Name, "Long");
}

TEST_F(ProjectDefaults, AreShownAgainAndCountWithOK)
{
    settings.SaveSetting("Options", "Author", "Ann");
    settings.SaveSetting("Options", "UseADOR", "False");
    settings.SaveSetting("Options", "Long", "lng");
    project.UseADOR = true;
    frmProjectProperties form = Open();
    form.cmdRestoreDefaults_Click();
    EXPECT_EQ(form.Text("txtAuthor"), "Ann");
    EXPECT_FALSE(form.IsChecked("chkUseADOR"));
    EXPECT_EQ(form.Prefix(10), "lng");
    EXPECT_EQ(project.Author, "");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(project.Author, "Ann");
    EXPECT_EQ(project.PrefixLong, "lng");
}

TEST_F(ProjectDefaults, OfPrefixesLeaveAllElseAlone)
{
    settings.SaveSetting("Options", "Author", "Ann");
    settings.SaveSetting("Options", "ClassPrefix", "cls");
    project.PrefixLong = "lng";
    frmProjectProperties form = Open();
    form.cmdRestorePrefixes_Click();
    EXPECT_EQ(form.Text("txtAuthor"), "");
    EXPECT_EQ(form.Prefix(0), "cls");
    EXPECT_EQ(form.Prefix(10), "");
    form.Text_Change("txtAuthor", "Ben");
    form.cmdSetDefaults_Click();
    EXPECT_EQ(Option("Author"), "Ann");
}

TEST_F(ProjectDefaults, ThatCanNotBeStoredAreReported)
{
    settings.Fails = true;
    frmProjectProperties form = Open();
    form.cmdSetAsDefault_Click();
    EXPECT_EQ(errors.Reported.size(), 1U);
}

} // namespace
} // namespace veldrane
