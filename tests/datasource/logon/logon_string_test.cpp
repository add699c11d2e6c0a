#include "logon_fixture.h"

#include "datasource/jet/jet_logon.h"

namespace veldrane {
namespace {

class LogonString : public LogonTest
{
  protected:
    // A page of the ODBC or SQL Server provider with its data source selected.
    std::unique_ptr<frmODBCLogon> WithDSN(std::string_view provider, std::string_view name)
    {
        auto dialog = LoadedAt(provider);
        SelectDSN(*dialog, name);
        return dialog;
    }

    std::unique_ptr<frmODBCLogon> WithDriver(std::string_view provider, std::string_view name)
    {
        auto dialog = LoadedAt(provider);
        dialog->optDSNLess_Click();
        SelectDriver(*dialog, name);
        return dialog;
    }

    static void LogOn(LogonPage& page)
    {
        page.txtUID = "ann";
        page.txtPWD = "secret";
    }
};

TEST_F(LogonString, ADataSourceAlwaysHasLoginAndPassword)
{
    EXPECT_EQ(StringOf(*WithDSN("MSDASQL", "Shop")), "PROVIDER=MSDASQL;DSN=Shop;UID=;PWD=;");
}

TEST_F(LogonString, ADataSourceNamesADatabaseOnlyIfThereIsOne)
{
    const auto dialog = WithDSN("MSDASQL", "Shop");
    LogOn(dialog->Page());
    dialog->Page().txtServer = "not written";
    EXPECT_EQ(StringOf(*dialog), "PROVIDER=MSDASQL;DSN=Shop;UID=ann;PWD=secret;");
    dialog->Page().txtDatabase = "main";
    EXPECT_EQ(StringOf(*dialog), "PROVIDER=MSDASQL;DSN=Shop;UID=ann;PWD=secret;Database=main;");
}

TEST_F(LogonString, AccessHasItsPathUnderAKeyOfItsOwn)
{
    auto dialog = WithDSN("MSDASQL", "Old Files");
    dialog->Page().txtDatabase = "c:\\a.mdb";
    EXPECT_EQ(StringOf(*dialog), "PROVIDER=MSDASQL;DSN=Old Files;UID=;PWD=;DBQ=c:\\a.mdb;");
    dialog = WithDriver("MSDASQL", kAccess);
    dialog->Page().txtDatabase = "c:\\a.mdb";
    EXPECT_EQ(StringOf(*dialog),
              "PROVIDER=MSDASQL;Driver=Microsoft Access Driver (*.mdb);Server=;UID=;PWD=;DBQ=c:\\a.mdb;");
}

TEST_F(LogonString, ADriverHasAServerLoginAndPassword)
{
    const auto dialog = WithDriver("MSDASQL", "PostgreSQL Unicode");
    EXPECT_EQ(StringOf(*dialog), "PROVIDER=MSDASQL;Driver=PostgreSQL Unicode;Server=;UID=;PWD=;");
    LogOn(dialog->Page());
    dialog->Page().txtServer = "db.example:5433";
    dialog->Page().txtDatabase = "main";
    EXPECT_EQ(StringOf(*dialog),
              "PROVIDER=MSDASQL;Driver=PostgreSQL Unicode;Server=db.example:5433;UID=ann;PWD=secret;Database=main;");
}

TEST_F(LogonString, APasswordOfTheDatabaseIsASecondOneBehindAllElse)
{
    auto dialog = WithDSN("MSDASQL", "Shop");
    LogOn(dialog->Page());
    dialog->Page().txtDBPassword = "second";
    dialog->Page().txtDatabase = "main";
    EXPECT_EQ(StringOf(*dialog), "PROVIDER=MSDASQL;DSN=Shop;UID=ann;PWD=secret;Database=main;PWD=second;");
    dialog = WithDriver("MSDASQL", "MariaDB Unicode");
    dialog->Page().txtDBPassword = "second";
    EXPECT_EQ(StringOf(*dialog), "PROVIDER=MSDASQL;Driver=MariaDB Unicode;Server=;UID=;PWD=;PWD=second;");
}

TEST_F(LogonString, AJetFileWithoutALoginIsOpenedByAdmin)
{
    const auto dialog = Loaded();
    dialog->Page().txtDatabase = "c:\\a.mdb";
    EXPECT_EQ(StringOf(*dialog), "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=c:\\a.mdb;USER ID=Admin;PASSWORD=;");
    dialog->Page().txtPWD = "secret";
    EXPECT_EQ(StringOf(*dialog),
              "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=c:\\a.mdb;USER ID=Admin;PASSWORD=secret;");
}

TEST_F(LogonString, AJetFileHasALoginAndAPasswordOfItsOwn)
{
    const auto dialog = Loaded();
    dialog->Page().txtDatabase = "/data/a.mdb";
    LogOn(dialog->Page());
    dialog->Page().txtDBPassword = "file's";
    EXPECT_EQ(StringOf(*dialog), "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/data/a.mdb;USER ID=ann;"
                                 "PASSWORD=secret;Jet OLEDB:Database Password=file's;");
}

TEST_F(LogonString, AValueThatBeginsWithAQuoteIsQuotedForJet)
{
    const auto dialog = Loaded();
    dialog->Page().txtDatabase = "/a.mdb";
    dialog->Page().txtUID = "'ann'";
    dialog->Page().txtPWD = "\"";
    dialog->Page().txtDBPassword = "\"a\";b";
    EXPECT_EQ(StringOf(*dialog), "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=/a.mdb;USER ID=\"'ann'\";"
                                 "PASSWORD=\"\"\"\";Jet OLEDB:Database Password={\"\"\"a\"\";b\"};");
}

TEST_F(LogonString, AJetFileIsOpenedWithWhatWasTyped)
{
    const auto dialog = Loaded();
    for (const char* typed : {"\"geheim", "\"geheim\"", "'geheim'", "'", "\"", "\"\"", "''", "a\"b\"", "\"a;b",
                              " \"a\" ", "{\"a\"}", "\"{a}\"", "'a\"\"b'"}) {
        for (std::string* text : {&dialog->Page().txtDatabase, &dialog->Page().txtUID, &dialog->Page().txtPWD,
                                  &dialog->Page().txtDBPassword})
            *text = typed;
        const JetLogon logon = BuildJetLogon(ConnectionString(StringOf(*dialog)));
        EXPECT_EQ(logon.File, typed);
        EXPECT_EQ(logon.Password, typed);
    }
}

TEST_F(LogonString, SqlServerWithoutALoginUsesThatOfTheSystem)
{
    const auto dialog = WithDSN("SQLOLEDB", "Ledger");
    dialog->Page().txtPWD = "not written";
    EXPECT_EQ(StringOf(*dialog), "PROVIDER=SQLOLEDB;DSN=Ledger;Integrated Security=SSPI;Data Source=;");
    dialog->Page().txtServer = "host";
    dialog->Page().txtDatabase = "main";
    EXPECT_EQ(StringOf(*dialog),
              "PROVIDER=SQLOLEDB;DSN=Ledger;Integrated Security=SSPI;Data Source=host;Initial Catalog=main;");
}

TEST_F(LogonString, SqlServerWithALoginUsesIt)
{
    const auto dialog = WithDSN("SQLOLEDB", "Payroll");
    LogOn(dialog->Page());
    dialog->Page().txtServer = "host\\instance";
    EXPECT_EQ(StringOf(*dialog), "PROVIDER=SQLOLEDB;DSN=Payroll;UID=ann;PWD=secret;Data Source=host\\instance;");
}

TEST_F(LogonString, SqlServerByDriverNamesTheServerBeforeTheLogin)
{
    const auto dialog = WithDriver("SQLOLEDB", "FreeTDS");
    dialog->Page().txtServer = "host,1433";
    EXPECT_EQ(StringOf(*dialog), "PROVIDER=SQLOLEDB;Driver=FreeTDS;Data Source=host,1433;Integrated Security=SSPI;");
    LogOn(dialog->Page());
    dialog->Page().txtDatabase = "main";
    EXPECT_EQ(StringOf(*dialog), "PROVIDER=SQLOLEDB;Driver=FreeTDS;Data Source=host,1433;UID=ann;PWD=secret;"
                                 "Initial Catalog=main;");
}

TEST_F(LogonString, WritesOrdinaryValuesAsTheyAre)
{
    const auto dialog = WithDSN("MSDASQL", "Shop");
    for (const char* value : {"a=b", "it's", "say \"so\"", "a{b}c", "Größe Ελλάς", "a%41b", "()[]!@*?,", "}", "'"}) {
        dialog->Page().txtPWD = value;
        EXPECT_EQ(StringOf(*dialog), "PROVIDER=MSDASQL;DSN=Shop;UID=;PWD=" + std::string(value) + ";");
    }
}

TEST_F(LogonString, BracesAValueThatWouldBreakTheString)
{
    const std::vector<std::pair<std::string, std::string>> braced{
        {"a;b", "{a;b}"},  {"{a", "{{a}"},         {" a", "{ a}"},
        {"a ", "{a }"},    {"a;}b}", "{a;}}b}}}"}, {";DSN=Other;", "{;DSN=Other;}"},
        {"{a}", "{{a}}}"}, {" ", "{ }"},
    };
    const auto dialog = WithDSN("MSDASQL", "Shop");
    for (const auto& [value, written] : braced) {
        dialog->Page().txtPWD = value;
        EXPECT_EQ(StringOf(*dialog), "PROVIDER=MSDASQL;DSN=Shop;UID=;PWD=" + written + ";");
    }
}

TEST_F(LogonString, RefusesAValueThatNamesAProviderInBracesToo)
{
    const auto dialog = WithDSN("MSDASQL", "Shop");
    for (const char* value : {"a=SQLOLEDB;b", "=msdasql;x", " =Microsoft.Jet.OLEDB.4.0;"}) {
        dialog->Page().txtUID = value;
        EXPECT_THROW(StringOf(*dialog), DataSourceError) << value;
    }
}

TEST_F(LogonString, AValueNamedLikeAProviderLeavesTheKindOfConnectionAsItIs)
{
    const auto dialog = WithDSN("MSDASQL", "Shop");
    for (const char* value : {"SQLOLEDB", "x=sqloledb", "Microsoft.Jet.OLEDB.4.0"}) {
        dialog->Page().txtUID = value;
        project.SetConnectionString(StringOf(*dialog));
        EXPECT_EQ(project.DataSource(), data_source_kind::kOdbc) << value;
        EXPECT_EQ(ConnectionString(project.ConnectionString()).Value("UID"), value);
    }
}

} // namespace
} // namespace veldrane
