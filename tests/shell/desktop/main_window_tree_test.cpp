#include "main_window_fixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QTest>
#include <QWindow>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(MainWindowTest, TheTreeIsWalkedByTheKeys)
{
    StartWithClasses();
    Tree().setFocus();
    QTest::keyClick(&Tree(), Qt::Key_Home);
    while (Tree().currentIndex().data().toString() != u"Customer") {
        const QModelIndex before = Tree().currentIndex();
        QTest::keyClick(&Tree(), Qt::Key_Down);
        ASSERT_NE(Tree().currentIndex(), before);
    }
    EXPECT_EQ(PreviewLine(1), u"Class Name: Customer"_s);
}

TEST_F(MainWindowTest, ATableDroppedOnANodeBecomesAClassThere)
{
    StartInShop();
    EXPECT_TRUE(AddTable(u"Customers"_s, kParents));
    EXPECT_TRUE(AddTable(u"Orders"_s, u"Customer"_s));
    EXPECT_TRUE(AddTable(u"Countries"_s, kLookups));
    EXPECT_EQ(Above(u"Customer"_s), kParents);
    EXPECT_EQ(Above(u"Orders"_s), u"Customer"_s);
    EXPECT_EQ(rules_->Classes().Item("Order")->ParentClassName, "Customer");
    EXPECT_TRUE(rules_->Classes().Item("Country")->IsDomainTable);
    EXPECT_TRUE(rules_->Project().Modified());
}

TEST_F(MainWindowTest, ANameThatIsBeingTypedIsTakenBeforeAPlaceIsChosen)
{
    StartInShop();
    ClickTable(u"Customers"_s);
    TypeName(u"Shop"_s);
    WithDialogs([&] { Choose(Choices("AddClassTo"), kParents); }, {AcceptClass});
    EXPECT_TRUE(HasNode(u"Customer"_s));
    EXPECT_EQ(rules_->Project().ProjectName(), "Shop");
    EXPECT_TRUE(HasNode(u"Shop"_s));
}

TEST_F(MainWindowTest, ThePlacesOfAClassAreListedByAKey)
{
    StartWithClasses();
    ClickNode(u"Customer"_s);
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    QTest::keyClick(&Tree(), Qt::Key_M, Qt::ControlModifier);
    QMenu& menu = *Tool("MoveClassTo").menu();
    EXPECT_TRUE(menu.isVisible());
    EXPECT_FALSE(menu.actions().empty());
    menu.close();
}

TEST_F(MainWindowTest, ManyPlacesAreScrolledInOneColumn)
{
    StartInShop();
    for (const char* tool : {"AddClassTo", "MoveClassTo"}) {
        QMenu& menu = Choices(tool);
        const int width = menu.sizeHint().width();
        for (int place = 0; place < 300; ++place)
            menu.addAction(u"Place"_s);
        EXPECT_LT(menu.sizeHint().width(), 2 * width) << tool;
        menu.popup({});
        EXPECT_LE(menu.height(), menu.screen()->availableGeometry().height()) << tool;
        menu.close();
    }
}

TEST_F(MainWindowTest, ADropWhereNothingWouldHappenIsRefused)
{
    StartInShop();
    const std::size_t classes = rules_->Classes().Count();
    EXPECT_FALSE(DropRow("Customers", u"Required Files"_s));
    EXPECT_FALSE(HasNode(u"Customer"_s));
    QMimeData foreign;
    foreign.setText(u"Customers"_s);
    EXPECT_FALSE(LetGo(*Tree().viewport(), foreign, Tree().visualRect(Node(kParents)).center()));
    EXPECT_EQ(rules_->Classes().Count(), classes);
}

TEST_F(MainWindowTest, AClassDroppedOnAnotherNodeMovesThere)
{
    StartWithClasses();
    EXPECT_FALSE(DropNode(u"Customer"_s, u"Orders"_s)); // it would stand below itself
    EXPECT_TRUE(DropNode(u"Order"_s, kLookups));
    EXPECT_TRUE(rules_->Classes().Item("Order")->IsDomainTable);
    EXPECT_EQ(Above(u"Order"_s), kLookups);
}

TEST_F(MainWindowTest, AClassIsAddedByTheMenuAlone)
{
    StartInShop();
    EXPECT_THAT(Rows(Choices("AddClassTo")), ElementsAre("((nothing to choose))"));
    ClickTable(u"Customers"_s);
    WithDialogs([&] { Choose(Choices("AddClassTo"), kParents); }, {AcceptClass});
    EXPECT_EQ(Above(u"Customer"_s), kParents);
    ClickTable(u"Orders"_s);
    WithDialogs([&] { Choose(Choices("AddClassTo"), u"Customer"_s); }, {AcceptClass});
    EXPECT_EQ(rules_->Classes().Item("Order")->ParentClassName, "Customer");
}

TEST_F(MainWindowTest, AClassIsMovedByTheMenuAlone)
{
    StartWithClasses();
    ClickNode(u"Order"_s);
    Choose(Choices("MoveClassTo"), kLookups + u" (without its collection)"_s);
    EXPECT_TRUE(rules_->Classes().Item("Order")->IsDomainTable);
    EXPECT_FALSE(rules_->Classes().Item("Order")->CreateCollection);
    EXPECT_EQ(Tree().currentIndex().data().toString(), u"Order"_s);
}

TEST_F(MainWindowTest, ADoubleClickOpensTheEditorOfTheClass)
{
    StartWithClasses();
    rules_->Project().SetModified(false);
    const auto open = [&] {
        ClickNode(u"Customer"_s);
        QTest::mouseDClick(Tree().viewport(), Qt::LeftButton, {}, Tree().visualRect(Node(u"Customer"_s)).center());
    };
    WithDialogs(open, {[](QWidget& editor) {
                    EXPECT_EQ(editor.windowTitle(), u"Edit Customer"_s);
                    Click(editor, "cmdCancel");
                }});
    EXPECT_FALSE(rules_->Project().Modified());
    WithDialogs(open, {[](QWidget& editor) {
                    Type(editor, "txtClassName", "Client");
                    Click(editor, "cmdOK");
                }});
    EXPECT_TRUE(rules_->Project().Modified());
    EXPECT_TRUE(HasNode(u"Client"_s));
    EXPECT_FALSE(HasNode(u"Customer"_s));
    EXPECT_EQ(rules_->Classes().Item("Order")->ParentClassName, "Client");
}

TEST_F(MainWindowTest, AClassOfItsOwnIsAddedInTheEditor)
{
    StartWithClasses();
    const std::size_t classes = rules_->Classes().Count();
    WithDialogs([&] { RunTool("NewClass"); }, {[](QWidget& editor) {
                    EXPECT_EQ(editor.windowTitle(), u"Add New Class"_s);
                    QTest::keyClick(&editor, Qt::Key_Escape);
                }});
    EXPECT_EQ(rules_->Classes().Count(), classes);
    WithDialogs([&] { RunTool("NewClass"); }, {AcceptClass});
    EXPECT_TRUE(HasNode(u"NewClass"_s));
}

TEST_F(MainWindowTest, AClassDroppedOnAnotherIsJoinedToItInTheEditor)
{
    StartWithClasses();
    const auto drop = [&] { EXPECT_TRUE(DropNode(u"Country"_s, u"Customer"_s)); };
    WithDialogs(drop, {[](QWidget& editor) {
                    EXPECT_EQ(editor.windowTitle(), u"Move Country"_s);
                    Click(editor, "cmdCancel");
                }});
    EXPECT_EQ(Above(u"Country"_s), kLookups);
    WithDialogs(drop, {AcceptClass});
    EXPECT_EQ(rules_->Classes().Item("Country")->ParentClassName, "Customer");
}

TEST_F(MainWindowTest, F2LetsTheProjectBeNamedAnew)
{
    StartWithClasses();
    ClickNode(u"New Project"_s);
    Tree().setFocus();
    QTest::keyClick(&Tree(), Qt::Key_F2);
    auto* editor = Tree().findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, u"Shop"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(rules_->Project().ProjectName(), "Shop");
    EXPECT_EQ(window_->windowHandle()->title(), u"Veldrane Professional Edition +Forms - [Shop]*"_s);
    EXPECT_EQ(Tree().model()->index(0, 0).data().toString(), u"Shop"_s);
    ClickNode(u"Customer"_s);
    QTest::keyClick(&Tree(), Qt::Key_F2);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Tree().findChild<QLineEdit*>(), nullptr);
}

TEST_F(MainWindowTest, AnEmptyNameIsNotTaken)
{
    Start();
    ClickNode(kParents);
    ClickNode(u"New Project"_s);
    Tool("ProjectRename").trigger();
    auto* editor = Tree().findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(rules_->Project().ProjectName(), "New Project");
}

TEST_F(MainWindowTest, DelDeletesTheClassOnlyWhileTheTreeHasTheFocus)
{
    StartWithClasses();
    ClickNode(u"Country"_s);
    world_.Messages.Forget();
    Preview().setFocus();
    QTest::keyClick(&Preview(), Qt::Key_Delete);
    EXPECT_THAT(Titles(), IsEmpty());
    Tree().setFocus();
    world_.Messages.Add(Answer::Ok);
    QTest::keyClick(&Tree(), Qt::Key_Delete);
    EXPECT_THAT(Titles(), ElementsAre("Confirm Delete"));
    EXPECT_FALSE(HasNode(u"Country"_s));
}

TEST_F(MainWindowTest, ARowMarksTheClassesOnItsTable)
{
    StartWithClasses();
    ClickTable(u"Customers"_s);
    EXPECT_TRUE(Node(u"Customer"_s).data(Qt::BackgroundRole).isValid());
    EXPECT_FALSE(Node(u"Order"_s).data(Qt::BackgroundRole).isValid());
}

} // namespace
} // namespace veldrane::testing
