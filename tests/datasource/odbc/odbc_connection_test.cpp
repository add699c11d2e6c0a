#include "sqlite_file.h"

#include "datasource/odbc/session.h"
#include "datasource/odbc/statement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

namespace veldrane {
namespace {

using testing::HasSubstr;

DataSourceError Failure(const std::function<void()>& action)
{
    try {
        action();
    } catch (const DataSourceError& error) {
        return error;
    }
    ADD_FAILURE() << "nothing failed";
    return {0, "", ""};
}

// What opening the file's string says, and that nothing is open afterwards.
DataSourceError Refusal(const std::string& connectionString)
{
    OdbcConnection connection(OdbcConnectionOptions{});
    DataSourceError error = Failure([&] { connection.Open(connectionString); });
    EXPECT_FALSE(connection.IsOpen());
    EXPECT_EQ(connection.ConnectionString(), "");
    EXPECT_EQ(error.Number, data_source_error::kFailed);
    EXPECT_EQ(connection.Errors().size(), error.Errors.size());
    return error;
}

std::string StringFor(const std::string& path)
{
    return "PROVIDER=MSDASQL;Driver=SQLite3;Server=;UID=;PWD=;Database=" + path + ";";
}

TEST(OdbcConnection, OpensAndClosesAFile)
{
    SqliteFile file("CREATE TABLE a (x);\n");
    OdbcConnection connection(OdbcConnectionOptions{});
    EXPECT_FALSE(connection.IsOpen());
    connection.Open(file.ConnectionString());
    EXPECT_TRUE(connection.IsOpen());
    EXPECT_EQ(connection.ConnectionString(), file.ConnectionString());
    EXPECT_EQ(connection.OpenCatalog()->Tables().size(), 1U);
    connection.Close();
    connection.Close();
    EXPECT_FALSE(connection.IsOpen());
    EXPECT_EQ(connection.ConnectionString(), "");
}

TEST(OdbcConnection, OpensAPathWithLettersOfAnyKind)
{
    SqliteFile file("CREATE TABLE a (x);\n", "Größe Ελλάς {x} it's.db");
    EXPECT_EQ(file.OpenCatalog()->Tables().size(), 1U);
}

TEST(OdbcConnection, OpeningAnotherFileClosesTheFirst)
{
    SqliteFile first("CREATE TABLE a (x);\n");
    SqliteFile second("CREATE TABLE b (x);\nCREATE TABLE c (x);\n");
    OdbcConnection connection(OdbcConnectionOptions{});
    connection.Open(first.ConnectionString());
    const auto catalog = connection.OpenCatalog();
    connection.Open(second.ConnectionString());
    EXPECT_EQ(connection.OpenCatalog()->Tables().size(), 2U);
    EXPECT_EQ(Failure([&] { (void)catalog->Tables(); }).Number, data_source_error::kNoOpenConnection);
}

TEST(OdbcConnection, AFailedOpenLeavesNothingOpen)
{
    SqliteFile file("CREATE TABLE a (x);\n");
    OdbcConnection connection(OdbcConnectionOptions{});
    connection.Open(file.ConnectionString());
    EXPECT_THROW(connection.Open(StringFor(file.Folder() + "/missing.db")), DataSourceError);
    EXPECT_FALSE(connection.IsOpen());
    EXPECT_EQ(Failure([&] { (void)connection.OpenCatalog(); }).Number, data_source_error::kNoOpenConnection);
}

TEST(OdbcConnection, ACatalogOfAClosedConnectionHasNoOpenConnection)
{
    SqliteFile file("CREATE TABLE a (x);\n");
    OdbcConnection connection(OdbcConnectionOptions{});
    connection.Open(file.ConnectionString());
    const auto catalog = connection.OpenCatalog();
    EXPECT_EQ(catalog->Tables().size(), 1U);
    EXPECT_EQ(catalog->Fields("SELECT * FROM a WHERE 1=0").size(), 1U);
    connection.Close();
    const std::vector<std::function<void()>> questions{
        [&] { (void)catalog->Tables(); },     [&] { (void)catalog->Fields("SELECT * FROM a WHERE 1=0"); },
        [&] { (void)catalog->Columns("a"); }, [&] { (void)catalog->Indexes("a"); },
        [&] { (void)catalog->Keys("a"); },    [&] { (void)catalog->Procedures(); },
        [&] { catalog->ExpectManyTables(); },
    };
    for (const auto& question : questions)
        EXPECT_EQ(Failure(question).Number, data_source_error::kNoOpenConnection);
}

TEST(OdbcConnection, ACatalogOutlivesItsConnection)
{
    SqliteFile file("CREATE TABLE a (x);\n");
    std::unique_ptr<Catalog> catalog;
    {
        OdbcConnection connection(OdbcConnectionOptions{});
        connection.Open(file.ConnectionString());
        catalog = connection.OpenCatalog();
    }
    EXPECT_EQ(Failure([&] { (void)catalog->Tables(); }).Number, data_source_error::kNoOpenConnection);
}

TEST(OdbcConnection, AWrongPathMakesNoFile)
{
    SqliteFile file("CREATE TABLE a (x);\n");
    const std::string missing = file.Folder() + "/missing.db";
    EXPECT_THAT(Refusal(StringFor(missing)).Description(), HasSubstr("connect failed"));
    EXPECT_THAT(Refusal("Driver=SQLite3;NoCreat=0;Database=" + missing).Description(), HasSubstr("connect failed"));
    EXPECT_FALSE(std::filesystem::exists(missing));
    EXPECT_EQ(Refusal("Driver=SQLite3;").Description(),
              "connect failed. The database's file is not there or can't be read: check its path in the connection "
              "string (\"Database\").");
}

TEST(OdbcConnection, WhatIsNoDatabaseIsRefusedWithTheDriversWords)
{
    SqliteFile file("CREATE TABLE a (x);\n");
    const std::string other = file.Folder() + "/text.db";
    std::ofstream(other) << std::string(5000, 'x');
    EXPECT_EQ(Refusal(StringFor(other)).Description(),
              "file is not a database (26). The file \"" + other +
                  "\" is of another kind: check its path in the connection string (\"Database\").");
}

TEST(OdbcConnection, AFolderIsNoDatabase)
{
    SqliteFile file("CREATE TABLE a (x);\n");
    EXPECT_EQ(Refusal(StringFor(file.Folder())).Description(), "\"" + file.Folder() + "\" is not a file.");
    EXPECT_EQ(Refusal(StringFor("/dev/zero")).Description(), "\"/dev/zero\" is not a file.");
}

TEST(OdbcConnection, ALockedFileIsRefusedWithTheDriversWords)
{
    SqliteFile file("CREATE TABLE a (x);\n");
    const OdbcLogon logon{.Text = "Driver=SQLite3;Database=" + file.Path() + ";",
                          .Profile = &ProfileOf("libsqlite3odbc.so"),
                          .Database = file.Path()};
    const OdbcSession locking(logon, {}, std::make_shared<OdbcErrors>());
    OdbcStatement(locking).Execute("BEGIN EXCLUSIVE");
    EXPECT_THAT(Refusal("Driver=SQLite3;Timeout=1;Database=" + file.Path()).Description(),
                testing::EndsWith("locked (5). The file \"" + file.Path() +
                                  "\" is in use by another program: let that come to its end, then try again."));
    OdbcStatement(locking).Execute("COMMIT");
}

TEST(OdbcConnection, AnAnswerOfMoreThanAMillionRowsIsGivenUp)
{
    SqliteFile file("CREATE TABLE a (x);\n");
    const OdbcLogon logon{.Text = "Driver=SQLite3;Database=" + file.Path() + ";",
                          .Profile = &ProfileOf("libsqlite3odbc.so"),
                          .Database = file.Path()};
    const OdbcSession session(logon, {}, std::make_shared<OdbcErrors>());
    const auto read = [&](int rows) {
        OdbcStatement statement(session);
        statement.Execute("WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n) SELECT x FROM n LIMIT " +
                          std::to_string(rows));
        while (statement.Fetch()) {
        }
    };
    read(1'000'000);
    const DataSourceError error = Failure([&] { read(1'000'001); });
    EXPECT_EQ(error.Number, data_source_error::kNoOpenConnection);
    EXPECT_EQ(error.Description(), "The answer has more than 1000000 rows.");
}

TEST(OdbcConnection, KeepsWhatTheDriverSaidOfTheLatestFailure)
{
    SqliteFile file("CREATE TABLE a (x);\n");
    OdbcConnection connection(OdbcConnectionOptions{});
    connection.Open(file.ConnectionString());
    EXPECT_TRUE(connection.Errors().empty());
    EXPECT_THROW((void)connection.OpenCatalog()->Fields("SELECT * FROM b WHERE 1=0"), DataSourceError);
    ASSERT_EQ(connection.Errors().size(), 1U);
    EXPECT_EQ(connection.Errors()[0].Number, data_source_error::kTableUnknown);
    EXPECT_EQ(connection.Errors()[0].SQLState, "HY000");
    EXPECT_THAT(connection.Errors()[0].Description, HasSubstr("no such table: b"));
    connection.Open(file.ConnectionString());
    EXPECT_TRUE(connection.Errors().empty());
}

TEST(OdbcConnection, AUserMayNameALibraryAndAProjectMayNot)
{
    const std::string text = "Driver=/nowhere/missing.so;Database=x";
    EXPECT_EQ(Refusal(text).Description(), "A project may not name a library as its \"Driver\".");
    OdbcConnection connection({.Origin = StringOrigin::CommandLine});
    const DataSourceError error = Failure([&] { connection.Open(text); });
    EXPECT_THAT(error.Description(), HasSubstr("Can't open lib '/nowhere/missing.so'"));
    EXPECT_FALSE(error.Errors.empty());
}

TEST(OdbcConnection, ADriverThatIsNotThereIsNamed)
{
    EXPECT_EQ(
        Refusal("Driver=No Such Driver").Description(),
        "There is no ODBC driver named \"No Such Driver\" on this machine: \"odbcinst -q -d\" lists those that are set up.");
    EXPECT_EQ(
        Refusal("DSN=No Such Source").Description(),
        "There is no ODBC data source named \"No Such Source\" on this machine: \"odbcinst -q -s\" lists those that are set up.");
}

// The user's data sources while a test runs.
class UserDataSources
{
  public:
    UserDataSources(const std::string& path, const std::string& text)
    {
        std::ofstream(path) << text;
        ::setenv("ODBCINI", path.c_str(), 1);
    }
    UserDataSources(const UserDataSources&) = delete;
    UserDataSources& operator=(const UserDataSources&) = delete;
    ~UserDataSources() { ::unsetenv("ODBCINI"); }
};

TEST(OdbcConnection, ADataSourceOfTheUserHoldsAnyKeyAndAProjectAddsNone)
{
    SqliteFile file("CREATE TABLE a (x);\n");
    const UserDataSources sources(file.Folder() + "/odbc.ini",
                                  "[files]\nDriver=SQLite3\nJournalMode=MEMORY\nDatabase=" + file.Path() +
                                      "\n[bare]\nDriver=SQLite3\n");
    OdbcConnection connection(OdbcConnectionOptions{});
    connection.Open("PROVIDER=MSDASQL;DSN=files;UID=;PWD=;");
    EXPECT_EQ(connection.OpenCatalog()->Tables().size(), 1U);
    EXPECT_THAT(Refusal("DSN=files;LoadExt=/tmp/x.so").Description(), HasSubstr("\"LoadExt\""));
    EXPECT_THAT(Refusal("DSN=bare;Database=" + file.Folder() + "/new.db").Description(), HasSubstr("connect failed"));
    EXPECT_FALSE(std::filesystem::exists(file.Folder() + "/new.db"));
}

TEST(OdbcConnection, AnEmptyStringIsRefused)
{
    EXPECT_EQ(Refusal("").Description(),
              "The connection string names neither a data source (DSN) nor a driver (Driver).");
}

} // namespace
} // namespace veldrane
