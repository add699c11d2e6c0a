#include "datasource/table_lists.h"

#include "support/fake_catalog.h"
#include "support/memory_settings.h"
#include "support/recorded_errors.h"
#include "support/scripted_messages.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace veldrane {
namespace {

using Texts = std::vector<std::string>;

class TableListsTest : public ::testing::Test
{
  protected:
    void Option(std::string_view name, std::string_view value)
    {
        settings.SaveSetting(settings_section::kOptions, name, value);
    }

    [[nodiscard]] std::string Option(std::string_view name) const
    {
        return settings.GetKeyValue(settings_section::kOptions, name);
    }

    void AddTables(std::initializer_list<const char*> names)
    {
        for (const char* name : names)
            catalog.Add(name);
    }

    [[nodiscard]] static Texts Shown(const std::vector<ListRow>& rows)
    {
        Texts texts;
        for (const ListRow& row : rows)
            texts.push_back(row.Text);
        return texts;
    }

    DataSourceLists Display() { return DisplayDataSourceTables(view, "Table"); }

    testing::FakeCatalog catalog;
    TTCProject project;
    testing::MemorySettings settings;
    testing::ScriptedMessages messages;
    testing::RecordedErrors errors;
    DataSourceView view{.ConnectionString = "DSN=x;",
                        .Source = &catalog,
                        .Project = project,
                        .Settings = settings,
                        .Messages = messages,
                        .Errors = errors};
};

TEST_F(TableListsTest, WithoutADataSourceEachListSaysSo)
{
    view.ConnectionString = "";
    const DataSourceLists lists = Display();
    for (const auto* rows : {&lists.Tables, &lists.Views, &lists.StoredProcedures}) {
        ASSERT_EQ(rows->size(), 1U);
        EXPECT_EQ(rows->front().Key, "NONE");
        EXPECT_EQ(rows->front().Text, "<no datasource defined>");
        EXPECT_EQ(rows->front().Icon, "");
        EXPECT_EQ(rows->front().Colour, RowColour::Default);
    }
    EXPECT_TRUE(catalog.Calls.empty());
    EXPECT_EQ(Option("MaxTablesToDisplay"), "");
}

TEST_F(TableListsTest, HeadersNameTheLists)
{
    EXPECT_EQ(kTableListHeader, "Table Name");
    EXPECT_EQ(kViewListHeader, "View Name");
    EXPECT_EQ(kProcedureListHeader, "Stored Procedure Name");
}

TEST_F(TableListsTest, ATableHasKeyTextIconAndTag)
{
    AddTables({"Orders"});
    const DataSourceLists lists = Display();
    ASSERT_EQ(lists.Tables.size(), 2U);
    const ListRow& command = lists.Tables.at(0);
    EXPECT_EQ(command.Key, ":ADD");
    EXPECT_EQ(command.Text, "<Add a Table>");
    EXPECT_EQ(command.Icon, "");
    EXPECT_EQ(command.Tag, "");
    EXPECT_EQ(command.Colour, RowColour::Blue);
    const ListRow& table = lists.Tables.at(1);
    EXPECT_EQ(table.Key, "Orders");
    EXPECT_EQ(table.Text, "Orders");
    EXPECT_EQ(table.Icon, "Table");
    EXPECT_EQ(table.Tag, "Orders");
    EXPECT_EQ(table.Colour, RowColour::Black);
    EXPECT_FALSE(table.Bold);
}

TEST_F(TableListsTest, InManualModeTheCatalogIsNotAskedForTables)
{
    Option("MaxTablesToDisplay", "-1");
    AddTables({"Orders"});
    catalog.ProcedureNames = {"GetOrders"};
    EXPECT_EQ(Shown(Display().Tables), Texts{"<Add a Table>"});
    EXPECT_EQ(Shown(Display().StoredProcedures), Texts{"GetOrders"});
    EXPECT_EQ(std::ranges::count(catalog.Calls, "Tables"), 0);
}

TEST_F(TableListsTest, AnAttachedTableHasNoTagAndNoColour)
{
    Option("MaxTablesToDisplay", "-1");
    project.AttachedTables.Add("Old-Orders", "Old-Orders");
    const DataSourceLists lists = Display();
    ASSERT_EQ(lists.Tables.size(), 2U);
    const ListRow& row = lists.Tables.at(1);
    EXPECT_EQ(row.Key, "Old-Orders");
    EXPECT_EQ(row.Icon, "Table");
    EXPECT_EQ(row.Tag, "");
    EXPECT_EQ(row.Colour, RowColour::Default);
    EXPECT_FALSE(row.Bold);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(TableListsTest, WithLimitZeroTheCatalogAloneIsShownWhole)
{
    Option("MaxTablesToDisplay", "0");
    project.AttachedTables.Add("Mine", "Mine");
    AddTables({"A", "B", "C"});
    EXPECT_EQ(Shown(Display().Tables), (Texts{"A", "B", "C"}));
}

TEST_F(TableListsTest, ALimitCountsTheRowsOfTheCatalogAlone)
{
    Option("MaxTablesToDisplay", "2");
    project.AttachedTables.Add("Mine", "Mine");
    catalog.Add("V", "VIEW");
    AddTables({"A", "B", "C", "D", "E"});
    EXPECT_EQ(Shown(Display().Tables), (Texts{"<Add a Table>", "Mine", "A", "B"}));
}

TEST_F(TableListsTest, AnyOtherNegativeLimitShowsAll)
{
    Option("MaxTablesToDisplay", "-2");
    AddTables({"A", "B"});
    EXPECT_EQ(Shown(Display().Tables), (Texts{"<Add a Table>", "A", "B"}));
}

TEST_F(TableListsTest, MissingLimitsAre3000AndWrittenBack)
{
    for (int i = 0; i < 3100; ++i) {
        catalog.Add("T" + std::to_string(i));
        catalog.ProcedureNames.push_back("P" + std::to_string(i));
    }
    const DataSourceLists lists = Display();
    EXPECT_EQ(lists.Tables.size(), 3001U);
    EXPECT_EQ(lists.StoredProcedures.size(), 3100U);
    EXPECT_EQ(Option("MaxTablesToDisplay"), "3000");
    EXPECT_EQ(Option("MaxProcsToDisplay"), "3000");
}

TEST_F(TableListsTest, AnEmptiedLimitIsMissing)
{
    for (const char* value : {"", "  "}) {
        settings.UpdateKey(settings_section::kOptions, "MaxTablesToDisplay", value);
        EXPECT_EQ(Shown(Display().Tables), Texts{"<Add a Table>"});
        EXPECT_EQ(Option("MaxTablesToDisplay"), "3000");
    }
}

TEST_F(TableListsTest, TheLimitOfProceduresLimitsNothing)
{
    Option("MaxProcsToDisplay", "1");
    catalog.ProcedureNames = {"A", "B;1", "b;1"};
    const DataSourceLists lists = Display();
    EXPECT_EQ(Shown(lists.StoredProcedures), (Texts{"A", "B;1"}));
    EXPECT_EQ(lists.StoredProcedures.at(1).Key, "B;1");
    EXPECT_EQ(lists.StoredProcedures.at(1).Icon, "SP");
    EXPECT_EQ(lists.StoredProcedures.at(1).Colour, RowColour::Default);
    EXPECT_EQ(Option("MaxProcsToDisplay"), "1");
}

TEST_F(TableListsTest, ViewsAndOtherKindsAreNotListed)
{
    catalog.Add("V", "VIEW");
    catalog.Add("S", "SYNONYM");
    catalog.Add("ST", "SYSTEM TABLE");
    catalog.Add("SV", "SYSTEM VIEW");
    catalog.Add("Untyped", "");
    const DataSourceLists lists = Display();
    EXPECT_EQ(Shown(lists.Tables), Texts{"<Add a Table>"});
    EXPECT_TRUE(lists.Views.empty());
}

TEST_F(TableListsTest, SystemTablesCountAsTablesOnRequest)
{
    Option("ShowSystemTables", "1");
    catalog.Add("ST", "SYSTEM TABLE");
    catalog.Add("SV", "SYSTEM VIEW");
    catalog.Add("", "");
    const DataSourceLists lists = Display();
    EXPECT_EQ(Shown(lists.Tables), (Texts{"<Add a Table>", "ST"}));
    EXPECT_TRUE(lists.Views.empty());
}

TEST_F(TableListsTest, SuspectNamesAreMarkedAndWarnedOfOnce)
{
    AddTables({"Order Details", "Order-Details", "a.b", "Order-", "Größe"});
    const DataSourceLists lists = Display();
    Texts marked;
    for (const ListRow& row : lists.Tables) {
        EXPECT_EQ(row.Bold, row.Colour == RowColour::Red);
        if (row.Bold)
            marked.push_back(row.Text);
    }
    EXPECT_EQ(marked, (Texts{"Order-Details", "a.b"}));
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Title, "Invalid Characters Detected");
    EXPECT_EQ(
        messages.Asked().front().Text,
        "Warning: One or more tables have characters in the name that are invalid. They have been highlighted in red.\r\nYou might experience problems with the compiled source code, if you do, rename the table, and edit the old table in your project.");
    EXPECT_EQ(messages.Asked().front().Icon, MessageIcon::Warning);
}

TEST_F(TableListsTest, ThePointBehindASchemaIsNotSuspect)
{
    catalog.Listed = {{.Name = "hr.staff", .Type = "TABLE", .SchemaSize = 3}};
    EXPECT_FALSE(Display().Tables.at(1).Bold);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(TableListsTest, EveryDelimiterMakesANameSuspect)
{
    for (const char delimiter : std::string("~`!@#$%^&*()-=+\\|]}[{';:/?.>,<\""))
        catalog.Add(std::string("a") + delimiter + "b");
    const DataSourceLists lists = Display();
    EXPECT_EQ(std::ranges::count(lists.Tables, RowColour::Red, &ListRow::Colour), 31);
}

TEST_F(TableListsTest, ARowWhoseKeyIsInUseIsLeftOutAndNotCounted)
{
    Option("MaxTablesToDisplay", "2");
    project.AttachedTables.Add("orders", "orders");
    AddTables({"Orders", ":ADD", "A", "B", "C"});
    EXPECT_EQ(Shown(Display().Tables), (Texts{"<Add a Table>", "orders", "A", "B"}));
    EXPECT_TRUE(errors.Reported.empty());
}

TEST_F(TableListsTest, WhatTheSourceDoesNotSupportIsLeftOutInSilence)
{
    AddTables({"A"});
    catalog.ProcedureNames = {"P"};
    catalog.Failures["Tables"] = data_source_error::kNotSupported;
    EXPECT_EQ(Shown(Display().StoredProcedures), Texts{"P"});
    catalog.Failures = {{"Procedures", data_source_error::kNotSupported}};
    const DataSourceLists lists = Display();
    EXPECT_EQ(Shown(lists.Tables), (Texts{"<Add a Table>", "A"}));
    EXPECT_TRUE(lists.StoredProcedures.empty());
    EXPECT_TRUE(errors.Reported.empty());
}

TEST_F(TableListsTest, AReadingThatIsCancelledLeavesTheListsAsFarAsTheyWereFilled)
{
    AddTables({"Orders", "Order-Lines"});
    catalog.ProcedureNames = {"GetOrders"};
    catalog.CancelledCall = "Procedures";
    const DataSourceLists lists = Display();
    EXPECT_EQ(Shown(lists.Tables), (Texts{"<Add a Table>", "Orders", "Order-Lines"}));
    EXPECT_TRUE(lists.StoredProcedures.empty());
    EXPECT_TRUE(errors.Reported.empty());
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked()[0].Title, "Invalid Characters Detected");
}

TEST_F(TableListsTest, ACancelledReadingOfTablesIsNoFailure)
{
    AddTables({"Orders"});
    catalog.CancelledCall = "Tables";
    EXPECT_EQ(Shown(Display().Tables), Texts{"<Add a Table>"});
    EXPECT_EQ(Shown(DisplayDataSourceTablesInComboBox(view, "Table")), Texts{"<Add a Table>"});
    EXPECT_TRUE(errors.Reported.empty());
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(TableListsTest, AnyOtherFailureIsReportedAndTheListsStay)
{
    AddTables({"Order-Details"});
    catalog.Failures["Procedures"] = data_source_error::kFailed;
    const DataSourceLists lists = Display();
    EXPECT_EQ(Shown(lists.Tables), (Texts{"<Add a Table>", "Order-Details"}));
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Error.Number, data_source_error::kFailed);
    EXPECT_EQ(errors.Reported.front().Place.ModuleName, "CodeGeneration");
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "DisplayDataSourceTables");
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(TableListsTest, AConnectionThatIsGoneIsReportedAndLeavesTheListsEmpty)
{
    view.Source = nullptr;
    for (const char* limit : {"-1", "0", "2"}) {
        Option("MaxTablesToDisplay", limit);
        errors.Reported.clear();
        const DataSourceLists lists = Display();
        EXPECT_EQ(lists.Tables.size() + lists.Views.size() + lists.StoredProcedures.size(), 0U) << limit;
        EXPECT_TRUE(DisplayDataSourceTablesInComboBox(view, "Table").empty()) << limit;
        ASSERT_EQ(errors.Reported.size(), 2U);
        EXPECT_EQ(errors.Reported.at(0).Error.Number, 3709);
        EXPECT_EQ(errors.Reported.at(1).Error.Number, 3709);
    }
}

TEST_F(TableListsTest, AConnectionLostOnTheWayLeavesTheListsAsFarAsTheyWereFilled)
{
    catalog.ProcedureNames = {"P"};
    catalog.Failures["Tables"] = data_source_error::kNoOpenConnection;
    const DataSourceLists lists = Display();
    EXPECT_EQ(Shown(lists.Tables), Texts{"<Add a Table>"});
    EXPECT_TRUE(lists.StoredProcedures.empty());
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Error.Number, 3709);
}

class LockedSettings : public testing::MemorySettings
{
  public:
    void UpdateKey(std::string_view /*section*/, std::string_view /*name*/, std::string_view /*value*/) override
    {
        throw RuntimeError(error_number::kPathAccess, "Settings", "settings.ini can't be written");
    }
};

TEST_F(TableListsTest, SettingsThatCanNotBeWrittenAreReportedAndTheListsFilled)
{
    LockedSettings locked;
    AddTables({"A"});
    const DataSourceLists lists = DisplayDataSourceTables({.ConnectionString = "DSN=x;",
                                                           .Source = &catalog,
                                                           .Project = project,
                                                           .Settings = locked,
                                                           .Messages = messages,
                                                           .Errors = errors},
                                                          "Table");
    EXPECT_EQ(Shown(lists.Tables), (Texts{"<Add a Table>", "A"}));
    EXPECT_EQ(errors.Reported.size(), 2U);
}

TEST_F(TableListsTest, AComboBoxHasTheSameRowsWithoutColours)
{
    Option("MaxTablesToDisplay", "2");
    project.AttachedTables.Add("Mine", "Mine");
    AddTables({"Order-Details", "B", "C"});
    catalog.ProcedureNames = {"P"};
    const std::vector<ListRow> rows = DisplayDataSourceTablesInComboBox(view, "Table");
    EXPECT_EQ(Shown(rows), (Texts{"<Add a Table>", "Mine", "Order-Details", "B"}));
    for (const ListRow& row : rows) {
        EXPECT_EQ(row.Colour, RowColour::Default);
        EXPECT_FALSE(row.Bold);
    }
    EXPECT_EQ(rows.at(2).Icon, "Table");
    EXPECT_TRUE(messages.Asked().empty());
    EXPECT_EQ(catalog.Calls, Texts{"Tables"});
    EXPECT_EQ(Option("MaxProcsToDisplay"), "");
}

TEST_F(TableListsTest, AComboBoxKnowsTheOtherModesToo)
{
    AddTables({"A"});
    Option("MaxTablesToDisplay", "0");
    EXPECT_EQ(Shown(DisplayDataSourceTablesInComboBox(view, "")), Texts{"A"});
    Option("MaxTablesToDisplay", "-1");
    EXPECT_EQ(Shown(DisplayDataSourceTablesInComboBox(view, "")), Texts{"<Add a Table>"});
    view.ConnectionString = "";
    EXPECT_EQ(Shown(DisplayDataSourceTablesInComboBox(view, "")), Texts{"<no datasource defined>"});
}

TEST_F(TableListsTest, RowsOfAComboBoxHaveTheKeysOfTheLists)
{
    AddTables({"A"});
    catalog.Add("ST", "SYSTEM TABLE");
    project.AttachedTables.Add("Mine", "Mine");
    Option("ShowSystemTables", "1");
    const std::vector<ListRow> rows = DisplayDataSourceTablesInComboBox(view, "");
    Texts keys;
    for (const ListRow& row : rows) {
        keys.push_back(row.Key);
        EXPECT_EQ(row.Icon, "");
    }
    EXPECT_EQ(keys, (Texts{":ADD", "Mine", "A", "ST"}));
    EXPECT_EQ(Option("MaxTablesToDisplay"), "3000");
    view.ConnectionString = "";
    EXPECT_EQ(DisplayDataSourceTablesInComboBox(view, "Table").front().Key, "NONE");
}

TEST_F(TableListsTest, SystemTablesAreRequestedByTheNumberOneAlone)
{
    catalog.Add("ST", "SYSTEM TABLE");
    for (const char* value : {"", "0", "True", "-1", "11"}) {
        Option("ShowSystemTables", value);
        EXPECT_EQ(Shown(Display().Tables), Texts{"<Add a Table>"}) << value;
    }
}

TEST_F(TableListsTest, ProceduresAttachedByHandAreNotListed)
{
    project.AttachedSPs.Add("Mine", "Mine");
    EXPECT_TRUE(Display().StoredProcedures.empty());
}

TEST_F(TableListsTest, AComboBoxReportsUnderItsOwnName)
{
    catalog.Failures["Tables"] = data_source_error::kFailed;
    EXPECT_EQ(Shown(DisplayDataSourceTablesInComboBox(view, "Table")), Texts{"<Add a Table>"});
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "DisplayDataSourceTablesInComboBox");
    catalog.Failures["Tables"] = data_source_error::kNotSupported;
    static_cast<void>(DisplayDataSourceTablesInComboBox(view, "Table"));
    EXPECT_EQ(errors.Reported.size(), 1U);
}

class LookupTablesTest : public TableListsTest
{
  protected:
    LookupTablesTest()
    {
        AddTables({"Orders", "Customers"});
        catalog.Add("Totals", "VIEW");
        catalog.Add("sysTables", "SYSTEM TABLE");
        catalog.Add("sysViews", "SYSTEM VIEW");
        catalog.Add("Alias", "SYNONYM");
        project.AttachedTables.Add("Attached", "Attached");
    }

    // "icon:key" of each.
    Texts Rows()
    {
        Texts texts;
        for (const ListRow& row : LookupTables(view, "DisplayTables"))
            texts.push_back(row.Icon + ":" + row.Key);
        return texts;
    }
};

TEST_F(LookupTablesTest, AreTablesAndViewsWithTheirIcons)
{
    EXPECT_EQ(Rows(), (Texts{"Table:Attached", "Table:Orders", "Table:Customers", "View:Totals"}));
    EXPECT_EQ(Option("MaxTablesToDisplay"), "3000");
}

TEST_F(LookupTablesTest, FollowTheSettings)
{
    Option("MaxTablesToDisplay", "0");
    EXPECT_EQ(Rows(), (Texts{"Table:Orders", "Table:Customers", "View:Totals"}));
    Option("ShowSystemTables", "1");
    EXPECT_EQ(Rows(), (Texts{"Table:Orders", "Table:Customers", "View:Totals", "Table:sysTables", "View:sysViews"}));
    Option("MaxTablesToDisplay", "1");
    EXPECT_EQ(Rows(), (Texts{"Table:Attached", "Table:Orders"}));
    catalog.Calls.clear();
    Option("MaxTablesToDisplay", "-1");
    EXPECT_EQ(Rows(), Texts{"Table:Attached"});
    EXPECT_TRUE(catalog.Calls.empty());
}

TEST_F(LookupTablesTest, AreAsManyAsTheDataSourceSupports)
{
    catalog.Failures["Tables"] = data_source_error::kNotSupported;
    EXPECT_EQ(Rows(), Texts{"Table:Attached"});
    catalog.Failures["Tables"] = data_source_error::kFailed;
    EXPECT_THROW(Rows(), DataSourceError);
    view.Source = nullptr;
    EXPECT_THROW(Rows(), DataSourceError);
}

} // namespace
} // namespace veldrane
