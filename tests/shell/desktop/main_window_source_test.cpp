#include "main_window_fixture.h"

#include <QComboBox>
#include <QTest>

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

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
    StartInShop();
    ASSERT_TRUE(AddTable(u"Customers"_s, kParents));
    rules_->Project().SetModified(false);
    const std::vector<std::string> rows = TableRows();
    Database().Content.erase("Orders"); // behind its row
    world_.Messages.Forget();
    world_.Messages.Add(Answer::No); // it was not renamed
    EXPECT_TRUE(DropRow("Orders", kParents));
    EXPECT_THAT(Titles(), ElementsAre("Table Missing", ""));
    EXPECT_EQ(world_.Messages.Asked().at(0).Text,
              "The table named 'Orders' cannot be found. Has this table been renamed?\r\n"
              "Click 'Yes' if the table has been renamed and you know what the new name is.\r\n"
              "Click 'No' if the table has been deleted\r\n"
              "Click 'Cancel' to cancel this operation.");
    EXPECT_EQ(world_.Messages.Asked().at(1).Text, "To Delete this class, right click on it and select 'Delete Class'");
    EXPECT_THAT(world_.Errors.Reported, IsEmpty());
    EXPECT_FALSE(HasNode(u"Order"_s));
    EXPECT_TRUE(HasNode(u"Customer"_s));
    EXPECT_FALSE(rules_->Project().Modified());
    EXPECT_EQ(TableRows(), rows);
    EXPECT_TRUE(AddTable(u"Countries"_s, kLookups));
    EXPECT_TRUE(HasNode(u"Country"_s));
}

} // namespace
} // namespace veldrane::testing
