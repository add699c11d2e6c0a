#include "shell/desktop/editors/edit_prefix_dialog.h"
#include "shell/desktop/editors/logging_table_dialog.h"
#include "shell/desktop/editors/project_properties_dialog.h"

#include "shell/project_properties/project_properties_fixture.h"
#include "shown_dialog.h"

#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTabWidget>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;

class TheProjectsWindow : public ProjectPropertiesTest
{
  protected:
    QWidget& Show(ProjectTab tab = ProjectTab::General)
    {
        dialog.reset();
        form.emplace(Open(tab));
        dialog = std::make_unique<ProjectPropertiesDialog>(*form, nullptr);
        BringToFront(*dialog);
        return *dialog;
    }

    void ShowTab(const std::string& name)
    {
        Find<QTabWidget>(*dialog, "tabMain").setCurrentWidget(&Find<QWidget>(*dialog, name));
    }

    // A click on the box itself: what stands right of its words is no part of it.
    void Tick(const std::string& name)
    {
        auto& box = Find<QAbstractButton>(*dialog, name);
        EXPECT_TRUE(box.isVisible() && box.isEnabled()) << name;
        QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    }

    [[nodiscard]] std::string FrontTab()
    {
        return Find<QTabWidget>(*dialog, "tabMain").currentWidget()->objectName().toStdString();
    }

    std::optional<frmProjectProperties> form;
    std::unique_ptr<ProjectPropertiesDialog> dialog;
};

TEST_F(TheProjectsWindow, ChangesWhatIsTypedAndTicked)
{
    QWidget& window = Show();
    EXPECT_EQ(window.windowTitle(), u"Project Properties"_s);
    EXPECT_EQ(Focused(), "txtProjectName");
    Type(window, "txtProjectName", "Corner Shop");
    ShowTab("tabVisualBasic");
    Type(window, "txtVBProjectName", "Corner");
    QTest::keyClick(&Find<QComboBox>(window, "cmbVBVersion"), Qt::Key_Down);
    ShowTab("tabOptions");
    Tick("chkWriteToLog");
    Tick("optBoth");
    ShowTab("tabComponentServices");
    Tick("chkMTS");
    Click(window, "cmdOK");
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(project.ProjectName(), "Corner Shop");
    EXPECT_EQ(project.VBProjectName, "Corner");
    EXPECT_EQ(project.VBVersion, visual_basic_version::kVisualBasic5);
    EXPECT_TRUE(project.WriteErrorsToApplicationLog);
    EXPECT_EQ(project.LoggingLevel, logging_level::kBoth);
    EXPECT_TRUE(classes.Item(kXmlAssistName));
}

TEST_F(TheProjectsWindow, CancelAndEscapeLeaveTheProject)
{
    Type(Show(), "txtProjectName", "Corner Shop");
    Click(*dialog, "cmdCancel");
    EXPECT_FALSE(dialog->isVisible());
    Type(Show(), "txtProjectName", "Corner Shop");
    Press(Qt::Key_Escape);
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_EQ(project.ProjectName(), "Shop");
    EXPECT_FALSE(project.Modified());
}

TEST_F(TheProjectsWindow, OpensAtTheComponentServicesOfTheirNode)
{
    Show(ProjectTab::ComponentServices);
    EXPECT_EQ(FrontTab(), "tabComponentServices");
    EXPECT_EQ(Focused(), "chkMTS");
}

TEST_F(TheProjectsWindow, AWrongNameIsToldBesideItAndKeepsTheWindow)
{
    QWidget& window = Show();
    ShowTab("tabVisualBasic");
    Type(window, "txtVBProjectName", "Order");
    EXPECT_EQ(TroubleIn(window, "lblVBProjectNameTrouble"),
              "The VB Project Name already exists as a class name. Please change the name.");
    ShowTab("tabGeneral");
    Click(window, "cmdOK");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(FrontTab(), "tabVisualBasic");
    EXPECT_EQ(Focused(), "txtVBProjectName");
    Photograph(window, "frmProjectProperties-trouble");
}

TEST_F(TheProjectsWindow, WhatTheLogMissesIsShownInRed)
{
    QWidget& window = Show(ProjectTab::ComponentServices);
    Tick("chkMTS");
    ShowTab("tabLogging");
    Tick("chkLogTransactions");
    ShowTab("tabGeneral");
    Click(window, "cmdOK");
    EXPECT_EQ(FrontTab(), "tabLogging");
    EXPECT_EQ(Focused(), "txtDBConnection");
    auto& label = Find<QLabel>(window, "lblDBConnection");
    EXPECT_EQ(label.palette().color(QPalette::WindowText), QColor(255, 0, 0));
    Photograph(window, "frmProjectProperties-missing");
    Type(window, "txtDBConnection", "PROVIDER=SQLOLEDB;Server=db;");
    EXPECT_NE(label.palette().color(QPalette::WindowText), QColor(255, 0, 0));
}

TEST_F(TheProjectsWindow, TheHelpOfABoxIsShownWhereTheFocusOrThePointerIs)
{
    QWidget& window = Show(ProjectTab::ComponentServices);
    auto& heading = Find<QLabel>(window, "lblHelpHeading");
    EXPECT_EQ(heading.text(), u"Enable Microsoft Component Services Support Help:"_s);
    Tick("chkMTS");
    ShowTab("tabOptions");
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(&Find<QCheckBox>(window, "chkUseTransactions"), &enter);
    EXPECT_EQ(heading.text(), u"Use Database Transactions Help:"_s);
    EXPECT_TRUE(Find<QLabel>(window, "lblHelp").text().startsWith(u"This option is disabled when"_s));
}

TEST_F(TheProjectsWindow, FormsAreNamedByTheKindOfProject)
{
    QWidget& window = Show();
    ShowTab("tabOptions");
    EXPECT_EQ(Find<QCheckBox>(window, "chkForms").text(), u"Enable Visual Basic &Form Generation"_s);
    Tick("chkWeb");
    EXPECT_EQ(Find<QCheckBox>(window, "chkForms").text(), u"Enable HTML/ASP &Form Generation"_s);
}

TEST_F(TheProjectsWindow, APrefixIsEditedByADoubleClickReturnAndTheButton)
{
    QWidget& window = Show();
    ShowTab("tabPrefixes");
    int opened = 0;
    dialogs.atPrefix = [&](frmEditPrefix& prefix) {
        prefix.txtPrefix = "p" + std::to_string(++opened);
        return true;
    };
    ClickRow(window, "lstPrefixes", 10);
    Press(Qt::Key_Return);
    Click(window, "cmdEditPrefix");
    auto& list = Find<EditorList>(window, "lstPrefixes");
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.topLevelItem(10)).center());
    EXPECT_THAT(dialogs.captions, ElementsAre("Edit Long Prefix", "Edit Long Prefix", "Edit Long Prefix"));
    EXPECT_EQ(Rows(window, "lstPrefixes").at(10), "Long|p3");
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(TheProjectsWindow, DefaultsAreSetAndShownAgainByTheirButtons)
{
    QWidget& window = Show();
    Type(window, "txtAuthor", "Ann");
    Click(window, "cmdSetAsDefault");
    EXPECT_EQ(settings.GetKeyValue("Options", "Author"), "Ann");
    Type(window, "txtAuthor", "Ben");
    Click(window, "cmdRestoreDefaults");
    EXPECT_EQ(TextOf(window, "txtAuthor"), "Ann");
    settings.SaveSetting("Options", "Long", "lng");
    ShowTab("tabPrefixes");
    Click(window, "cmdRestorePrefixes");
    EXPECT_EQ(Rows(window, "lstPrefixes").at(10), "Long|lng");
    settings.SaveSetting("Options", "Long", "other");
    Click(window, "cmdSetDefaults");
    EXPECT_EQ(settings.GetKeyValue("Options", "Long"), "lng");
}

TEST_F(TheProjectsWindow, EachTabIsReachedByItsKey)
{
    Show();
    const std::vector<std::pair<Qt::Key, std::string>> tabs{
        {Qt::Key_V, "tabVisualBasic"}, {Qt::Key_O, "tabOptions"},  {Qt::Key_S, "tabComponentServices"},
        {Qt::Key_L, "tabLogging"},     {Qt::Key_P, "tabPrefixes"}, {Qt::Key_G, "tabGeneral"}};
    for (const auto& [key, tab] : tabs) {
        Press(key, Qt::AltModifier);
        EXPECT_EQ(FrontTab(), tab);
    }
}

TEST_F(TheProjectsWindow, LooksWellOnEachTab)
{
    project.ProjectDescription = "Orders of the corner shop";
    project.Author = "Ann";
    project.MTSEnabled = true;
    project.LogTransactions = true;
    project.WriteErrorsToApplicationLog = true;
    project.PrefixLong = "lng";
    project.LogDatabaseConnection = "PROVIDER=SQLOLEDB;Server=db;Database=log;";
    project.LogTableName = "Journal";
    QWidget& window = Show();
    for (const char* const tab :
         {"tabGeneral", "tabVisualBasic", "tabOptions", "tabComponentServices", "tabLogging", "tabPrefixes"}) {
        ShowTab(tab);
        Photograph(window, std::string("frmProjectProperties-") + tab);
    }
}

TEST_F(TheProjectsWindow, ThePrefixWindowRefusesWhatNoNameMayBeginWith)
{
    frmEditPrefix prefix("Long", "", messages, codePage);
    EditPrefixDialog window(prefix, nullptr);
    BringToFront(window);
    EXPECT_EQ(window.windowTitle(), u"Edit Long Prefix"_s);
    EXPECT_EQ(Focused(), "txtPrefix");
    Write("2x");
    EXPECT_NE(TroubleIn(window, "lblPrefixTrouble"), "");
    Photograph(window, "frmEditPrefix");
    Press(Qt::Key_Return);
    EXPECT_TRUE(window.isVisible());
    Type(window, "txtPrefix", "lng");
    Press(Qt::Key_Return);
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_EQ(prefix.txtPrefix, "lng");
}

TEST_F(TheProjectsWindow, TheTableOfTheLogIsMadeOrItsScriptSaved)
{
    const LoggingTablePorts ports{.Connect = connect,
                                  .Files = files,
                                  .Dialogs = fileDialogs,
                                  .Messages = messages,
                                  .Errors = errors,
                                  .CodePage = codePage};
    frmLoggingTable table({.TableName = "Journal", .ConnectionString = "PROVIDER=SQLOLEDB;Server=db;"}, ports);
    LoggingTableDialog window(table, nullptr);
    BringToFront(window);
    EXPECT_TRUE(Find<QPlainTextEdit>(window, "txtScript").toPlainText().contains(u"CREATE TABLE [dbo].[Journal]"_s));
    Photograph(window, "frmLoggingTable");
    Click(window, "cmdCreate");
    EXPECT_EQ(window.result(), QDialog::Accepted);

    frmLoggingTable other({.TableName = "Journal", .ConnectionString = "DSN=log;"}, ports);
    LoggingTableDialog script(other, nullptr);
    BringToFront(script);
    EXPECT_FALSE(IsEnabled(script, "cmdCreate"));
    EXPECT_NE(TroubleIn(script, "lblCreateTrouble"), "");
    Photograph(script, "frmLoggingTable-script");
    fileDialogs.Add("/journal.sql");
    Click(script, "cmdSave");
    EXPECT_EQ(script.result(), QDialog::Accepted);
    EXPECT_FALSE(files.Read("/journal.sql").empty());
}

} // namespace
} // namespace veldrane::testing
