#include "datasource/odbc/statement.h"

#include "server_session.h"

#include <gtest/gtest.h>

#include <string>

namespace veldrane {
namespace {

struct OnPostgreSql
{
    using Database = testing::PostgreSqlDatabase;
    static constexpr const char* kLibrary = "psqlodbcw.so";
};

struct OnMariaDb
{
    using Database = testing::MariaDbDatabase;
    static constexpr const char* kLibrary = "libmaodbc.so";
};

template <class Server>
class ServerStatement : public testing::DatabaseServerTest
{};

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

} // namespace
} // namespace veldrane
