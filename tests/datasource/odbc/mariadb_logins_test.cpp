#include "catalog_rows.h"

#include "datasource/odbc/statement.h"
#include "support/server_database.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::MariaDbDatabase;

constexpr const char* kPassword = "secret";

// A database with a login that may see what it has been granted, and nothing else.
class MariaDbLogins : public testing::DatabaseServerTest
{
  protected:
    void SetUp() override
    {
        DatabaseServerTest::SetUp();
        if (IsSkipped())
            return;
        database_ = std::make_unique<MariaDbDatabase>();
        login_ = database_->Name() + "@localhost";
        database_->Run("CREATE TABLE whole (a INT PRIMARY KEY, b INT UNIQUE);\n"
                       "CREATE TABLE part (a INT PRIMARY KEY, b INT, c INT);\n"
                       "CREATE TABLE written (a INT PRIMARY KEY, b INT, FOREIGN KEY (b) REFERENCES whole (b));\n"
                       "CREATE TABLE unseen (a INT);\n"
                       "CREATE PROCEDURE p(n INT) SELECT 1;\nCREATE PROCEDURE unseen_too(n INT) SELECT 1;\n"
                       "CREATE USER " +
                       login_ + " IDENTIFIED BY '" + kPassword +
                       "';\n"
                       "GRANT SELECT ON whole TO " +
                       login_ + ";\n");
    }

    void TearDown() override
    {
        if (database_)
            database_->Run("DROP USER " + login_ + ";\nDROP ROLE IF EXISTS " + database_->Name() + "_role;\n");
    }

    void Grant(const std::string& privileges, const std::string& object)
    {
        database_->Run("GRANT " + privileges + " ON " + object + " TO " + login_ + ";\n");
    }

    [[nodiscard]] std::unique_ptr<Catalog> OpenCatalog()
    {
        return database_->OpenCatalog(database_->Name(), kPassword);
    }

    void ExpectDenied(const std::string& table)
    {
        for (const bool together : {false, true}) {
            const auto catalog = OpenCatalog();
            if (together)
                catalog->ExpectManyTables();
            EXPECT_EQ(NumberOfFailure([&] { (void)catalog->Fields(Statement(table)); }),
                      data_source_error::kPermissionDenied)
                << table << together;
            EXPECT_THAT(FieldNames(*catalog, Statement("whole")), ElementsAre("a", "b"));
        }
    }

    std::unique_ptr<MariaDbDatabase> database_;
    std::string login_;
};

TEST_F(MariaDbLogins, SeeTheTablesThatTheyHaveARightOn)
{
    Grant("INSERT", "written");
    EXPECT_THAT(TableRows(*OpenCatalog()), ElementsAre("whole|TABLE", "written|TABLE"));
    EXPECT_THAT(OpenCatalog()->HiddenTables(), IsEmpty());
    EXPECT_THAT(KeyRows(*OpenCatalog(), "written"), ElementsAre("written_ibfk_1: whole b=b"));
}

TEST_F(MariaDbLogins, AreDeniedATableThatTheyMayOnlyWrite)
{
    Grant("INSERT, UPDATE", "written");
    ExpectDenied("written");
}

TEST_F(MariaDbLogins, AreDeniedATableOfWhichTheyMayReadSomeColumns)
{
    Grant("SELECT (a, b)", "part");
    ExpectDenied("part");
}

TEST_F(MariaDbLogins, AreDeniedATableOfWhichARoleMayReadSomeColumns)
{
    const std::string role = database_->Name() + "_role";
    database_->Run("CREATE ROLE " + role + ";\nGRANT SELECT (a) ON part TO " + role + ";\nGRANT " + role + " TO " +
                   login_ + ";\nSET DEFAULT ROLE " + role + " FOR " + login_ + ";\n");
    ExpectDenied("part");
}

TEST_F(MariaDbLogins, MayReadAWholeTableColumnByColumn)
{
    Grant("SELECT (a, b, c)", "part");
    for (const bool together : {false, true}) {
        const auto catalog = OpenCatalog();
        if (together)
            catalog->ExpectManyTables();
        EXPECT_THAT(FieldNames(*catalog, Statement("part")), ElementsAre("a", "b", "c")) << together;
    }
}

TEST_F(MariaDbLogins, SeeTheProceduresThatTheyMayRun)
{
    EXPECT_THAT(OpenCatalog()->Procedures(), IsEmpty());
    EXPECT_THAT(OpenCatalog()->ProcedureParameters(), IsEmpty());
    Grant("EXECUTE", "PROCEDURE p");
    EXPECT_THAT(OpenCatalog()->Procedures(), ElementsAre("p"));
    EXPECT_EQ(OpenCatalog()->ProcedureParameters().size(), 1U);
}

class MariaDbConnection : public testing::DatabaseServerTest
{
  protected:
    OdbcConnection connection_{OdbcConnectionOptions{.StatementTimeout = std::chrono::seconds(1)}};
};

TEST_F(MariaDbConnection, IsKnownToBeLostAfterTheServerEndedIt)
{
    MariaDbDatabase database;
    database.Run("CREATE TABLE a (x INT);\nCREATE PROCEDURE p() SELECT 1;\n");
    using Question = void (*)(Catalog&);
    const std::vector<Question> questions{
        [](Catalog& catalog) { (void)catalog.Fields(Statement("a")); },
        [](Catalog& catalog) { (void)catalog.Fields(Statement("unknown")); },
        [](Catalog& catalog) { (void)catalog.Keys("a"); },
        [](Catalog& catalog) { (void)catalog.Procedures(); },
        [](Catalog& catalog) { (void)catalog.ProcedureParameters(); },
        [](Catalog& catalog) { catalog.ExpectManyTables(); },
    };
    for (std::size_t at = 0; at < questions.size(); ++at) {
        const auto catalog = database.OpenCatalog();
        ASSERT_EQ(catalog->Tables().size(), 1U);
        database.CutConnections();
        EXPECT_EQ(NumberOfFailure([&] { questions[at](*catalog); }), data_source_error::kNoOpenConnection) << at;
        EXPECT_EQ(NumberOfFailure([&] { questions[at](*catalog); }), data_source_error::kNoOpenConnection) << at;
    }
}

TEST_F(MariaDbConnection, AnswersWithinTheTimeOfAStatement)
{
    MariaDbDatabase database;
    database.Run("CREATE VIEW slow AS SELECT SLEEP(300) AS s;\nCREATE TABLE a (x INT);\n");
    connection_.Open(database.ConnectionString());
    const auto catalog = connection_.OpenCatalog();
    try {
        (void)catalog->Fields(Statement("slow"));
        FAIL();
    } catch (const DataSourceError& error) {
        EXPECT_EQ(error.Number, data_source_error::kFailed);
        EXPECT_THAT(error.Description(), HasSubstr("max_statement_time exceeded"));
    }
    EXPECT_THAT(FieldNames(*catalog, Statement("a")), ElementsAre("x"));
}

} // namespace
} // namespace veldrane
