#include "datasource/jet/jet_logon.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

JetLogon LogonOf(const std::string& text)
{
    return BuildJetLogon(ConnectionString(text));
}

std::string RefusalOf(const std::string& text)
{
    try {
        static_cast<void>(LogonOf(text));
    } catch (const DataSourceError& error) {
        EXPECT_EQ(error.Number, data_source_error::kFailed);
        return error.Description();
    }
    return "";
}

const std::string kProvider = "PROVIDER=Microsoft.Jet.OLEDB.4.0;";

TEST(JetLogon, IsAskedForByTheProvider)
{
    EXPECT_TRUE(AsksForJet(ConnectionString("provider=microsoft.jet.oledb.4.0;")));
    EXPECT_FALSE(AsksForJet(ConnectionString("PROVIDER=MSDASQL;Data Source=/data/a.mdb;")));
    EXPECT_FALSE(AsksForJet(ConnectionString("Data Source=/data/a.mdb;")));
}

TEST(JetLogon, TakesTheFileAndItsPassword)
{
    const JetLogon logon = LogonOf(kProvider + "Data Source=/data/Größe 1.mdb;USER ID=Admin;PASSWORD=other;" +
                                   "jet oledb:database password={a;b}}c};");
    EXPECT_EQ(logon.File, "/data/Größe 1.mdb");
    EXPECT_EQ(logon.Password, "a;b}c");
    EXPECT_EQ(LogonOf(kProvider + "Data Source=/data/a.mdb;USER ID=Admin;PASSWORD=;").Password, "");
}

TEST(JetLogon, TakesWhatSuchStringsCarryWithoutEffect)
{
    EXPECT_EQ(LogonOf(kProvider + "Data Source=a.mdb;Mode=Share Deny None;Persist Security Info=False;" +
                      "Locale Identifier=1033;Extended Properties=;UID=me;PWD=x;Jet OLEDB:Engine Type=5;" +
                      "Jet OLEDB:System database=/data/system.mdw;Jet OLEDB:Registry Path=;")
                  .File,
              "a.mdb");
}

TEST(JetLogon, TakesAStringAsTheProviderGivesItBack)
{
    const JetLogon logon = LogonOf(
        "Provider=Microsoft.Jet.OLEDB.4.0;User ID=Admin;Data Source=\"/data/Größe 1.mdb\";Mode=Share Deny None;Extended "
        "Properties=\"\";Jet OLEDB:System database=\"\";Jet OLEDB:Registry Path=\"\";Jet OLEDB:Database "
        "Password=\"geheim ß\";Jet OLEDB:Engine Type=5;Jet OLEDB:Database Locking Mode=1;Jet OLEDB:Global Partial Bulk "
        "Ops=2;Jet OLEDB:Global Bulk Transactions=1;Jet OLEDB:New Database Password=\"\";Jet OLEDB:Create System "
        "Database=False;Jet OLEDB:Encrypt Database=False;Jet OLEDB:Don't Copy Locale on Compact=False;Jet OLEDB:Compact "
        "Without Replica Repair=False;Jet OLEDB:SFP=False");
    EXPECT_EQ(logon.File, "/data/Größe 1.mdb");
    EXPECT_EQ(logon.Password, "geheim ß");
}

TEST(JetLogon, TakesValuesOutOfTheirQuotes)
{
    const auto passwordOf = [](const std::string& value) {
        return LogonOf(kProvider + "Data Source=a.mdb;Jet OLEDB:Database Password=" + value + ";").Password;
    };
    EXPECT_EQ(passwordOf("\"a \"\"b\"\" 'c'\""), "a \"b\" 'c'");
    EXPECT_EQ(passwordOf("'it''s \"so\"'"), "it's \"so\"");
    EXPECT_EQ(passwordOf("''"), "");
    EXPECT_EQ(passwordOf("\"\"\"\""), "\"");
    EXPECT_EQ(passwordOf("a\"b\""), "a\"b\"") << "quotes begin a value or mean nothing";
    EXPECT_EQ(passwordOf("{\"a;b\"}"), "a;b");
}

TEST(JetLogon, NamesTheKeyOfAQuoteThatIsNotClosed)
{
    for (const std::string value : {"\"", "'open", "\"a;b\"", "\"a\"b", "\"a\"b\"", "\"a\"\""})
        EXPECT_EQ(RefusalOf(kProvider + "Data Source=a.mdb;Jet OLEDB:Database Password=" + value + ";"),
                  "The connection string opens a quote at \"Jet OLEDB:Database Password\" and does not close it at the "
                  "end of the value: double the quotes within, and write a value with a semicolon in braces.")
            << value;
}

TEST(JetLogon, NeedsAFile)
{
    const std::string refusal = "The connection string names no file: give the path of one as \"Data Source\".";
    EXPECT_EQ(RefusalOf(kProvider), refusal);
    EXPECT_EQ(RefusalOf(kProvider + "Data Source=;"), refusal);
}

TEST(JetLogon, OpensNoFileOfAnotherFormat)
{
    const std::string refusal = "Only Jet files themselves can be opened, no files of other formats: take \"Extended "
                                "Properties\" out of the connection string.";
    EXPECT_EQ(RefusalOf(kProvider + "Data Source=a.xls;Extended Properties=Excel 8.0;"), refusal);
    EXPECT_EQ(RefusalOf(kProvider + "Data Source=a.xls;Extended Properties=\"Excel 8.0;HDR=Yes\";"), refusal);
}

TEST(JetLogon, NamesAKeyThatTheProviderDoesNotHave)
{
    EXPECT_EQ(RefusalOf(kProvider + "Data Source=a.mdb;Driver=secret;"),
              "The provider of Jet files has no key \"Driver\": take it out of the connection string.");
    EXPECT_EQ(RefusalOf(kProvider + "Data Source=a.mdb;Jet OLEDB:Databse Password=secret;"),
              "The provider of Jet files has no key \"Jet OLEDB:Databse Password\": take it out of the connection "
              "string.");
    EXPECT_EQ(RefusalOf(kProvider + "Data Source=a.mdb;Database Password=secret;"),
              "The provider of Jet files has no key \"Database Password\": take it out of the connection string.");
}

} // namespace
} // namespace veldrane
