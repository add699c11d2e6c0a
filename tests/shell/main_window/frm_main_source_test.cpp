#include "frm_main_fixture.h"

#include "datasource/logon/frm_odbc_logon.h"

namespace veldrane {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FrmMainSource : public testing::FrmMainTest
{
  protected:
    // The person chooses a Jet file and presses OK.
    void ChooseJetFile(const std::string& path)
    {
        Windows.InLogon = [path](frmODBCLogon& logon) {
            logon.tabMain_Click(logon_page::kJet);
            logon.Page().txtDatabase = path;
            logon.cmdOK_Click();
        };
    }

    void LimitTables(const std::string& limit)
    {
        World.UserSettings.UpdateKey(settings_section::kOptions, "MaxTablesToDisplay", limit);
    }
};

TEST_F(FrmMainSource, AChosenDataSourceFillsTheListsAndSetsItsState)
{
    ASSERT_TRUE(Form.Load({}));
    Click(Fixed(tree_key::kRoot));
    ChooseJetFile("/shop.mdb");
    std::vector<bool> mayRename;
    const Connection listening = Form.Changed.Connect([&](WindowPart part) {
        if (part == WindowPart::Lists)
            mayRename.push_back(Form.actBar().IsEnabled("ProjectRename"));
    });
    Form.actbar_Click("OpenDatasource");
    EXPECT_THAT(Rows(), ElementsAre(":ADD", "Customers", "Orders", "Countries"));
    EXPECT_THAT(Rows(DataSourceTab::StoredProcedures), ElementsAre("GetTotals"));
    EXPECT_TRUE(Form.actBar().IsEnabled("RefreshTables"));
    EXPECT_THAT(mayRename, ElementsAre(false)); // the state of a change lasts until the lists are full
    EXPECT_TRUE(Form.Project().Modified());
    EXPECT_EQ(Connected.size(), 1U);
}

TEST_F(FrmMainSource, WhatIsSelectedKeepsItsToolsAfterAChangeOfTheDataSource)
{
    ASSERT_TRUE(Form.Load({}));
    ChooseJetFile("/shop.mdb");
    Form.actbar_Click("OpenDatasource");
    EXPECT_EQ(SelectedKey(), "Root");
    EXPECT_TRUE(Form.actBar().IsEnabled("ProjectRename"));
    DropRow("Customers", Fixed(tree_key::kParentClasses));
    ASSERT_EQ(SelectedKey(), "Customer");
    ChooseJetFile("/books.mdb");
    Form.actbar_Click("OpenDatasource");
    EXPECT_TRUE(Form.actBar().IsEnabled("DeleteClass"));
    EXPECT_TRUE(Form.actBar().IsEnabled("MoveClassTo"));
    EXPECT_FALSE(Form.actBar().IsEnabled("ProjectRename"));
}

TEST_F(FrmMainSource, AnEmptyConnectionStringClosesTheDataSource)
{
    StartOnShop();
    EXPECT_TRUE(Form.actBar().IsEnabled("RefreshTables"));
    Form.Project().SetConnectionString("");
    EXPECT_EQ(World.State.ActiveConnection, nullptr);
    EXPECT_THAT(Rows(), ElementsAre("NONE"));
    EXPECT_FALSE(Form.actBar().IsEnabled("RefreshTables"));
    EXPECT_EQ(Connected.size(), 1U);
}

TEST_F(FrmMainSource, ACatalogThatCanNotBeOpenedLeavesNoRowsOfTheFormerOne)
{
    StartOnShop();
    ASSERT_TRUE(Form.DraggedFromRow(Row("Customers")));
    dynamic_cast<testing::RemoteConnection&>(*World.State.ActiveConnection).HasCatalog = false;
    Form.actbar_Click("RefreshTables");
    ASSERT_EQ(World.Errors.Reported.size(), 1U);
    EXPECT_EQ(World.Errors.Reported[0].Error.Description(), "The catalog is locked.");
    EXPECT_THAT(Rows(), IsEmpty());
    EXPECT_FALSE(Form.DraggedFromRow(1));
    EXPECT_FALSE(Form.DraggedFromSelection("AddClassTo"));
}

TEST_F(FrmMainSource, AChangedConnectionStringOpensItsDataSource)
{
    StartOnShop();
    Source.Add("Invoices");
    Form.Project().SetConnectionString("PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/books.mdb;");
    EXPECT_EQ(Connected.size(), 2U);
    EXPECT_THAT(Rows(), Contains("Invoices"));
    Form.Project().SetConnectionString("PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/books.mdb;");
    EXPECT_EQ(Connected.size(), 2U);
}

TEST_F(FrmMainSource, EditingTheDataSourceWarnsFirst)
{
    StartOnShop();
    World.Messages.Add(Answer::No);
    Form.actbar_Click("EditDataSource");
    ASSERT_THAT(Titles(), ElementsAre("Edit DataSource Message"));
    EXPECT_EQ(World.Messages.Asked()[0].Text,
              "Warning! Changing DataSources may render this project unusable. Only change your data source if: \r\n"
              "  1) The new DataSource has the same structure as the existing DataSource\r\n"
              "OR 2) The existing DataSource is moving locations (i.e. to a different directory or server)\r\n\r\n"
              "Are you sure you want to edit the DataSource?");
    EXPECT_THAT(Windows.Opened, IsEmpty());
    World.Messages.Add(Answer::Yes);
    Form.actbar_Click("EditDataSource");
    EXPECT_THAT(Windows.Purposes, ElementsAre(LogonPurpose::EditDataSource));
}

TEST_F(FrmMainSource, AProjectWhoseDataSourceIsGoneCanBeLookedAtAndSaved)
{
    StartWithCustomer();
    World.Dialogs.Add("/shop.kzm");
    Form.actbar_Click("Save");
    IsReachable = false;
    World.Dialogs.Add("/shop.kzm");
    Form.actbar_Click("Open");
    ASSERT_EQ(World.Errors.Reported.size(), 1U);
    const ErrorPlace& place = World.Errors.Reported[0].Place;
    EXPECT_EQ(place.ModuleName, "Veldrane Professional Edition +Forms");
    EXPECT_EQ(place.RoutineName, "Open Datasource");
    EXPECT_EQ(place.Hint, "If you would like to modify your DataSource, you may do so by selecting Project|Edit "
                          "DataSource from the menu.");
    EXPECT_THAT(Rows(), ElementsAre("NONE"));
    EXPECT_FALSE(Form.actBar().IsEnabled("RefreshTables"));
    Click(OfClass("Customer"));
    EXPECT_EQ(LineAt(1), "Class Name: Customer");
    const std::string before = World.Files.Files.at("/shop.kzm");
    World.Files.Files["/shop.kzm"].clear();
    Form.actbar_Click("Save");
    EXPECT_TRUE(World.Files.Files.at("/shop.kzm") == before);
    EXPECT_EQ(Form.Project().ConnectionString(), testing::kShopString);
}

TEST_F(FrmMainSource, ADataSourceThatIsBackIsShownThoughItsStringIsTheOldOne)
{
    const std::string text = "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/shop.mdb;USER ID=Admin;PASSWORD=;";
    WriteProject("/shop.kzm", "Shop", text);
    IsReachable = false;
    ASSERT_FALSE(Form.Load({.File = "/shop.kzm"}));
    EXPECT_THAT(Rows(), ElementsAre("NONE"));
    EXPECT_FALSE(Form.actBar().IsEnabled("RefreshTables"));
    IsReachable = true;
    int readings = 0;
    Source.Answering = [&](const std::string& call) { readings += call == "Tables"; };
    Windows.InLogon = [](frmODBCLogon& logon) { logon.cmdOK_Click(); };
    World.Messages.Add(Answer::Yes);
    Form.actbar_Click("EditDataSource");
    EXPECT_EQ(Form.Project().ConnectionString(), text);
    EXPECT_THAT(Rows(), ElementsAre(":ADD", "Customers", "Orders", "Countries"));
    EXPECT_THAT(Rows(DataSourceTab::StoredProcedures), ElementsAre("GetTotals"));
    EXPECT_EQ(readings, 1);
    EXPECT_TRUE(Form.actBar().IsEnabled("RefreshTables"));
    EXPECT_TRUE(Form.actBar().IsEnabled("ProjectRename"));
}

TEST_F(FrmMainSource, ADataSourceThatALogonHasClosedIsShownAsClosed)
{
    StartOnShop();
    Windows.InLogon = [this](frmODBCLogon& logon) {
        IsReachable = false;
        logon.tabMain_Click(logon_page::kJet);
        logon.Page().txtDatabase = "/elsewhere.mdb";
        logon.cmdOK_Click();
        logon.cmdCancel_Click();
    };
    Form.actbar_Click("OpenDatasource");
    EXPECT_FALSE(World.Errors.Reported.empty());
    EXPECT_EQ(Form.Project().ConnectionString(), testing::kShopString);
    EXPECT_THAT(Rows(), ElementsAre("NONE"));
    EXPECT_FALSE(Form.actBar().IsEnabled("RefreshTables"));
}

TEST_F(FrmMainSource, ALogonThatIsCancelledAfterAFailureLeavesTheDataSourceOpen)
{
    StartOnShop();
    Windows.InLogon = [this](frmODBCLogon& logon) {
        IsReachable = false;
        logon.tabMain_Click(logon_page::kJet);
        logon.Page().txtDatabase = "/elsewhere.mdb";
        logon.cmdOK_Click();
        IsReachable = true;
        logon.cmdCancel_Click();
    };
    Form.actbar_Click("OpenDatasource");
    EXPECT_EQ(World.Errors.Reported.size(), 1U);
    EXPECT_THAT(Rows(), Contains("Customers"));
    EXPECT_TRUE(Form.actBar().IsEnabled("RefreshTables"));
}

TEST_F(FrmMainSource, RefreshShowsTheTablesAsTheyAreNow)
{
    StartOnShop();
    Database().Add("Invoices");
    Form.actbar_Click("RefreshTables");
    EXPECT_THAT(Rows(), Contains("Invoices"));
    EXPECT_EQ(World.Pointer.Current, PointerShape::Default);
}

TEST_F(FrmMainSource, AClickOnTheHeaderSortsTheListThatIsShown)
{
    StartOnShop();
    int shown = 0;
    const Connection listening = Form.Changed.Connect([&](WindowPart part) { shown += part == WindowPart::Lists; });
    Form.lst_ColumnClick();
    EXPECT_THAT(Rows(), ElementsAre(":ADD", "Countries", "Customers", "Orders"));
    Form.lst_ColumnClick();
    EXPECT_THAT(Rows(), ElementsAre(":ADD", "Orders", "Customers", "Countries"));
    EXPECT_EQ(shown, 2);
}

TEST_F(FrmMainSource, TheStatusSaysWhatIsWaitedForWhileADataSourceIsOpenedAndRead)
{
    ASSERT_TRUE(Form.Load({}));
    ChooseJetFile("/shop.mdb");
    std::vector<std::string> status;
    const Connection listening = Form.Status().Changed.Connect([&] { status.push_back(Form.Status().Status()); });
    Form.actbar_Click("OpenDatasource");
    EXPECT_THAT(status,
                ElementsAre("Connecting to the data source...", "Ready...", "Reading the data source...", "Ready..."));
    status.clear();
    IsReachable = false;
    ChooseJetFile("/gone.mdb");
    Form.actbar_Click("OpenDatasource");
    EXPECT_EQ(status.front(), "Connecting to the data source...");
    EXPECT_EQ(status.back(), "Ready...");
}

TEST_F(FrmMainSource, AReadingThatIsCancelledLeavesTheListsAsFilledAndSaysSo)
{
    StartOnShop();
    CancelIn("Tables");
    Form.actbar_Click("RefreshTables");
    EXPECT_THAT(Rows(), ElementsAre(":ADD"));
    EXPECT_THAT(Rows(DataSourceTab::StoredProcedures), IsEmpty());
    EXPECT_EQ(Form.Status().Status(), "The reading was cancelled: the lists are not complete.");
    EXPECT_THAT(World.Errors.Reported, IsEmpty());
    EXPECT_EQ(World.Pointer.Current, PointerShape::Default);
    CancelIn("Procedures");
    Form.actbar_Click("RefreshTables");
    EXPECT_THAT(Rows(), ElementsAre(":ADD", "Customers", "Orders", "Countries"));
    EXPECT_EQ(Form.Status().Status(), "The reading was cancelled: the lists are not complete.");
    CancelIn("");
    Form.actbar_Click("RefreshTables");
    EXPECT_EQ(Form.Status().Status(), "Ready...");
    EXPECT_THAT(Rows(DataSourceTab::StoredProcedures), ElementsAre("GetTotals"));
}

TEST_F(FrmMainSource, AReadingThatIsCancelledBeforeItsFirstListSaysSoToo)
{
    StartOnShop();
    dynamic_cast<testing::RemoteConnection&>(*World.State.ActiveConnection).OpeningCatalog = [this] {
        CancelReading();
    };
    Form.actbar_Click("RefreshTables");
    EXPECT_THAT(Rows(), IsEmpty());
    EXPECT_EQ(Form.Status().Status(), "The reading was cancelled: the lists are not complete.");
    EXPECT_THAT(World.Errors.Reported, IsEmpty());
    EXPECT_EQ(World.Pointer.Current, PointerShape::Default);
}

TEST_F(FrmMainSource, AReadingThatIsCancelledOnOpeningAProjectSaysSoToo)
{
    WriteProject("/desk.kzm", "Desk", testing::kShopString);
    StartOnShop();
    CancelIn("Tables");
    Source = Database();
    World.Dialogs.Add("/desk.kzm");
    Form.actbar_Click("Open");
    EXPECT_EQ(Form.Project().ProjectName(), "Desk");
    EXPECT_EQ(Form.Status().Status(), "The reading was cancelled: the lists are not complete.");
}

TEST_F(FrmMainSource, AnotherTabReadsTheListsAnew)
{
    StartOnShop();
    Database().ProcedureNames.emplace_back("GetOrders");
    Form.tabDatasource_Click(DataSourceTab::StoredProcedures);
    EXPECT_EQ(Form.Datasource().Tab(), DataSourceTab::StoredProcedures);
    EXPECT_THAT(Rows(DataSourceTab::StoredProcedures), ElementsAre("GetTotals", "GetOrders"));
    EXPECT_FALSE(Form.DraggedFromRow(0));
}

TEST_F(FrmMainSource, AFailureOfTheCatalogIsReported)
{
    StartOnShop();
    Database().Failures["Tables"] = data_source_error::kFailed;
    Form.actbar_Click("RefreshTables");
    ASSERT_FALSE(World.Errors.Reported.empty());
    EXPECT_EQ(World.Errors.Reported[0].Error.Description(), "Tables fails");
    EXPECT_EQ(World.Pointer.Current, PointerShape::Default);
}

TEST_F(FrmMainSource, ATableMarksItsClassesAndAProcedureThoseThatCallIt)
{
    StartWithCustomer();
    DropRow("Orders", OfClass("Customer"));
    Form.lst_ItemClick(Row("Orders"));
    EXPECT_THAT(Marked(), ElementsAre("Order"));
    Form.lst_ItemClick(Row("Countries"));
    EXPECT_THAT(Marked(), IsEmpty());
    const auto method = std::make_shared<TTCMethod>();
    method->MethodIsSP = true;
    method->StoredProcedure = std::make_shared<SP>();
    method->StoredProcedure->SPName = "GetTotals";
    Form.Classes().Item("Customer")->TTCMethods.AddExisting(method, "GetTotals");
    Form.tabDatasource_Click(DataSourceTab::StoredProcedures);
    Form.lst_ItemClick(Row("GetTotals"));
    EXPECT_THAT(Marked(), ElementsAre("Customer"));
}

TEST_F(FrmMainSource, OnlyRealRowsAreDraggedAndHaveAMenu)
{
    StartOnShop();
    EXPECT_FALSE(Form.DraggedFromRow(Row(":ADD")));
    EXPECT_FALSE(Form.HasMenu(Row(":ADD")));
    EXPECT_TRUE(Form.DraggedFromRow(Row("Orders")));
    EXPECT_TRUE(Form.HasMenu(Row("Orders")));
    EXPECT_FALSE(Form.DraggedFromRow(99));
    EXPECT_FALSE(Form.HasMenu(99));
    Form.lst_ItemClick(99);
    EXPECT_FALSE(Form.DraggedFromSelection("AddClassTo"));
    Form.actbar_Click("New");
    EXPECT_FALSE(Form.DraggedFromRow(Row("NONE")));
    EXPECT_FALSE(Form.HasMenu(Row("NONE")));
}

TEST_F(FrmMainSource, TheAddRowAttachesATableByItsName)
{
    LimitTables("-1");
    StartOnShop();
    EXPECT_THAT(Rows(), ElementsAre(":ADD"));
    Windows.TablesNamed = {"Nonsense", "Orders"};
    Form.lst_DblClick(Row(":ADD"));
    ASSERT_THAT(Titles(), ElementsAre("Table Validation Failed"));
    EXPECT_EQ(World.Messages.Asked()[0].Text, "Invalid Table Name, please try again.");
    EXPECT_THAT(Rows(), ElementsAre(":ADD", "Orders"));
    EXPECT_TRUE(Form.Project().Modified());
    DropRow("Orders", Fixed(tree_key::kParentClasses));
    EXPECT_EQ(SelectedKey(), "Order");
}

TEST_F(FrmMainSource, TheLookUpOfAnAttachedTableIsShown)
{
    StartOnShop();
    Windows.TablesNamed = {"Orders"};
    std::string status;
    PointerShape shape = PointerShape::Default;
    Database().Answering = [&](const std::string& answered) {
        if (answered != "Fields")
            return;
        status = Form.Status().Status();
        shape = World.Pointer.Current;
    };
    Form.lst_DblClick(Row(":ADD"));
    EXPECT_EQ(status, "Reading the data source...");
    EXPECT_EQ(shape, PointerShape::Hourglass);
    EXPECT_EQ(World.Pointer.Current, PointerShape::Default);
    EXPECT_EQ(Form.Status().Status(), "Ready...");
}

TEST_F(FrmMainSource, ALookUpThatIsCancelledAttachesNothing)
{
    StartOnShop();
    Windows.TablesNamed = {"Orders"};
    CancelIn("Fields");
    Form.lst_DblClick(Row(":ADD"));
    EXPECT_EQ(Form.Status().Status(), "The reading was cancelled: nothing has changed.");
    EXPECT_FALSE(Form.Project().Modified());
    EXPECT_THAT(World.Errors.Reported, IsEmpty());
    EXPECT_THAT(Titles(), IsEmpty());
}

TEST_F(FrmMainSource, NoOtherRowAttaches)
{
    StartOnShop();
    Form.lst_DblClick(Row("Orders"));
    Form.lst_DblClick(99);
    EXPECT_THAT(Windows.Opened, IsEmpty());
    Form.lst_DblClick(Row(":ADD"));
    EXPECT_THAT(Windows.Opened, ElementsAre("frmAddTable"));
    EXPECT_FALSE(Form.Project().Modified());
}

TEST_F(FrmMainSource, AWrongNameIsShownAgainAndAGoodOneIsNot)
{
    StartOnShop();
    Windows.TablesNamed = {"Ordrs", "Orders"};
    Form.lst_DblClick(Row(":ADD"));
    Form.lst_DblClick(Row(":ADD"));
    EXPECT_THAT(Windows.NamesShown, ElementsAre("", "Ordrs", ""));
    EXPECT_THAT(Titles(), ElementsAre("Table Validation Failed"));
    EXPECT_TRUE(Form.Project().AttachedTables.Contains("Orders"));
}

TEST_F(FrmMainSource, ADroppedFileIsAProjectOrADataSource)
{
    WriteProject("/desk.kzm", "Desk");
    ASSERT_TRUE(Form.Load({}));
    std::string offered;
    Windows.InLogon = [&](frmODBCLogon& logon) { offered = logon.Page().txtDatabase; };
    Form.FileDropped("/books.mdb");
    EXPECT_EQ(offered, "/books.mdb");
    EXPECT_THAT(Windows.Purposes, ElementsAre(LogonPurpose::NewDataSource));
    EXPECT_EQ(Form.Project().ConnectionString(), "");
    Form.FileDropped("/desk.kzm");
    EXPECT_EQ(Form.Project().ProjectName(), "Desk");
}

TEST_F(FrmMainSource, BeforeTheWindowIsLoadedNoFileIsTaken)
{
    Form.FileDropped("/books.mdb");
    Form.FileDropped("/desk.kzm");
    EXPECT_THAT(Windows.Opened, IsEmpty());
    EXPECT_THAT(Titles(), IsEmpty());
}

TEST_F(FrmMainSource, AProjectFromAnotherSystemIsKnownByItsEndingInAnyCase)
{
    WriteProject("/DESK.KZM", "Desk");
    ASSERT_TRUE(Form.Load({}));
    Form.FileDropped("/DESK.KZM");
    EXPECT_EQ(Form.Project().ProjectName(), "Desk");
    EXPECT_THAT(Windows.Opened, IsEmpty());
}

TEST_F(FrmMainSource, ADatabaseDroppedOnAProjectThatHasOneTakesItsPlaceAfterAYes)
{
    StartOnShop();
    Windows.Purposes.clear();
    World.Messages.Add(Answer::No);
    Form.FileDropped("/books.mdb");
    EXPECT_THAT(Titles(), ElementsAre("Edit DataSource Message"));
    EXPECT_THAT(Windows.Purposes, IsEmpty());
    World.Messages.Add(Answer::Yes);
    std::string offered;
    Windows.InLogon = [&](frmODBCLogon& logon) { offered = logon.Page().txtDatabase; };
    Form.FileDropped("/books.mdb");
    EXPECT_EQ(offered, "/books.mdb");
    EXPECT_THAT(Windows.Purposes, ElementsAre(LogonPurpose::EditDataSource));
    EXPECT_EQ(Form.Project().ConnectionString(), testing::kShopString);
}

TEST_F(FrmMainSource, AFileDroppedOnAProjectOnSqliteIsOfferedWithoutAWordAboutTheFormerOne)
{
    World.Installed.Libraries["SQLite3"] = "libsqlite3odbc.so";
    StartOnShop();
    Form.Project().SetConnectionString("PROVIDER=MSDASQL;Driver=SQLite3;Server=;UID=;PWD=;Database=/shop.db;");
    World.Messages.Forget();
    World.Messages.Add(Answer::Yes);
    std::string offered;
    Windows.InLogon = [&](frmODBCLogon& logon) {
        offered =
            std::string(logon.Provider().Key) + " " + logon.Page().cmbDrivers.Text() + " " + logon.Page().txtDatabase;
    };
    Form.FileDropped("/books.db");
    EXPECT_THAT(Titles(), ElementsAre("Edit DataSource Message"));
    EXPECT_EQ(offered, "MSDASQL SQLite3 /books.db");
}

} // namespace
} // namespace veldrane
