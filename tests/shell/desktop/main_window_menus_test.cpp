#include "main_window_fixture.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QTest>
#include <QWindow>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MainWindowMenus : public MainWindowTest
{
  protected:
    // Right click on an entry.
    static std::vector<std::string> MenuAt(QTreeView& view, const QString& text)
    {
        ClickEntry(view, text, Qt::RightButton);
        return ContextMenuBy([&] {
            const QPoint where = view.visualRect(Entry(view, text)).center();
            QContextMenuEvent event(QContextMenuEvent::Mouse, where, view.viewport()->mapToGlobal(where));
            QApplication::sendEvent(view.viewport(), &event);
        });
    }

    // The menu key, as a window hears of it; the place of the mouse says nothing.
    std::vector<std::string> MenuByItsKey(QTreeView& view)
    {
        view.setFocus();
        return ContextMenuBy([&] {
            QContextMenuEvent event(QContextMenuEvent::Keyboard, {0, 0}, {0, 0});
            QApplication::sendEvent(window_->windowHandle(), &event);
        });
    }

    std::vector<std::string> MenuByShiftF10(QTreeView& view)
    {
        window_->activateWindow(); // a menu that was open has taken that
        QApplication::processEvents();
        view.setFocus();
        return ContextMenuBy([&] { QTest::keyClick(window_->windowHandle(), Qt::Key_F10, Qt::ShiftModifier); });
    }
};

const auto kClassMenu = ElementsAre("Edit Class...", "Delete Class", "New Class...", "Move Class To", "Zoom Preview");
const auto kRowMenu = ElementsAre("Add Class To", "Refresh Tables");

TEST_F(MainWindowMenus, NodesAndRowsHaveMenus)
{
    StartWithClasses();
    EXPECT_THAT(MenuAt(Tree(), u"New Project"_s),
                ElementsAre("Properties...", "Rename", "New Class...", "Edit DataSource...", "Generate Code...",
                            "Expand Tree", "Collapse Tree"));
    EXPECT_THAT(MenuAt(Tree(), u"Customer"_s), kClassMenu);
    EXPECT_THAT(MenuAt(Tree(), u"Orders"_s),
                ElementsAre("(Edit Class...)", "(Delete Class)", "New Class...", "Move Class To", "Zoom Preview"));
    EXPECT_THAT(MenuAt(Tree(), kParents), IsEmpty());
    EXPECT_THAT(MenuAt(Tables(), u"Customers"_s), kRowMenu);
    EXPECT_THAT(MenuAt(Tables(), Tables().model()->index(0, 0).data().toString()), IsEmpty());
}

TEST_F(MainWindowMenus, TheMenuKeyOpensThatOfTheSelectedNode)
{
    StartWithClasses();
    ClickNode(u"Customer"_s);
    EXPECT_THAT(MenuByItsKey(Tree()), kClassMenu);
    EXPECT_THAT(MenuByShiftF10(Tree()), kClassMenu);
    ClickNode(kParents);
    EXPECT_THAT(MenuByItsKey(Tree()), IsEmpty());
}

TEST_F(MainWindowMenus, TheMenuKeyFindsANodeThatIsScrolledAway)
{
    StartWithClasses();
    ClickNode(u"Customer"_s);
    window_->resize(700, 260);
    QApplication::processEvents();
    Tree().scrollToBottom();
    ASSERT_LT(Tree().visualRect(Node(u"Customer"_s)).bottom(), 0);
    EXPECT_THAT(MenuByItsKey(Tree()), kClassMenu);
}

TEST_F(MainWindowMenus, TheMenuKeyOpensThatOfTheCurrentRow)
{
    StartInShop();
    ClickTable(u"Countries"_s); // the last one: nothing stands below it
    EXPECT_THAT(MenuByItsKey(Tables()), kRowMenu);
    EXPECT_THAT(MenuByShiftF10(Tables()), kRowMenu);
    Tables().setCurrentIndex(Tables().model()->index(0, 0)); // where a table is added by hand
    EXPECT_THAT(MenuByItsKey(Tables()), IsEmpty());
}

TEST_F(MainWindowMenus, TheMenuKeyIsSilentWhereNothingIsSelected)
{
    StartInShop();
    Tree().setCurrentIndex({});
    Tables().setCurrentIndex({});
    EXPECT_THAT(MenuByItsKey(Tree()), IsEmpty());
    EXPECT_THAT(MenuByItsKey(Tables()), IsEmpty());
}

TEST_F(MainWindowMenus, ADataSourceThatChangesLeavesTheCurrentNode)
{
    StartWithClasses();
    ClickNode(u"Order"_s);
    rules_->Project().SetConnectionString("PROVIDER=MSDASQL;DSN=Other;UID=;PWD=;");
    EXPECT_EQ(Tree().currentIndex().data().toString(), u"Order"_s);
    EXPECT_EQ(PreviewLine(1), u"Class Name: Order"_s);
}

} // namespace
} // namespace veldrane::testing
