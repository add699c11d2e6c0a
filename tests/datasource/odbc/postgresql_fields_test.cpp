#include "catalog_rows.h"
#include "support/server_database.h"

#include "datasource/ado_types.h"
#include "datasource/odbc/installed_drivers.h"
#include "datasource/odbc/postgresql_types.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace veldrane {
namespace {

using PostgreSqlFields = testing::DatabaseServerTest;
using ::testing::IsEmpty;
using testing::PostgreSqlDatabase;

constexpr std::int32_t kNullable = field_attribute::kIsNullable | field_attribute::kMayBeNull;

// What a table opens with, in the driver's words.
std::vector<CatalogField> OpenedFields(const std::string& connectionString, const std::string& table)
{
    const OdbcLogon logon = BuildOdbcLogon(ConnectionString(connectionString), OdbcInstalledDrivers(), LogonRules{});
    const OdbcSession session(logon, SessionOptions{}, std::make_shared<OdbcErrors>());
    OdbcStatement statement(session);
    statement.Execute("SELECT * FROM " + table + " WHERE 1=0");
    std::vector<CatalogField> fields;
    for (const OdbcColumn& column : statement.Columns())
        fields.push_back(PostgreSqlFieldOf(column, session.Profile().Width));
    return fields;
}

struct TypeCase
{
    const char* Type;
    std::int32_t AdoType;
    std::int32_t Size;
};

// A text without a length of its own is as long as the driver's own options let it be: 255 characters (MaxVarcharSize),
// a long one 8190 (MaxLongVarcharSize).
constexpr std::array kTypes{
    TypeCase{"smallint", adSmallInt, 2},
    TypeCase{"integer", adInteger, 4},
    TypeCase{"bigint", adBigInt, 8},
    TypeCase{"real", adSingle, 4},
    TypeCase{"double precision", adDouble, 8},
    TypeCase{"numeric", adNumeric, 19},
    TypeCase{"numeric(10)", adNumeric, 19},
    TypeCase{"numeric(10,2)", adNumeric, 19},
    TypeCase{"numeric(3,-2)", adNumeric, 19},
    TypeCase{"money", adCurrency, 8},
    TypeCase{"boolean", adBoolean, 2},
    TypeCase{"char", adWChar, 1},
    TypeCase{"char(10)", adWChar, 10},
    TypeCase{"char(9000)", adWChar, 9000},
    TypeCase{"bpchar", adWChar, 255},
    TypeCase{"\"char\"", adWChar, 1},
    TypeCase{"varchar(50)", adVarWChar, 50},
    TypeCase{"varchar(400)", adVarWChar, 400},
    TypeCase{"varchar(8000)", adVarWChar, 8000},
    TypeCase{"varchar(9000)", adVarWChar, 9000},
    TypeCase{"varchar", adVarWChar, 255},
    TypeCase{"text", adLongVarWChar, 8190},
    TypeCase{"name", adVarWChar, 63},
    TypeCase{"bytea", adLongVarBinary, 0},
    TypeCase{"date", adDBDate, 6},
    TypeCase{"time", adDBTime, 6},
    TypeCase{"time(3)", adDBTime, 6},
    TypeCase{"timetz", adVarWChar, 255},
    TypeCase{"timestamp", adDBTimeStamp, 16},
    TypeCase{"timestamp(0)", adDBTimeStamp, 16},
    TypeCase{"timestamptz", adDBTimeStamp, 16},
    TypeCase{"interval", adVarWChar, 32},
    TypeCase{"uuid", adGUID, 16},
    TypeCase{"bit", adBoolean, 2},
    TypeCase{"bit(4)", adVarChar, 4},
    TypeCase{"bit(8)", adVarChar, 8},
    TypeCase{"varbit", adVarWChar, 255},
    TypeCase{"varbit(5)", adVarWChar, 5},
    TypeCase{"json", adVarWChar, 255},
    TypeCase{"jsonb", adVarWChar, 255},
    TypeCase{"xml", adLongVarWChar, 255},
    TypeCase{"inet", adVarWChar, 50},
    TypeCase{"cidr", adVarWChar, 50},
    TypeCase{"macaddr", adVarWChar, 17},
    TypeCase{"macaddr8", adVarWChar, 255},
    TypeCase{"integer[]", adVarWChar, 255},
    TypeCase{"varchar(20)[]", adVarWChar, 255},
    TypeCase{"int4range", adVarWChar, 255},
    TypeCase{"tsvector", adVarWChar, 255},
    TypeCase{"point", adVarWChar, 255},
    TypeCase{"oid", adUnsignedInt, 4},
    TypeCase{"regclass", adVarWChar, 255},
    TypeCase{"pg_lsn", adVarWChar, 255},
    TypeCase{"types.\"a mood\"", adVarWChar, 255},
    TypeCase{"types.pair", adVarWChar, 255},
    TypeCase{"types.span", adVarWChar, 255},
    TypeCase{"types.positive", adInteger, 4},
    TypeCase{"types.code", adVarWChar, 12},
    TypeCase{"types.short_code", adVarWChar, 12},
    TypeCase{"types.short_code[]", adVarWChar, 255},
};

void MakeTableOfEveryType(PostgreSqlDatabase& database)
{
    std::string columns;
    for (const TypeCase& each : kTypes)
        columns += (columns.empty() ? "" : ", ") + ("\"" + std::to_string(&each - kTypes.data()) + "\" ") + each.Type;
    database.Run("create schema types; create type types.\"a mood\" as enum ('fine', 'not so fine');"
                 "create type types.pair as (a int, b text); create type types.span as range (subtype = date);"
                 "create domain types.positive as int check (value > 0); create domain types.code as varchar(12);"
                 "create domain types.short_code as types.code; create table every (" +
                 columns + ");");
}

TEST_F(PostgreSqlFields, AreOfTheTypesAndSizesOfTheirColumns)
{
    PostgreSqlDatabase database;
    MakeTableOfEveryType(database);
    const std::vector<CatalogField> fields = database.OpenCatalog()->Fields(Statement("every"));
    ASSERT_EQ(fields.size(), kTypes.size());
    for (std::size_t at = 0; at < fields.size(); ++at) {
        EXPECT_EQ(fields[at].Name, std::to_string(at));
        EXPECT_EQ(fields[at].Type, kTypes.at(at).AdoType) << kTypes.at(at).Type;
        EXPECT_EQ(fields[at].DefinedSize, kTypes.at(at).Size) << kTypes.at(at).Type;
        EXPECT_EQ(fields[at].Attributes, kNullable) << kTypes.at(at).Type;
        EXPECT_FALSE(fields[at].IsAutoIncrement) << kTypes.at(at).Type;
    }
}

// Bits are left out: the driver takes them for text of any length. So is the option that the program adds by itself.
TEST_F(PostgreSqlFields, AreThoseThatTheTableOpensWithWhateverTheDriverWasTold)
{
    PostgreSqlDatabase database;
    MakeTableOfEveryType(database);
    for (const std::string options : {"", "BoolsAsChar=1;MaxVarcharSize=100;", "MaxLongVarcharSize=77;UnknownSizes=2;",
                                      "TextAsLongVarchar=0;UnknownsAsLongVarchar=1;ByteaAsLongVarBinary=0;"}) {
        const std::string text = database.ConnectionString() + options;
        const bool hasSize = options.find("MaxVarcharSize") != std::string::npos;
        const std::vector<CatalogField> opened = OpenedFields(text + (hasSize ? "" : "MaxVarcharSize=255;"), "every");
        OdbcConnection connection(OdbcConnectionOptions{});
        connection.Open(text);
        const std::vector<CatalogField> fields = connection.OpenCatalog()->Fields(Statement("every"));
        ASSERT_EQ(fields.size(), opened.size()) << options;
        for (std::size_t at = 0; at < fields.size(); ++at) {
            const std::string type = kTypes.at(at).Type;
            if (type.find("bit") != std::string::npos)
                continue;
            EXPECT_EQ(fields[at].Name, opened[at].Name) << options << type;
            EXPECT_EQ(fields[at].Type, opened[at].Type) << options << type;
            EXPECT_EQ(fields[at].DefinedSize, opened[at].DefinedSize) << options << type;
            EXPECT_EQ(fields[at].Attributes, opened[at].Attributes) << options << type;
            EXPECT_EQ(fields[at].IsAutoIncrement, opened[at].IsAutoIncrement) << options << type;
        }
    }
}

TEST_F(PostgreSqlFields, TakeNoNullWhereTheColumnOrADomainRefusesIt)
{
    PostgreSqlDatabase database;
    database.Run("create domain needed as int not null; create domain deeper as needed;"
                 "create domain open as int; create domain shut as open not null;"
                 "create table t (a int, b int not null, c needed, d deeper, e shut, f open, primary key (b));"
                 "create view v as select a, b from t;");
    const auto catalog = database.OpenCatalog();
    std::vector<std::int32_t> attributes;
    for (const CatalogField& field : catalog->Fields(Statement("t")))
        attributes.push_back(field.Attributes);
    EXPECT_THAT(attributes, ::testing::ElementsAre(kNullable, 0, 0, 0, 0, kNullable));
    EXPECT_EQ(catalog->Fields(Statement("v")).at(1).Attributes, kNullable);
}

TEST_F(PostgreSqlFields, CountUpByIdentityAndBySequence)
{
    PostgreSqlDatabase database;
    database.Run("create sequence free; create domain whole as int; create domain broken as numeric;"
                 "create table yes (a serial, b bigserial, c smallserial, d int generated always as identity,"
                 " e smallint generated by default as identity, f bigint default nextval('free'),"
                 " g int default nextval(('free'::text)::regclass), h whole default nextval('free'));"
                 "create table no (a int, b int default 7, c text default nextval('free'),"
                 " d numeric default nextval('free'), e int generated always as (1 + 1) stored,"
                 " f timestamp default now(), g broken default nextval('free'));"
                 "create view seen as select * from yes; alter view seen alter f set default nextval('free');");
    const auto catalog = database.OpenCatalog();
    for (const CatalogField& field : catalog->Fields(Statement("yes")))
        EXPECT_TRUE(field.IsAutoIncrement) << field.Name;
    for (const std::string table : {"no", "seen"})
        for (const CatalogField& field : catalog->Fields(Statement(table)))
            EXPECT_FALSE(field.IsAutoIncrement) << table << field.Name;
}

TEST_F(PostgreSqlFields, StayAsTheyAreWhenTablesAreReadTogether)
{
    PostgreSqlDatabase database;
    MakeTableOfEveryType(database);
    const auto catalog = database.OpenCatalog();
    const std::vector<CatalogField> alone = catalog->Fields(Statement("every"));
    const auto other = database.OpenCatalog();
    other->ExpectManyTables();
    const std::vector<CatalogField> together = other->Fields(Statement("every"));
    ASSERT_EQ(alone.size(), together.size());
    for (std::size_t at = 0; at < alone.size(); ++at) {
        EXPECT_EQ(alone[at].Type, together[at].Type);
        EXPECT_EQ(alone[at].DefinedSize, together[at].DefinedSize);
    }
}

TEST_F(PostgreSqlFields, LeaveOutDroppedColumns)
{
    PostgreSqlDatabase database;
    database.Run("create table t (a int, b int, c int, primary key (c, a)); alter table t drop b;"
                 "create table bare (); create table emptied (a int); alter table emptied drop a;");
    const auto catalog = database.OpenCatalog();
    catalog->ExpectManyTables();
    EXPECT_EQ(catalog->Fields(Statement("t")).at(1).Name, "c");
    EXPECT_THAT(catalog->Indexes("t").at(0).Columns, ::testing::ElementsAre("c", "a"));
    EXPECT_THAT(catalog->Fields(Statement("bare")), IsEmpty());
    EXPECT_THAT(catalog->Fields(Statement("emptied")), IsEmpty());
}

TEST_F(PostgreSqlFields, MayBeAsManyAndHaveAsLongNamesAsTheServerAllows)
{
    PostgreSqlDatabase database;
    std::string columns;
    for (int number = 1000; number < 2600; ++number)
        columns += (columns.empty() ? "" : ", ") + std::string(59, 'x') + std::to_string(number) + " varchar(" +
                   std::to_string(number) + ")";
    database.Run("create table wide (" + columns + ");");
    const auto catalog = database.OpenCatalog();
    const std::vector<CatalogField> fields = catalog->Fields(Statement("wide"));
    ASSERT_EQ(fields.size(), 1600U);
    for (std::size_t at = 0; at < fields.size(); ++at) {
        EXPECT_EQ(fields[at].Name, std::string(59, 'x') + std::to_string(1000 + at));
        EXPECT_EQ(fields[at].DefinedSize, static_cast<std::int32_t>(1000 + at));
    }
}

} // namespace
} // namespace veldrane
