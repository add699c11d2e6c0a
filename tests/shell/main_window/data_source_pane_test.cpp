#include "shell/main_window/data_source_pane.h"

#include "support/failing_settings.h"
#include "support/fake_catalog.h"
#include "support/recorded_errors.h"
#include "support/scripted_messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DataSourcePaneTest : public ::testing::Test
{
  protected:
    DataSourcePaneTest()
    {
        for (const char* table : {"orders", "Customers", "Lines", "Ärzte"})
            source.Add(table);
        source.ProcedureNames = {"Totals", "Audit"};
        Refresh();
    }

    void Refresh()
    {
        pane.Refresh({.ConnectionString = "DSN=x;",
                      .Source = &source,
                      .Project = project,
                      .Settings = settings,
                      .Messages = messages,
                      .Errors = errors});
    }

    [[nodiscard]] std::vector<std::string> Keys(DataSourceTab tab = DataSourceTab::Tables) const
    {
        std::vector<std::string> keys;
        for (const ListRow& row : pane.Rows(tab))
            keys.push_back(row.Key);
        return keys;
    }

    testing::FakeCatalog source;
    TTCProject project;
    testing::FailingSettings settings;
    testing::ScriptedMessages messages;
    testing::RecordedErrors errors;
    DataSourcePane pane;
};

TEST_F(DataSourcePaneTest, AClickOnTheHeaderSortsAscendingAndASecondOneFlips)
{
    EXPECT_THAT(Keys(), ElementsAre(":ADD", "orders", "Customers", "Lines", "Ärzte"));
    EXPECT_EQ(pane.Order(DataSourceTab::Tables), SortOrder::Unsorted);
    pane.SortListView();
    EXPECT_THAT(Keys(), ElementsAre(":ADD", "Customers", "Lines", "orders", "Ärzte"));
    EXPECT_EQ(pane.Order(DataSourceTab::Tables), SortOrder::Ascending);
    pane.SortListView();
    EXPECT_THAT(Keys(), ElementsAre(":ADD", "Ärzte", "orders", "Lines", "Customers"));
    EXPECT_EQ(pane.Order(DataSourceTab::Tables), SortOrder::Descending);
    pane.SortListView();
    EXPECT_THAT(Keys(), ElementsAre(":ADD", "Customers", "Lines", "orders", "Ärzte"));
}

TEST_F(DataSourcePaneTest, OnlyTheListThatIsShownIsSorted)
{
    pane.SelectTab(DataSourceTab::StoredProcedures);
    pane.SortListView();
    EXPECT_THAT(Keys(DataSourceTab::StoredProcedures), ElementsAre("Audit", "Totals"));
    EXPECT_THAT(Keys(), ElementsAre(":ADD", "orders", "Customers", "Lines", "Ärzte"));
    EXPECT_EQ(pane.Order(DataSourceTab::Tables), SortOrder::Unsorted);
}

TEST_F(DataSourcePaneTest, TheSelectedRowStaysSelected)
{
    pane.SelectRow(1);
    ASSERT_EQ(pane.Selected()->Key, "orders");
    pane.SortListView();
    EXPECT_EQ(pane.SelectedRow(), 3U);
    EXPECT_EQ(pane.Selected()->Key, "orders");
    pane.SortListView();
    EXPECT_EQ(pane.Selected()->Key, "orders");
}

TEST_F(DataSourcePaneTest, WithoutASelectionSortingSelectsNothing)
{
    pane.SortListView();
    EXPECT_FALSE(pane.SelectedRow());
}

TEST_F(DataSourcePaneTest, ListsThatAreReadAnewStandInTheOrderOfTheDataSource)
{
    pane.SortListView();
    Refresh();
    EXPECT_THAT(Keys(), ElementsAre(":ADD", "orders", "Customers", "Lines", "Ärzte"));
    pane.SortListView();
    EXPECT_EQ(pane.Order(DataSourceTab::Tables), SortOrder::Ascending);
}

TEST_F(DataSourcePaneTest, AClearedListIsSortedWithoutAWord)
{
    pane.Clear();
    pane.SortListView();
    EXPECT_THAT(Keys(), IsEmpty());
}

} // namespace
} // namespace veldrane
