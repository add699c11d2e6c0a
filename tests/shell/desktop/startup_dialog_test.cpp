#include "shell/desktop/startup_dialog.h"

#include "screenshots.h"
#include "shell/desktop/desktop_dialogs.h"
#include "shell/desktop/splash_form.h"
#include "support/memory_application.h"
#include "widgets.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTextDocumentFragment>

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

class StartupDialogTest : public ::testing::Test
{
  protected:
    void Remember(int number, const std::string& path, const std::string& name)
    {
        world_.Files.Files[path] =
            "Veldrane Professional 2000 Data File\r\nBegin Project\r\nProjectName\2" + name + "\r\nEnd Project\r\n";
        world_.UserSettings.SaveSetting(settings_section::kMRU, std::to_string(number), path);
    }

    StartupDialog& Shown()
    {
        rules_ = std::make_unique<frmStartup>(world_.World);
        dialog_ = std::make_unique<StartupDialog>(*rules_, nullptr);
        dialog_->show();
        return *dialog_;
    }

    QListWidget& List(const char* name) { return Find<QListWidget>(*dialog_, name); }

    void DoubleClick(QListWidget& list, int row)
    {
        const QPoint where = list.visualItemRect(list.item(row)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, where);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, where);
    }

    MemoryApplication world_;
    std::unique_ptr<frmStartup> rules_;
    std::unique_ptr<StartupDialog> dialog_;
};

TEST_F(StartupDialogTest, SaysWhereTheRecentProjectsWillStand)
{
    Shown();
    EXPECT_TRUE(Find<QLabel>(*dialog_, "lblNoRecent").isVisible());
    EXPECT_EQ(List("lstNew").currentRow(), 0);
    Photograph(*dialog_, "frmStartup-first");
}

TEST_F(StartupDialogTest, ShowsNewAndBrowseWholeInLettersOfAnySize)
{
    const QFont before = QApplication::font();
    for (const int points : {8, 12, 36}) {
        QApplication::setFont(QFont(before.family(), points));
        Shown();
        const QListWidget& list = List("lstNew");
        EXPECT_TRUE(list.viewport()->rect().contains(list.visualItemRect(list.item(1)))) << points;
    }
    QApplication::setFont(before);
}

TEST_F(StartupDialogTest, ADoubleClickOnNewChoosesIt)
{
    Shown();
    DoubleClick(List("lstNew"), 0);
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(dialog_->Choice().Action, StartupAction::New);
}

TEST_F(StartupDialogTest, BrowseStaysOpenUntilAFileIsChosen)
{
    world_.Dialogs.Add(std::nullopt);
    world_.Dialogs.Add("/data/Shop.kzm");
    Shown();
    List("lstNew").setFocus();
    QTest::keyClick(&List("lstNew"), Qt::Key_Down);
    QTest::keyClick(&List("lstNew"), Qt::Key_Return);
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(dialog_->Choice().Action, StartupAction::Nothing);
    Click(*dialog_, "cmdOpen");
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(dialog_->Choice().Path, "/data/Shop.kzm");
}

TEST_F(StartupDialogTest, ARecentProjectIsChosenByTheMouseAndByTheKeys)
{
    Remember(1, "/projects/Shop.kzm", "Shop");
    Remember(2, "/projects/Library.kzm", "Library");
    Shown();
    EXPECT_EQ(List("lstRecent").currentItem()->text(), u"Shop"_s);
    Photograph(*dialog_, "frmStartup");
    DoubleClick(List("lstRecent"), 1);
    EXPECT_EQ(dialog_->Choice().Action, StartupAction::Open);
    EXPECT_EQ(dialog_->Choice().Path, "/projects/Library.kzm");
    Shown();
    QTest::keyClick(&List("lstRecent"), Qt::Key_Return);
    EXPECT_EQ(dialog_->Choice().Path, "/projects/Shop.kzm");
}

TEST_F(StartupDialogTest, ATipShowsThePathAsItStands)
{
    const std::string path = "/home/R&D/<b>  \"Shop\".kzm";
    Remember(1, path, "Shop");
    Shown();
    const QString tip = List("lstRecent").item(0)->toolTip();
    EXPECT_TRUE(Qt::mightBeRichText(tip));
    EXPECT_EQ(QTextDocumentFragment::fromHtml(tip).toPlainText().toStdString(), path);
}

TEST_F(StartupDialogTest, OneRowOfTheTwoListsIsSelectedAtATime)
{
    Remember(1, "/projects/Shop.kzm", "Shop");
    Shown();
    QTest::mouseClick(List("lstNew").viewport(), Qt::LeftButton, Qt::NoModifier,
                      List("lstNew").visualItemRect(List("lstNew").item(0)).center());
    EXPECT_TRUE(List("lstRecent").selectedItems().isEmpty());
    EXPECT_EQ(List("lstNew").selectedItems().size(), 1);
}

TEST_F(StartupDialogTest, TabChoosesInTheOtherList)
{
    Remember(1, "/projects/Shop.kzm", "Shop");
    Shown();
    dialog_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));
    List("lstRecent").setFocus();
    for (int tabs = 0; tabs < 8 && !List("lstNew").hasFocus(); ++tabs)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_TRUE(List("lstNew").hasFocus());
    EXPECT_TRUE(List("lstRecent").selectedItems().isEmpty());
    QTest::keyClick(&List("lstNew"), Qt::Key_Return);
    EXPECT_EQ(dialog_->Choice().Action, StartupAction::New);
}

TEST_F(StartupDialogTest, TheSplashFormLiesBelow)
{
    SplashForm splash;
    splash.setAttribute(Qt::WA_DeleteOnClose, false);
    splash.show();
    frmStartup rules(world_.World);
    DesktopDialogs dialogs;
    for (const std::function<void()>& asking :
         std::vector<std::function<void()>>{[&] { (void)dialogs.AskAtStartup(rules); }, [&] { dialogs.ShowAbout(); }}) {
        WithDialogs(asking, {[&](QWidget& dialog) {
                        EXPECT_FALSE(splash.isVisible());
                        QTest::keyClick(&dialog, Qt::Key_Escape);
                    }});
        EXPECT_TRUE(splash.isVisible());
    }
}

TEST_F(StartupDialogTest, TheBoxIsRememberedAtOnce)
{
    Shown();
    Click(*dialog_, "chkDontShow");
    EXPECT_EQ(world_.UserSettings.GetKeyValue(settings_section::kOptions, "DontShowStartupDialog"), "1");
    world_.UserSettings.Fails = true;
    Click(*dialog_, "chkDontShow");
    EXPECT_TRUE(Find<QCheckBox>(*dialog_, "chkDontShow").isChecked());
    EXPECT_EQ(world_.Errors.Reported.size(), 1U);
}

TEST_F(StartupDialogTest, EscapeChoosesNothing)
{
    Shown();
    QTest::keyClick(dialog_.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(dialog_->Choice().Action, StartupAction::Nothing);
}

} // namespace
} // namespace veldrane::testing
