// Data sources that change or go away while a run reads them. The run waits for a lock that the test holds, so that the
// test can act in its middle; the driver is one that the program knows nothing of, for that opens table by table.

#include "datasource/odbc/statement.h"
#include "shell/platform/temporary_registry.h"
#include "support/child_process.h"
#include "support/plain_driver.h"
#include "support/server_database.h"
#include "support/silent_server.h"
#include "untouched_project.h"

#include <gmock/gmock.h>

#include <csignal>
#include <functional>
#include <optional>

namespace veldrane {
namespace {

using ::testing::AllOf;
using testing::Ended;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::PostgreSqlDatabase;

// A connection of the test's own that holds a table until told otherwise.
class Lock
{
  public:
    Lock(const PostgreSqlDatabase& database, const std::string& table)
        : session_({.Text = database.ConnectionString(), .Profile = &ProfileOf("psqlodbcw.so"), .Database = {}}, {},
                   std::make_shared<OdbcErrors>())
    {
        Run("BEGIN");
        Run("LOCK TABLE " + table + " IN ACCESS EXCLUSIVE MODE");
    }

    // Ends the connection that waits, as a server does that goes down.
    void CutWaiting() const
    {
        Run("SELECT pg_terminate_backend(pid) FROM pg_locks WHERE NOT granted AND database ="
            " (SELECT oid FROM pg_database WHERE datname = current_database())");
    }

    // Comes back once somebody waits for the table.
    void AwaitWaiting() const
    {
        Run("SET LOCAL statement_timeout = '30s'");
        Run("DO $$ BEGIN LOOP EXIT WHEN EXISTS (SELECT FROM pg_locks WHERE NOT granted AND database ="
            " (SELECT oid FROM pg_database WHERE datname = current_database())); PERFORM pg_sleep(0.01); END LOOP; END $$");
    }

    void Run(const std::string& statement) const { OdbcStatement(session_).Execute(statement); }

  private:
    OdbcSession session_;
};

class DataSourceLosses : public testing::DatabaseServerTest
{
  protected:
    void SetUp() override
    {
        DatabaseServerTest::SetUp();
        if (IsSkipped())
            return;
        Database.emplace();
        Database->Run("create table a (id int primary key); create table b (id int primary key);"
                      "create table c (id int primary key);");
    }

    [[nodiscard]] std::string Plain() const
    {
        const std::string text = Database->ConnectionString();
        const std::string driver = "PostgreSQL Unicode";
        return std::string(text).replace(text.find(driver), driver.size(), Driver);
    }

    // Starts a run that writes what it says into the file "said", and comes back once it waits for the lock.
    pid_t StartRunUpTo(const Lock& lock, const std::vector<std::string>& words) const
    {
        const pid_t child = testing::StartChild([&] {
            RemoveTemporariesOnSignal();
            const Ended ended = Project.Workspace.Run(words);
            Project.Workspace.WriteFile("said", ended.ErrorOutput);
            return ended.ExitCode;
        });
        lock.AwaitWaiting();
        return child;
    }

    [[nodiscard]] std::vector<std::string> DefineAll() const
    {
        return {"define", Project.File, "--connection", Plain(), "--all"};
    }

    testing::UntouchedProject Project;
    std::string Driver = testing::LinkPlainDriver(Project.Workspace.Path(""), "psqlodbcw.so");
    std::optional<PostgreSqlDatabase> Database;
};

TEST_F(DataSourceLosses, ALostConnectionIsToldOnceAndNothingIsWritten)
{
    const Lock lock(*Database, "b");
    const pid_t run = StartRunUpTo(lock, DefineAll());
    lock.CutWaiting();
    EXPECT_EQ(testing::EndOf(run), 1);
    Project.ExpectUntouched();
    const std::string said = Project.Workspace.ReadFile("said");
    EXPECT_THAT(said, HasSubstr("veldrane: FATAL: terminating connection due to administrator command; The connection "
                                "has been lost. Nothing was written to " +
                                Project.File + ": run the command again.\n"));
    EXPECT_EQ(said.find("Nothing was written"), said.rfind("Nothing was written"));
    EXPECT_THAT(said, AllOf(Not(HasSubstr("'b'")), Not(HasSubstr("'c'"))));
}

TEST_F(DataSourceLosses, ATableThatIsDroppedMeanwhileIsLeftOutAndTheRestIsSaved)
{
    const Lock lock(*Database, "a");
    const pid_t run = StartRunUpTo(lock, DefineAll());
    lock.Run("DROP TABLE b");
    lock.Run("COMMIT");
    EXPECT_EQ(testing::EndOf(run), 1);
    const std::string said = Project.Workspace.ReadFile("said");
    EXPECT_THAT(said,
                AllOf(HasSubstr("The table named 'b' cannot be found."), HasSubstr("veldrane: 'b' is left out.\n")));
    const std::string file = Project.Workspace.ReadFile("Desk.kzm");
    EXPECT_THAT(file, AllOf(HasSubstr("Begin Class a\r\n"), HasSubstr("Begin Class c\r\n"),
                            Not(HasSubstr("Begin Class b\r\n")), HasSubstr("Begin Class Note\r\n")));
}

TEST_F(DataSourceLosses, AStatementThatTakesTooLongIsGivenUp)
{
    Project.Workspace.WriteFile("settings.ini", "[Platform]\nStatementTimeout=1\n");
    const Lock lock(*Database, "b");
    const Ended ended = Project.Workspace.Run(DefineAll());
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_THAT(
        ended.ErrorOutput,
        AllOf(HasSubstr("veldrane: ERROR: canceling statement due to statement timeout; Error while executing the "
                        "query. The statement was given up after 1 second: set \"StatementTimeout\" in the section "
                        "Platform of the settings to more seconds.\n"),
              HasSubstr("veldrane: 'b' is left out.\n")));
    EXPECT_THAT(Project.Workspace.ReadFile("Desk.kzm"),
                AllOf(HasSubstr("Begin Class a\r\n"), Not(HasSubstr("Begin Class b\r\n"))));
}

TEST_F(DataSourceLosses, AnInterruptEndsARunThatWaitsForTheServer)
{
    const Lock lock(*Database, "a");
    const pid_t run = StartRunUpTo(lock, DefineAll());
    kill(run, SIGINT);
    EXPECT_EQ(testing::EndOf(run), 128 + SIGINT);
    Project.ExpectUntouched();
}

TEST(Interrupt, EndsARunThatWaitsForAConnection)
{
    const testing::UntouchedProject project;
    for (const std::string driver : {"Driver=PostgreSQL Unicode;", "Driver=MariaDB Unicode;"}) {
        const testing::SilentServer server;
        const pid_t run = testing::StartChild([&] {
            RemoveTemporariesOnSignal();
            return project.Workspace
                .Run({"define", project.File, "--connection", driver + server.Target() + "Database=shop;UID=me;PWD=x;"})
                .ExitCode;
        });
        server.AwaitCaller();
        kill(run, SIGINT);
        EXPECT_EQ(testing::EndOf(run), 128 + SIGINT) << driver;
        project.ExpectUntouched();
    }
}

} // namespace
} // namespace veldrane
