#include "logon_fixture.h"

#include "datasource/logon/read_back.h"

namespace veldrane {
namespace {

class LogonReadBack : public LogonTest
{
  protected:
    // The controls that show "SQL Server", a value that every list has, after it has been read back under the key.
    std::string TakenBy(const std::string& provider, const std::string& key)
    {
        installed.Sources = {{"Shop", "PostgreSQL Unicode"}, {"Payroll", "FreeTDS"}, {"SQL Server", "SQL Server"}};
        const auto dialog = LoadedOn("PROVIDER=" + provider + ";" + key + "=SQL Server;");
        EXPECT_EQ(dialog->Provider().Key, provider);
        const LogonPage& page = dialog->Page();
        const std::vector<std::pair<std::string, std::string>> shown{
            {"txtDatabase", page.txtDatabase},     {"txtUID", page.txtUID},       {"txtPWD", page.txtPWD},
            {"txtDBPassword", page.txtDBPassword}, {"txtServer", page.txtServer}, {"cmbDSN", page.cmbDSN.Text()},
            {"cmbDrivers", page.cmbDrivers.Text()}};
        std::string controls;
        for (const auto& [control, text] : shown)
            if (text == "SQL Server")
                controls += (controls.empty() ? "" : " ") + control;
        const bool hasOptions = dialog->CurrentPage() != logon_page::kJet;
        return controls + (hasOptions && page.optUseDSN ? " optUseDSN" : "");
    }

    void ExpectNotImplemented(std::size_t times)
    {
        ASSERT_EQ(messages.Asked().size(), times);
        for (const Question& said : messages.Asked()) {
            EXPECT_EQ(said.Title, "");
            EXPECT_EQ(said.Text, "This functionality has not been implemented yet.");
        }
    }
};

TEST_F(LogonReadBack, AnEmptyStringShowsTheJetPage)
{
    project.ConnectSameDirectory = true;
    const auto dialog = Loaded();
    EXPECT_EQ(dialog->CurrentPage(), 1U);
    EXPECT_EQ(dialog->Page().txtDatabase, "");
    EXPECT_TRUE(dialog->chkConnectSameDirectory);
    EXPECT_TRUE(dialog->Pages()[0].optUseDSN);
}

TEST_F(LogonReadBack, TheOdbcPageTakesItsKeys)
{
    const auto dialog = LoadedOn("PROVIDER=MSDASQL;Driver=MariaDB Unicode;Server=host;UID=ann;PWD=one;DBQ=/a b;"
                                 "PWD=two;DATA SOURCE=x;INITIAL CATALOG=y;JET OLEDB:DATABASE PASSWORD=z;");
    EXPECT_EQ(dialog->CurrentPage(), 0U);
    const LogonPage& page = dialog->Page();
    EXPECT_FALSE(page.optUseDSN);
    EXPECT_EQ(page.cmbDrivers.Text(), "MariaDB Unicode");
    EXPECT_EQ(page.txtServer, "host");
    EXPECT_EQ(page.txtUID, "ann");
    EXPECT_EQ(page.txtPWD, "one");
    EXPECT_EQ(page.txtDBPassword, "two");
    EXPECT_EQ(page.txtDatabase, "/a b");
    EXPECT_TRUE(page.txtServerEnabled);
}

TEST_F(LogonReadBack, TheJetPageTakesItsKeys)
{
    const auto dialog = LoadedOn("PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/a.mdb;USER ID=ann;PASSWORD=lost;"
                                 "Jet OLEDB:Database Password=file;Driver=SQLite3;DSN=Shop;SERVER=x;DBQ=y;");
    EXPECT_EQ(dialog->CurrentPage(), 1U);
    const LogonPage& page = dialog->Page();
    EXPECT_EQ(page.txtDatabase, "/a.mdb");
    EXPECT_EQ(page.txtUID, "ann");
    EXPECT_EQ(page.txtPWD, "");
    EXPECT_EQ(page.txtDBPassword, "file");
    EXPECT_EQ(page.txtServer, "");
    EXPECT_TRUE(page.cmdBrowseEnabled);
    EXPECT_TRUE(page.optUseDSN);
}

TEST_F(LogonReadBack, TheJetPageTakesValuesOutOfTheirQuotes)
{
    const auto dialog = LoadedOn("PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=\"/x y.mdb\";USER ID='ann';"
                                 "Jet OLEDB:Database Password=\"\"\"file\"\"\";");
    EXPECT_EQ(dialog->Page().txtDatabase, "/x y.mdb");
    EXPECT_EQ(dialog->Page().txtUID, "ann");
    EXPECT_EQ(dialog->Page().txtDBPassword, "\"file\"");
    EXPECT_EQ(LoadedOn("PROVIDER=Microsoft.Jet.OLEDB.4.0;USER ID=\"open;")->Page().txtUID, "\"open");
    EXPECT_EQ(LoadedOn("PROVIDER=MSDASQL;DSN=Shop;UID='ann';")->Page().txtUID, "'ann'");
}

TEST_F(LogonReadBack, TheSqlServerPageTakesValuesOutOfTheirQuotes)
{
    const auto dialog = LoadedOn("PROVIDER=SQLOLEDB;Driver=\"FreeTDS\";Data Source=\"db,1\";User ID='ann';PWD=\"open;");
    EXPECT_EQ(dialog->Page().cmbDrivers.Text(), "FreeTDS");
    EXPECT_EQ(dialog->Page().txtServer, "db,1");
    EXPECT_EQ(dialog->Page().txtUID, "ann");
    EXPECT_EQ(dialog->Page().txtPWD, "\"open");
}

TEST_F(LogonReadBack, TheJetPageTakesThePasswordOfOtherProvidersToo)
{
    const auto dialog = LoadedOn("PROVIDER=Microsoft.Jet.OLEDB.4.0;PWD=one;PWD=two;UID=ann;");
    EXPECT_EQ(dialog->Page().txtPWD, "two");
    EXPECT_EQ(dialog->Page().txtDBPassword, "");
    EXPECT_EQ(dialog->Page().txtUID, "ann");
}

TEST_F(LogonReadBack, TheSqlServerPageTakesItsKeys)
{
    auto dialog = LoadedOn("PROVIDER=SQLOLEDB;Driver=FreeTDS;Data Source=host;UID=ann;PWD=one;PWD=two;"
                           "Initial Catalog=main;DBQ=x;");
    EXPECT_EQ(dialog->CurrentPage(), 2U);
    EXPECT_FALSE(dialog->Page().optUseDSN);
    EXPECT_EQ(dialog->Page().cmbDrivers.Text(), "FreeTDS");
    EXPECT_EQ(dialog->Page().txtServer, "host");
    EXPECT_EQ(dialog->Page().txtUID, "ann");
    EXPECT_EQ(dialog->Page().txtPWD, "two");
    EXPECT_EQ(dialog->Page().txtDBPassword, "");
    EXPECT_EQ(dialog->Page().txtDatabase, "main");
    dialog = LoadedOn("PROVIDER=SQLOLEDB;DSN=Payroll;Integrated Security=SSPI;Server=host;");
    EXPECT_TRUE(dialog->Page().optUseDSN);
    EXPECT_EQ(dialog->Page().cmbDSN.Text(), "Payroll");
    EXPECT_EQ(dialog->Page().txtServer, "host");
}

TEST_F(LogonReadBack, EveryKeyReachesItsControlOnEveryPage)
{
    struct Row
    {
        const char* Key;
        std::string Odbc, Jet, SqlServer; // the control that takes the value, "" for none
    };
    const std::vector<Row> rows{{"DATA SOURCE", "", "txtDatabase", "txtServer"},
                                {"UID", "txtUID", "txtUID", "txtUID"},
                                {"USER ID", "txtUID", "txtUID", "txtUID"},
                                {"PWD", "txtPWD", "txtPWD", "txtPWD"},
                                {"PASSWORD", "", "", ""},
                                {"INITIAL CATALOG", "", "", "txtDatabase"},
                                {"DBQ", "txtDatabase", "", ""},
                                {"JET OLEDB:DATABASE PASSWORD", "", "txtDBPassword", ""},
                                {"SERVER", "txtServer", "", "txtServer"},
                                {"DRIVER", "cmbDrivers", "", "cmbDrivers"},
                                {"DSN", "cmbDSN optUseDSN", "", "cmbDSN optUseDSN"}};
    for (const Row& row : rows) {
        EXPECT_EQ(TakenBy("MSDASQL", row.Key), row.Odbc) << row.Key;
        EXPECT_EQ(TakenBy("Microsoft.Jet.OLEDB.4.0", row.Key), row.Jet) << row.Key;
        EXPECT_EQ(TakenBy("SQLOLEDB", row.Key), row.SqlServer) << row.Key;
    }
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(LogonReadBack, AProviderAloneNamesNoDataSource)
{
    for (const char* provider : {"MSDASQL", "SQLOLEDB"}) {
        const auto dialog = LoadedOn("PROVIDER=" + std::string(provider) + ";");
        EXPECT_EQ(dialog->Provider().Key, provider);
        EXPECT_FALSE(dialog->Page().optUseDSN);
    }
}

TEST_F(LogonReadBack, TheDatabaseIsNotReadBackAndSaysSo)
{
    const auto dialog = LoadedOn("PROVIDER=MSDASQL;DSN=Shop;UID=ann;PWD=;Database=main;");
    ExpectNotImplemented(1);
    EXPECT_EQ(dialog->Page().txtDatabase, "");
    EXPECT_TRUE(dialog->Page().optUseDSN);
    EXPECT_EQ(dialog->Page().txtUID, "ann");
}

TEST_F(LogonReadBack, EveryDatabaseSaysSoOnEveryPage)
{
    EXPECT_TRUE(LoadedOn("database=a;PROVIDER=SQLOLEDB;DATABASE=b;"));
    ExpectNotImplemented(2);
}

TEST_F(LogonReadBack, KeysAreComparedWithoutRegardToCase)
{
    const auto dialog = LoadedOn("provider=msdasql;dsn=shop;uid=ann;");
    EXPECT_EQ(dialog->Page().cmbDSN.Text(), "Shop");
    EXPECT_EQ(dialog->Page().txtUID, "ann");
}

TEST_F(LogonReadBack, ADataSourceThatIsGoneIsNotTakenForAnother)
{
    const auto dialog = LoadedOn("PROVIDER=MSDASQL;DSN=Gone;UID=ann;PWD=;");
    EXPECT_FALSE(dialog->Page().optUseDSN);
    EXPECT_EQ(dialog->Page().cmbDSN.SelectedRow(), nullptr);
    dialog->cmdOK_Click();
    EXPECT_EQ(messages.Asked().back().Title, "No Driver Specified");
    EXPECT_TRUE(log.empty());
}

TEST_F(LogonReadBack, ADataSourceThatIsFoundStaysChosenWhateverFollows)
{
    for (const char* rest : {"DSN=Gone;", "PROVIDER=MSDASQL;UID=ann;", "Driver=Gone;"}) {
        const auto dialog = LoadedOn("PROVIDER=MSDASQL;DSN=Ledger;" + std::string(rest));
        EXPECT_TRUE(dialog->Page().optUseDSN) << rest;
        EXPECT_EQ(dialog->Page().cmbDSN.Text(), "Ledger") << rest;
    }
}

TEST_F(LogonReadBack, AProviderHasItsPageInEveryVersion)
{
    const auto dialog = LoadedOn("PROVIDER=MSDASQL.1;DSN=Ledger;UID=ann;");
    EXPECT_EQ(dialog->CurrentPage(), 0U);
    EXPECT_EQ(dialog->Page().cmbDSN.Text(), "Ledger");
    EXPECT_EQ(dialog->Page().txtUID, "ann");
    EXPECT_EQ(LoadedOn("PROVIDER=SQLOLEDB.1;Data Source=host;")->Provider().Key, "SQLOLEDB");
}

TEST_F(LogonReadBack, ADriverThatIsGoneIsNotTakenForAnother)
{
    const auto dialog = LoadedOn("PROVIDER=MSDASQL;Driver=Gone;Server=host;");
    EXPECT_EQ(dialog->Page().cmbDrivers.SelectedRow(), nullptr);
    dialog->cmdOK_Click();
    EXPECT_EQ(messages.Asked().back().Title, "No Driver Specified");
}

TEST_F(LogonReadBack, AServerOfAProviderThatIsNotOfferedIsNotTakenForAFile)
{
    installed.Libraries.erase("FreeTDS");
    installed.Sources.clear();
    for (const char* text : {"PROVIDER=SQLOLEDB;Data Source=host;UID=ann;", "PROVIDER=Other;Data Source=host;"}) {
        const auto dialog = LoadedOn(text);
        EXPECT_EQ(dialog->CurrentPage(), 1U);
        EXPECT_EQ(dialog->Page().txtDatabase, "");
        EXPECT_EQ(dialog->Page().txtUID, "");
    }
}

TEST_F(LogonReadBack, ADriverOfFilesOffersAFile)
{
    EXPECT_TRUE(LoadedOn("PROVIDER=MSDASQL;Driver=SQLite3;Server=;UID=;PWD=;")->Page().cmdBrowseEnabled);
    EXPECT_FALSE(LoadedOn("PROVIDER=MSDASQL;DSN=Old Files;")->Page().txtServerEnabled);
}

TEST_F(LogonReadBack, AValueIsEverythingBehindTheFirstEqualsSign)
{
    const auto dialog = LoadedOn("PROVIDER=MSDASQL;DSN={Größe; {neu}}};PWD=a=b==;UID={ a;b};");
    EXPECT_EQ(dialog->Page().cmbDSN.Text(), "Größe; {neu}");
    EXPECT_EQ(dialog->Page().txtPWD, "a=b==");
    EXPECT_EQ(dialog->Page().txtUID, " a;b");
}

TEST_F(LogonReadBack, TheReturnModeShowsTheCallersString)
{
    project.SetConnectionString("PROVIDER=MSDASQL;DSN=Shop;");
    project.ConnectSameDirectory = true;
    frmODBCLogon dialog(project, LogonPurpose::EditDataSource, LogonMode::Return, Surroundings());
    dialog.ConnectionString = "PROVIDER=SQLOLEDB;DSN=Ledger;Data Source=host;";
    dialog.Load();
    EXPECT_EQ(dialog.CurrentPage(), 2U);
    EXPECT_EQ(dialog.Page().txtServer, "host");
}

TEST_F(LogonReadBack, AnUnreadableStringIsShownPieceByPiece)
{
    const auto dialog = LoadedOn("PROVIDER=MSDASQL;DSN=Shop;UID=ann;PWD={open;=x;;junk; Server = h ");
    EXPECT_EQ(dialog->Page().cmbDSN.Text(), "Shop");
    EXPECT_EQ(dialog->Page().txtUID, "ann");
    EXPECT_EQ(dialog->Page().txtPWD, "{open");
    EXPECT_EQ(dialog->Page().txtServer, "h");
}

TEST_F(LogonReadBack, HostileTextHurtsNothingAndOpensNothing)
{
    const std::vector<std::string> texts{
        ";",
        "=",
        "=;=;=",
        ";;;;",
        "{",
        "PROVIDER",
        "PROVIDER=",
        "PROVIDER={",
        "PROVIDER=MSDASQL",
        "PROVIDER=MSDASQL;DRIVER=/tmp/evil.so;",
        "PROVIDER=MSDASQL;PROVIDER=SQLOLEDB;PROVIDER=Microsoft.Jet.OLEDB.4.0;DSN=Shop;UID",
        "PROVIDER=MSDASQL;DSN=Shop\nDriver=x;UID=a\tb",
        std::string("PROVIDER=MSDASQL;UID=a\0b;", 25),
        "PROVIDER=MSDASQL;UID=\xFF\xFE\x80;",
        "PROVIDER=MSDASQL;DSN=" + std::string(100000, ';') + std::string(100000, '='),
        "PROVIDER=MSDASQL;UID=" + std::string(100000, '{'),
        "UİD=x;ſ=y",
    };
    for (const std::string& text : texts) {
        const auto dialog = LoadedOn(text);
        EXPECT_LT(dialog->CurrentPage(), 3U);
        EXPECT_FALSE(StringOf(*dialog).empty());
        EXPECT_EQ(dialog->State(), DialogState::Shown);
        EXPECT_EQ(project.ConnectionString(), text);
        EXPECT_FALSE(project.Modified());
    }
    EXPECT_TRUE(log.empty());
    EXPECT_TRUE(errors.Reported.empty());
}

} // namespace
} // namespace veldrane
