#include "catalog_rows.h"
#include "support/server_database.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veldrane {
namespace {

using PostgreSqlKeys = testing::DatabaseServerTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::PostgreSqlDatabase;

std::vector<std::string> IndexesOf(Catalog& catalog, const std::string& table)
{
    std::vector<std::string> rows;
    for (const CatalogIndex& index : catalog.Indexes(table)) {
        std::string& row = rows.emplace_back(index.Name + ":");
        for (const std::string& column : index.Columns)
            row += " " + column;
        row += index.PrimaryKey ? " primary" : index.Unique ? " unique" : "";
    }
    return rows;
}

// Both ways of reading give the same.
template <class Check>
void AloneAndTogether(PostgreSqlDatabase& database, Check check)
{
    check(*database.OpenCatalog());
    const auto catalog = database.OpenCatalog();
    catalog->ExpectManyTables();
    check(*catalog);
}

TEST_F(PostgreSqlKeys, OfATableAreItsPrimaryKeyThenItsOtherIndexes)
{
    PostgreSqlDatabase database;
    database.Run("create table t (a int, b int, c int unique, d int, constraint \"My Key\" primary key (b, a));"
                 "create index \"Z\" on t (d, a) include (b); create index expressed on t ((a + b), c);"
                 "create unique index partial on t (d) where a > 0; create table bare (a int);"
                 "create table parted (a int, b int, primary key (b, a)) partition by list (a);"
                 "create view v as select * from t;");
    AloneAndTogether(database, [](Catalog& catalog) {
        EXPECT_THAT(IndexesOf(catalog, "t"),
                    ElementsAre("My Key: b a primary", "Z: d a", "expressed: c", "partial: d", "t_c_key: c unique"));
        EXPECT_THAT(IndexesOf(catalog, "parted"), ElementsAre("parted_pkey: b a primary"));
        EXPECT_THAT(IndexesOf(catalog, "bare"), IsEmpty());
        EXPECT_THAT(IndexesOf(catalog, "v"), IsEmpty());
    });
}

TEST_F(PostgreSqlKeys, ToOtherTablesHaveTheirColumnsInOrder)
{
    PostgreSqlDatabase database;
    database.Run("create schema far; create table far.p (x int, y int, z int unique, primary key (y, x));"
                 "create table p (id int primary key);"
                 "create table c (id int primary key, up int constraint self references c,"
                 " fx int, fy int, one int constraint \"B one\" references p,"
                 " constraint a_pair foreign key (fx, fy) references far.p (x, y),"
                 " constraint by_unique foreign key (fx) references far.p (z));");
    AloneAndTogether(database, [](Catalog& catalog) {
        EXPECT_THAT(KeyRows(catalog, "c"), ElementsAre("B one: p one=id", "a_pair: far.p fx=x fy=y",
                                                       "by_unique: far.p fx=z", "self: c up=id"));
        EXPECT_THAT(KeyRows(catalog, "p"), IsEmpty());
        EXPECT_THAT(KeyRows(catalog, "far.p"), IsEmpty());
    });
}

TEST_F(PostgreSqlKeys, OfPartitionsAreThoseOfTheWholeTable)
{
    PostgreSqlDatabase database;
    database.Run(
        "create table p (id int primary key) partition by range (id);"
        "create table p1 partition of p for values from (0) to (10) partition by range (id);"
        "create table p1a partition of p1 for values from (0) to (5);"
        "create table c (id int, pid int constraint fk references p) partition by range (id);"
        "create table c1 partition of c for values from (0) to (10);"
        "create table late (id int, pid int); alter table c attach partition late for values from (10) to (20);"
        "create table p2 partition of p for values from (10) to (20);"
        "create table plain (pid int constraint simple references p, own int constraint own references p1a);");
    AloneAndTogether(database, [](Catalog& catalog) {
        EXPECT_THAT(KeyRows(catalog, "c"), ElementsAre("fk: p pid=id"));
        EXPECT_THAT(KeyRows(catalog, "c1"), ElementsAre("fk: p pid=id"));
        EXPECT_THAT(KeyRows(catalog, "late"), ElementsAre("fk: p pid=id"));
        EXPECT_THAT(KeyRows(catalog, "plain"), ElementsAre("own: p1a own=id", "simple: p pid=id"));
        EXPECT_THAT(KeyRows(catalog, "p1"), IsEmpty());
        EXPECT_THAT(IndexesOf(catalog, "p1a"), ElementsAre("p1a_pkey: id primary"));
    });
}

} // namespace
} // namespace veldrane
