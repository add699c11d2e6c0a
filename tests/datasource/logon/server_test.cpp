#include "real_logon.h"
#include "support/server_database.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace veldrane {
namespace {

using testing::MariaDbDatabase;
using testing::PostgreSqlDatabase;

constexpr const char* kOddPassword = "{a;b={c}}%41 ü[]";

// A settings file with one data source for as long as it lives. Each has a name of its own: the driver manager keeps
// for a while what it has read of one.
class PrivateDSN
{
  public:
    PrivateDSN(const std::string& name, const std::string& keys)
    {
        std::ofstream(path_) << '[' << name << "]\n" << keys;
        ::setenv("ODBCINI", path_.c_str(), 1);
    }
    PrivateDSN(const PrivateDSN&) = delete;
    PrivateDSN& operator=(const PrivateDSN&) = delete;
    ~PrivateDSN()
    {
        ::unsetenv("ODBCINI");
        std::filesystem::remove(path_);
    }

  private:
    std::string path_ = ::testing::TempDir() + "veldrane-logon-" + std::to_string(::getpid()) + ".ini";
};

std::string Variable(const char* name)
{
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): a test runs on one thread
    return value == nullptr ? "" : value;
}

using LogonToServers = testing::DatabaseServerTest;

// Logs on to a PostgreSQL by the name of its driver.
void FillPostgreSql(const RealLogon& logon, const std::string& database, const std::string& user)
{
    logon.UseDriver("PostgreSQL Unicode");
    LogonPage& page = logon.dialog->Page();
    page.txtServer = Variable("VELDRANE_TEST_POSTGRESQL");
    page.txtUID = user;
    page.txtDatabase = database;
}

TEST_F(LogonToServers, OpensPostgreSqlWhateverThePassword)
{
    const PostgreSqlDatabase database;
    const std::string user = database.Name() + "_ann";
    database.Run("create table book (id int primary key); create role " + user + " login password '" + kOddPassword +
                 "';");
    RealLogon logon;
    FillPostgreSql(logon, database.Name(), user);
    EXPECT_TRUE(logon.dialog->Page().txtServerEnabled);
    logon.dialog->Page().txtPWD = kOddPassword;
    EXPECT_GT(logon.TablesAfterOk(), 0) << logon.Reported();
    OdbcConnection asProject({.Origin = StringOrigin::ProjectFile});
    asProject.Open(logon.project.ConnectionString());
    EXPECT_TRUE(asProject.IsOpen());
    asProject.Close();
    if (logon.shared)
        logon.shared->Close();
    database.Run("drop role " + user);
}

TEST_F(LogonToServers, ReportsAWrongPasswordInTheServersWords)
{
    const PostgreSqlDatabase database;
    const std::string user = database.Name() + "_bob";
    database.Run("create role " + user + " login password 'right';");
    RealLogon logon;
    FillPostgreSql(logon, database.Name(), user);
    logon.dialog->Page().txtPWD = "wrong";
    EXPECT_EQ(logon.TablesAfterOk(), -1);
    EXPECT_THAT(logon.Reported(), ::testing::HasSubstr("password authentication failed for user \"" + user + "\""));
    EXPECT_EQ(logon.project.ConnectionString(), "");
    EXPECT_EQ(logon.project.DataSourceLogin, "");
    database.Run("drop role " + user);
}

TEST_F(LogonToServers, OpensADataSourceOfPostgreSqlWithItsOwnLogin)
{
    const PostgreSqlDatabase database;
    database.Run("create table book (id int primary key);");
    const PrivateDSN dsn("Shop", "Driver=PostgreSQL Unicode\nServername=" + Variable("VELDRANE_TEST_POSTGRESQL") +
                                     "\nDatabase=" + database.Name() + "\nUsername=veldrane\n");
    RealLogon logon;
    logon.UseDSN("Shop");
    EXPECT_GT(logon.TablesAfterOk(), 0) << logon.Reported();
    EXPECT_EQ(logon.project.ConnectionString(), "PROVIDER=MSDASQL;DSN=Shop;UID=;PWD=;");
    EXPECT_EQ(logon.project.DataSourceDriver, "PostgreSQL Unicode");
}

// Names that mean something in a connection string, or would if they were put in braces.
constexpr std::array kOddNames{"ann@corp", "50%", "x(y)", "what?!", "c[d]{e}", "one, two"};

TEST_F(LogonToServers, OpensPostgreSqlWhateverTheLoginAndTheDatabase)
{
    const PostgreSqlDatabase database;
    for (const char* odd : kOddNames) {
        const std::string name = database.Name() + odd;
        database.Run("create role \"" + name + "\" login password 'p'; create database \"" + name + "\";");
        {
            RealLogon logon;
            FillPostgreSql(logon, name, name);
            logon.dialog->Page().txtPWD = "p";
            logon.dialog->cmdOK_Click();
            EXPECT_EQ(logon.dialog->State(), DialogState::Closed) << odd << ": " << logon.Reported();
        }
        database.Run("drop database \"" + name + "\"; drop role \"" + name + "\";");
    }
}

TEST_F(LogonToServers, OpensADataSourceOfPostgreSqlWhateverItsName)
{
    const PostgreSqlDatabase database;
    database.Run("create table book (id int primary key);");
    for (const char* odd : kOddNames) {
        const std::string name = std::string("Books ") + odd;
        if (name.find_first_of("[]") != std::string::npos)
            continue; // a settings file has no such section
        const PrivateDSN dsn(name, "Driver=PostgreSQL Unicode\nServername=" + Variable("VELDRANE_TEST_POSTGRESQL") +
                                       "\nDatabase=" + database.Name() + "\nUsername=veldrane\n");
        RealLogon logon;
        logon.UseDSN(name);
        EXPECT_GT(logon.TablesAfterOk(), 0) << odd << ": " << logon.Reported();
    }
}

TEST_F(LogonToServers, OpensMariaDbWhateverTheDataSourceTheLoginAndTheDatabase)
{
    const MariaDbDatabase database;
    for (const char* odd : kOddNames) {
        const std::string name = database.Name() + odd;
        database.Run("create database `" + name + "`; create table `" + name + "`.book (id int primary key); " +
                     "create user `" + name + "`@localhost identified by 'p'; " + "grant all on *.* to `" + name +
                     "`@localhost;");
        {
            const bool isSection = name.find_first_of("[]") == std::string::npos;
            const std::string source = isSection ? name : database.Name();
            const PrivateDSN dsn(source, "Driver=MariaDB Unicode\nSocket=" + Variable("VELDRANE_TEST_MARIADB") + "\n");
            RealLogon logon;
            logon.UseDSN(source);
            LogonPage& page = logon.dialog->Page();
            page.txtUID = name;
            page.txtPWD = "p";
            page.txtDatabase = name;
            EXPECT_EQ(logon.TablesAfterOk(), 1) << odd << ": " << logon.Reported();
        }
        database.Run("drop database `" + name + "`; drop user `" + name + "`@localhost;");
    }
}

TEST_F(LogonToServers, OpensADataSourceOfMariaDbWithItsOwnLogin)
{
    const MariaDbDatabase database;
    database.Run("create table book (id int primary key);");
    const PrivateDSN dsn("Ledger", "Driver=MariaDB Unicode\nSocket=" + Variable("VELDRANE_TEST_MARIADB") +
                                       "\nDatabase=" + database.Name() + "\nUser=veldrane\n");
    RealLogon logon;
    logon.UseDSN("Ledger");
    EXPECT_EQ(logon.TablesAfterOk(), 1) << logon.Reported();
}

// An account of MariaDB with a password, and a data source that leaves the login to whoever uses it.
class LogonToMariaDb : public testing::DatabaseServerTest
{
  protected:
    // What a logon with the passwords comes to: the number of tables, or -1.
    static int TablesFor(const std::string& name, const std::string& password, const std::string& databasePassword)
    {
        const MariaDbDatabase database;
        const std::string account = database.Name() + "_ann@localhost";
        database.Run("create table book (id int primary key); create user " + account + " identified by '" +
                     kOddPassword + "'; grant all on " + database.Name() + ".* to " + account + ";");
        const PrivateDSN dsn(name, "Driver=MariaDB Unicode\nSocket=" + Variable("VELDRANE_TEST_MARIADB") + "\n");
        RealLogon logon;
        logon.UseDSN(name);
        LogonPage& page = logon.dialog->Page();
        page.txtUID = database.Name() + "_ann";
        page.txtPWD = password;
        page.txtDBPassword = databasePassword;
        page.txtDatabase = database.Name();
        const int tables = logon.TablesAfterOk();
        if (logon.shared)
            logon.shared->Close();
        database.Run("drop user " + account);
        return tables;
    }
};

TEST_F(LogonToMariaDb, WorksWhateverThePassword)
{
    EXPECT_EQ(TablesFor("Library", kOddPassword, ""), 1);
    EXPECT_EQ(TablesFor("Library closed", "wrong", ""), -1);
}

TEST_F(LogonToMariaDb, TakesThePasswordOfTheDatabaseOverThatOfTheLogin)
{
    EXPECT_EQ(TablesFor("Archive", "wrong", kOddPassword), 1);
    EXPECT_EQ(TablesFor("Archive closed", kOddPassword, "wrong"), -1);
}

} // namespace
} // namespace veldrane
