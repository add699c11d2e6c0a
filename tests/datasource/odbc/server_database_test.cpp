#include "support/server_database.h"

#include "datasource/data_source_error.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace veldrane {
namespace {

using testing::MariaDbDatabase;
using testing::PostgreSqlDatabase;

template <typename Database>
class ServerDatabases : public testing::DatabaseServerTest
{};

using ServerLogons = testing::DatabaseServerTest;

using Servers = ::testing::Types<PostgreSqlDatabase, MariaDbDatabase>;
TYPED_TEST_SUITE(ServerDatabases, Servers);

bool Holds(Catalog& catalog, const std::string& table)
{
    for (const CatalogTable& each : catalog.Tables())
        if (each.Name == table)
            return true;
    return false;
}

TYPED_TEST(ServerDatabases, ShowWhatATestMadeInThem)
{
    TypeParam database;
    database.Run("create table book (id int primary key, title varchar(50));");
    const auto catalog = database.OpenCatalog();
    EXPECT_TRUE(Holds(*catalog, "book"));
    EXPECT_EQ(catalog->Fields("SELECT * FROM book WHERE 1=0").size(), 2U);
}

TYPED_TEST(ServerDatabases, AreNoneOfAnothersBusiness)
{
    TypeParam database;
    database.Run("create table book (id int primary key);");
    TypeParam other;
    EXPECT_FALSE(Holds(*other.OpenCatalog(), "book"));
}

TYPED_TEST(ServerDatabases, SayWhatIsWrongWithTheSql)
{
    const TypeParam database;
    try {
        database.Run("create table (;");
        ADD_FAILURE() << "Nothing was thrown.";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("syntax"), std::string::npos) << error.what();
    }
}

TYPED_TEST(ServerDatabases, GoWithAConnectionStillOpen)
{
    OdbcConnection connection{OdbcConnectionOptions{}};
    {
        const TypeParam database;
        connection.Open(database.ConnectionString());
    }
    EXPECT_THROW(static_cast<void>(connection.OpenCatalog()->Tables()), DataSourceError);
}

TEST_F(ServerLogons, PostgreSqlAsksOtherRolesForTheirPasswords)
{
    PostgreSqlDatabase database;
    database.Run("create role " + database.Name() + " login password 'right'");
    EXPECT_NO_THROW(static_cast<void>(database.OpenCatalog(database.Name(), "right")));
    EXPECT_THROW(static_cast<void>(database.OpenCatalog(database.Name(), "wrong")), DataSourceError);
}

TEST_F(ServerLogons, MariaDbAsksOtherAccountsForTheirPasswords)
{
    MariaDbDatabase database;
    database.Run("create user " + database.Name() + "@localhost identified by 'right';\n" + "grant all on " +
                 database.Name() + ".* to " + database.Name() + "@localhost;");
    EXPECT_NO_THROW(static_cast<void>(database.OpenCatalog(database.Name(), "right")));
    EXPECT_THROW(static_cast<void>(database.OpenCatalog(database.Name(), "wrong")), DataSourceError);
}

} // namespace
} // namespace veldrane
