#include "shell/desktop/gen_code_dialog.h"

#include "screenshots.h"
#include "shell/desktop/link_button.h"
#include "shell/desktop/qt_clock.h"
#include "shell/desktop/qt_messages.h"
#include "shell/desktop/qt_mouse_pointer.h"
#include "shell/platform/disk_file_system.h"
#include "shell/platform/temporary_folder.h"
#include "shell/project_session.h"
#include "support/memory_application.h"
#include "widgets.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTest>
#include <QTreeView>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

// The wizard of a person who generates into a folder on the disk.
class TheWizard : public ::testing::Test
{
  protected:
    TheWizard()
    {
        session_.New(DataSourceOnOpen::LeaveClosed);
        session_.Project().VBProjectName = "Shop";
        session_.Project().OutputPath = folder_.Path();
        session_.Project().SetModified(false);
    }

    GenCodeDialog& Show()
    {
        window_ = std::make_unique<GenCodeDialog>(onDisk_, session_.Project(), session_.Classes(), nullptr);
        window_->show();
        window_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
        return *window_;
    }

    void Next(int times)
    {
        for (; times > 0; --times)
            Click(*window_, "cmdNext");
    }

    // Presses Finish on the page of the options and waits for the end.
    void Run()
    {
        Click(*window_, "cmdNext");
        EXPECT_TRUE(QTest::qWaitFor([this] { return HasEnded(); }, 20'000));
    }

    bool HasEnded() { return Find<QPushButton>(*window_, "cmdCancel").text() == u"&Close"_s; }
    int Page() { return Find<QStackedWidget>(*window_, "tabMain").currentIndex(); }
    QString Text(const std::string& label) { return Find<QLabel>(*window_, label).text(); }
    QString Folder() { return Find<QLineEdit>(*window_, "txtFolder").text(); }

    // What became of the file, in a word.
    QString Outcome(const QString& fileName)
    {
        const QAbstractItemModel& model = *Find<QTreeView>(*window_, "lstFiles").model();
        const QModelIndexList found = model.match(model.index(0, 0), Qt::DisplayRole, fileName, 1, Qt::MatchExactly);
        return found.isEmpty() ? QString() : found.front().siblingAtColumn(1).data().toString();
    }

    [[nodiscard]] bool IsThere(const std::string& name) const { return std::filesystem::exists(folder_ / name); }

    MemoryApplication world_;
    DiskFileSystem disk_;
    QtClock clock_;
    QtMessages messages_;
    Application onDisk_{.UserSettings = world_.UserSettings,
                        .Asking = messages_,
                        .Errors = world_.Errors,
                        .Files = disk_,
                        .Recovery = world_.Recovery,
                        .Time = clock_,
                        .Programs = world_.Processes,
                        .Connect = world_.World.Connect,
                        .Installed = world_.Installed,
                        .State = world_.State,
                        .Output = world_.Output,
                        .ErrorOutput = world_.Output,
                        .Progress = world_.Unwatched,
                        .Windows = world_.World.Windows};
    TemporaryFolder folder_;
    ProjectSession session_{onDisk_};
    std::unique_ptr<GenCodeDialog> window_;
};

TEST_F(TheWizard, GoesForthAndBack)
{
    QWidget& window = Show();
    EXPECT_EQ(Page(), wizard_page::kIntroduction);
    EXPECT_FALSE(Find<QPushButton>(window, "cmdBack").isEnabled());
    EXPECT_TRUE(Text("lblInst").startsWith(u"This wizard will generate"_s));
    Photograph(window, "frmGenCode-introduction");
    Next(1);
    EXPECT_EQ(Page(), wizard_page::kFolder);
    EXPECT_EQ(Folder().toStdString(), folder_.Path());
    Next(1);
    EXPECT_EQ(Page(), wizard_page::kOptions);
    EXPECT_EQ(Find<QPushButton>(window, "cmdNext").text(), u"&Finish"_s);
    Photograph(window, "frmGenCode-options");
    Click(window, "cmdBack");
    Click(window, "cmdBack");
    EXPECT_EQ(Page(), wizard_page::kIntroduction);
    EXPECT_EQ(Find<QPushButton>(window, "cmdNext").text(), u"&Next >"_s);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(TheWizard, TakesAFolderThatIsChosenInTheTree)
{
    std::filesystem::create_directories(folder_ / "sub");
    QWidget& window = Show();
    Next(1);
    auto& tree = Find<QTreeView>(window, "treFolder");
    const QModelIndex current = tree.currentIndex();
    EXPECT_EQ(current.data().toString().toStdString(), std::filesystem::path(folder_.Path()).filename().string());
    tree.expand(current);
    ASSERT_TRUE(QTest::qWaitFor([&] { return tree.model()->rowCount(current) == 1; }));
    Photograph(window, "frmGenCode-folder");
    tree.setFocus();
    QTest::keyClick(&tree, Qt::Key_Down);
    EXPECT_EQ(Folder().toStdString(), folder_ / "sub");
    Next(1);
    EXPECT_EQ(session_.Project().OutputPath, folder_ / "sub");
    EXPECT_TRUE(session_.Project().Modified());
}

// Waits for the tree to show the folders a, b and c, of which b is the target.
class WizardAtFolderB : public TheWizard
{
  protected:
    WizardAtFolderB()
    {
        for (const char* name : {"a", "b", "c"})
            std::filesystem::create_directories(folder_ / name);
        session_.Project().OutputPath = folder_ / "b";
        Show();
        Next(1);
        auto& tree = Find<QTreeView>(*window_, "treFolder");
        siblings_ = tree.currentIndex().parent();
        WaitForFolders(3);
    }

    void RemoveFolderB()
    {
        std::filesystem::remove(folder_ / "b");
        WaitForFolders(2);
        QApplication::processEvents();
    }

    void WaitForFolders(int count)
    {
        const QAbstractItemModel& model = *Find<QTreeView>(*window_, "treFolder").model();
        EXPECT_TRUE(QTest::qWaitFor([&] { return model.rowCount(siblings_) == count; }));
    }

    [[nodiscard]] bool IsEmpty(const char* name) const { return std::filesystem::is_empty(folder_ / name); }

    QPersistentModelIndex siblings_;
};

TEST_F(WizardAtFolderB, KeepsAFolderThatGoesAndTellsOfIt)
{
    RemoveFolderB();
    EXPECT_EQ(Folder().toStdString(), folder_ / "b");
    EXPECT_EQ(Text("lblFolderState"), u"There is no such folder."_s);
    EXPECT_FALSE(Find<QTreeView>(*window_, "treFolder").currentIndex().isValid());
}

TEST_F(WizardAtFolderB, WritesNowhereElseWhereItsFolderIsGone)
{
    Next(1);
    EXPECT_EQ(Find<QLineEdit>(*window_, "txtTarget").text().toStdString(), folder_ / "b");
    RemoveFolderB();
    Run();
    EXPECT_EQ(Text("lblInst"), u"Code Generation Incomplete..."_s);
    EXPECT_EQ(Find<QPlainTextEdit>(*window_, "txtWarnings").toPlainText().toStdString(),
              "Unable to write to destination directory. " + folder_ / "b/Shop.vbp" + ": No such file or directory");
    EXPECT_TRUE(Find<QLineEdit>(*window_, "txtTarget").isVisible());
    EXPECT_EQ(Find<QLineEdit>(*window_, "txtTarget").text().toStdString(), folder_ / "b");
    EXPECT_TRUE(IsEmpty("a"));
    EXPECT_TRUE(IsEmpty("c"));
}

TEST_F(TheWizard, TellsOfAFolderThatIsNotThere)
{
    Show();
    Next(1);
    EXPECT_EQ(Text("lblFolderState"), QString());
    Type(*window_, "txtFolder", folder_ / "gone");
    EXPECT_EQ(Text("lblFolderState"), u"There is no such folder."_s);
    EXPECT_FALSE(Find<QTreeView>(*window_, "treFolder").currentIndex().isValid());
    Next(1);
    EXPECT_EQ(session_.Project().OutputPath, folder_ / "gone");
}

TEST_F(TheWizard, WarnsOfAPathThatIsNotQualified)
{
    Show();
    Next(1);
    Type(*window_, "txtFolder", "Shop");
    WithDialogs([this] { Next(1); }, {[](QWidget& box) {
                    EXPECT_EQ(box.windowTitle(), u"Invalid Folder Name"_s);
                    Click(box, "cmdOK");
                }});
    EXPECT_EQ(Page(), wizard_page::kOptions);
}

TEST_F(TheWizard, MakesAFolderByItsButton)
{
    Show();
    Next(1);
    WithDialogs([this] { Click(*window_, "cmdNewFolder"); }, {[](QWidget& dialog) {
                    Type(dialog, "txtFolderName", "Shop");
                    Click(dialog, "cmdOK");
                }});
    EXPECT_TRUE(std::filesystem::is_directory(folder_ / "Shop"));
    EXPECT_EQ(Folder().toStdString(), folder_ / "Shop");
    EXPECT_EQ(Find<QTreeView>(*window_, "treFolder").currentIndex().data().toString(), u"Shop"_s);
}

TEST_F(TheWizard, OffersAFolderInTheMenuOfTheTree)
{
    QWidget& window = Show();
    Next(1);
    auto& tree = Find<QTreeView>(window, "treFolder");
    const auto askAt = [&](const QPoint& where) {
        QContextMenuEvent byKey(QContextMenuEvent::Keyboard, where, tree.viewport()->mapToGlobal(where));
        QApplication::sendEvent(tree.viewport(), &byKey);
    };
    askAt(tree.viewport()->rect().bottomRight() + QPoint(1, 1)); // behind the last row
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    askAt(tree.visualRect(tree.currentIndex()).center());
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->objectName(), u"popFolder"_s);
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(menu->actions().front()->objectName(), u"NewFolder"_s);
    menu->close();
}

TEST_F(TheWizard, ReportsAFolderThatCanNotBeMade)
{
    Put(folder_ / "file", "");
    Show();
    Next(1);
    Type(*window_, "txtFolder", folder_ / "file");
    WithDialogs([this] { Click(*window_, "cmdNewFolder"); }, {[](QWidget& dialog) {
                    Type(dialog, "txtFolderName", "Shop");
                    Click(dialog, "cmdOK");
                }});
    ASSERT_EQ(world_.Errors.Reported.size(), 1U);
    EXPECT_EQ(Folder().toStdString(), folder_ / "file");
}

TEST_F(TheWizard, RunsAndTellsWhatBecameOfEachFile)
{
    QWidget& window = Show();
    Next(2);
    Run();
    EXPECT_TRUE(IsThere("TestShop.vbg"));
    EXPECT_EQ(Text("lblInst"), u"Code Generation Complete!"_s);
    EXPECT_EQ(Find<QPlainTextEdit>(window, "txtWarnings").toPlainText(), u"The operation completed successfully."_s);
    EXPECT_EQ(Outcome(u"Shop.vbp"_s), u"new"_s);
    EXPECT_THAT(Text("lblFiles").toStdString(), HasSubstr(" new"));
    EXPECT_EQ(Find<QProgressBar>(window, "Progress").value(), 100);
    EXPECT_FALSE(Find<QPushButton>(window, "cmdNext").isVisible());
    EXPECT_FALSE(Find<QPushButton>(window, "cmdBack").isVisible());
    Photograph(window, "frmGenCode-result");
    Click(window, "cmdCancel");
    EXPECT_FALSE(window.isVisible());
}

TEST_F(TheWizard, OpensTheProjectGroupByMouseAndByKey)
{
    QWidget& window = Show();
    Next(2);
    Run();
    auto& link = Find<LinkButton>(window, "lblOpenProject");
    EXPECT_FALSE(link.IsLit());
    Click(window, "lblOpenProject");
    link.setFocus();
    EXPECT_TRUE(link.IsLit());
    EXPECT_TRUE(Find<QLabel>(window, "lblOpened").isVisible());
    Photograph(window, "frmGenCode-link");
    QTest::keyClick(&link, Qt::Key_Return);
    const std::vector<std::string> opened{"xdg-open", folder_ / "TestShop.vbg"};
    EXPECT_THAT(world_.Processes.Started, ElementsAre(opened, opened));
}

TEST_F(TheWizard, AsksAboutFilesThatExist)
{
    for (const char* name : {"Shop.vbp", "TestShop.vbp", "TestShop.vbg"})
        Put(folder_ / name, "mine");
    Show();
    Next(2);
    const auto answerBy = [](const char* option) {
        return [option](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"File Exists"_s);
            Find<QRadioButton>(dialog, option).click();
            Click(dialog, "cmdOK");
        };
    };
    WithDialogs([this] { Run(); }, {answerBy("optLeave"), answerBy("optBackup"), answerBy("optOverwrite")});
    EXPECT_EQ(ContentOf(folder_ / "Shop.vbp"), "mine");
    EXPECT_EQ(Outcome(u"Shop.vbp"_s), u"left"_s);
    EXPECT_EQ(Outcome(u"TestShop.vbp"_s), u"overwritten"_s);
    EXPECT_EQ(Outcome(u"TestShop.vbg"_s), u"overwritten"_s);
    EXPECT_NE(ContentOf(folder_ / "TestShop.vbg"), "mine");
}

TEST_F(TheWizard, CancellingTheQuestionEndsTheRun)
{
    Put(folder_ / "Shop.vbp", "mine");
    QWidget& window = Show();
    Next(2);
    WithDialogs([this] { Run(); }, {[](QWidget& dialog) {
                    Find<QRadioButton>(dialog, "optCancel").click();
                    Click(dialog, "cmdOK");
                }});
    EXPECT_EQ(Text("lblInst"), u"Code Generation Incomplete..."_s);
    EXPECT_EQ(Find<QPlainTextEdit>(window, "txtWarnings").toPlainText(), u"User Cancelled Operation"_s);
    EXPECT_FALSE(Find<LinkButton>(window, "lblOpenProject").isVisible());
    Photograph(window, "frmGenCode-incomplete");
}

// What Qt sends when the pointer comes over a control and leaves it.
void Enter(QWidget& control)
{
    QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
    QApplication::sendEvent(&control, &enter);
}

void Leave(QWidget& control)
{
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&control, &leave);
}

Qt::CursorShape Pointer()
{
    return QApplication::overrideCursor() == nullptr ? Qt::ArrowCursor : QApplication::overrideCursor()->shape();
}

TEST_F(TheWizard, UnderTheHourglassCancelHasTheArrowWhileItCanBeClicked)
{
    QtMousePointer pointer;
    QWidget& window = Show();
    auto& cancel = Find<QPushButton>(window, "cmdCancel");
    Enter(cancel);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    Leave(cancel);
    pointer.Show(PointerShape::Hourglass);
    EXPECT_EQ(Pointer(), Qt::WaitCursor);
    Enter(cancel);
    EXPECT_EQ(Pointer(), Qt::ArrowCursor);
    Leave(cancel);
    EXPECT_EQ(Pointer(), Qt::WaitCursor);
    Enter(cancel);
    cancel.setEnabled(false);
    EXPECT_EQ(Pointer(), Qt::WaitCursor);
    pointer.Show(PointerShape::Default);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(TheWizard, APointerThatRestsOnCancelIsAnArrowFromTheRunsFirstFileOn)
{
    QtMousePointer pointer;
    Put(folder_ / "TestShop.vbp", "mine");
    QWidget& window = Show();
    Next(2);
    auto& cancel = Find<QPushButton>(window, "cmdCancel");
    Enter(cancel);
    pointer.Show(PointerShape::Hourglass);
    WithDialogs([this] { Run(); }, {[&](QWidget& dialog) {
                    EXPECT_EQ(Pointer(), Qt::ArrowCursor);
                    Leave(cancel); // the dialog's pointer is none of the button's
                    EXPECT_EQ(Pointer(), Qt::ArrowCursor);
                    Click(dialog, "cmdOK");
                }});
    EXPECT_EQ(Pointer(), Qt::WaitCursor);
}

// The window's own button is met while the question stands at the second file.
TEST_F(TheWizard, ClosingItWhileItRunsGivesUpTheRun)
{
    Put(folder_ / "TestShop.vbp", "mine");
    QWidget& window = Show();
    Next(2);
    WithDialogs([this] { Run(); }, {[&window](QWidget& dialog) {
                    Photograph(window, "frmGenCode-running");
                    window.close();
                    EXPECT_FALSE(Find<QPushButton>(window, "cmdCancel").isEnabled());
                    Click(dialog, "cmdOK");
                }});
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Text("lblInst"), u"Code Generation Incomplete..."_s);
    EXPECT_FALSE(IsThere("TestShop.vbg"));
    Photograph(window, "frmGenCode-cancelled");
}

TEST_F(TheWizard, AClickOnCancelIsServedBetweenFiles)
{
    QWidget& window = Show();
    Next(2);
    auto& cancel = Find<QPushButton>(window, "cmdCancel");
    QTimer person;
    QObject::connect(&person, &QTimer::timeout, &window, [&] {
        if (Text("lblProgress1").isEmpty())
            return;
        person.stop();
        cancel.click();
    });
    person.start(0);
    Run();
    EXPECT_EQ(Find<QPlainTextEdit>(window, "txtWarnings").toPlainText(), u"User Cancelled Operation"_s);
    EXPECT_FALSE(IsThere("TestShop.vbg"));
}

TEST_F(TheWizard, ASecondEscapeDoesNotCloseTheOutcome)
{
    Put(folder_ / "Shop.vbp", "mine");
    QWidget& window = Show();
    Next(2);
    bool pressedTwice = false;
    const auto pressAgain = [&] {
        QTest::keyClick(&window, Qt::Key_Escape);
        pressedTwice = true;
    };
    WithDialogs([this] { Run(); }, {[&](QWidget& dialog) {
                    QTimer::singleShot(100, &window, pressAgain); // as fast as a person is
                    QTest::keyClick(&dialog, Qt::Key_Escape);
                }});
    EXPECT_TRUE(QTest::qWaitFor([&] { return pressedTwice; }));
    EXPECT_EQ(Text("lblInst"), u"Code Generation Incomplete..."_s);
    EXPECT_TRUE(window.isVisible());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(TheWizard, AKeyThatIsHeldDoesNotCloseTheOutcome)
{
    QWidget& window = Show();
    Next(2);
    Run();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        for (QWidget* control :
             {window.focusWidget(), &window, static_cast<QWidget*>(&Find<QPushButton>(window, "cmdCancel"))}) {
            QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(control, &held);
        }
        EXPECT_TRUE(window.isVisible()) << key;
    }
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(TheWizard, AFolderThatGoesWhileTheQuestionStandsIsTold)
{
    const std::string place = folder_ / "out";
    std::filesystem::create_directories(place);
    Put(place + "/TestShop.vbp", "mine");
    session_.Project().OutputPath = place;
    Show();
    Next(2);
    WithDialogs([this] { Run(); }, {[&place](QWidget& dialog) {
                    std::filesystem::remove_all(place);
                    Find<QRadioButton>(dialog, "optOverwrite").click();
                    Click(dialog, "cmdOK");
                }});
    EXPECT_EQ(Text("lblInst"), u"Code Generation Incomplete..."_s);
    EXPECT_FALSE(world_.Errors.Reported.empty());
    EXPECT_EQ(Text("lblFiles"), u"No files"_s);
    EXPECT_FALSE(std::filesystem::exists(place));
}

TEST_F(TheWizard, APipeUnderAFilesNameIsToldInPlaceOfTheDifferences)
{
    ASSERT_EQ(mkfifo((folder_ / "Shop.vbp").c_str(), 0600), 0);
    Show();
    Next(2);
    WithDialogs([this] { Run(); }, {[](QWidget& dialog) {
                    Click(dialog, "cmdShowDifferences");
                    EXPECT_THAT(Find<QLabel>(dialog, "lblDifferences").text().toStdString(),
                                HasSubstr("The differences can't be shown. "));
                    EXPECT_THAT(Find<QLabel>(dialog, "lblDifferences").text().toStdString(),
                                HasSubstr("It is no plain file"));
                    Find<QRadioButton>(dialog, "optLeave").click();
                    Click(dialog, "cmdOK");
                }});
    EXPECT_EQ(Outcome(u"Shop.vbp"_s), u"left"_s);
}

TEST_F(TheWizard, TheOptionsAreThoseOfTheRun)
{
    Put(folder_ / "Shop.vbp", "mine");
    world_.State.Generation.VisualBasicCommand = "vb6";
    QWidget& window = Show();
    Next(2);
    EXPECT_TRUE(Find<QCheckBox>(window, "chkCompile").isChecked());
    Find<QRadioButton>(window, "optLeave").click();
    Click(window, "chkCompile");
    Run();
    EXPECT_EQ(Outcome(u"Shop.vbp"_s), u"left"_s);
    EXPECT_TRUE(world_.Processes.Started.empty());
    EXPECT_EQ(world_.UserSettings.GetKeyValue(settings_section::kGenerateCodeSettings, "AutoCompile"), "0");
}

TEST_F(TheWizard, WithoutVisualBasicItSaysWhyItCanNotCompile)
{
    QWidget& window = Show();
    Next(2);
    EXPECT_FALSE(Find<QCheckBox>(window, "chkCompile").isEnabled());
    EXPECT_TRUE(Find<QLabel>(window, "lblMayCompile").isVisible());
}

TEST_F(TheWizard, IsWalkedByKeysAlone)
{
    QWidget& window = Show();
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(window.focusWidget()->objectName(), u"txtFolder"_s);
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Page(), wizard_page::kOptions);
    QTest::keyClick(window.windowHandle(), Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Find<QRadioButton>(window, "optOverwrite").isChecked(); }));
    QTest::keyClick(window.windowHandle(), Qt::Key_F, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return HasEnded(); }, 20'000));
    EXPECT_TRUE(IsThere("Shop.vbp"));
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
}

TEST(SettledFilesModel, HoldsWhatAModelPromisesAndCounts)
{
    SettledFilesModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(model.Summary(), u"No files"_s);
    model.Show({{"Shop.vbp", FileOutcome::New}});
    EXPECT_EQ(model.Summary(), u"1 file: 1 new"_s);
    model.Show({{"Shop.vbp", FileOutcome::New},
                {"Globals.bas", FileOutcome::Overwritten},
                {"Customer.cls", FileOutcome::Unchanged},
                {"Test.frm", FileOutcome::Left},
                {"TestShop.vbg", FileOutcome::New}});
    EXPECT_EQ(model.Summary(), u"5 files: 2 new, 1 overwritten, 1 unchanged, 1 left"_s);
    EXPECT_EQ(model.index(3, 1).data().toString(), u"left"_s);
    EXPECT_FALSE(model.index(3, 0).data(Qt::DecorationRole).isNull());
}

} // namespace
} // namespace veldrane::testing
