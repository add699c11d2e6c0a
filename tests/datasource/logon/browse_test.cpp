#include "logon_fixture.h"

namespace veldrane {
namespace {

class LogonBrowse : public LogonTest
{
  protected:
    // The filter offered for the driver of the ODBC page.
    std::string FilterFor(const std::string& driver)
    {
        installed.Libraries[driver];
        const auto dialog = LoadedAt("MSDASQL");
        dialog->optDSNLess_Click();
        SelectDriver(*dialog, driver);
        dialog->cmdBrowse_Click();
        return files.AskedToOpen().back().Filter;
    }

    void ExpectNoFilterSaid()
    {
        ASSERT_EQ(messages.Asked().size(), 1U);
        EXPECT_EQ(messages.Asked().front().Title, "");
        EXPECT_EQ(messages.Asked().front().Text, "Unable to determine file type. No Filter will be applied.");
    }
};

TEST_F(LogonBrowse, ADriverOfFilesOffersAFileAndAnyOtherAServer)
{
    const auto dialog = LoadedAt("MSDASQL");
    EXPECT_FALSE(dialog->Page().cmdBrowseEnabled);
    EXPECT_TRUE(dialog->Page().txtServerEnabled);
    for (const char* ofFiles : {"Old Files", "Größe; {neu}"}) {
        SelectDSN(*dialog, ofFiles);
        EXPECT_TRUE(dialog->Page().cmdBrowseEnabled) << ofFiles;
        EXPECT_FALSE(dialog->Page().txtServerEnabled) << ofFiles;
    }
    SelectDSN(*dialog, "Ledger");
    EXPECT_FALSE(dialog->Page().cmdBrowseEnabled);
    EXPECT_TRUE(dialog->Page().txtServerEnabled);
    for (const char* ofFiles : {kAccess, "SQLite3"}) {
        SelectDriver(*dialog, ofFiles);
        EXPECT_TRUE(dialog->Page().cmdBrowseEnabled) << ofFiles;
        EXPECT_FALSE(dialog->Page().txtServerEnabled) << ofFiles;
    }
    SelectDriver(*dialog, "MariaDB Unicode");
    EXPECT_FALSE(dialog->Page().cmdBrowseEnabled);
    EXPECT_TRUE(dialog->Page().txtServerEnabled);
}

TEST_F(LogonBrowse, SqlServerOffersAServerFromTheStart)
{
    const auto dialog = LoadedAt("SQLOLEDB");
    EXPECT_FALSE(dialog->Page().cmdBrowseEnabled);
    EXPECT_TRUE(dialog->Page().txtServerEnabled);
}

TEST_F(LogonBrowse, TheOptionsOfferWhatTheirSelectionReads)
{
    const auto dialog = LoadedAt("MSDASQL");
    SelectDSN(*dialog, "Shop");
    SelectDriver(*dialog, "SQLite3");
    dialog->optUseDSN_Click();
    EXPECT_TRUE(dialog->Page().txtServerEnabled);
    dialog->optDSNLess_Click();
    EXPECT_FALSE(dialog->Page().txtServerEnabled);
}

TEST_F(LogonBrowse, TheJetPageAlwaysOffersAFile)
{
    const auto dialog = Loaded();
    EXPECT_TRUE(dialog->Page().cmdBrowseEnabled);
    dialog->optDSNLess_Click();
    dialog->cmbDSN_Click(0);
    EXPECT_TRUE(dialog->Page().cmdBrowseEnabled);
}

TEST_F(LogonBrowse, OffersDatabasesOfJetOnItsPage)
{
    files = {"/data/Größe; neu.mdb"};
    const auto dialog = Loaded();
    dialog->Page().txtDatabase = "/data/old.mdb";
    dialog->cmdBrowse_Click();
    ASSERT_EQ(files.AskedToOpen().size(), 1U);
    EXPECT_EQ(files.AskedToOpen().front().Title, "Select DataSource File");
    EXPECT_EQ(files.AskedToOpen().front().Filter, "Microsoft Access Databases|*.mdb|All Files|*.*");
    EXPECT_EQ(files.AskedToOpen().front().DefaultName, "/data/old.mdb");
    EXPECT_EQ(dialog->Page().txtDatabase, "/data/Größe; neu.mdb");
    EXPECT_EQ(dialog->Pages()[0].txtDatabase, "");
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(LogonBrowse, CancelKeepsThePath)
{
    files = {std::nullopt};
    const auto dialog = Loaded();
    dialog->Page().txtDatabase = "/data/old.mdb";
    dialog->cmdBrowse_Click();
    EXPECT_EQ(dialog->Page().txtDatabase, "/data/old.mdb");
}

TEST_F(LogonBrowse, ReadsTheFileTypeOutOfTheDriversName)
{
    // The blank before the bracket belongs to the file type.
    EXPECT_EQ(FilterFor(kAccess), "Microsoft Access Files |*.mdb|All Files|*.*");
    EXPECT_EQ(FilterFor("Text Driver (*.txt; *.csv)"), "Text Files |*.txt; *.csv|All Files|*.*");
    EXPECT_EQ(FilterFor("Größen(*.größe)"), "Größen|*.größe|All Files|*.*");
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(LogonBrowse, ReadsTheFileTypeOutOfTheDriverOfADataSource)
{
    const auto dialog = LoadedAt("MSDASQL");
    SelectDSN(*dialog, "Old Files");
    dialog->cmdBrowse_Click();
    EXPECT_EQ(files.AskedToOpen().back().Filter, "Microsoft Access Files |*.mdb|All Files|*.*");
}

TEST_F(LogonBrowse, ReadsTheFileTypeOnThePageOfSqlServerLikewise)
{
    installed.Libraries["TDS Driver (*.tds)"];
    LogonSurroundings surroundings = Surroundings();
    surroundings.TdsDriver = "TDS Driver (*.tds)";
    frmODBCLogon dialog(project, LogonPurpose::NewDataSource, LogonMode::Normal, surroundings);
    dialog.Load();
    Select(dialog, "SQLOLEDB");
    dialog.optDSNLess_Click();
    SelectDriver(dialog, "TDS Driver (*.tds)");
    dialog.cmdBrowse_Click();
    EXPECT_EQ(files.AskedToOpen().back().Filter, "TDS Files |*.tds|All Files|*.*");
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(LogonBrowse, OffersDatabasesOfSqliteForItsDriver)
{
    EXPECT_EQ(FilterFor("SQLite3"), "SQLite Databases|*.db;*.sqlite;*.sqlite3|All Files|*.*");
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(LogonBrowse, SaysThatANameTellsNoFileType)
{
    EXPECT_EQ(FilterFor("MariaDB Unicode"), "All Files|*.*");
    ExpectNoFilterSaid();
}

TEST_F(LogonBrowse, SaysThatANameWithTwoBracketsTellsNoFileType)
{
    EXPECT_EQ(FilterFor("Old (very) Driver (*.old)"), "All Files|*.*");
    ExpectNoFilterSaid();
}

TEST_F(LogonBrowse, SaysThatABracketAloneTellsNoFileType)
{
    EXPECT_EQ(FilterFor("(*.old)"), "All Files|*.*");
    ExpectNoFilterSaid();
}

TEST_F(LogonBrowse, SaysThatNoDriverTellsNoFileType)
{
    installed.Sources.clear();
    const auto dialog = LoadedAt("MSDASQL");
    dialog->cmdBrowse_Click();
    EXPECT_EQ(files.AskedToOpen().back().Filter, "All Files|*.*");
    ExpectNoFilterSaid();
}

TEST_F(LogonBrowse, AFileGoesToThePageThatAskedForIt)
{
    const auto dialog = LoadedAt("Microsoft.Jet.OLEDB.4.0");
    files.Add("/data/Shop.mdb");
    files.WhileOpen = [&] { Select(*dialog, "MSDASQL"); };
    dialog->cmdBrowse_Click();
    EXPECT_EQ(dialog->Pages()[logon_page::kJet].txtDatabase, "/data/Shop.mdb");
    EXPECT_EQ(dialog->Page().txtDatabase, "");
}

TEST_F(LogonBrowse, AFileThatIsDroppedIsOneForSqlite)
{
    const auto dialog = LoadedAt("SQLOLEDB");
    dialog->DropFile("/data/Größe.db");
    EXPECT_EQ(dialog->Provider().Key, "MSDASQL");
    EXPECT_FALSE(dialog->Page().optUseDSN);
    EXPECT_EQ(StringOf(*dialog), "PROVIDER=MSDASQL;Driver=SQLite3;Server=;UID=;PWD=;Database=/data/Größe.db;");
}

TEST_F(LogonBrowse, AFileThatIsDroppedIsOneOfSqlite3WhereTwoDriversAreSetUp)
{
    installed.Libraries["SQLite"] = "libsqliteodbc.so";
    installed.Libraries["SQLite3"] = "libsqlite3odbc.so";
    const auto both = LoadedAt("SQLOLEDB");
    both->DropFile("/data/shop.db");
    EXPECT_EQ(both->Page().cmbDrivers.Text(), "SQLite3");
    installed.Libraries.erase("SQLite3");
    installed.Sources.clear(); // one of them names it
    const auto older = LoadedAt("SQLOLEDB");
    older->DropFile("/data/shop.db");
    EXPECT_EQ(older->Page().cmbDrivers.Text(), "SQLite");
}

TEST_F(LogonBrowse, AJetFileThatIsDroppedIsOneByItsEnding)
{
    const auto dialog = LoadedAt("MSDASQL");
    dialog->DropFile("/data/Shop.MDB");
    EXPECT_EQ(dialog->Provider().Key, "Microsoft.Jet.OLEDB.4.0");
    EXPECT_EQ(dialog->Page().txtDatabase, "/data/Shop.MDB");
}

TEST_F(LogonBrowse, WithoutADriverForSqliteADroppedFileSaysSo)
{
    installed.Libraries.erase("SQLite3");
    installed.Sources = {{"Shop", "PostgreSQL Unicode"}};
    for (const char* provider : {"Microsoft.Jet.OLEDB.4.0", "MSDASQL"}) {
        const auto dialog = LoadedAt(provider);
        messages.Forget();
        dialog->DropFile("/data/shop.db");
        ASSERT_EQ(messages.Asked().size(), 1U) << provider;
        EXPECT_EQ(messages.Asked()[0].Title, "No Driver Specified");
        EXPECT_EQ(
            messages.Asked()[0].Text,
            "If this is an SQLite file: no ODBC driver for SQLite is installed; on Debian: apt install libsqliteodbc");
        dialog->DropFile("/data/shop.mdb");
        EXPECT_EQ(messages.Asked().size(), 1U);
    }
}

TEST_F(LogonBrowse, AFileThatIsDroppedGoesWhereAPathIsAskedFor)
{
    installed.Libraries.erase("SQLite3");
    installed.Sources = {{"Old Files", kAccess}, {"Shop", "PostgreSQL Unicode"}};
    const auto dialog = LoadedAt("MSDASQL");
    dialog->DropFile("/data/Shop.dat");
    EXPECT_EQ(dialog->Page().cmbDSN.Text(), "Old Files");
    EXPECT_EQ(dialog->Page().txtDatabase, "/data/Shop.dat");
    EXPECT_TRUE(messages.Asked().empty());
    SelectDSN(*dialog, "Shop");
    dialog->DropFile("/data/Other.dat");
    EXPECT_EQ(dialog->Page().txtDatabase, "/data/Shop.dat");
}

} // namespace
} // namespace veldrane
