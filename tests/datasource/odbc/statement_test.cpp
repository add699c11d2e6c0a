#include "datasource/odbc/statement.h"

#include "server_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace veldrane {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;

struct OnPostgreSql
{
    using Database = testing::PostgreSqlDatabase;
    static constexpr const char* kLibrary = "psqlodbcw.so";
    static constexpr const char* kSleep = "SELECT pg_sleep(30)";
    static constexpr const char* kTooSlow = "canceling statement due to statement timeout";
};

struct OnMariaDb
{
    using Database = testing::MariaDbDatabase;
    static constexpr const char* kLibrary = "libmaodbc.so";
    static constexpr const char* kSleep = "SELECT sleep(30)";
    static constexpr const char* kTooSlow = "max_statement_time exceeded";
};

template <class Server>
class ServerStatement : public testing::DatabaseServerTest
{
  protected:
    // The number of the failure, 0 for none.
    template <class Question>
    static long FailureOf(Question&& question)
    {
        try {
            question();
        } catch (const DataSourceError& error) {
            return error.Number;
        }
        return 0;
    }
};

using Servers = ::testing::Types<OnPostgreSql, OnMariaDb>;
TYPED_TEST_SUITE(ServerStatement, Servers);

TYPED_TEST(ServerStatement, GivesTextsOfEveryLengthWholeAndInTheirPlace)
{
    const typename TypeParam::Database database;
    const auto session = testing::OpenSession(database, TypeParam::kLibrary);
    for (const std::string letter : {"a", "ß", "Ж", "😀"})
        for (const int length : {0, 1, 63, 64, 126, 127, 128, 129, 254, 255, 256, 2047, 2048, 5000}) {
            OdbcStatement statement(*session);
            statement.Execute("SELECT 'left', repeat('" + letter + "', " + std::to_string(length) +
                              "), 'right' UNION ALL SELECT 'next', NULL, ''");
            std::string whole;
            for (int at = 0; at < length; ++at)
                whole += letter;
            ASSERT_TRUE(statement.Fetch());
            EXPECT_EQ(statement.Text(1), "left");
            EXPECT_EQ(statement.Text(2), whole) << letter << " " << length;
            EXPECT_EQ(statement.Text(3), "right");
            ASSERT_TRUE(statement.Fetch());
            EXPECT_EQ(statement.Text(1), "next");
            EXPECT_EQ(statement.Text(2), std::nullopt);
            EXPECT_EQ(statement.Text(3), "");
            EXPECT_FALSE(statement.Fetch());
        }
}

TYPED_TEST(ServerStatement, GivesNumbersAndZeroForNull)
{
    const typename TypeParam::Database database;
    const auto session = testing::OpenSession(database, TypeParam::kLibrary);
    OdbcStatement statement(*session);
    statement.Execute("SELECT 42, -7, NULL, 2147483647");
    ASSERT_TRUE(statement.Fetch());
    EXPECT_EQ(statement.Number(1), 42);
    EXPECT_EQ(statement.Number(2), -7);
    EXPECT_EQ(statement.Number(3), 0);
    EXPECT_EQ(statement.Number(4), 2147483647);
}

TYPED_TEST(ServerStatement, IsGivenUpAfterTheTimeOfTheSession)
{
    const typename TypeParam::Database database;
    constexpr std::chrono::seconds limit(1);
    const auto session = testing::OpenSession(database, TypeParam::kLibrary, {.StatementTimeout = limit});
    ASSERT_NE(session->Profile().LimitStatements, nullptr);
    OdbcStatement(*session).Execute(session->Profile().LimitStatements(limit));
    try {
        OdbcStatement(*session).Execute(TypeParam::kSleep);
        ADD_FAILURE() << "nothing failed";
    } catch (const DataSourceError& error) {
        EXPECT_EQ(error.Number, data_source_error::kFailed);
        EXPECT_THAT(error.Description(),
                    AllOf(HasSubstr(TypeParam::kTooSlow),
                          EndsWith("The statement was given up after 1 second: set \"StatementTimeout\" in the section "
                                   "Platform of the settings to more seconds.")));
    }
}

TYPED_TEST(ServerStatement, HasNoOpenConnectionOnceThatIsLost)
{
    const typename TypeParam::Database database;
    const auto session = testing::OpenSession(database, TypeParam::kLibrary);
    database.CutConnections();
    for (int attempt = 0; attempt < 3; ++attempt)
        EXPECT_EQ(this->FailureOf([&] { OdbcStatement(*session).Execute("SELECT 1"); }),
                  data_source_error::kNoOpenConnection);
}

TYPED_TEST(ServerStatement, OfACatalogHasNoOpenConnectionWhateverIsAskedOnceThatIsLost)
{
    typename TypeParam::Database database;
    database.Run("create table a (id int primary key); create table b (id int primary key);");
    const auto catalog = database.OpenCatalog();
    EXPECT_GE(catalog->Tables().size(), 2U);
    database.CutConnections();
    const std::vector<std::function<void()>> questions{
        [&] { (void)catalog->Fields("SELECT * FROM a WHERE 1=0"); },
        [&] { (void)catalog->Indexes("a"); },
        [&] { (void)catalog->Keys("b"); },
        [&] { (void)catalog->Procedures(); },
        [&] { catalog->ExpectManyTables(); },
    };
    for (const auto& question : questions)
        EXPECT_EQ(this->FailureOf(question), data_source_error::kNoOpenConnection);
}

TYPED_TEST(ServerStatement, OfACatalogFindsATableGoneThatWasListed)
{
    typename TypeParam::Database database;
    database.Run("create table a (id int primary key); create table b (id int primary key);");
    const auto catalog = database.OpenCatalog();
    EXPECT_GE(catalog->Tables().size(), 2U);
    database.Run("drop table b;");
    EXPECT_EQ(catalog->Fields("SELECT * FROM a WHERE 1=0").size(), 1U);
    EXPECT_EQ(this->FailureOf([&] { (void)catalog->Fields("SELECT * FROM b WHERE 1=0"); }),
              data_source_error::kTableUnknown);
}

} // namespace
} // namespace veldrane
