// Logins that may read some tables and not others.

#include "support/plain_driver.h"
#include "support/server_database.h"
#include "untouched_project.h"

#include <gmock/gmock.h>

#include <optional>

namespace veldrane {
namespace {

using ::testing::AllOf;
using testing::Ended;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::PostgreSqlDatabase;

class DataSourceRights : public testing::DatabaseServerTest
{
  protected:
    void SetUp() override
    {
        DatabaseServerTest::SetUp();
        if (IsSkipped())
            return;
        Database.emplace();
        Role = Database->Name();
        Database->Run("create table book (id int primary key); create table page (id int primary key, book int not null"
                      " references book); create table salary (id int primary key);"
                      "create role " +
                      Role + " login password 'x'; grant select on book, page to " + Role);
        Limited = Database->ConnectionString(Role, "x");
    }

    void TearDown() override
    {
        if (Database)
            Database->Run("drop owned by " + Role + "; drop role " + Role);
    }

    void Revoke(const std::string& table) const { Database->Run("revoke select on " + table + " from " + Role); }

    [[nodiscard]] Ended Define(std::vector<std::string> more, const std::string& connection) const
    {
        more.insert(more.begin(), {"define", Project.Path("Desk.kzm"), "--connection", connection});
        return Project.Run(more);
    }

    [[nodiscard]] std::string File() const { return Project.ReadFile("Desk.kzm"); }

    // The same login through a driver that lists every table, read or not.
    [[nodiscard]] std::string ThroughPlainDriver() const
    {
        const std::string driver = "PostgreSQL Unicode";
        return std::string(Limited).replace(Limited.find(driver), driver.size(),
                                            testing::LinkPlainDriver(Project.Path(""), "psqlodbcw.so"));
    }

    testing::Program Project;
    std::optional<PostgreSqlDatabase> Database;
    std::string Role;
    std::string Limited;
};

TEST_F(DataSourceRights, TablesAreListedWithoutThoseThatAreHidden)
{
    Ended ended = Project.Run({"tables", "--connection", Limited});
    EXPECT_EQ(ended.ExitCode, 0);
    EXPECT_EQ(ended.Output, "TABLE\tbook\nTABLE\tpage\n");
    EXPECT_EQ(ended.ErrorOutput, "veldrane: 1 table is not listed: the login may not read it.\n");
    Revoke("page");
    ended = Project.Run({"tables", "--connection", Limited});
    EXPECT_EQ(ended.Output, "TABLE\tbook\n");
    EXPECT_EQ(ended.ErrorOutput, "veldrane: 2 tables are not listed: the login may not read them.\n");
}

TEST_F(DataSourceRights, AllOfThemIsWhatTheLoginMayRead)
{
    const Ended ended = Define({"--all"}, Limited);
    EXPECT_EQ(ended.ExitCode, 0) << ended.ErrorOutput;
    EXPECT_EQ(ended.ErrorOutput, "veldrane: 1 table is not listed: the login may not read it.\n");
    EXPECT_THAT(File(),
                AllOf(HasSubstr("Begin Class book\r\n"), HasSubstr("Begin Class page\r\n"), Not(HasSubstr("salary"))));
}

TEST_F(DataSourceRights, ATableThatIsAskedForByNameIsLeftOutAndThatIsAFailure)
{
    const Ended ended = Define({"--table", "Salary", "--table", "book"}, Limited);
    EXPECT_EQ(ended.ExitCode, 1);
    EXPECT_EQ(ended.ErrorOutput, "veldrane: 'Salary' is left out: the login may not read it.\n");
    EXPECT_THAT(File(), HasSubstr("Begin Class book\r\n"));
}

TEST_F(DataSourceRights, AClassWhoseTableMayNoLongerBeReadStaysAsItWas)
{
    ASSERT_EQ(Define({"--table", "page"}, Limited).ExitCode, 0);
    const std::string before = File();
    Revoke("page");
    const Ended ended = Define({}, Limited);
    EXPECT_EQ(ended.ExitCode, 0);
    EXPECT_EQ(ended.ErrorOutput,
              "veldrane: the class page stays as it was: the login may not read its table 'page'.\n");
    EXPECT_EQ(File(), before);
}

TEST_F(DataSourceRights, AClassLosesNoPropertyToALoginThatMayReadSomeColumns)
{
    ASSERT_EQ(Define({"--table", "page"}, Limited).ExitCode, 0);
    const std::string before = File();
    Revoke("page");
    Database->Run("grant select (id) on page to " + Role);
    const Ended ended = Define({}, Limited);
    EXPECT_EQ(ended.ExitCode, 0);
    EXPECT_EQ(ended.ErrorOutput,
              "veldrane: the class page stays as it was: the login may not read its table 'page'.\n");
    EXPECT_EQ(File(), before);
}

TEST_F(DataSourceRights, ADriverThatListsEveryTableIsFollowedAsFarAsTheLoginMayGo)
{
    Revoke("book");
    const std::string plain = ThroughPlainDriver();
    const Ended all = Define({"--all"}, plain);
    EXPECT_EQ(all.ExitCode, 0) << all.ErrorOutput;
    EXPECT_EQ(all.ErrorOutput, "veldrane: 'book' is left out: the login may not read it.\n"
                               "veldrane: 'salary' is left out: the login may not read it.\n");
    EXPECT_THAT(File(), HasSubstr("Begin Class page\r\n")); // at the root: its parent is none of the run
    const Ended named = Define({"--all", "--table", "salary"}, plain);
    EXPECT_EQ(named.ExitCode, 1);
    EXPECT_THAT(named.ErrorOutput, HasSubstr("veldrane: 'salary' is left out: the login may not read it.\n"));
}

} // namespace
} // namespace veldrane
