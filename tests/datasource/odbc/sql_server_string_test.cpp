#include "datasource/sql_server_string.h"
#include "sample_drivers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace veldrane {
namespace {

using ::testing::HasSubstr;

const std::string kAdded = "TDS_Version=7.4;ClientCharset=UTF-8;";

std::string Built(const std::string& text, StringOrigin origin, const std::string& tdsDriver = "FreeTDS")
{
    return BuildOdbcLogon(ConnectionString(text), SampleDrivers(), {.Origin = origin, .TdsDriver = tdsDriver}).Text;
}

std::string OfProject(const std::string& text)
{
    return Built("PROVIDER=SQLOLEDB;" + text, StringOrigin::ProjectFile);
}

std::string RefusalOf(const std::string& text, StringOrigin origin, const std::string& tdsDriver = "FreeTDS")
{
    try {
        return "not refused: " + Built(text, origin, tdsDriver);
    } catch (const DataSourceError& error) {
        EXPECT_EQ(error.Number, data_source_error::kFailed);
        return error.Description();
    }
}

std::string Refusal(const std::string& text, StringOrigin origin = StringOrigin::ProjectFile,
                    const std::string& tdsDriver = "FreeTDS")
{
    return RefusalOf("PROVIDER=SQLOLEDB;" + text, origin, tdsDriver);
}

TEST(SqlServerString, IsTranslatedToTheKeysOfTheDriver)
{
    EXPECT_EQ(OfProject("Data Source=db;Initial Catalog=shop;User ID=ann;Password=secret;"),
              "Driver=FreeTDS;Server=db;Database=shop;UID=ann;PWD={secret};" + kAdded);
    EXPECT_EQ(OfProject("SERVER=db;DATABASE=shop;UID=ann;PWD=secret"),
              "Driver=FreeTDS;Server=db;DATABASE=shop;UID=ann;PWD={secret};" + kAdded);
    EXPECT_EQ(Built("PROVIDER=SQLOLEDB.1;Data Source=db;", StringOrigin::CommandLine),
              "Driver=FreeTDS;Server=db;" + kAdded);
}

TEST(SqlServerString, NamesTheServerAsTheDriverKnowsIt)
{
    const std::vector<std::pair<std::string, std::string>> servers{
        {"db", "Server=db;"},
        {"db.example,1434", "Server=db.example;Port=1434;"},
        {"db.example:1434", "Server=db.example;Port=1434;"},
        {" tcp:db , 1434 ", "Server=db;Port=1434;"},
        {"TCP:db", "Server=db;"},
        {"db\\sales", "Server=db\\sales;"},
        {"db\\sales,1434", "Server=db;Port=1434;"},
        {".\\sales", "Server=localhost\\sales;"},
        {"(local)\\sales", "Server=localhost\\sales;"},
        {"", "Server=localhost;"},
        {".", "Server=localhost;"},
        {"(LOCAL)", "Server=localhost;"},
        {".,1434", "Server=localhost;Port=1434;"},
        {"tcp:", "Server=localhost;"},
        {"10.0.0.7", "Server=10.0.0.7;"},
        {"fe80::1", "Server=fe80::1;"},
        {"[fe80::1]", "Server=fe80::1;"},
        {"[fe80::1],1434", "Server=fe80::1;Port=1434;"},
        {"tcp:[fe80::1]:1434", "Server=fe80::1;Port=1434;"},
        {"fe80::1,1434", "Server=fe80::1;Port=1434;"},
    };
    for (const auto& [given, server] : servers) {
        const std::string port = server.find("Port=") == std::string::npos ? "" : server.substr(server.find("Port="));
        const std::string host = server.substr(0, server.size() - port.size());
        EXPECT_EQ(OfProject("Data Source=" + given + ";UID=a;"), "Driver=FreeTDS;" + host + "UID=a;" + port + kAdded)
            << given;
    }
    EXPECT_EQ(OfProject("UID=a;"), "Driver=FreeTDS;UID=a;Server=localhost;" + kAdded);
}

TEST(SqlServerString, APortIsOneNumberThatAPortCanHave)
{
    for (const std::string port : {"", "0", "65536", "99999999999", "-1", "1433x", "1433,1434"})
        EXPECT_EQ(Refusal("Data Source=db," + port + ";"),
                  "The port in the \"Data Source\" of the connection string is not a number from 1 to 65535.")
            << port;
    EXPECT_EQ(Refusal("Address=db:sales;"),
              "The port in the \"Address\" of the connection string is not a number from 1 to 65535.");
    for (const std::string text : {"Data Source=db:1433,1434;", "Data Source=db,1433;Port=1434;"})
        EXPECT_EQ(Refusal(text), "The connection string names two ports for its server.") << text;
    EXPECT_EQ(OfProject("Data Source=db,65535;"), "Driver=FreeTDS;Server=db;Port=65535;" + kAdded);
}

TEST(SqlServerString, APortOfItsOwnIsJudgedToo)
{
    for (const StringOrigin origin : {StringOrigin::ProjectFile, StringOrigin::CommandLine}) {
        for (const std::string port : {"0", "65537", "abc", "14 33", "+1", "1433,1434"})
            for (const std::string target : {"PROVIDER=SQLOLEDB;Data Source=db;", "Driver=FreeTDS;Server=db;",
                                             "Driver={SQL Server};Server=db;", "DSN=Payroll;"})
                EXPECT_EQ(RefusalOf(target + "Port=" + port + ";", origin),
                          "The port in the \"Port\" of the connection string is not a number from 1 to 65535.")
                    << target << port;
        EXPECT_EQ(RefusalOf("DSN=Payroll;Server=db,65537;", origin),
                  "The port in the \"Port\" of the connection string is not a number from 1 to 65535.");
        EXPECT_EQ(RefusalOf("Driver=FreeTDS;Server=db,65537;", origin),
                  "The port in the \"Server\" of the connection string is not a number from 1 to 65535.");
        EXPECT_EQ(Built("Driver=FreeTDS;Server=db;Port=;", origin), "Driver=FreeTDS;Server=db;Port=;" + kAdded);
    }
}

TEST(SqlServerString, ASecondServerIsRefusedWhateverItsKey)
{
    for (const StringOrigin origin : {StringOrigin::ProjectFile, StringOrigin::CommandLine})
        for (const std::string text :
             {"PROVIDER=SQLOLEDB;Data Source=127.0.0.2;Address=127.0.0.1,1434;", "PROVIDER=SQLOLEDB;Server=a;Server=b;",
              "PROVIDER=SQLOLEDB;DSN=Payroll;Data Source=a;Addr=b;",
              "PROVIDER=SQLOLEDB;Driver=Strange;Data Source=a;Network Address=b;",
              "Driver={SQL Server};Server=127.0.0.2;Address=127.0.0.1,1434;", "Driver=FreeTDS;Server=a;Server=b;"})
            EXPECT_EQ(RefusalOf(text, origin), "The connection string sets the key \"Server\" twice.") << text;
}

TEST(SqlServerString, ASecondPortIsRefusedForADriverThatIsNamedToo)
{
    for (const StringOrigin origin : {StringOrigin::ProjectFile, StringOrigin::CommandLine})
        for (const std::string driver : {"FreeTDS", "Strange"})
            EXPECT_EQ(Refusal("Driver=" + driver + ";Data Source=db,1433;Port=1434;", origin),
                      "The connection string names two ports for its server.");
}

TEST(SqlServerString, AServerNameOfTheDriverIsNoKeyOfTheProvider)
{
    for (const StringOrigin origin : {StringOrigin::ProjectFile, StringOrigin::CommandLine})
        for (const std::string more : {"", "Data Source=db;", "DSN=Payroll;"})
            EXPECT_EQ(Refusal(more + "Servername=foo;", origin),
                      "The provider of SQL Server has no key \"Servername\": name the server behind \"Data Source\".");
    EXPECT_EQ(Built("Driver=FreeTDS;Servername=foo;", StringOrigin::ProjectFile),
              "Driver=FreeTDS;Servername=foo;" + kAdded);
}

TEST(SqlServerString, AnEmptyNameForTheServerIsPassedOverBesideAnother)
{
    EXPECT_EQ(OfProject("Data Source=;Server=db;Address=;"), "Driver=FreeTDS;Server=db;" + kAdded);
}

TEST(SqlServerString, OtherWaysThanTcpAreRefusedByName)
{
    const auto refused = [](const std::string& key, const std::string& way) {
        return "The \"" + key + "\" of the connection string asks for " + way + "; SQL Server is reached by TCP alone.";
    };
    for (const StringOrigin origin : {StringOrigin::ProjectFile, StringOrigin::CommandLine}) {
        EXPECT_EQ(Refusal("Data Source=np:db;", origin), refused("Data Source", "a named pipe (\"np:\")"));
        EXPECT_EQ(Refusal("Server=\\\\db\\pipe\\sql\\query;", origin), refused("Server", "a named pipe"));
        EXPECT_EQ(Refusal("Data Source=LPC:.;", origin), refused("Data Source", "shared memory (\"lpc:\")"));
        EXPECT_EQ(Refusal("Address=admin:db;", origin),
                  refused("Address", "the administrators' connection (\"admin:\")"));
        EXPECT_EQ(Refusal("Data Source=(localdb)\\v11.0;", origin),
                  refused("Data Source", "a server that runs for one user of Windows (\"(localdb)\")"));
        EXPECT_EQ(Refusal("Data Source=db;Network Library=DBNMPNTW;", origin),
                  "The \"Network Library\" of the connection string asks for another network than TCP (\"DBMSSOCN\"), "
                  "by which alone SQL Server is reached.");
        EXPECT_EQ(Refusal("Data Source=tcp:\\\\db\\pipe\\sql\\query;", origin), refused("Data Source", "a named pipe"));
        EXPECT_EQ(Refusal("Data Source=tcp:np:db;", origin), refused("Data Source", "a named pipe (\"np:\")"));
        EXPECT_EQ(Refusal("Data Source=tcp:(localdb)\\v11.0;", origin),
                  refused("Data Source", "a server that runs for one user of Windows (\"(localdb)\")"));
        for (const std::string driver : {"{SQL Server}", "FreeTDS"})
            EXPECT_EQ(RefusalOf("Driver=" + driver + ";Server=db;Network=DBNMPNTW;", origin),
                      "The \"Network\" of the connection string asks for another network than TCP (\"DBMSSOCN\"), by "
                      "which alone SQL Server is reached.");
    }
    EXPECT_EQ(OfProject("Data Source=db;Network Library=dbmssocn;"), "Driver=FreeTDS;Server=db;" + kAdded);
}

TEST(SqlServerString, ValuesAreTakenOutOfTheirQuotes)
{
    EXPECT_EQ(OfProject("Data Source=\"127.0.0.1,1\";Initial Catalog='shop';User ID=\"ann\";Password=\"a\"\"b\";"),
              "Driver=FreeTDS;Server=127.0.0.1;Database=shop;UID=ann;PWD={a\"b};Port=1;" + kAdded);
    EXPECT_EQ(OfProject("DSN=\"Payroll\";UID=ann;PWD=\"\";"), "DSN=Payroll;UID=ann;ClientCharset=UTF-8;");
    EXPECT_EQ(OfProject("Data Source=db;UID=ann;Password={\"'a;b'\"};"),
              "Driver=FreeTDS;Server=db;UID=ann;PWD={'a;b'};" + kAdded);
    EXPECT_EQ(Built("Driver=FreeTDS;Server=db;UID=ann;PWD=\"secret\";", StringOrigin::ProjectFile),
              "Driver=FreeTDS;Server=db;UID=ann;PWD={\"secret\"};" + kAdded);
}

TEST(SqlServerString, AQuoteThatStaysOpenIsRefusedWithoutItsValue)
{
    for (const StringOrigin origin : {StringOrigin::ProjectFile, StringOrigin::CommandLine})
        for (const std::string value : {"\"secret", "'secret\"", "\"sec\"ret", "\""})
            EXPECT_EQ(Refusal("Data Source=db;Password=" + value + ";", origin),
                      "The connection string opens a quote at \"Password\" and does not close it at the end of the "
                      "value: double the quotes within, and write a value with a semicolon in braces.");
}

TEST(SqlServerString, IntegratedSecurityIsATrustedConnection)
{
    const std::string trusted = "Driver=FreeTDS;Server=db;Trusted_Connection=Yes;" + kAdded;
    for (const std::string word :
         {"Integrated Security=SSPI", "integrated security=sspi", "Integrated Security=true", "Trusted_Connection=yes"})
        EXPECT_EQ(OfProject("Data Source=db;" + word + ";"), trusted) << word;
    for (const std::string word : {"Integrated Security=", "Integrated Security=False", "Trusted_Connection=no"})
        EXPECT_EQ(OfProject("Data Source=db;UID=a;" + word + ";"), "Driver=FreeTDS;Server=db;UID=a;" + kAdded) << word;
    EXPECT_EQ(Refusal("Data Source=db;Integrated Security=Kerberos;"),
              "The \"Integrated Security\" of the connection string is neither \"SSPI\" nor \"no\".");
}

TEST(SqlServerString, EncryptionThatIsAskedForIsRequired)
{
    for (const std::string word : {"Use Encryption for Data=True", "Encrypt=yes"})
        EXPECT_EQ(OfProject("Data Source=db;" + word + ";"), "Driver=FreeTDS;Server=db;Encryption=require;" + kAdded);
    for (const std::string word : {"Use Encryption for Data=False", "Encrypt=Optional"})
        EXPECT_EQ(OfProject("Data Source=db;" + word + ";"), "Driver=FreeTDS;Server=db;" + kAdded);
    EXPECT_EQ(Refusal("Data Source=db;Encrypt=perhaps;"),
              "The \"Encrypt\" of the connection string is neither \"yes\" nor \"no\".");
}

TEST(SqlServerString, WhatTunesTheProviderHasNoEffect)
{
    EXPECT_EQ(OfProject("Persist Security Info=False;User ID=sa;Initial Catalog=pubs;Data Source=db;Connect Timeout=5;"
                        "Use Procedure for Prepare=1;Auto Translate=True;Packet Size=4096;Workstation ID=DESK;"
                        "Application Name=Shop;Use Encryption for Data=False;"
                        "Tag with column collation when possible=False;Current Language=german;"),
              "Driver=FreeTDS;UID=sa;Database=pubs;Server=db;PacketSize=4096;WSID=DESK;APP=Shop;Language=german;" +
                  kAdded);
}

TEST(SqlServerString, TheProtocolVersionOfTheStringOrTheDataSourceStands)
{
    EXPECT_EQ(OfProject("Data Source=db;TDS_Version=7.1;"),
              "Driver=FreeTDS;Server=db;TDS_Version=7.1;ClientCharset=UTF-8;");
    EXPECT_EQ(OfProject("DSN=Payroll;UID=ann;PWD=x;Data Source=;"), "DSN=Payroll;UID=ann;PWD={x};ClientCharset=UTF-8;");
}

TEST(SqlServerString, AServerBesideADataSourceIsReachedWithoutItsLogin)
{
    EXPECT_EQ(OfProject("DSN=Payroll;Integrated Security=SSPI;Data Source=other,1434;"),
              "Driver=FreeTDS;Trusted_Connection=Yes;Server=other;Database=wages;TDS_Version=7.2;Encryption=require;"
              "Port=1434;ClientCharset=UTF-8;");
    EXPECT_EQ(OfProject("DSN=Payroll;UID=ann;PWD=;Data Source=other;Initial Catalog=main;TDS_Version=7.3;"),
              "Driver=FreeTDS;UID=ann;PWD=;Server=other;Database=main;TDS_Version=7.3;Encryption=require;"
              "ClientCharset=UTF-8;");
}

TEST(SqlServerString, TheDriverOfTheSettingsStandsInForSqlServersOwn)
{
    EXPECT_EQ(Built("PROVIDER=SQLOLEDB;Data Source=db;", StringOrigin::ProjectFile, "Strange"),
              "Driver=Strange;Server=db;" + kAdded);
    EXPECT_EQ(OfProject("Driver={SQL Server};Data Source=db;"), "Driver=FreeTDS;Server=db;" + kAdded);
    EXPECT_EQ(Built("PROVIDER=MSDASQL;Driver={sql server};Server=db,1434;", StringOrigin::ProjectFile),
              "Driver=FreeTDS;Server=db;Port=1434;" + kAdded);
    EXPECT_EQ(OfProject("Driver=FreeTDS;Data Source=db;"), "Driver=FreeTDS;Server=db;" + kAdded);
}

TEST(SqlServerString, SqlServersOwnDriverHasTheServersOfTheProvider)
{
    for (const std::string driver : {"{SQL Server}", "FreeTDS"}) {
        const auto built = [&](const std::string& server) {
            return Built("Driver=" + driver + ";Server=" + server + ";", StringOrigin::ProjectFile);
        };
        EXPECT_EQ(built("(local)"), "Driver=FreeTDS;Server=localhost;" + kAdded);
        EXPECT_EQ(built(".;Port=1"), "Driver=FreeTDS;Server=localhost;Port=1;" + kAdded);
        EXPECT_EQ(built("tcp:.\\sales,1434"), "Driver=FreeTDS;Server=localhost;Port=1434;" + kAdded);
        EXPECT_EQ(built(";Address=tcp:db,1434;Network=DBMSSOCN"), "Driver=FreeTDS;Server=db;Port=1434;" + kAdded);
        EXPECT_THROW((void)built("np:db"), DataSourceError);
        EXPECT_THROW((void)built("db,1434;Port=1433"), DataSourceError);
    }
}

TEST(SqlServerString, TheDriverOfTheSettingsHasThemByItsOwnName)
{
    EXPECT_EQ(Built("Driver=Strange;Server=tcp:127.0.0.1,1434;", StringOrigin::CommandLine, "Strange"),
              "Driver=Strange;Server=127.0.0.1;Port=1434;" + kAdded);
    EXPECT_EQ(Built("Driver=Strange;Server=tcp:.;Network=x;", StringOrigin::CommandLine),
              "Driver=Strange;Server=tcp:.;Network=x;");
}

TEST(SqlServerString, ALoginThatIsNotNamedIsThatOfTheSystem)
{
    const auto isTrusted = [](const std::string& text) {
        return BuildOdbcLogon(ConnectionString(text), SampleDrivers(), {}).IsTrusted;
    };
    EXPECT_TRUE(isTrusted("PROVIDER=SQLOLEDB;Data Source=db;"));
    EXPECT_TRUE(isTrusted("Driver=FreeTDS;Server=db;UID=;"));
    EXPECT_FALSE(isTrusted("Driver=FreeTDS;Server=db;UID=ann;"));
    EXPECT_TRUE(isTrusted("DSN=Payroll;"));
    EXPECT_FALSE(isTrusted("Driver=SQLite3;"));
}

TEST(SqlServerString, ADriverOfTheSettingsThatIsNotSetUpIsNamed)
{
    for (const StringOrigin origin : {StringOrigin::ProjectFile, StringOrigin::CommandLine})
        EXPECT_EQ(Refusal("Data Source=db;", origin, "My TDS"),
                  "There is no ODBC driver named \"My TDS\" on this machine, by which SQL Server would be reached: "
                  "\"odbcinst -q -d\" lists those that are set up; \"TdsDriver\" in the section Platform of the "
                  "settings names another.");
}

TEST(SqlServerString, ADriverOfTheSettingsForAnotherDatabaseIsRefused)
{
    for (const StringOrigin origin : {StringOrigin::ProjectFile, StringOrigin::CommandLine})
        EXPECT_EQ(
            Refusal("Data Source=db;", origin, "SQLite3"),
            "The connection string asks for SQL Server, and the driver \"SQLite3\" is for another kind of database.");
}

TEST(SqlServerString, ADriverOfAnotherDatabaseIsRefused)
{
    EXPECT_EQ(
        Refusal("DSN=Shop;Integrated Security=SSPI;Data Source=;"),
        "The connection string asks for SQL Server, and the data source \"Shop\" is for another kind of database.");
    EXPECT_EQ(
        Refusal("DSN=Shop;Data Source=db;", StringOrigin::CommandLine),
        "The connection string asks for SQL Server, and the data source \"Shop\" is for another kind of database.");
    EXPECT_EQ(Refusal("DSN=Nothing;Data Source=db;"),
              "There is no ODBC data source named \"Nothing\" on this machine: \"odbcinst -q -s\" lists those that "
              "are set up.");
    EXPECT_EQ(Refusal("Driver=SQLite3;Data Source=db;", StringOrigin::CommandLine),
              "The connection string asks for SQL Server, and the driver \"SQLite3\" is for another kind of database.");
}

TEST(SqlServerString, AProjectSetsOnlyKeysThatAreKnown)
{
    const std::vector<std::pair<std::string, std::string>> refused{
        {"Data Source=db;DumpFile=/tmp/x;", "DumpFile"},
        {"Data Source=db;DebugFlags=1;", "DebugFlags"},
        {"Data Source=db;AttachDBFileName=/tmp/x.mdf;", "AttachDBFileName"},
        {"Data Source=db;Extended Properties={DumpFile=/tmp/x};", "Extended Properties"},
        {"Data Source=db;FILEDSN=/tmp/x;", "FILEDSN"},
        {"DSN=Payroll;Data Source=;DumpFile=/tmp/x;", "DumpFile"},
    };
    for (const auto& [text, key] : refused)
        EXPECT_EQ(Refusal(text), "A project may not set the key \"" + key +
                                     "\" of a connection string; a data source that you have set up yourself may.")
            << text;
    EXPECT_EQ(Built("PROVIDER=SQLOLEDB;Data Source=db;DumpFile=/tmp/x;", StringOrigin::CommandLine),
              "Driver=FreeTDS;Server=db;DumpFile=/tmp/x;" + kAdded);
}

TEST(SqlServerString, AProjectLoadsNoLibraryNorNamesAServerTwice)
{
    EXPECT_EQ(Refusal("Driver=/tmp/evil.so;Data Source=db;"), "A project may not name a library as its \"Driver\".");
    EXPECT_THAT(Refusal("Driver=libc.so.6;Data Source=db;"), HasSubstr("There is no ODBC driver named \"libc.so.6\""));
    EXPECT_EQ(Refusal("Data Source=db;Server=other;"), "The connection string sets the key \"Server\" twice.");
    EXPECT_EQ(Refusal("DSN=Payroll;Driver=FreeTDS;Data Source=;"),
              "The connection string of a project may set \"DSN\" or \"Driver\", not both.");
}

TEST(SqlServerString, AValueCannotPassForAnotherKey)
{
    EXPECT_EQ(Refusal("Data Source={db;DumpFile=/tmp/x};Password={a}};DumpFile=/tmp/x};"),
              "The driver can't be given the value of \"PWD\": it has a semicolon in it or begins with a brace.");
    EXPECT_EQ(OfProject("Data Source={db;DumpFile=/tmp/x};"), "Driver=FreeTDS;Server={db;DumpFile=/tmp/x};" + kAdded);
}

} // namespace
} // namespace veldrane
