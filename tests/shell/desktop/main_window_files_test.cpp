#include "main_window_fixture.h"

#include <QLineEdit>
#include <QUrl>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;

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

} // namespace
} // namespace veldrane::testing
