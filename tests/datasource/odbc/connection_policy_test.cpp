#include "sample_drivers.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace veldrane {
namespace {

OdbcLogon Built(std::string_view text, StringOrigin origin)
{
    return BuildOdbcLogon(ConnectionString(text), SampleDrivers(),
                          {.Origin = origin, .ConnectTimeout = std::chrono::seconds(7)});
}

std::string OfProject(std::string_view text)
{
    return Built(text, StringOrigin::ProjectFile).Text;
}

std::string OfUser(std::string_view text)
{
    return Built(text, StringOrigin::CommandLine).Text;
}

std::string Refusal(std::string_view text, StringOrigin origin = StringOrigin::ProjectFile)
{
    try {
        return "not refused: " + Built(text, origin).Text;
    } catch (const DataSourceError& error) {
        EXPECT_EQ(error.Number, data_source_error::kFailed);
        return error.Description();
    }
}

std::string MayNotSet(const std::string& key)
{
    return "A project may not set the key \"" + key +
           "\" of a connection string; a data source that you have set up yourself may.";
}

TEST(OdbcLogon, DropsTheProviderAndAddsWhatSqliteNeeds)
{
    EXPECT_EQ(OfProject("PROVIDER=MSDASQL;Driver=SQLite3;Server=;UID=;PWD=;Database=/a b/Größe.db;"),
              "Driver=SQLite3;Server=;UID=;PWD=;Database=/a b/Größe.db;NoCreat=1;Timeout=2000;");
}

TEST(OdbcLogon, AddsWhatPostgreSqlNeedsAndTakesThePortOffTheServer)
{
    EXPECT_EQ(
        OfProject("PROVIDER=MSDASQL;Driver={PostgreSQL Unicode};Server=db.example:5433;UID=u;PWD=a%41b;Database=d;"),
        "Driver=PostgreSQL Unicode;Server=db.example;UID=u;PWD={a%41b};Database=d;Port=5433;BoolsAsChar=0;"
        "MaxVarcharSize=8000;");
}

TEST(OdbcLogon, LeavesADataSourceTheLoginThatIsNotGiven)
{
    EXPECT_EQ(OfProject("PROVIDER=MSDASQL;DSN=Files;UID=;PWD=;"), "DSN=Files;NoCreat=1;");
    EXPECT_EQ(OfUser("DSN=Files;uid=ann;pwd=;"), "DSN=Files;uid=ann;NoCreat=1;");
    EXPECT_EQ(OfUser("Driver=MariaDB Unicode;UID=;PWD=;"), "Driver=MariaDB Unicode;UID=;PWD=;CONN_TIMEOUT=7;");
}

TEST(OdbcLogon, WritesTheTimeLimitForMariaDbIntoTheString)
{
    EXPECT_EQ(OfProject("Driver=MariaDB Unicode;Server=h,3307;UID=u;PWD={p}}q};"),
              "Driver=MariaDB Unicode;Server=h;UID=u;PWD={p}}q};Port=3307;CONN_TIMEOUT=7;");
}

TEST(OdbcLogon, KnowsTheKeyByWhichConnectingIsLimitedAlready)
{
    const auto keyOf = [](std::string_view text) { return Built(text, StringOrigin::ProjectFile).TimeoutKey; };
    EXPECT_EQ(keyOf("Driver=MariaDB Unicode;Server=h;"), "");
    EXPECT_EQ(keyOf("Driver=MariaDB Unicode;Server=h;conn_timeout=3;"), "CONN_TIMEOUT");
    EXPECT_EQ(keyOf("DSN=Impatient;"), "CONN_TIMEOUT");
    EXPECT_EQ(keyOf("DSN=Files;"), ""); // it limits waiting for a lock
}

TEST(OdbcLogon, NamesTheProtocolVersionForTds)
{
    EXPECT_EQ(OfProject("Driver=FreeTDS;Server=h;UID=u;PWD=p"),
              "Driver=FreeTDS;Server=h;UID=u;PWD={p};TDS_Version=7.4;ClientCharset=UTF-8;");
}

TEST(OdbcLogon, GivesTheTdsDriverNoVersionButThoseItKeepsItsLimitsWith)
{
    for (const StringOrigin origin : {StringOrigin::ProjectFile, StringOrigin::CommandLine}) {
        const auto versionFor = [&](const std::string& given) {
            const std::string text = Built("Driver=FreeTDS;TDS_Version=" + given + ";", origin).Text;
            EXPECT_EQ(text.find("TDS_Version="), text.rfind("TDS_Version=")) << text;
            return text.substr(text.find("TDS_Version=") + 12, 4);
        };
        for (const std::string version : {"7.0", "7.1", "7.2", "7.3", "7.4"})
            EXPECT_EQ(versionFor(version), version + ";");
        for (const std::string version : {"", "{}", "auto", "0.0", "4.2", "5.0", "7", "7.5", "7.4.1", "8.0", "AUTO"})
            EXPECT_EQ(versionFor(version), "7.4;") << version;
    }
    EXPECT_EQ(OfUser("Driver=FreeTDS;TDS_Version=7.1;tds_version=5.0;"),
              "Driver=FreeTDS;TDS_Version=7.1;ClientCharset=UTF-8;");
}

TEST(OdbcLogon, GivesTheTdsDriverNoCharacterSetButTheOneThatIsRead)
{
    for (const StringOrigin origin : {StringOrigin::ProjectFile, StringOrigin::CommandLine}) {
        for (const std::string charset : {"", "UTF-16LE", "ISO-8859-1", "nonsense"})
            EXPECT_EQ(Built("Driver=FreeTDS;ClientCharset=" + charset + ";", origin).Text,
                      "Driver=FreeTDS;TDS_Version=7.4;ClientCharset=UTF-8;")
                << charset;
        EXPECT_EQ(Built("Driver=FreeTDS;ClientCharset=utf-8;", origin).Text,
                  "Driver=FreeTDS;ClientCharset=utf-8;TDS_Version=7.4;");
    }
}

TEST(OdbcLogon, JudgesTheVersionOfADataSourceLikeThatOfAString)
{
    EXPECT_EQ(OfProject("DSN=Payroll;"), "DSN=Payroll;ClientCharset=UTF-8;");
    EXPECT_EQ(OfProject("DSN=Payroll;TDS_Version=;"), "DSN=Payroll;ClientCharset=UTF-8;");
    EXPECT_EQ(OfProject("DSN=Guessing;"), "DSN=Guessing;TDS_Version=7.4;ClientCharset=UTF-8;");
    EXPECT_EQ(OfUser("DSN=Guessing;TDS_Version=7.1;"), "DSN=Guessing;TDS_Version=7.1;ClientCharset=UTF-8;");
}

TEST(OdbcLogon, AnEmptyValueIsAsGoodAsNone)
{
    EXPECT_EQ(OfProject("Driver=SQLite3;Database=/a.db;Timeout=;"),
              "Driver=SQLite3;Database=/a.db;NoCreat=1;Timeout=2000;");
    EXPECT_EQ(OfProject("DSN=Files;timeout=;"), "DSN=Files;NoCreat=1;");
    EXPECT_EQ(OfUser("Driver=MariaDB Unicode;CONN_TIMEOUT=;"), "Driver=MariaDB Unicode;CONN_TIMEOUT=7;");
    EXPECT_EQ(Built("Driver=MariaDB Unicode;CONN_TIMEOUT=;", StringOrigin::ProjectFile).TimeoutKey, "");
}

TEST(OdbcLogon, LeavesTheServerAloneWhereThePortIsNoNumberOrGiven)
{
    for (const std::string server : {"::1", "/run/db:x", "host\\instance", "a:b"})
        EXPECT_NE(OfProject("Driver=MariaDB Unicode;Server=" + server + ";").find("Server=" + server + ";"),
                  std::string::npos)
            << server;
    EXPECT_EQ(OfProject("Driver=MariaDB Unicode;Server=h:1;Port=2").find("Port=1"), std::string::npos);
}

TEST(OdbcLogon, KeepsWhatTheStringSaysOverWhatWouldBeAdded)
{
    EXPECT_EQ(OfProject("driver=SQLite3;database=/a.db;timeout=5"),
              "driver=SQLite3;database=/a.db;timeout=5;NoCreat=1;");
    EXPECT_EQ(OfUser("Driver=SQLite3;Database=/a.db;NoCreat=0;Timeout=5;"),
              "Driver=SQLite3;Database=/a.db;NoCreat=0;Timeout=5;");
}

TEST(OdbcLogon, AProjectCannotHaveADatabaseFileMade)
{
    EXPECT_EQ(OfProject("Driver=SQLite3;Database=/a.db;NoCreat=0;Timeout=5"),
              "Driver=SQLite3;Database=/a.db;Timeout=5;NoCreat=1;");
    EXPECT_EQ(OfProject("DSN=Files;Database=/a.db"), "DSN=Files;Database=/a.db;NoCreat=1;");
    EXPECT_EQ(OfProject("Driver=My Files;Database=/a.db;Timeout=5"),
              "Driver=My Files;Database=/a.db;Timeout=5;NoCreat=1;");
}

TEST(OdbcLogon, KeepsWhatTheDataSourceSaysOverWhatWouldBeAdded)
{
    EXPECT_EQ(OfProject("PROVIDER=MSDASQL;DSN=Shop;UID=;PWD=;"), "DSN=Shop;MaxVarcharSize=8000;");
}

TEST(OdbcLogon, LetsASecondPasswordStand)
{
    EXPECT_EQ(OfProject("DSN=Shop;UID=u;PWD=a;Database=d;PWD=b;"),
              "DSN=Shop;UID=u;PWD={a};Database=d;PWD={b};MaxVarcharSize=8000;");
}

TEST(OdbcLogon, TellsTheDriverFromTheLibraryBehindItsName)
{
    EXPECT_EQ(Built("Driver=My Files", StringOrigin::ProjectFile).Profile->Family, DriverFamily::Sqlite);
    EXPECT_EQ(Built("DSN=Shop", StringOrigin::ProjectFile).Profile->Family, DriverFamily::PostgreSql);
    EXPECT_EQ(Built("Driver=Strange", StringOrigin::ProjectFile).Profile->Family, DriverFamily::Other);
    EXPECT_EQ(Built("Driver=/opt/x/libmaodbc.so", StringOrigin::CommandLine).Profile->Family, DriverFamily::MariaDb);
}

TEST(OdbcLogon, RefusesAStringThatLeavesTheDriverToTheDriverManager)
{
    for (const StringOrigin origin : {StringOrigin::ProjectFile, StringOrigin::CommandLine}) {
        EXPECT_EQ(Refusal("PROVIDER=MSDASQL;Driver=;Server=h", origin),
                  "The connection string has an empty \"Driver\".");
        EXPECT_EQ(Refusal("Driver={};", origin), "The connection string has an empty \"Driver\".");
        EXPECT_EQ(Refusal("Driver=SQLite3;Driver= ;", origin), "The connection string has an empty \"Driver\".");
        EXPECT_EQ(Refusal("UID=me", origin),
                  "The connection string names neither a data source (DSN) nor a driver (Driver).");
        EXPECT_EQ(Refusal("DSN=;UID=me", origin),
                  "The connection string names neither a data source (DSN) nor a driver (Driver).");
    }
}

TEST(OdbcLogon, RefusesOtherProvidersByName)
{
    EXPECT_EQ(Refusal("PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=c:\\a.mdb;"),
              "The connection string asks for the provider \"Microsoft.Jet.OLEDB.4.0\", which does not lead to an ODBC "
              "driver as MSDASQL and SQLOLEDB do.");
    for (const std::string name : {"Microsoft.Jet.OLEDB.3.51", "\"Microsoft.Jet.OLEDB.4.0\""})
        EXPECT_EQ(Refusal("PROVIDER=" + name + ";Data Source=c:\\a.mdb;"),
                  "The connection string asks for the provider \"" + name +
                      "\"; there are MSDASQL, SQLOLEDB and Microsoft.Jet.OLEDB.4.0, to be named without quotes.");
    for (const std::string two :
         {"PROVIDER=MSDASQL;PROVIDER=SQLOLEDB;", "PROVIDER=Microsoft.Jet.OLEDB.4.0;Provider=SQLOLEDB;"})
        EXPECT_EQ(Refusal(two + "DSN=Shop", StringOrigin::CommandLine),
                  "The connection string asks for two providers.");
}

TEST(OdbcLogon, AProjectCannotLoadALibrary)
{
    EXPECT_EQ(Refusal("Driver=/tmp/evil.so;"), "A project may not name a library as its \"Driver\".");
    EXPECT_EQ(Refusal("DRIVER={/tmp/evil.so}"), "A project may not name a library as its \"Driver\".");
    EXPECT_EQ(Refusal("Driver=..\\evil.so"), "A project may not name a library as its \"Driver\".");
    EXPECT_EQ(
        Refusal("Driver=libc.so.6"),
        "There is no ODBC driver named \"libc.so.6\" on this machine: \"odbcinst -q -d\" lists those that are set up.");
    EXPECT_EQ(Refusal("DSN=Shop;Driver=/tmp/evil.so"),
              "The connection string of a project may set \"DSN\" or \"Driver\", not both.");
    EXPECT_EQ(
        Refusal("DSN=Missing;UID=u"),
        "There is no ODBC data source named \"Missing\" on this machine: \"odbcinst -q -s\" lists those that are set up.");
}

TEST(OdbcLogon, AProjectSetsOnlyKeysOfTheDriversList)
{
    const std::vector<std::pair<std::string, std::string>> refused{
        {"Driver=SQLite3;LoadExt=/tmp/x.so", "LoadExt"},
        {"Driver=SQLite3;Tracefile=/tmp/x", "Tracefile"},
        {"Driver=SQLite3;JournalMode=WAL", "JournalMode"},
        {"Driver=SQLite3; loadext = {/tmp/x.so}", "loadext"},
        {"DSN=Files;LoadExt=/tmp/x.so", "LoadExt"},
        {"FILEDSN=/tmp/x.dsn;Driver=SQLite3", "FILEDSN"},
        {"Driver=SQLite3;SAVEFILE=/tmp/x.dsn", "SAVEFILE"},
        {"Driver=MariaDB Unicode;PLUGIN_DIR=/tmp", "PLUGIN_DIR"},
        {"Driver=MariaDB Unicode;INITSTMT={drop table a}", "INITSTMT"},
        {"Driver=MariaDB Unicode;OPTION=4", "OPTION"},
        {"Driver=FreeTDS;DumpFile=/tmp/x", "DumpFile"},
        {"Driver=PostgreSQL Unicode;ConnSettings=drop+table+a", "ConnSettings"},
        {"Driver=PostgreSQL Unicode;pqopt={passfile=/tmp/x}", "pqopt"},
        {"Driver=PostgreSQL Unicode;A6=drop", "A6"},
        {"Driver=PostgreSQL Unicode;CommLog=1", "CommLog"},
        {"Driver=Strange;Timeout=5", "Timeout"},
        {"DSN=Shop;Extended Properties=x", "Extended Properties"},
    };
    for (const auto& [text, key] : refused)
        EXPECT_EQ(Refusal(text), MayNotSet(key)) << text;
}

TEST(OdbcLogon, AUsersOwnStringHoldsAnyKey)
{
    EXPECT_EQ(OfUser("Driver=MariaDB Unicode;INITSTMT={set names x};CONN_TIMEOUT=1"),
              "Driver=MariaDB Unicode;INITSTMT=set names x;CONN_TIMEOUT=1;");
    EXPECT_EQ(OfUser("Driver=Strange;Secret={a;b};"), "Driver=Strange;Secret={a;b};");
}

TEST(OdbcLogon, AProjectSetsNoKeyTwiceButThePassword)
{
    EXPECT_EQ(Refusal("Driver=SQLite3;driver=SQLite3"), "The connection string sets the key \"driver\" twice.");
    EXPECT_EQ(Refusal("Driver=SQLite3;Database=/a;DATABASE=/b"),
              "The connection string sets the key \"DATABASE\" twice.");
}

TEST(OdbcLogon, AValueCannotPassForAnotherKey)
{
    EXPECT_EQ(Refusal("Driver=SQLite3;UID={x;LoadExt=/tmp/x.so}"),
              "The driver can't be given the value of \"UID\": it has a semicolon in it or begins with a brace.");
    EXPECT_EQ(Refusal("Driver=Strange;PWD={x;Trace=/tmp/x}"),
              "The driver can't be given the value of \"PWD\": it has a semicolon in it or begins with a brace.");
    EXPECT_EQ(Refusal("Driver=SQLite3;Database={{x}"),
              "The driver can't be given the value of \"Database\": it has a semicolon in it or begins with a brace.");
}

TEST(OdbcLogon, ABraceThatIsClosedEarlyStartsAnotherKeyAndADoubledOneDoesNot)
{
    EXPECT_EQ(Refusal("DSN=Shop;UID={a};Driver=/tmp/x.so}"),
              "The connection string of a project may set \"DSN\" or \"Driver\", not both.");
    EXPECT_EQ(OfProject("DSN=Impatient;UID={a}};Driver=/tmp/x.so};"), "DSN=Impatient;UID={a}};Driver=/tmp/x.so};");
}

TEST(OdbcLogon, PostgreSqlIsGivenBracesAroundPasswordsAloneForElsewhereTheyAreLetters)
{
    EXPECT_EQ(OfProject("DSN=Shop;UID=ann@corp;PWD=ann@corp;Database=50% (old)!;Password={a;b};"),
              "DSN=Shop;UID=ann@corp;PWD={ann@corp};Database=50% (old)!;Password={a;b};MaxVarcharSize=8000;");
    EXPECT_EQ(OfUser("DSN=Shop;ConnSettings={set a = b; set c = d};"),
              "DSN=Shop;ConnSettings={set a = b; set c = d};MaxVarcharSize=8000;");
    for (const StringOrigin origin : {StringOrigin::ProjectFile, StringOrigin::CommandLine})
        for (const std::string key : {"UID", "Database", "Server"})
            for (const std::string value : {"{a;b}", "{{a}"})
                EXPECT_EQ(Refusal("DSN=Shop;" + key + "=" + value, origin),
                          "The driver can't be given the value of \"" + key +
                              "\": it has a semicolon in it or begins with a brace.");
}

TEST(OdbcLogon, NoBraceIsDoubledForTdsWhichWouldEndTheValueThereAndReadAnotherKey)
{
    const std::string refusal =
        "The driver can't be given the value of \"PWD\": it has a semicolon in it or begins with a brace.";
    for (const StringOrigin origin : {StringOrigin::ProjectFile, StringOrigin::CommandLine}) {
        EXPECT_EQ(Refusal("Driver=FreeTDS;PWD={a}};DumpFile=/tmp/x};", origin), refusal);
        EXPECT_EQ(Refusal("Driver=FreeTDS;PWD={{a}}};", origin), refusal);
        EXPECT_EQ(Built("Driver=FreeTDS;PWD={a}}b}", origin).Text,
                  "Driver=FreeTDS;PWD=a}b;TDS_Version=7.4;ClientCharset=UTF-8;");
        EXPECT_EQ(Built("Driver=FreeTDS;PWD={a;b}", origin).Text,
                  "Driver=FreeTDS;PWD={a;b};TDS_Version=7.4;ClientCharset=UTF-8;");
    }
}

TEST(OdbcLogon, ADatabaseOfAProjectIsAPlainName)
{
    const std::string options = "The \"Database\" of a project's connection string may not carry options.";
    EXPECT_EQ(Refusal("Driver=SQLite3;Database=file:/a.db?mode=rwc"), options);
    EXPECT_EQ(Refusal("Driver=SQLite3;Database=FILE:a.db"), options);
    EXPECT_EQ(Refusal("DSN=Shop;Database={host=evil dbname=x}"), options);
    EXPECT_EQ(Refusal("DSN=Shop;Database=postgresql://evil/x"), options);
    EXPECT_NE(OfProject("Driver=SQLite3;Database=/tmp/a=b.db"), "");
}

} // namespace
} // namespace veldrane
