#include "real_logon.h"
#include "sqlite_file.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace veldrane {
namespace {

TEST(LogonOpens, ASqliteFileThatIsChosen)
{
    const SqliteFile file("CREATE TABLE a (x);\n", "Größe {neu} it's = 'x'.db");
    RealLogon logon;
    logon.files = {file.Path()};
    logon.UseDriver("SQLite3");
    EXPECT_FALSE(logon.dialog->Page().txtServerEnabled);
    logon.dialog->cmdBrowse_Click();
    EXPECT_EQ(logon.files.AskedToOpen().back().Filter, "SQLite Databases|*.db;*.sqlite;*.sqlite3|All Files|*.*");
    EXPECT_EQ(logon.TablesAfterOk(), 1) << logon.Reported();
    EXPECT_EQ(logon.project.ConnectionString(),
              "PROVIDER=MSDASQL;Driver=SQLite3;Server=;UID=;PWD=;Database=" + file.Path() + ";");
}

TEST(LogonOpens, AStringThatItWroteOnceItIsAProjects)
{
    const SqliteFile file("CREATE TABLE a (x);\n");
    RealLogon logon;
    logon.UseDriver("SQLite3");
    logon.dialog->Page().txtDatabase = file.Path();
    EXPECT_EQ(logon.TablesAfterOk(), 1) << logon.Reported();
    OdbcConnection connection({.Origin = StringOrigin::ProjectFile});
    connection.Open(logon.project.ConnectionString());
    EXPECT_TRUE(connection.IsOpen());
}

TEST(LogonOpens, NothingThatAProjectCouldNotOpenAgain)
{
    const SqliteFile file("CREATE TABLE a (x);\n");
    RealLogon logon;
    logon.UseDriver("SQLite3");
    logon.dialog->Page().txtDatabase = "file:" + file.Path() + "?mode=ro";
    EXPECT_EQ(logon.TablesAfterOk(), -1);
    EXPECT_EQ(logon.Reported(), "The \"Database\" of a project's connection string may not carry options.");
    EXPECT_EQ(logon.project.ConnectionString(), "");
}

TEST(LogonOpens, NoFileThatIsNotThereAndMakesNone)
{
    const SqliteFile file("CREATE TABLE a (x);\n");
    const std::string missing = file.Folder() + "/missing.db";
    RealLogon logon;
    logon.UseDriver("SQLite3");
    logon.dialog->Page().txtDatabase = missing;
    EXPECT_EQ(logon.TablesAfterOk(), -1);
    EXPECT_THAT(logon.Reported(), ::testing::StartsWith("connect failed. The file "));
    EXPECT_FALSE(std::filesystem::exists(missing));
    EXPECT_EQ(logon.project.ConnectionString(), "");
}

TEST(LogonOpens, NoPathThatTheDriverWouldReadAsAnother)
{
    RealLogon logon;
    logon.UseDriver("SQLite3");
    logon.dialog->Page().txtDatabase = "/nowhere/a;LoadExt=/nowhere/x.so";
    EXPECT_EQ(logon.TablesAfterOk(), -1);
    EXPECT_EQ(logon.Reported(),
              "The driver can't be given the value of \"Database\": it has a semicolon in it or begins with a brace.");
}

TEST(LogonOpens, NothingWhereNoDataSourceIsSelected)
{
    RealLogon logon;
    logon.dialog->optUseDSN_Click();
    logon.dialog->Page().cmbDSN = {};
    EXPECT_EQ(logon.TablesAfterOk(), -1);
    EXPECT_EQ(logon.Reported(), "The connection string names neither a data source (DSN) nor a driver (Driver).");
}

} // namespace
} // namespace veldrane
