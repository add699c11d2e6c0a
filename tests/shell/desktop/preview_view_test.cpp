#include "shell/desktop/preview_view.h"

#include "screenshots.h"
#include "shell/main_window/shown_lines.h"
#include "support/memory_file_system.h"
#include "support/scripted_file_dialogs.h"
#include "support/scripted_messages.h"
#include "widgets.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

struct ThePreview : ::testing::Test
{
    ThePreview()
    {
        view.resize(400, 300);
        view.show();
        view.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
        list.setFocus();
    }

    void ClickRow(int row, Qt::KeyboardModifiers modifiers = {})
    {
        list.scrollTo(list.model()->index(row, 0));
        const QRect place = list.visualRect(list.model()->index(row, 0));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, QPoint(5, place.center().y()));
    }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    [[nodiscard]] static QString Clipboard() { return QGuiApplication::clipboard()->text(); }

    ScriptedFileDialogs dialogs;
    MemoryFileSystem files;
    ScriptedMessages messages;
    text::CodePage codePage;
    PreviewPane pane;
    PreviewView view{pane, {dialogs, files, messages, codePage}};
    QListView& list = Find<QListView>(view, "lstPreview");
    QAbstractItemModelTester tester{list.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ThePreview, HasTheFirstRowSelected)
{
    ShowLines(pane, {"a", "b"});
    EXPECT_EQ(list.currentIndex().row(), 0);
    EXPECT_TRUE(list.selectionModel()->isRowSelected(0));
}

TEST_F(ThePreview, TellsThePaneOfTheRowThatAPersonGoesTo)
{
    ShowLines(pane, {"a", "b", "c"});
    ClickRow(2);
    EXPECT_EQ(pane.Selected(), 2U);
    Press(Qt::Key_Up);
    EXPECT_EQ(pane.Selected(), 1U);
}

TEST_F(ThePreview, ScrollsToTheRowThatThePaneSelects)
{
    ShowLines(pane, std::vector<std::string>(100'000, "a line"));
    pane.Select(99'999);
    EXPECT_EQ(list.currentIndex().row(), 99'999);
    EXPECT_TRUE(list.viewport()->rect().intersects(list.visualRect(list.currentIndex())));
}

TEST_F(ThePreview, CopiesTheSelectedLines)
{
    ShowLines(pane, {"a", "  b", "c", "d"});
    ClickRow(1);
    ClickRow(3, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), u"  b\nd"_s);
    EXPECT_EQ(list.selectionModel()->selectedRows().size(), 2);
}

TEST_F(ThePreview, CopiesARangeMadeByKeys)
{
    ShowLines(pane, {"a", "b", "c"});
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), u"a\nb"_s);
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), u"a\nb\nc"_s);
}

TEST_F(ThePreview, CopiesAllLines)
{
    ShowLines(pane, {"a", "b", "c"});
    view.Action("CopyAll")->trigger();
    EXPECT_EQ(Clipboard(), u"a\nb\nc"_s);
}

TEST_F(ThePreview, LeavesTheClipboardAloneWhereThereAreNoLines)
{
    QGuiApplication::clipboard()->setText(u"mine"_s);
    ShowLines(pane, {});
    view.Action("CopyAll")->trigger();
    EXPECT_EQ(Clipboard(), u"mine"_s);
}

TEST_F(ThePreview, FindsWithEachLetter)
{
    ShowLines(pane, {"Dim a", "Let City", "Get City", "End"});
    EXPECT_TRUE(Find<QWidget>(view, "findBar").isHidden());
    Press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), u"city"_s);
    EXPECT_EQ(Find<QLabel>(view, "lblFindStatus").text(), u"1 of 2"_s);
    EXPECT_EQ(pane.Selected(), 1U);
    Press(Qt::Key_Return);
    EXPECT_EQ(pane.Selected(), 2U);
    EXPECT_EQ(list.selectionModel()->selectedRows().size(), 1);
    Press(Qt::Key_Return);
    EXPECT_EQ(pane.Selected(), 1U);
    Press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(pane.Selected(), 2U);
    Press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(pane.Selected(), 1U);
    QTest::keyClicks(QApplication::focusWidget(), u"x"_s);
    EXPECT_EQ(Find<QLabel>(view, "lblFindStatus").text(), u"Not found"_s);
    EXPECT_FALSE(Find<QWidget>(view, "cmdFindNext").isEnabled());
}

TEST_F(ThePreview, GoesToPlacesByTheButtons)
{
    ShowLines(pane, {"a", "b", "a"});
    view.Action("Find")->trigger();
    Type(view, "txtFind", "A");
    Click(view, "cmdFindNext");
    EXPECT_EQ(pane.Selected(), 2U);
    Click(view, "cmdFindPrevious");
    EXPECT_EQ(pane.Selected(), 0U);
}

TEST_F(ThePreview, EndsTheSearchAndGoesBackToTheLines)
{
    ShowLines(pane, {"a", "b"});
    Press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), u"b"_s);
    Press(Qt::Key_Escape);
    EXPECT_TRUE(Find<QWidget>(view, "findBar").isHidden());
    EXPECT_TRUE(view.Search().Matches().empty());
    EXPECT_TRUE(list.hasFocus());
    EXPECT_EQ(pane.Selected(), 1U);
}

TEST_F(ThePreview, TakesTheStepThatIsAskedForWhenTheSearchHasEnded)
{
    ShowLines(pane, {"a", "b", "a", "b", "a"});
    Press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), u"a"_s);
    ASSERT_EQ(pane.Selected(), 0U);
    Press(Qt::Key_Escape);
    Press(Qt::Key_F3);
    EXPECT_EQ(pane.Selected(), 2U);
    Press(Qt::Key_Escape);
    Press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(pane.Selected(), 0U);
}

TEST_F(ThePreview, ShowsThePlaceOfALongLine)
{
    ShowLines(pane, {std::string(500, 'a') + "here", "b"});
    EXPECT_EQ(list.horizontalScrollBar()->value(), 0);
    view.Search().Find("here");
    EXPECT_GT(list.horizontalScrollBar()->value(), 400);
    view.Search().Find("a");
    EXPECT_LT(list.horizontalScrollBar()->value(), 100);
}

TEST_F(ThePreview, IsSavedFromItsMenu)
{
    dialogs = {"/Preview.txt"};
    ShowLines(pane, {"a", "b"});
    view.Action("SavePreview")->trigger();
    EXPECT_EQ(files.Files.at("/Preview.txt"), "a\r\nb\r\n");
}

TEST_F(ThePreview, ShowsTheFontAndTheBackgroundOfTheOptions)
{
    view.SetLook({.Background = 0x00FFFF, .Font = {.Name = "DejaVu Sans Mono", .Size = 14, .Bold = true}});
    EXPECT_EQ(list.palette().color(QPalette::Base), QColor(Qt::yellow));
    EXPECT_EQ(list.font().family(), u"DejaVu Sans Mono"_s);
    EXPECT_EQ(list.font().pointSize(), 14);
    EXPECT_TRUE(list.font().bold());
}

TEST_F(ThePreview, FollowsTheDesktopButForColoursOfOnesOwn)
{
    constexpr auto kWindowBackground = static_cast<Color>(0x80000005);
    view.SetLook({.Background = kWindowBackground});
    EXPECT_GT(list.palette().color(QPalette::Base).lightness(), 200);
    const ShadesWhile dark(Shades::Dark);
    QApplication::processEvents();
    EXPECT_LT(list.palette().color(QPalette::Base).lightness(), 50);
    view.SetLook({.Background = 0x00FFFF});
    const ShadesWhile light(Shades::Light);
    EXPECT_EQ(list.palette().color(QPalette::Base), QColor(Qt::yellow));
}

TEST_F(ThePreview, GrowsItsLinesWithTheFont)
{
    ShowLines(pane, {"a", "b"});
    view.SetLook({.Font = {.Size = 8}});
    const int before = list.visualRect(list.model()->index(1, 0)).top();
    view.SetLook({.Font = {.Size = 40}});
    EXPECT_GT(list.visualRect(list.model()->index(1, 0)).top(), before);
}

TEST_F(ThePreview, OffersAMonospacedFont)
{
    const QSignalSpy wanted(&view, &PreviewView::MonospacedFontWanted);
    view.Action("MonospacedPreview")->trigger();
    EXPECT_EQ(wanted.size(), 1);
}

TEST_F(ThePreview, HasItsActionsAsItsMenu)
{
    QStringList names;
    for (const QAction* action : list.actions())
        names.push_back(action->objectName());
    EXPECT_EQ(names, (QStringList{u"CopyLines"_s, u"CopyAll"_s, u"SelectAllPreview"_s, u"Find"_s, u"FindNext"_s,
                                  u"FindPrevious"_s, u"SavePreview"_s, u"PrintPreview"_s, u"MonospacedPreview"_s}));
    EXPECT_EQ(list.contextMenuPolicy(), Qt::ActionsContextMenu);
}

TEST_F(ThePreview, IsAsWideAsItsWidestLine)
{
    ShowLines(pane, {"short"});
    EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0);
    ShowLines(pane, {"short", std::string(300, 'W')});
    EXPECT_GT(list.horizontalScrollBar()->maximum(), 1000);
}

// Lines of every kind, for pictures.
PreviewText LinesOfAllKinds()
{
    PreviewText text;
    TTCOutputs& lines = text.Blocks.emplace_back();
    lines.Add("Preview Class Module Code", LineClass::Head);
    lines.Add("Class Name: Customer", LineClass::Head).Icon = "TableClass";
    lines.Add("FileName: Customer.cls").Icon = "File";
    lines.Add("VERSION 1.0 CLASS", LineClass::Hidden);
    lines.Add("Private mCity as String", LineClass::Code);
    lines.Add("Public Property Get City() as String", LineClass::HeadProperty);
    lines.Add("    City = mCity");
    lines.Add("End Property", LineClass::Head);
    lines.Add("    Key Type: Primary/Unique Key", LineClass::Key).Icon = "FieldKey";
    lines.Add("            Globals.bas is a required module.", LineClass::Note);
    lines.Add("' This name is a reserved word.", LineClass::Alert);
    return text;
}

int Count(const QImage& picture, QRgb color)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            count += picture.pixel(x, y) == color ? 1 : 0;
    return count;
}

TEST_F(ThePreview, MarksThePlacesOfTheSearch)
{
    pane.Show(LinesOfAllKinds(), "Customer");
    view.resize(480, 320);
    Photograph(view, "lstPreview");
    view.Action("Find")->trigger();
    Type(view, "txtFind", "city");
    Photograph(view, "lstPreview-find");
    const QImage picture = view.grab().toImage();
    EXPECT_GT(Count(picture, 0xFFFFE066), 50);
    EXPECT_GT(Count(picture, 0xFFFFA94D), 50);
}

} // namespace
} // namespace veldrane::testing
