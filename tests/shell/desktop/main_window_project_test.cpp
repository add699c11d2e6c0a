#include "started_window.h"

#include <QClipboard>
#include <QDialog>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <QWindow>

#include <gmock/gmock.h>

#include <algorithm>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class MainWindowProject : public StartedWindow
{
  protected:
    QString Title() { return window_->windowHandle()->title(); }
};

TEST_F(MainWindowProject, ANameThatIsBeingTypedIsSaved)
{
    Start();
    TypeName(u"Shop"_s);
    world_.Dialogs.Add("/Shop.kzm");
    QTest::keyClick(window_.get(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(rules_->Project().ProjectName(), "Shop");
    ASSERT_TRUE(world_.Files.Files.contains("/Shop.kzm"));
    EXPECT_NE(world_.Files.Files.at("/Shop.kzm").find("Shop"), std::string::npos);
    EXPECT_FALSE(rules_->Project().Modified());
}

TEST_F(MainWindowProject, ANameThatIsBeingTypedIsAskedAboutWhenTheWindowCloses)
{
    for (const bool byTool : {false, true}) {
        Start();
        TypeName(u"Shop"_s);
        world_.Messages.Forget();
        world_.Messages.Add(Answer::Cancel);
        if (byTool)
            RunTool("Exit");
        else
            EXPECT_FALSE(window_->close());
        EXPECT_TRUE(window_->isVisible());
        ASSERT_THAT(world_.Messages.Asked(), SizeIs(1));
        EXPECT_EQ(world_.Messages.Asked().front().Title, "Save Changes?");
        EXPECT_EQ(rules_->Project().ProjectName(), "Shop");
    }
}

TEST_F(MainWindowProject, StaysWhileADialogOrARoutineIsOnItsWay)
{
    Start();
    {
        QDialog dialog(window_.get());
        dialog.setModal(true);
        dialog.show();
        EXPECT_FALSE(window_->close());
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    EXPECT_FALSE(window_->close());
    QApplication::restoreOverrideCursor();
    EXPECT_THAT(world_.Messages.Asked(), IsEmpty());
    EXPECT_TRUE(window_->close());
}

TEST_F(MainWindowProject, AStarBehindTheTitleSaysThatItIsModified)
{
    Start();
    const QString title = u"Veldrane Professional Edition +Forms - [New Project]"_s;
    EXPECT_EQ(Title(), title);
    rules_->Project().SetModified(true);
    EXPECT_EQ(Title(), title + u"*"_s);
    world_.Dialogs.Add("/Shop.kzm");
    RunTool("SaveAs");
    EXPECT_EQ(Title(), title);
    rules_->Project().SetModified(true);
    EXPECT_EQ(Title(), title + u"*"_s);
}

TEST_F(MainWindowProject, AStarOfItsOwnNameStands)
{
    Start();
    rules_->Project().SetProjectName("a[*]");
    EXPECT_EQ(Title(), u"Veldrane Professional Edition +Forms - [a[*]]"_s);
    rules_->Project().SetModified(true);
    EXPECT_EQ(Title(), u"Veldrane Professional Edition +Forms - [a[*]]*"_s);
}

TEST_F(MainWindowProject, AnotherProjectHasItsOwnMark)
{
    Start();
    rules_->Project().SetModified(true);
    Start();
    EXPECT_FALSE(window_->isWindowModified());
    rules_->Project().SetModified(true);
    EXPECT_TRUE(window_->isWindowModified());
}

TEST_F(MainWindowProject, EachToolIsOfferedAsTheTableSays)
{
    Start();
    for (const auto& tool : Tools()) {
        const std::string name(tool.Name);
        const auto isOffered = [&](const QAction* action) {
            return action->text().toStdString() == tool.Caption &&
                   action->shortcut().toString(QKeySequence::PortableText).toStdString() == tool.Shortcut;
        };
        const QList<QMenu*> menus = window_->menuBar()->findChildren<QMenu*>();
        const bool found = std::any_of(menus.begin(), menus.end(), [&](const QMenu* menu) {
            const QList<QAction*> offered = menu->actions();
            return menu->title().toStdString() == tool.Menu &&
                   std::any_of(offered.begin(), offered.end(), [&](const QAction* action) {
                       return isOffered(action) &&
                              (action->menu() != nullptr || action->statusTip().toStdString() == tool.StatusText);
                   });
        });
        EXPECT_TRUE(found) << name;
    }
}

TEST_F(MainWindowProject, ThePreviewsToolsActFromTheTree)
{
    Start();
    Tree().setFocus();
    QTest::keyClick(window_.get(), Qt::Key_F, Qt::ControlModifier);
    auto& text = Find<QLineEdit>(*window_, "txtFind");
    EXPECT_TRUE(text.isVisible());
    EXPECT_TRUE(text.hasFocus());
    QTest::keyClicks(&text, u"project"_s);
    QTest::keyClick(&text, Qt::Key_Escape);
    EXPECT_FALSE(text.isVisible());
    QTest::keyClick(window_.get(), Qt::Key_F3);
    EXPECT_TRUE(text.isVisible());
    EXPECT_EQ(text.text(), u"project"_s);
    QTest::keyClick(window_.get(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith(u"Project Summary"_s));
}

TEST_F(MainWindowProject, ACopyOfNothingLeavesTheClipboardAlone)
{
    Start();
    QApplication::clipboard()->setText(u"kept"_s);
    auto& preview = Find<QListView>(*window_, "lstPreview");
    preview.clearSelection();
    preview.setFocus();
    QTest::keyClick(&preview, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"kept"_s);
}

TEST_F(MainWindowProject, AFolderIsNotTaken)
{
    Start();
    const QTemporaryDir folder;
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(folder.path())});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &enter);
    EXPECT_FALSE(enter.isAccepted());
    data.setUrls({QUrl::fromLocalFile(folder.filePath(u"Shop.kzm"_s))});
    QDragEnterEvent file({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &file);
    EXPECT_TRUE(file.isAccepted());
}

} // namespace
} // namespace veldrane::testing
