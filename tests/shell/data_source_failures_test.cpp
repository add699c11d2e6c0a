// Data sources that do not open: what the user reads, and that the project stays as it was.

#include "support/server_database.h"
#include "support/silent_server.h"
#include "untouched_project.h"

#include <gmock/gmock.h>

#include <thread>

namespace veldrane {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using testing::MariaDbDatabase;
using testing::PostgreSqlDatabase;
using ::testing::StartsWith;
using testing::UntouchedProject;

const std::string kPostgreSql = "Driver=PostgreSQL Unicode;";
const std::string kMariaDb = "Driver=MariaDB Unicode;";
const std::string kLogin = "Database=shop;UID=me;PWD=secret;";

// Behind each failure to open, for the user of the desktop.
const std::string kEdit =
    " If you would like to modify your DataSource, you may do so by selecting Project|Edit DataSource from the menu.";
const std::string kCheckLogin =
    "Check the user's name and the password of the connection string (\"UID\", \"PWD\")." + kEdit;
const std::string kCheckDatabase =
    "Check the database's name in the connection string (\"Database\"), and that the login may use it." + kEdit;
const std::string kCheckServer = "Check the server's name in the connection string (\"Server\")." + kEdit;
const std::string kCheckPort =
    "Check the server and the port of the connection string (\"Server\", \"Port\"), and that the server runs." + kEdit;
const std::string kSilent =
    "The server \"127.0.0.1\" did not answer within 1 second: check the server and the port of the connection string, or "
    "set \"ConnectTimeout\" in the section Platform of the settings to more seconds." +
    kEdit;

const std::string kStranger =
    "What answers there hung up or is no server of this kind: check the server and the port of the connection string "
    "(\"Server\", \"Port\"), and that the driver suits the server." +
    kEdit;

// What listens on a port and is no database.
class AbruptServer
{
  public:
    AbruptServer() = default;
    AbruptServer(const AbruptServer&) = delete;
    AbruptServer& operator=(const AbruptServer&) = delete;
    ~AbruptServer()
    {
        server_.Close();
        answering_.join();
    }

    [[nodiscard]] std::string Target() const { return server_.Target(); }

  private:
    testing::SilentServer server_;
    std::thread answering_{[this] {
        while (server_.HangUp()) {
        }
    }};
};

struct DataSourceFailures : ::testing::Test
{
    UntouchedProject Project;
};

TEST_F(DataSourceFailures, AnUnknownHostIsNamed)
{
    const std::string host = "Server=no-such-host.invalid;" + kLogin;
    EXPECT_THAT(Project.FailureOn(kPostgreSql + host),
                AllOf(StartsWith("veldrane: could not translate host name \"no-such-host.invalid\" to address: "),
                      EndsWith(kCheckServer)));
    EXPECT_THAT(Project.FailureOn(kMariaDb + host),
                AllOf(HasSubstr("Unknown server host 'no-such-host.invalid'"), EndsWith(kCheckServer)));
}

TEST_F(DataSourceFailures, ARefusedPortIsNamed)
{
    const std::string port = "Server=127.0.0.1;Port=1;" + kLogin;
    EXPECT_EQ(
        Project.FailureOn(kPostgreSql + port),
        "veldrane: connection to server at \"127.0.0.1\", port 1 failed: Connection refused. Is the server running "
        "on that host and accepting TCP/IP connections? " +
            kCheckPort);
    EXPECT_THAT(Project.FailureOn(kMariaDb + port),
                AllOf(HasSubstr("Can't connect to server on '127.0.0.1'"), EndsWith(kCheckPort)));
}

TEST_F(DataSourceFailures, AMissingSocketIsNamed)
{
    EXPECT_THAT(Project.FailureOn(kPostgreSql + "Server=/nowhere;" + kLogin),
                AllOf(HasSubstr("\"/nowhere/.s.PGSQL.5432\" failed: No such file or directory"), EndsWith(kCheckPort)));
    EXPECT_THAT(Project.FailureOn(kMariaDb + "Socket=/nowhere;" + kLogin),
                AllOf(HasSubstr("through socket '/nowhere'"), EndsWith(kCheckPort)));
}

TEST_F(DataSourceFailures, AHostThatNeverAnswersIsGivenUpAfterTheTimeOfTheSettings)
{
    const testing::SilentServer server;
    Project.Workspace.WriteFile("settings.ini", "[Platform]\nConnectTimeout=1\n");
    EXPECT_THAT(Project.FailureOn(kPostgreSql + server.Target() + kLogin),
                AllOf(HasSubstr("timeout expired"), EndsWith(kSilent)));
    EXPECT_THAT(Project.FailureOn(kMariaDb + server.Target() + kLogin),
                AllOf(HasSubstr("Lost connection to server at 'handshake"), EndsWith(kSilent)));
}

TEST_F(DataSourceFailures, ATimeThatTheStringSetsIsToldByItsKey)
{
    const testing::SilentServer server;
    EXPECT_THAT(Project.FailureOn(kMariaDb + server.Target() + "CONN_TIMEOUT=1;" + kLogin),
                EndsWith("The server \"127.0.0.1\" did not answer in time: check the server and the port of the "
                         "connection string, or set its \"CONN_TIMEOUT\" to more seconds." +
                         kEdit));
}

TEST_F(DataSourceFailures, AServerOfAnotherKindIsNotTakenForASilentOne)
{
    const AbruptServer server;
    for (const std::string& driver : {kPostgreSql, kMariaDb, std::string("Driver=FreeTDS;")})
        EXPECT_THAT(Project.FailureOn(driver + server.Target() + kLogin), EndsWith(kStranger)) << driver;
}

TEST_F(DataSourceFailures, APortThatIsNoneIsNamed)
{
    for (const std::string port : {"none", "99999"})
        EXPECT_THAT(Project.FailureOn(kPostgreSql + "Server=127.0.0.1;Port=" + port + ";" + kLogin),
                    AllOf(HasSubstr(port), EndsWith("Check the port of the connection string (\"Port\"): it is a "
                                                    "number from 1 to 65535." +
                                                    kEdit)));
}

TEST_F(DataSourceFailures, AMissingDriverIsNamedAndSoIsHowToSeeTheOthers)
{
    EXPECT_EQ(Project.FailureOn("Driver=No Such;" + kLogin),
              "veldrane: Can't open lib 'No Such' : file not found. The ODBC driver \"No Such\" "
              "is not set up on this machine, or its library is missing: \"odbcinst -q -d\" lists the drivers." +
                  kEdit);
}

TEST_F(DataSourceFailures, AMissingDataSourceIsNamedAndSoIsHowToSeeTheOthers)
{
    EXPECT_EQ(Project.FailureOn("DSN=NoSuch;" + kLogin),
              "veldrane: Data source name not found and no default driver specified. There is "
              "no ODBC data source named \"NoSuch\" on this machine: \"odbcinst -q -s\" lists those that are set up." +
                  kEdit);
}

TEST_F(DataSourceFailures, AMissingDatabaseFileIsNamed)
{
    EXPECT_EQ(Project.FailureOn("Driver=SQLite3;Database=/nowhere/shop.db;"),
              "veldrane: connect failed. The file \"/nowhere/shop.db\" is not there or can't be read: check its "
              "path in the connection string (\"Database\")." +
                  kEdit);
}

TEST_F(DataSourceFailures, AreToldByTablesInTheSameWords)
{
    const testing::Ended ended = Project.Workspace.Run({"tables", "--connection", "DSN=NoSuch;" + kLogin});
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_EQ(ended.Output, "");
    EXPECT_THAT(ended.ErrorOutput, HasSubstr("\"odbcinst -q -s\" lists those that are set up.\n"));
}

TEST_F(DataSourceFailures, LeaveThePasswordOut)
{
    for (const std::string& driver : {kPostgreSql, kMariaDb, std::string("Driver=No Such;")}) {
        const testing::Ended ended = Project.Workspace.Run(
            {"tables", "--connection", driver + "Server=127.0.0.1;Port=1;Database=shop;UID=me;PWD=hush-hush;"});
        EXPECT_THAT(ended.ErrorOutput, ::testing::Not(HasSubstr("hush-hush")));
    }
}

class ServerFailures : public testing::DatabaseServerTest
{
  protected:
    UntouchedProject Project;
};

TEST_F(ServerFailures, AWrongPasswordIsToldWithTheUsersName)
{
    const PostgreSqlDatabase postgreSql;
    const std::string& role = postgreSql.Name();
    postgreSql.Run("create role " + role + " login password 'right'");
    EXPECT_THAT(Project.FailureOn(postgreSql.ConnectionString(role, "wrong")),
                AllOf(HasSubstr("password authentication failed for user \"" + role + "\". "), EndsWith(kCheckLogin)));
    EXPECT_THAT(Project.FailureOn(postgreSql.ConnectionString(role, "")), EndsWith(kCheckLogin));
    postgreSql.Run("drop role " + role);

    const MariaDbDatabase mariaDb;
    mariaDb.Run("create user " + mariaDb.Name() + "@localhost identified by 'right'");
    EXPECT_THAT(Project.FailureOn(mariaDb.ConnectionString(mariaDb.Name(), "wrong")),
                AllOf(HasSubstr("Access denied for user '" + mariaDb.Name() + "'@'localhost' (using password: YES). "),
                      EndsWith(kCheckLogin)));
    mariaDb.Run("drop user " + mariaDb.Name() + "@localhost");
}

TEST_F(ServerFailures, AnUnknownDatabaseIsNamed)
{
    const auto elsewhere = [](std::string text, const std::string& name) {
        return text.replace(text.find(name), name.size(), "nowhere");
    };
    const PostgreSqlDatabase postgreSql;
    EXPECT_THAT(Project.FailureOn(elsewhere(postgreSql.ConnectionString(), postgreSql.Name())),
                AllOf(HasSubstr("database \"nowhere\" does not exist. "), EndsWith(kCheckDatabase)));
    const MariaDbDatabase mariaDb;
    EXPECT_THAT(Project.FailureOn(elsewhere(mariaDb.ConnectionString(), mariaDb.Name())),
                AllOf(HasSubstr("Unknown database 'nowhere'. "), EndsWith(kCheckDatabase)));
}

TEST_F(ServerFailures, ALoginThatMayNotUseTheDatabaseIsTold)
{
    const MariaDbDatabase mariaDb;
    mariaDb.Run("create user " + mariaDb.Name() + "@localhost identified by 'right'");
    EXPECT_THAT(Project.FailureOn(mariaDb.ConnectionString(mariaDb.Name(), "right")),
                AllOf(HasSubstr("to database '" + mariaDb.Name() + "'. "), EndsWith(kCheckDatabase)));
    mariaDb.Run("drop user " + mariaDb.Name() + "@localhost");
}

} // namespace
} // namespace veldrane
