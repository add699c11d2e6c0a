#include "catalog_rows.h"
#include "support/server_database.h"

#include "datasource/data_source_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace veldrane {
namespace {

using PostgreSqlTables = testing::DatabaseServerTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::PostgreSqlDatabase;

// The user's tables, each with its type word.
std::vector<std::string> UserTables(Catalog& catalog)
{
    std::vector<std::string> rows;
    for (const CatalogTable& table : catalog.Tables())
        if (table.Type != "SYSTEM TABLE")
            rows.push_back(table.Name + "|" + table.Type);
    return rows;
}

std::string OnlyField(Catalog& catalog, const std::string& table)
{
    const std::vector<CatalogField> fields = catalog.Fields(Statement(table));
    return fields.size() == 1 ? fields.front().Name : "";
}

long FailureOf(Catalog& catalog, const std::string& table)
{
    return NumberOfFailure([&] { (void)catalog.Fields(Statement(table)); });
}

TEST_F(PostgreSqlTables, AreListedWithTheirKinds)
{
    PostgreSqlDatabase database;
    database.Run("create table plain (a int); create table parted (a int) partition by range (a);"
                 "create table part1 partition of parted for values from (0) to (10);"
                 "create view seen as select 1 as a; create materialized view kept as select 1 as a;"
                 "create extension postgres_fdw; create server other foreign data wrapper postgres_fdw;"
                 "create foreign table away (a int) server other; create temporary table passing (a int);"
                 "create sequence counted; create index on plain (a); create type pair as (a int);");
    const auto catalog = database.OpenCatalog();
    EXPECT_THAT(UserTables(*catalog), ElementsAre("away|FOREIGN TABLE", "kept|MATVIEW", "part1|TABLE", "parted|TABLE",
                                                  "plain|TABLE", "seen|VIEW"));
    for (const std::string table : {"away", "kept", "part1", "parted", "plain", "seen"})
        EXPECT_EQ(OnlyField(*catalog, table), "a") << table;
}

TEST_F(PostgreSqlTables, OfTheSystemComeLastUnderAWordOfTheirOwn)
{
    PostgreSqlDatabase database;
    database.Run("create table plain (a int);");
    const auto catalog = database.OpenCatalog();
    const std::vector<CatalogTable>& tables = catalog->Tables();
    ASSERT_GT(tables.size(), 150U);
    EXPECT_EQ(tables.front().Name, "plain");
    const auto isThere = [&](const std::string& name) {
        return std::any_of(tables.begin(), tables.end(), [&](const CatalogTable& table) {
            return table.Name == name && table.Type == "SYSTEM TABLE";
        });
    };
    EXPECT_TRUE(isThere("pg_class"));
    EXPECT_TRUE(isThere("information_schema.columns"));
    EXPECT_TRUE(std::none_of(tables.begin(), tables.end(), [](const CatalogTable& table) {
        return table.Name.find("pg_toast") != std::string::npos;
    }));
    catalog->ExpectManyTables();
    EXPECT_FALSE(catalog->Fields(Statement("pg_stats")).empty());
    EXPECT_EQ(catalog->Indexes("pg_class").front().Name, "pg_class_oid_index");
}

TEST_F(PostgreSqlTables, OfOtherSchemasAreListedWithThem)
{
    PostgreSqlDatabase database;
    database.Run(
        "create schema b; create schema \"A\"; create table z (in_public int); create table \"Y\" (a int);"
        "create table b.z (in_b int); create table \"A\".zz (in_a int); create table b.\"with.point\" (p int);");
    const auto catalog = database.OpenCatalog();
    EXPECT_THAT(UserTables(*catalog),
                ElementsAre("Y|TABLE", "z|TABLE", "A.zz|TABLE", "b.with.point|TABLE", "b.z|TABLE"));
    EXPECT_EQ(catalog->Tables()[0].SchemaSize, 0U);
    EXPECT_EQ(catalog->Tables()[2].SchemaSize, 2U);
    EXPECT_EQ(OnlyField(*catalog, "z"), "in_public");
    EXPECT_EQ(OnlyField(*catalog, "b.z"), "in_b");
    EXPECT_EQ(OnlyField(*catalog, "B.Z"), "in_b");
    EXPECT_EQ(OnlyField(*catalog, "b.with.point"), "p");
}

TEST_F(PostgreSqlTables, AreFoundBySchemaAndWithoutRegardToCase)
{
    PostgreSqlDatabase database;
    database.Run("create schema other; create table orders (lower_case int); create table \"Orders\" (capital int);"
                 "create table \"public.orders\" (with_point int);");
    const auto catalog = database.OpenCatalog();
    EXPECT_EQ(OnlyField(*catalog, "orders"), "lower_case");
    EXPECT_EQ(OnlyField(*catalog, "Orders"), "capital");
    EXPECT_EQ(OnlyField(*catalog, "public.Orders"), "capital");
    EXPECT_EQ(OnlyField(*catalog, "public.orders"), "with_point");
    EXPECT_EQ(FailureOf(*catalog, "orders2"), data_source_error::kTableUnknown);
    EXPECT_EQ(FailureOf(*catalog, "no such.table"), data_source_error::kTableUnknown);
}

TEST_F(PostgreSqlTables, AreListedWithTheirSchemasWhereNoPathLeadsToThem)
{
    PostgreSqlDatabase database;
    database.Run("create table t (a int); alter database " + database.Name() + " set search_path = '';");
    const auto catalog = database.OpenCatalog();
    EXPECT_THAT(UserTables(*catalog), ElementsAre("public.t|TABLE"));
    EXPECT_EQ(OnlyField(*catalog, "public.t"), "a");
    EXPECT_EQ(OnlyField(*catalog, "PUBLIC.T"), "a");
}

TEST_F(PostgreSqlTables, OfTheUsersOwnSchemaHideThoseOfTheNext)
{
    PostgreSqlDatabase database;
    database.Run("create schema veldrane; create table public.t (in_public int); create table veldrane.t (own int);");
    const auto catalog = database.OpenCatalog();
    EXPECT_THAT(UserTables(*catalog), ElementsAre("t|TABLE", "public.t|TABLE"));
    EXPECT_EQ(OnlyField(*catalog, "t"), "own");
    EXPECT_EQ(OnlyField(*catalog, "public.t"), "in_public");
}

TEST_F(PostgreSqlTables, AreNotFoundBareBehindAnythingElseOfTheirName)
{
    PostgreSqlDatabase database;
    database.Run("create schema veldrane; create table public.t (a int); create table public.u (a int);"
                 "create table public.pg_class (a int); create sequence veldrane.t; create type veldrane.u as (a int);"
                 "create table veldrane.v (a int); create index t2 on veldrane.v (a); create table public.t2 (a int);");
    const auto catalog = database.OpenCatalog();
    EXPECT_THAT(UserTables(*catalog),
                ElementsAre("v|TABLE", "public.pg_class|TABLE", "public.t|TABLE", "public.t2|TABLE", "public.u|TABLE"));
    for (const std::string table : {"public.pg_class", "public.t", "public.t2", "public.u"})
        EXPECT_EQ(OnlyField(*catalog, table), "a") << table;
}

TEST_F(PostgreSqlTables, OfTheLoginAreReadableUnlessItsOwnRightsWereTaken)
{
    PostgreSqlDatabase database;
    const std::string& role = database.Name();
    database.Run("create role " + role +
                 " login password 'p'; create table untouched (a int); create table granted (a int);"
                 "create table taken (a int); create schema closed; create table closed.mine (a int);"
                 "alter table untouched owner to " +
                 role + "; alter table granted owner to " + role + "; alter table taken owner to " + role +
                 "; alter table closed.mine owner to " + role +
                 "; grant select on granted to public; revoke select on taken from " + role + ";");
    const auto catalog = database.OpenCatalog(role, "p");
    EXPECT_THAT(UserTables(*catalog), ElementsAre("granted|TABLE", "untouched|TABLE"));
    EXPECT_THAT(catalog->HiddenTables(), ElementsAre("taken", "closed.mine"));
    database.Run("drop owned by " + role + "; drop role " + role + ";");
}

TEST_F(PostgreSqlTables, MayHaveAnyName)
{
    const std::vector<std::string> names =
        AwkwardNames({"a\\b", "a%b", "Order 12", "a b ", "?", "{d}", "$1", "--", "/*", "A", "\\", "a''", "12", "x\ty",
                      "\U0001F30D", std::string(63, 'n')});
    PostgreSqlDatabase database;
    std::string sql;
    for (const std::string& name : names) {
        std::string quoted = "\"";
        for (const char c : name)
            quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
        quoted += "\"";
        sql += "create table " + quoted + " (" + quoted + " serial primary key, up int references " + quoted + ");\n";
    }
    database.Run(sql);
    for (const std::string setting : {"on", "off"}) {
        database.Run("alter database " + database.Name() + " set standard_conforming_strings = " + setting);
        const auto catalog = database.OpenCatalog();
        EXPECT_EQ(UserTables(*catalog).size(), names.size());
        for (const std::string& name : names) {
            const std::vector<CatalogField> fields = catalog->Fields(Statement(name));
            ASSERT_EQ(fields.size(), 2U) << name;
            EXPECT_EQ(fields.front().Name, name);
            EXPECT_TRUE(fields.front().IsAutoIncrement) << name;
            EXPECT_THAT(catalog->Indexes(name).at(0).Columns, ElementsAre(name));
            EXPECT_EQ(catalog->Keys(name).at(0).RelatedTable, name);
            EXPECT_EQ(catalog->Keys(name).at(0).Columns.at(0).RelatedColumn, name);
        }
    }
}

TEST_F(PostgreSqlTables, ThatALoginMayNotReadAreHiddenAndNamed)
{
    PostgreSqlDatabase database;
    const std::string& role = database.Name();
    database.Run("create role " + role +
                 " login password 'p'; create schema closed;"
                 "create table open (a int primary key); create table \"Secret\" (a int primary key);"
                 "create table partly (a int, secret text, b int, c int references \"Secret\");"
                 "create table singly (a int, gone int, c int references \"Secret\");"
                 "alter table singly drop column gone;"
                 "create table closed.t (a int); create view peep as select a from \"Secret\";"
                 "grant select on open, peep, closed.t to " +
                 role + "; grant select (a, c) on partly, singly to " + role + ";");
    const auto catalog = database.OpenCatalog(role, "p");
    EXPECT_THAT(UserTables(*catalog), ElementsAre("open|TABLE", "peep|VIEW", "singly|TABLE"));
    EXPECT_THAT(catalog->HiddenTables(), ElementsAre("Secret", "partly", "closed.t"));
    catalog->ExpectManyTables();
    EXPECT_EQ(OnlyField(*catalog, "peep"), "a");
    const std::vector<CatalogField> fields = catalog->Fields(Statement("singly"));
    ASSERT_EQ(fields.size(), 2U);
    EXPECT_EQ(fields[1].Name, "c");
    EXPECT_EQ(catalog->Keys("singly").at(0).RelatedTable, "Secret");
    EXPECT_EQ(catalog->Keys("singly").at(0).Columns.at(0).RelatedColumn, "a");
    for (const std::string table : {"Secret", "SECRET", "partly", "closed.t"})
        EXPECT_EQ(FailureOf(*catalog, table), data_source_error::kPermissionDenied) << table;
    try {
        (void)catalog->Fields(Statement("Secret"));
    } catch (const DataSourceError& error) {
        EXPECT_EQ(error.Description(), "The login may not read the table \"Secret\".");
    }
    database.Run("drop owned by " + role + "; drop role " + role + ";");
}

TEST_F(PostgreSqlTables, DroppedAfterTheListingAreUnknown)
{
    PostgreSqlDatabase database;
    database.Run("create table gone (a int); create table back (a int);");
    for (const bool together : {false, true}) {
        const auto catalog = database.OpenCatalog();
        EXPECT_EQ(UserTables(*catalog).size(), 2U);
        database.Run("drop table gone; drop table back; create table back (b int);");
        if (together)
            catalog->ExpectManyTables();
        EXPECT_EQ(FailureOf(*catalog, "gone"), data_source_error::kTableUnknown);
        EXPECT_EQ(OnlyField(*catalog, "back"), "b");
        EXPECT_THAT(catalog->Indexes("gone"), IsEmpty());
        EXPECT_THAT(catalog->Keys("gone"), IsEmpty());
        database.Run("create table gone (a int);");
    }
}

TEST_F(PostgreSqlTables, AreBeyondReachWhenTheConnectionIsCut)
{
    PostgreSqlDatabase database;
    database.Run("create table t (a int);");
    const auto catalog = database.OpenCatalog();
    EXPECT_EQ(UserTables(*catalog).size(), 1U);
    database.CutConnections();
    EXPECT_EQ(FailureOf(*catalog, "t"), data_source_error::kNoOpenConnection);
}

} // namespace
} // namespace veldrane
