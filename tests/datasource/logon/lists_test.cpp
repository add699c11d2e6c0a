#include "logon_fixture.h"

namespace veldrane {
namespace {

std::vector<std::string> Described(const ComboBox& list)
{
    std::vector<std::string> rows;
    for (const ComboRow& row : list.Rows)
        rows.push_back(row.Icon + ": " + row.Text + " [" + row.Tag + "] " + row.Key);
    return rows;
}

class LogonLists : public LogonTest
{};

TEST_F(LogonLists, OfferTheThreeProvidersInTheirOrderAndJetAtTheStart)
{
    const auto dialog = Loaded();
    ASSERT_EQ(dialog->Providers().size(), 3U);
    EXPECT_EQ(dialog->Providers()[0].Key, "MSDASQL");
    EXPECT_EQ(dialog->Providers()[0].Text, "Microsoft OLE DB Provider for ODBC");
    EXPECT_EQ(dialog->Providers()[1].Key, "Microsoft.Jet.OLEDB.4.0");
    EXPECT_EQ(dialog->Providers()[1].Text, "Microsoft OLE DB Provider for Microsoft Jet (4.0)");
    EXPECT_EQ(dialog->Providers()[2].Key, "SQLOLEDB");
    EXPECT_EQ(dialog->Providers()[2].Text, "Microsoft OLE DB Provider for SQL Server");
    EXPECT_EQ(dialog->Provider().Key, "Microsoft.Jet.OLEDB.4.0");
    EXPECT_EQ(dialog->CurrentPage(), 1U);
}

TEST_F(LogonLists, HoldEveryDataSourceWithTheIconOfItsDriver)
{
    const auto dialog = Loaded();
    EXPECT_EQ(Described(dialog->Pages()[0].cmbDSN),
              (std::vector<std::string>{
                  "DSN: Shop [PostgreSQL Unicode] ", "Access: Old Files [Microsoft Access Driver (*.mdb)] ",
                  "DSN: Größe; {neu} [SQLite3] ", "Server: Ledger [SQL Server] ", "Server: Payroll [FreeTDS] "}));
    EXPECT_EQ(Described(dialog->Pages()[2].cmbDSN),
              (std::vector<std::string>{"Server: Ledger [SQL Server] ", "Server: Payroll [FreeTDS] "}));
    EXPECT_EQ(dialog->Pages()[2].cmbDSN.Text(), "Ledger");
}

TEST_F(LogonLists, HoldEachDriverOnce)
{
    installed.Sources.push_back({"Second Shop", "postgresql unicode"});
    const auto dialog = Loaded();
    EXPECT_EQ(Described(dialog->Pages()[0].cmbDrivers),
              (std::vector<std::string>{"Driver: PostgreSQL Unicode [] PostgreSQL Unicode",
                                        "Driver: Microsoft Access Driver (*.mdb) [] Microsoft Access Driver (*.mdb)",
                                        "Driver: SQLite3 [] SQLite3", "Driver: SQL Server [] SQL Server",
                                        "Driver: FreeTDS [] FreeTDS", "Driver: MariaDB Unicode [] MariaDB Unicode"}));
    EXPECT_EQ(Described(dialog->Pages()[2].cmbDrivers),
              (std::vector<std::string>{"Driver: SQL Server [] SQL Server", "Driver: FreeTDS [] FreeTDS"}));
}

TEST_F(LogonLists, SelectTheFirstRowsOfTheOdbcPage)
{
    const auto dialog = Loaded();
    EXPECT_EQ(dialog->Pages()[0].cmbDSN.Text(), "Shop");
    EXPECT_EQ(dialog->Pages()[0].cmbDrivers.Text(), "PostgreSQL Unicode");
    EXPECT_EQ(dialog->Pages()[2].cmbDrivers.SelectedRow(), nullptr);
}

TEST_F(LogonLists, HoldDriversWhereNobodyHasSetUpADataSource)
{
    installed.Sources.clear();
    const auto dialog = Loaded();
    EXPECT_EQ(dialog->Pages()[0].cmbDrivers.Rows.size(), 4U);
    EXPECT_EQ(dialog->Pages()[0].cmbDrivers.Text(), "FreeTDS");
    EXPECT_EQ(dialog->Pages()[0].cmbDSN.SelectedRow(), nullptr);
    EXPECT_EQ(dialog->Pages()[2].cmbDrivers.Rows.size(), 1U);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(LogonLists, LeaveOutADataSourceWithoutANameAndADriverThatIsALibrary)
{
    installed.Sources = {{"", "SQLite3"}, {"By Path", "/opt/libmine.so"}, {"Bare", "libmine.so.2"}, {"Undone", ""}};
    const auto dialog = Loaded();
    EXPECT_EQ(
        Described(dialog->Pages()[0].cmbDSN),
        (std::vector<std::string>{"DSN: By Path [/opt/libmine.so] ", "DSN: Bare [libmine.so.2] ", "DSN: Undone [] "}));
    EXPECT_EQ(dialog->Pages()[0].cmbDrivers.Rows.size(), 4U);
}

TEST_F(LogonLists, SayThatThereAreNoDrivers)
{
    installed.Sources.clear();
    installed.Libraries.clear();
    project.ConnectSameDirectory = true;
    const auto dialog = LoadedOn("PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/a.mdb;");
    ASSERT_EQ(messages.Asked().size(), 1U);
    const Question& said = messages.Asked().front();
    EXPECT_EQ(said.Title, "No Drivers Found");
    EXPECT_EQ(said.Icon, MessageIcon::Critical);
    EXPECT_EQ(said.Offered, Buttons::Ok);
    EXPECT_EQ(said.Text, "There are no Datasource Drivers installed on this machine. Please install MDAC 2.1 from "
                         "https://www.unixodbc.org/drivers.html or, in its place, the ODBC drivers that your "
                         "distribution has; on Debian: apt install libsqliteodbc odbc-postgresql odbc-mariadb tdsodbc");
    EXPECT_FALSE(dialog->Pages()[0].fraConnectEnabled);
    EXPECT_FALSE(dialog->Pages()[2].fraConnectEnabled);
    EXPECT_TRUE(dialog->Pages()[1].fraConnectEnabled);
    EXPECT_EQ(dialog->Page().txtDatabase, "");
    EXPECT_FALSE(dialog->chkConnectSameDirectory);
}

TEST_F(LogonLists, AreNotEmptyWhereADataSourceStandsOnALibraryThatIsNotSetUp)
{
    installed.Libraries.clear();
    installed.Sources = {{"Mine", "/opt/libmine.so"}};
    const auto dialog = LoadedOn("PROVIDER=MSDASQL;DSN=Mine;UID=ann;PWD=;");
    EXPECT_TRUE(messages.Asked().empty());
    EXPECT_TRUE(dialog->Pages()[0].fraConnectEnabled);
    EXPECT_EQ(dialog->CurrentPage(), 0U);
    EXPECT_EQ(dialog->Page().cmbDSN.Text(), "Mine");
    EXPECT_EQ(dialog->Page().txtUID, "ann");
}

TEST_F(LogonLists, DoNotOfferSqlServerWithoutADriverForIt)
{
    installed.Libraries.erase("FreeTDS");
    installed.Sources = {{"Shop", "PostgreSQL Unicode"}};
    const auto dialog = Loaded();
    ASSERT_EQ(dialog->Providers().size(), 2U);
    EXPECT_EQ(dialog->Providers()[1].Key, "Microsoft.Jet.OLEDB.4.0");
    EXPECT_EQ(dialog->Provider().Key, "Microsoft.Jet.OLEDB.4.0");
    EXPECT_FALSE(dialog->Pages()[2].fraConnectEnabled);
    EXPECT_TRUE(dialog->Pages()[0].fraConnectEnabled);
    dialog->tabMain_Click(2);
    EXPECT_EQ(dialog->CurrentPage(), 1U);
}

TEST_F(LogonLists, TakeTheConfiguredDriverForThatOfSqlServer)
{
    installed.Libraries["My TDS"] = "libtdsodbc.so";
    LogonSurroundings surroundings = Surroundings();
    surroundings.TdsDriver = "My TDS";
    frmODBCLogon dialog(project, LogonPurpose::EditDataSource, LogonMode::Normal, surroundings);
    dialog.Load();
    EXPECT_EQ(dialog.Purpose(), LogonPurpose::EditDataSource);
    EXPECT_EQ(Described(dialog.Pages()[2].cmbDrivers),
              (std::vector<std::string>{"Driver: SQL Server [] SQL Server", "Driver: My TDS [] My TDS"}));
    EXPECT_EQ(Described(dialog.Pages()[2].cmbDSN), (std::vector<std::string>{"Server: Ledger [SQL Server] "}));
}

TEST_F(LogonLists, SelectingAProviderShowsItsPage)
{
    const auto dialog = LoadedAt("SQLOLEDB");
    EXPECT_EQ(dialog->CurrentPage(), 2U);
    Select(*dialog, "MSDASQL");
    EXPECT_EQ(dialog->CurrentPage(), 0U);
    Select(*dialog, "Microsoft.Jet.OLEDB.4.0");
    EXPECT_EQ(dialog->CurrentPage(), 1U);
    dialog->cmbProviders_Click(3);
    EXPECT_EQ(dialog->CurrentPage(), 1U);
}

TEST_F(LogonLists, SelectingTheProviderForOdbcReturnsToItsDataSources)
{
    const auto dialog = LoadedAt("MSDASQL");
    EXPECT_TRUE(dialog->Page().optUseDSN);
    dialog->optDSNLess_Click();
    EXPECT_FALSE(dialog->Page().optUseDSN);
    Select(*dialog, "MSDASQL");
    EXPECT_TRUE(dialog->Page().optUseDSN);
}

TEST_F(LogonLists, SwitchingThePageSelectsItsProvider)
{
    const auto dialog = Loaded();
    dialog->tabMain_Click(2);
    EXPECT_EQ(dialog->CurrentPage(), 2U);
    EXPECT_EQ(dialog->Provider().Key, "SQLOLEDB");
    dialog->tabMain_Click(0);
    EXPECT_EQ(dialog->Provider().Key, "MSDASQL");
    dialog->optDSNLess_Click();
    dialog->tabMain_Click(2);
    dialog->tabMain_Click(0);
    EXPECT_FALSE(dialog->Page().optUseDSN);
    dialog->tabMain_Click(2);
    dialog->tabMain_Click(3);
    EXPECT_EQ(dialog->CurrentPage(), 2U);
}

} // namespace
} // namespace veldrane
