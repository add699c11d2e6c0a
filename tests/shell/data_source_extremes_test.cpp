// Tables at the edge of what a server holds.

#include "program.h"
#include "support/server_database.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::AllOf;
using testing::Ended;
using ::testing::HasSubstr;
using testing::MariaDbDatabase;
using ::testing::Not;
using testing::PostgreSqlDatabase;
using ::testing::StartsWith;

struct OnPostgreSql
{
    using Database = PostgreSqlDatabase;
    static constexpr char kQuote = '"';
    static constexpr int kMostColumns = 1600;
    static constexpr int kLongestName = 63;
};

struct OnMariaDb
{
    using Database = MariaDbDatabase;
    static constexpr char kQuote = '`';
    static constexpr int kMostColumns = 1017;
    static constexpr int kLongestName = 64;
};

template <class Server>
class DataSourceExtremes : public testing::DatabaseServerTest
{
  protected:
    [[nodiscard]] Ended Define(const testing::ServerDatabase& database, std::vector<std::string> more = {"--all"}) const
    {
        more.insert(more.begin(), {"define", Folder.Path("Desk.kzm"), "--connection", database.ConnectionString()});
        return Folder.Run(more);
    }

    [[nodiscard]] std::string File() const { return Folder.ReadFile("Desk.kzm"); }

    // How many lines of the file have the key.
    [[nodiscard]] std::size_t Count(const std::string& key) const
    {
        const std::string file = File();
        std::size_t count = 0;
        for (std::size_t at = file.find(key); at != std::string::npos; at = file.find(key, at + key.size()))
            ++count;
        return count;
    }

    static std::string Quoted(std::string name)
    {
        for (std::size_t at = name.find(Server::kQuote); at != std::string::npos;
             at = name.find(Server::kQuote, at + 2))
            name.insert(at, 1, Server::kQuote);
        return Server::kQuote + name + Server::kQuote;
    }

    testing::Program Folder;
};

using Servers = ::testing::Types<OnPostgreSql, OnMariaDb>;
TYPED_TEST_SUITE(DataSourceExtremes, Servers);

TYPED_TEST(DataSourceExtremes, AnEmptyDatabaseGivesAProjectWithoutClasses)
{
    const typename TypeParam::Database database;
    const Ended listed = this->Folder.Run({"tables", "--connection", database.ConnectionString()});
    EXPECT_EQ(listed.ExitCode, 0);
    EXPECT_EQ(listed.Output + listed.ErrorOutput, "");
    const Ended defined = this->Define(database);
    EXPECT_EQ(defined.ExitCode, 0);
    EXPECT_EQ(defined.ErrorOutput, "");
    EXPECT_EQ(this->Count("\r\nTableName\2"), 1U); // of xmlAssist, which has none
}

TYPED_TEST(DataSourceExtremes, AsManyColumnsAsThereMayBeAreAllRead)
{
    const typename TypeParam::Database database;
    std::string sql = "create table wide (column1 int primary key";
    for (int column = 2; column <= TypeParam::kMostColumns; ++column)
        sql += ", column" + std::to_string(column) + " int";
    database.Run(sql + ");");
    const Ended defined = this->Define(database);
    EXPECT_EQ(defined.ExitCode, 0) << defined.ErrorOutput;
    EXPECT_EQ(this->Count("\r\nFieldName\2column"), static_cast<std::size_t>(TypeParam::kMostColumns));
}

TYPED_TEST(DataSourceExtremes, ANameAsLongAsTheServerTakesIsReadAndRefusedForAClassWithTheReason)
{
    const typename TypeParam::Database database;
    const std::string name(TypeParam::kLongestName, 'n');
    database.Run("create table " + name + " (id int primary key); create table ok (" + name + " int primary key);");
    const Ended defined = this->Define(database);
    EXPECT_EQ(defined.ExitCode, 1);
    EXPECT_THAT(defined.ErrorOutput, HasSubstr("veldrane: '" + name + "' is left out.\n"));
    EXPECT_THAT(this->File(), HasSubstr("\r\nFieldName\2" + name + "\r\n"));
}

TYPED_TEST(DataSourceExtremes, NamesWithQuotesBracketsAndSemicolonsAreReadAsTheyStand)
{
    const typename TypeParam::Database database;
    const std::vector<std::string> names{"it's", "say \"x\"", "back`tick", "[x]",   "a]b",  "semi;colon",
                                         "a=b",  "per%cent",  "a.b",       "a\\b",  "-- x", "{x}",
                                         "ä ö",  "?",         "Order",     "select"};
    std::string sql;
    for (const std::string& name : names)
        sql += "create table " + this->Quoted(name) + " (" + this->Quoted(name) + " int primary key);\n";
    database.Run(sql);
    for (const std::string& name : names) {
        std::filesystem::remove(this->Folder.Path("Desk.kzm"));
        const Ended defined = this->Define(database, {"--table", name});
        EXPECT_THAT(this->File(), AllOf(HasSubstr("\r\nTableName\2"), HasSubstr("\r\nFieldName\2")))
            << name << "\n"
            << defined.ErrorOutput;
        EXPECT_THAT(defined.ErrorOutput, Not(HasSubstr("left out"))) << name;
    }
}

TYPED_TEST(DataSourceExtremes, ATableThatIsNotThereIsNamed)
{
    const typename TypeParam::Database database;
    const Ended defined = this->Define(database, {"--table", "nothing; drop table x"});
    EXPECT_EQ(defined.ExitCode, 1);
    EXPECT_EQ(defined.ErrorOutput, "veldrane: the data source has no table or view named 'nothing; drop table x'.\n");
}

class PostgreSqlExtremes : public DataSourceExtremes<OnPostgreSql>
{};

TEST_F(PostgreSqlExtremes, ATableWithoutColumnsGivesAClassWithoutProperties)
{
    const PostgreSqlDatabase database;
    database.Run("create table bare ()");
    const Ended defined = Define(database);
    EXPECT_EQ(defined.ExitCode, 0);
    EXPECT_THAT(defined.ErrorOutput, StartsWith("No Row Identifier Found: "));
    EXPECT_THAT(File(), HasSubstr("Begin Class bare\r\n"));
}

TEST_F(PostgreSqlExtremes, AColumnOfATypeThatNobodyKnowsIsText)
{
    const PostgreSqlDatabase database;
    database.Run("create type point3 as (x int, y int, z int); create table t (id int primary key, place point3,"
                 " shape polygon, ranges int4range[]);");
    const Ended defined = Define(database);
    EXPECT_EQ(defined.ExitCode, 0) << defined.ErrorOutput;
    for (const std::string name : {"place", "shape", "ranges"})
        EXPECT_THAT(File(), HasSubstr("\r\nFieldName\2" + name + "\r\n"));
    EXPECT_EQ(Count("\r\nFieldDataType\2VarWChar\r\n"), 3U);
}

} // namespace
} // namespace veldrane
