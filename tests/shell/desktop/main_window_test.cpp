#include "shell/desktop/main_window.h"

#include "screenshots.h"
#include "shell/desktop/desktop_dialogs.h"
#include "shell/desktop/drag_payload.h"
#include "shell/desktop/row_list_view.h"
#include "support/fake_connection.h"
#include "support/memory_application.h"
#include "widgets.h"

#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QTreeView>
#include <QUrl>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QString kParents = u"Parent/Children Classes"_s;
const QString kLookups = u"Lookup/Domain Classes"_s;
constexpr const char* kShop = "PROVIDER=MSDASQL;DSN=Shop;UID=;PWD=;";

// The main window as a person has it in front of them, on a world in memory with a shop as data source.
class MainWindowTest : public ::testing::Test
{
  protected:
    MainWindowTest()
    {
        world_.Connect = [this](const std::string& text, StringOrigin /*origin*/) { return ConnectToShop(text); };
        auto& customers = shop_.Add("Customers");
        customers.Fields = {IdentityField("CustomerID"), Field("CompanyName", adVarWChar, 60),
                            NullableField("Remarks", adVarWChar, 200)};
        customers.Indexes = {PrimaryIndex({"CustomerID"})};
        auto& orders = shop_.Add("Orders");
        orders.Fields = {IdentityField("OrderID"), Field("CustomerID", adInteger)};
        orders.Keys = {ForeignKey("FK_Customer", "Customers", {{"CustomerID", "CustomerID"}})};
        auto& countries = shop_.Add("Countries");
        countries.Fields = {Field("CountryCode", adVarWChar, 2), Field("CountryName", adVarWChar, 60)};
        shop_.ProcedureNames = {"GetOrders"};
    }

    std::unique_ptr<DataSourceConnection> ConnectToShop(const std::string& text)
    {
        auto connection = std::make_unique<FakeConnection>();
        connection->Open(text);
        connection->Content = shop_;
        return connection;
    }

    // A new start of the program.
    void Start(const StartCommand& command = {})
    {
        window_.reset();
        rules_ = std::make_unique<frmMain>(world_.World, dialogs_, reading_);
        window_ = std::make_unique<MainWindow>(*rules_, world_.World);
        dialogs_.ShowOver(*window_);
        window_->show();
        window_->activateWindow();
        (void)rules_->Load(command);
        QApplication::processEvents();
    }

    void StartInShop()
    {
        Start();
        rules_->Project().SetConnectionString(kShop);
    }

    // Customers with their orders, and the countries as a lookup class.
    void StartWithClasses()
    {
        StartInShop();
        EXPECT_TRUE(DropRow("Customers", kParents));
        EXPECT_TRUE(DropRow("Orders", u"Customer"_s));
        EXPECT_TRUE(DropRow("Countries", kLookups));
    }

    QTreeView& Tree() { return Find<QTreeView>(*window_, "treMain"); }
    QListView& Preview() { return Find<QListView>(*window_, "lstPreview"); }
    QTreeView& Tables() { return Find<QTreeView>(*window_, "lstTables"); }
    QAction& Tool(const std::string& name) { return Find<QAction>(*window_, name); }

    static QModelIndex Entry(const QTreeView& view, const QString& text)
    {
        const QModelIndexList found = view.model()->match(view.model()->index(0, 0), Qt::DisplayRole, text, 1,
                                                          Qt::MatchExactly | Qt::MatchRecursive | Qt::MatchWrap);
        EXPECT_FALSE(found.isEmpty()) << text.toStdString();
        return found.isEmpty() ? QModelIndex() : found.front();
    }

    QModelIndex Node(const QString& text) { return Entry(Tree(), text); }

    bool HasNode(const QString& text)
    {
        return !Tree()
                    .model()
                    ->match(Tree().model()->index(0, 0), Qt::DisplayRole, text, 1,
                            Qt::MatchExactly | Qt::MatchRecursive)
                    .isEmpty();
    }

    QString Above(const QString& text) { return Node(text).parent().data().toString(); }

    static void ClickEntry(QTreeView& view, const QString& text, Qt::MouseButton button = Qt::LeftButton)
    {
        const QModelIndex entry = Entry(view, text);
        view.scrollTo(entry);
        QTest::mouseClick(view.viewport(), button, Qt::NoModifier, view.visualRect(entry).center());
    }

    void ClickNode(const QString& text) { ClickEntry(Tree(), text); }
    void ClickTable(const QString& text) { ClickEntry(Tables(), text); }

    QString PreviewLine(int row) { return Preview().model()->index(row, 0).data().toString(); }

    std::string Status() { return Find<QLabel>(*window_, "pnlStatus").text().toStdString(); }

    // Lets go of the thing over the node. Whether the node took it.
    bool Drop(const Dragged& dragged, const QString& target)
    {
        const std::unique_ptr<QMimeData> data = PackDragged(dragged);
        Tree().scrollTo(Node(target));
        return LetGo(*Tree().viewport(), *data, Tree().visualRect(Node(target)).center());
    }

    bool DropRow(const QString& table, const QString& target)
    {
        const auto dragged = rules_->DraggedFromRow(static_cast<std::size_t>(Entry(Tables(), table).row()));
        return dragged && Drop(*dragged, target);
    }
    bool DropRow(const char* table, const QString& target) { return DropRow(QString::fromLatin1(table), target); }

    bool DropNode(const QString& node, const QString& target)
    {
        const auto dragged = rules_->DraggedFromNode(static_cast<std::size_t>(Node(node).internalId()));
        return dragged && Drop(*dragged, target);
    }

    static bool LetGo(QWidget& over, const QMimeData& data, QPoint where)
    {
        QDragEnterEvent enter(where, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&over, &enter);
        QDragMoveEvent move(where, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        move.setAccepted(enter.isAccepted());
        QApplication::sendEvent(&over, &move);
        if (!move.isAccepted())
            return false;
        QDropEvent drop(where, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&over, &drop);
        QApplication::processEvents();
        return drop.isAccepted();
    }

    // Right click on an entry; the menu's rows, those that are off in brackets.
    static std::vector<std::string> ContextMenu(QTreeView& view, const QString& text)
    {
        ClickEntry(view, text, Qt::RightButton);
        std::vector<std::string> rows;
        QTimer::singleShot(0, &view, [&rows] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu == nullptr)
                return;
            rows = Rows(*menu);
            menu->close();
        });
        const QPoint where = view.visualRect(Entry(view, text)).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, where, view.viewport()->mapToGlobal(where));
        QApplication::sendEvent(view.viewport(), &event);
        QApplication::processEvents();
        return rows;
    }

    static std::vector<std::string> Rows(const QMenu& menu)
    {
        std::vector<std::string> rows;
        for (const QAction* action : menu.actions()) {
            const std::string text = QString(action->text()).remove(u'&').toStdString();
            rows.push_back(action->isEnabled() ? text : "(" + text + ")");
        }
        return rows;
    }

    // What the submenu of the tool offers.
    QMenu& Choices(const std::string& tool)
    {
        QMenu& menu = *Tool(tool).menu();
        Q_EMIT menu.aboutToShow();
        return menu;
    }

    static void Choose(const QMenu& menu, const QString& text)
    {
        for (QAction* action : menu.actions())
            if (action->text() == text)
                return action->trigger();
        ADD_FAILURE() << "no choice " << text.toStdString();
    }

    std::vector<std::string> Titles()
    {
        std::vector<std::string> titles;
        for (const Question& question : world_.Messages.Asked())
            titles.push_back(question.Title);
        return titles;
    }

    MemoryApplication world_;
    FakeCatalog shop_;
    DesktopDialogs dialogs_;
    CatalogReading reading_{world_.Clock};
    std::unique_ptr<frmMain> rules_;
    std::unique_ptr<MainWindow> window_;
};

TEST_F(MainWindowTest, StartsWithANewProjectAndNoDataSource)
{
    Start();
    EXPECT_EQ(window_->windowTitle(), u"Veldrane Professional Edition +Forms - [New Project]"_s);
    EXPECT_EQ(Tree().currentIndex().data().toString(), u"New Project"_s);
    EXPECT_TRUE(Tree().isExpanded(Tree().currentIndex()));
    EXPECT_EQ(Tables().model()->index(0, 0).data().toString(), u"<no datasource defined>"_s);
    EXPECT_TRUE(Tool("OpenDatasource").isEnabled());
    for (const char* tool : {"AddClassTo", "RefreshTables", "DeleteClass", "MoveClassTo", "Generate", "NewClass"})
        EXPECT_FALSE(Tool(tool).isEnabled()) << tool;
    Photograph(*window_, "frmMain-no-data-source");
}

TEST_F(MainWindowTest, ConnectsThroughTheConnectionDialog)
{
    Start();
    WithDialogs([&] { Tool("OpenDatasource").trigger(); }, {[](QWidget& dialog) {
                    auto& providers = Find<QComboBox>(dialog, "cmbProviders");
                    providers.setFocus();
                    QTest::keyClick(&providers, Qt::Key_Home);
                    QWidget& page = Find<QWidget>(dialog, "page0");
                    Find<QComboBox>(page, "cmbDSN").setFocus();
                    QTest::keyClicks(&Find<QComboBox>(page, "cmbDSN"), u"Shop"_s);
                    Click(dialog, "cmdOK");
                }});
    EXPECT_EQ(rules_->Project().ConnectionString(), kShop);
    EXPECT_EQ(Tables().model()->rowCount(), 4);
    EXPECT_TRUE(Tool("RefreshTables").isEnabled());
    EXPECT_THAT(Titles(), IsEmpty());
}

TEST_F(MainWindowTest, AClickOnANodeShowsItsPreviewAndWhatItsMembersAre)
{
    StartWithClasses();
    ClickNode(u"Customer"_s);
    EXPECT_EQ(PreviewLine(0), u"Preview Class Module Code"_s);
    EXPECT_EQ(PreviewLine(1), u"Class Name: Customer"_s);
    auto& navigate = Find<QComboBox>(*window_, "cmbNavigate");
    const int member = navigate.findText(u"CompanyName"_s, Qt::MatchContains);
    ASSERT_GE(member, 0);
    navigate.setFocus();
    navigate.setCurrentIndex(member);
    Q_EMIT navigate.activated(member);
    EXPECT_GT(Preview().currentIndex().row(), 1);
    EXPECT_TRUE(Tool("DeleteClass").isEnabled());
    ClickNode(kParents);
    EXPECT_NE(PreviewLine(0), u"Preview Class Module Code"_s);
    EXPECT_FALSE(Tool("DeleteClass").isEnabled());
}

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
    EXPECT_TRUE(DropRow("Customers", kParents));
    EXPECT_TRUE(DropRow("Orders", u"Customer"_s));
    EXPECT_TRUE(DropRow("Countries", kLookups));
    EXPECT_EQ(Above(u"Customer"_s), kParents);
    EXPECT_EQ(Above(u"Orders"_s), u"Customer"_s);
    EXPECT_EQ(rules_->Classes().Item("Order")->ParentClassName, "Customer");
    EXPECT_TRUE(rules_->Classes().Item("Country")->IsDomainTable);
    EXPECT_TRUE(rules_->Project().Modified());
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
    Choose(Choices("AddClassTo"), kParents);
    EXPECT_EQ(Above(u"Customer"_s), kParents);
    ClickTable(u"Orders"_s);
    Choose(Choices("AddClassTo"), u"Customer"_s);
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

TEST_F(MainWindowTest, NodesAndRowsHaveTheirMenus)
{
    StartWithClasses();
    EXPECT_THAT(ContextMenu(Tree(), u"New Project"_s),
                ElementsAre("(Properties...)", "Rename", "(New Class...)", "Edit DataSource...", "(Generate Code...)",
                            "Expand Tree", "Collapse Tree"));
    EXPECT_THAT(ContextMenu(Tree(), u"Customer"_s),
                ElementsAre("(Edit Class...)", "Delete Class", "(New Class...)", "Move Class To", "Zoom Preview"));
    EXPECT_THAT(ContextMenu(Tree(), u"Orders"_s),
                ElementsAre("(Edit Class...)", "(Delete Class)", "(New Class...)", "Move Class To", "Zoom Preview"));
    EXPECT_THAT(ContextMenu(Tree(), kParents), IsEmpty());
    EXPECT_THAT(ContextMenu(Tables(), u"Customers"_s), ElementsAre("Add Class To", "Refresh Tables"));
    EXPECT_THAT(ContextMenu(Tables(), Tables().model()->index(0, 0).data().toString()), IsEmpty());
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
    EXPECT_EQ(window_->windowTitle(), u"Veldrane Professional Edition +Forms - [Shop]"_s);
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

TEST_F(MainWindowTest, PanesHideAndComeBack)
{
    Start();
    auto& tables = Find<QDockWidget>(*window_, "panDatasource");
    auto& preview = Find<QDockWidget>(*window_, "panPreview");
    EXPECT_TRUE(Tool("ViewDataSourceTables").isChecked());
    Tool("ViewDataSourceTables").trigger();
    EXPECT_FALSE(tables.isVisible());
    EXPECT_FALSE(Tool("ViewDataSourceTables").isChecked());
    Tool("ViewDataSourceTables").trigger();
    EXPECT_TRUE(tables.isVisible());
    preview.close(); // by its own button
    EXPECT_FALSE(Tool("ViewPreviewPane").isChecked());
    EXPECT_EQ(world_.UserSettings.GetKeyValue("Window", "DisplayPreview"), "False");
    Tool("ViewPreviewPane").trigger();
    EXPECT_TRUE(preview.isVisible());
    EXPECT_GT(Preview().model()->rowCount(), 0);
    Tool("ViewNavigator").trigger();
    EXPECT_FALSE(Find<QComboBox>(*window_, "cmbNavigate").isVisible());
}

TEST_F(MainWindowTest, ComesBackWhereItWas)
{
    Start();
    window_->setGeometry(40, 30, 700, 500);
    auto widthOf = [&](const char* name) { return Find<QDockWidget>(*window_, name).width(); };
    window_->resizeDocks({&Find<QDockWidget>(*window_, "panDatasource"), &Find<QDockWidget>(*window_, "panPreview")},
                         {180, 260}, Qt::Horizontal);
    QApplication::processEvents();
    EXPECT_EQ(widthOf("panDatasource"), 180);
    EXPECT_EQ(widthOf("panPreview"), 260);
    window_->close();
    Start();
    EXPECT_EQ(window_->geometry(), QRect(40, 30, 700, 500));
    EXPECT_EQ(widthOf("panDatasource"), 180);
    EXPECT_EQ(widthOf("panPreview"), 260);
    Find<QDockWidget>(*window_, "panDatasource").close();
    window_->close();
    Start();
    EXPECT_FALSE(Find<QDockWidget>(*window_, "panDatasource").isVisible());
    EXPECT_EQ(widthOf("panPreview"), 260);
}

TEST_F(MainWindowTest, GivesThePreviewAboutHalfTheWindowAtFirst)
{
    Start();
    const int preview = Find<QDockWidget>(*window_, "panPreview").width();
    EXPECT_NEAR(preview, window_->width() / 2.0, window_->width() / 12.0);
    EXPECT_GT(Tree().width(), window_->width() / 5);
}

TEST_F(MainWindowTest, ClosingAsksAboutAModifiedProject)
{
    StartWithClasses();
    world_.Messages.Forget();
    world_.Messages.Add(Answer::Cancel);
    EXPECT_FALSE(window_->close());
    EXPECT_TRUE(window_->isVisible());
    EXPECT_THAT(Titles(), ElementsAre("Save Changes?"));
    world_.Messages.Add(Answer::No);
    EXPECT_TRUE(window_->close());
}

TEST_F(MainWindowTest, ASavedProjectIsThereAtTheNextStart)
{
    StartWithClasses();
    world_.Dialogs.Add("/Shop.kzm");
    Tool("SaveAs").trigger();
    EXPECT_TRUE(world_.Files.Files.contains("/Shop.kzm"));
    EXPECT_FALSE(rules_->Project().Modified());
    EXPECT_TRUE(window_->close());
    Start({.File = "/Shop.kzm"});
    EXPECT_EQ(Above(u"Order"_s), u"Orders"_s);
    EXPECT_EQ(Tables().model()->rowCount(), 4);
    EXPECT_EQ(Tool("MRU1").statusTip(), u"/Shop.kzm"_s);
    EXPECT_EQ(Status(), "Ready...");
}

TEST_F(MainWindowTest, AProjectWhoseDatabaseIsGoneIsLookedAtAndSaved)
{
    StartWithClasses();
    world_.Dialogs.Add("/Shop.kzm");
    Tool("SaveAs").trigger();
    EXPECT_TRUE(window_->close());
    world_.Connect = [](const std::string&, StringOrigin) -> std::unique_ptr<DataSourceConnection> {
        throw DataSourceError(data_source_error::kFailed, "ODBC", "unable to open database file");
    };
    Start({.File = "/Shop.kzm"});
    ASSERT_EQ(world_.Errors.Reported.size(), 1U);
    EXPECT_EQ(world_.Errors.Reported.front().Error.Description(), "unable to open database file");
    ClickNode(u"Customer"_s);
    EXPECT_EQ(PreviewLine(1), u"Class Name: Customer"_s);
    EXPECT_FALSE(Tool("RefreshTables").isEnabled());
    rules_->Project().SetModified(true);
    Tool("Save").trigger();
    EXPECT_FALSE(rules_->Project().Modified());
}

TEST_F(MainWindowTest, ATableThatIsGoneMeanwhileIsToldAndNothingIsLost)
{
    StartWithClasses();
    const std::string before = rules_->Project().ProjectName();
    shop_ = FakeCatalog();
    rules_->Project().SetConnectionString("PROVIDER=MSDASQL;DSN=Other;UID=;PWD=;");
    EXPECT_TRUE(HasNode(u"Customer"_s));
    EXPECT_EQ(rules_->Project().ProjectName(), before);
}

TEST_F(MainWindowTest, AFileDroppedOnTheWindowIsOpenedOrOfferedAsDataSource)
{
    StartWithClasses();
    world_.Dialogs.Add("/Shop.kzm");
    Tool("SaveAs").trigger();
    Start();
    QMimeData project;
    project.setUrls({QUrl(u"file:///Shop.kzm"_s)});
    EXPECT_TRUE(LetGo(*window_, project, {300, 5}));
    EXPECT_TRUE(HasNode(u"Customer"_s));
    QMimeData database;
    database.setUrls({QUrl(u"file:///data/Shop.db"_s)});
    world_.Messages.Add(Answer::Yes); // the project has a data source
    WithDialogs(
        [&] {
            EXPECT_TRUE(LetGo(*window_, database, {300, 5}));
        },
        {[](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Edit DataSource"_s);
            EXPECT_EQ(Find<QLineEdit>(Find<QWidget>(dialog, "page0"), "txtDatabase").text(), u"/data/Shop.db"_s);
            Click(dialog, "cmdCancel");
        }});
}

TEST_F(MainWindowTest, ARowMarksTheClassesOnItsTable)
{
    StartWithClasses();
    ClickTable(u"Customers"_s);
    EXPECT_TRUE(Node(u"Customer"_s).data(Qt::BackgroundRole).isValid());
    EXPECT_FALSE(Node(u"Order"_s).data(Qt::BackgroundRole).isValid());
}

TEST_F(MainWindowTest, LooksWell)
{
    StartWithClasses();
    ClickNode(u"New Project"_s);
    Photograph(*window_, "frmMain-summary");
    ClickNode(u"Customer"_s);
    ClickTable(u"Customers"_s);
    Photograph(*window_, "frmMain-class");
    ClickNode(u"Orders"_s);
    Photograph(*window_, "frmMain-collection");
    Tool("FindInPreview").trigger();
    QTest::keyClicks(QApplication::focusWidget(), u"Order"_s);
    Photograph(*window_, "frmMain-find");
}

} // namespace
} // namespace veldrane::testing
