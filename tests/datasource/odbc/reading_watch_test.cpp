#include "catalog_rows.h"
#include "sqlite_file.h"

#include "support/recorded_watch.h"
#include "support/server_database.h"
#include "support/tds_server.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::RecordedWatch;
using testing::TdsContents;

constexpr int kManyTables = 60;

using WatchedServers = testing::DatabaseServerTest;

std::string ManyTables()
{
    std::string statements;
    for (int i = 0; i < kManyTables; ++i)
        statements += "CREATE TABLE t" + std::to_string(i) + " (id INT);\n";
    return statements;
}

TdsContents ManyTdsTables()
{
    TdsContents contents;
    for (int i = 0; i < kManyTables; ++i)
        contents.Tables.push_back({.Name = "t" + std::to_string(i)});
    return contents;
}

// Reads the tables until the watch cancels, then all of them over the same connection.
void ExpectCancelledAndReadAgain(const std::string& connectionString)
{
    RecordedWatch watch;
    OdbcConnection connection({.Watch = &watch});
    connection.Open(connectionString);
    watch.CancelAt = 3;
    EXPECT_THROW(static_cast<void>(connection.OpenCatalog()->Tables()), ReadingCancelled);
    EXPECT_THAT(connection.Errors(), IsEmpty());
    EXPECT_TRUE(connection.IsOpen());
    watch.CancelAt = 0;
    EXPECT_GE(connection.OpenCatalog()->Tables().size(), static_cast<std::size_t>(kManyTables));
}

TEST(ReadingWatch, IsToldOfEachRow)
{
    const SqliteFile file("CREATE TABLE a (x);\nCREATE TABLE b (x);\nCREATE TABLE c (x);\n");
    RecordedWatch watch;
    OdbcConnection connection({.Watch = &watch});
    connection.Open(file.ConnectionString());
    const auto catalog = connection.OpenCatalog();
    watch.Told.clear();
    EXPECT_EQ(catalog->Tables().size(), 3U);
    EXPECT_THAT(watch.Told, ElementsAre(1, 2, 3));
}

TEST(ReadingWatch, CancelsAReadingOfSqlite)
{
    const SqliteFile file(ManyTables());
    ExpectCancelledAndReadAgain(file.ConnectionString());
}

TEST(ReadingWatch, CancelsAReadingOfSqlServer)
{
    const testing::TdsServer server(ManyTdsTables());
    ExpectCancelledAndReadAgain(server.ConnectionString());
}

TEST_F(WatchedServers, CancelAReadingOfPostgreSql)
{
    testing::PostgreSqlDatabase database;
    database.Run(ManyTables());
    ExpectCancelledAndReadAgain(database.ConnectionString());
}

TEST_F(WatchedServers, CancelAReadingOfMariaDb)
{
    testing::MariaDbDatabase database;
    database.Run(ManyTables());
    ExpectCancelledAndReadAgain(database.ConnectionString());
}

} // namespace
} // namespace veldrane
