#include "main_window_fixture.h"
#include "screenshots.h"

#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QTabWidget>
#include <QTest>
#include <QWindow>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;

TEST_F(MainWindowTest, StartsWithANewProjectAndNoDataSource)
{
    Start();
    EXPECT_EQ(window_->windowHandle()->title(), u"Veldrane Professional Edition +Forms - [New Project]"_s);
    EXPECT_EQ(Tree().currentIndex().data().toString(), u"New Project"_s);
    EXPECT_TRUE(Tree().isExpanded(Tree().currentIndex()));
    EXPECT_EQ(Tables().model()->index(0, 0).data().toString(), u"<no datasource defined>"_s);
    EXPECT_TRUE(Tool("OpenDatasource").isEnabled());
    for (const char* tool : {"AddClassTo", "RefreshTables", "DeleteClass", "MoveClassTo", "EditClass"})
        EXPECT_FALSE(Tool(tool).isEnabled()) << tool;
    EXPECT_TRUE(Tool("NewClass").isEnabled());
    Photograph(*window_, "frmMain-no-data-source");
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

TEST_F(MainWindowTest, ALongProjectNameAsksForNoWiderWindow)
{
    Start();
    const int least = window_->minimumSizeHint().width();
    rules_->Project().SetProjectName(std::string(5000, 'W') + "<b>&");
    QApplication::processEvents();
    EXPECT_LT(window_->minimumSizeHint().width(), least + 400);
    const auto& panel = Find<QLabel>(*window_, "adPanel");
    EXPECT_TRUE(panel.text().startsWith(u"  Project: WWW"_s));
    EXPECT_TRUE(panel.toolTip().endsWith(u"WWW&lt;b&gt;&amp;</p>"_s));
    rules_->Project().SetProjectName("Shop");
    EXPECT_EQ(panel.text(), u"  Project: Shop"_s);
    EXPECT_EQ(panel.toolTip(), QString());
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
    Tool("Find").trigger();
    QTest::keyClicks(QApplication::focusWidget(), u"Order"_s);
    Photograph(*window_, "frmMain-find");
}

TEST_F(MainWindowTest, MenusLookWell)
{
    StartWithClasses();
    ClickNode(u"Customer"_s);
    for (const QAction* entry : window_->menuBar()->actions()) {
        const QString caption = QString(entry->text()).remove(u'&');
        Photograph(*entry->menu(), "menu-" + caption.toStdString());
        entry->menu()->hide();
    }
}

// Each node of a kind of its own, and the lists that the other pictures lack.
TEST_F(MainWindowTest, EveryPreviewLooksWell)
{
    StartWithClasses();
    const std::pair<QString, const char*> nodes[] = {
        {kParents, "parents"},
        {kLookups, "lookups"},
        {u"Additional Collections/Classes"_s, "additional"},
        {u"Required Files"_s, "required"},
        {u"NewProject.vbp"_s, "project"},
        {u"TestNewProject.vbp"_s, "test-project"},
        {u"TestNewProject.vbg"_s, "group"},
        {u"Globals (Globals.bas)"_s, "globals"},
        {u"Auto (Auto.cls)"_s, "wrapper"},
        {u"xmlAssist"_s, "assist"},
        {u"Country"_s, "lookup-class"},
    };
    for (const auto& [node, name] : nodes) {
        ClickNode(node);
        Photograph(*window_, std::string("frmMain-") + name);
    }
    Find<QTabWidget>(*window_, "tabDatasource").setCurrentIndex(2);
    Photograph(*window_, "frmMain-procedures");
}

} // namespace
} // namespace veldrane::testing
