#include "support/server_database.h"

#include "datasource/ado_types.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veldrane {
namespace {

using PostgreSqlProcedures = testing::DatabaseServerTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::PostgreSqlDatabase;

// The parameters of one procedure: place, name, direction, word and ADO number of the type.
std::vector<std::string> ParametersOf(Catalog& catalog, const std::string& procedure)
{
    std::vector<std::string> rows;
    for (const CatalogParameter& each : catalog.ProcedureParameters()) {
        const SPParameter& parameter = each.Parameter;
        if (each.ProcedureName == procedure)
            rows.push_back(std::to_string(parameter.OrdianalPosition) + " " + parameter.ParameterName + " " +
                           std::to_string(parameter.Direction) + " " + parameter.DataType + " " +
                           std::to_string(parameter.DataTypeNumber));
    }
    return rows;
}

SPParameter Parameter(Catalog& catalog, const std::string& name)
{
    for (const CatalogParameter& each : catalog.ProcedureParameters())
        if (each.Parameter.ParameterName == name)
            return each.Parameter;
    ADD_FAILURE() << "There is no parameter " << name;
    return {};
}

TEST_F(PostgreSqlProcedures, AreThoseThatACallReaches)
{
    PostgreSqlDatabase database;
    database.Run("create schema \"Far\"; create function \"B\"() returns int language sql as 'select 1';"
                 "create procedure a() language sql as 'select 1';"
                 "create function a(int) returns int language sql as 'select 1';"
                 "create function \"Far\".a() returns int language sql as 'select 1';"
                 "create function fired() returns trigger language plpgsql as 'begin return new; end';"
                 "create function told() returns event_trigger language plpgsql as 'begin end';"
                 "create function handled() returns language_handler language c as '$libdir/plpgsql',"
                 " 'plpgsql_call_handler';"
                 "create aggregate total(int) (sfunc = int4pl, stype = int);");
    EXPECT_THAT(database.OpenCatalog()->Procedures(), ElementsAre("B", "a", "Far.a"));
}

TEST_F(PostgreSqlProcedures, ThatTheLoginMayNotCallAreLeftOut)
{
    PostgreSqlDatabase database;
    const std::string& role = database.Name();
    database.Run(
        "create role " + role +
        " login password 'p'; create schema closed;"
        "create function open() returns int language sql as 'select 1';"
        "create function kept() returns int language sql as 'select 1'; revoke all on function kept from public;"
        "create function closed.f() returns int language sql as 'select 1';");
    EXPECT_THAT(database.OpenCatalog(role, "p")->Procedures(), ElementsAre("open"));
    database.Run("drop role " + role + ";");
}

TEST_F(PostgreSqlProcedures, HaveParametersOfEveryDirection)
{
    PostgreSqlDatabase database;
    database.Run(
        "create function valued(a int, text) returns smallint language sql as 'select 1::int2';"
        "create function outward(a int, out x uuid, inout y float8) language sql as 'select null::uuid, 1.0::float8';"
        "create procedure changing(a bool, inout b varchar default 'q') language sql as $$select 'a'$$;"
        "create function rows() returns table (c1 int, c2 text) language sql as $$select 1, 'a'$$;"
        "create function many(variadic v int[]) returns setof int language sql as 'select 1';"
        "create function nothing(x int) returns void language sql as '';"
        "create function bare() returns bytea language sql as 'select null::bytea';");
    const auto catalog = database.OpenCatalog();
    EXPECT_THAT(ParametersOf(*catalog, "valued"),
                ElementsAre("0 RETURN_VALUE 4 smallint 2", "1 a 1 int 3", "2 arg2 1 text 203"));
    EXPECT_THAT(ParametersOf(*catalog, "outward"),
                ElementsAre("1 a 1 int 3", "2 x 3 uniqueidentifier 72", "3 y 2 float 5"));
    EXPECT_THAT(ParametersOf(*catalog, "changing"), ElementsAre("1 a 1 bit 11", "2 b 2 varchar 202"));
    EXPECT_THAT(ParametersOf(*catalog, "rows"), IsEmpty());
    EXPECT_THAT(ParametersOf(*catalog, "many"), ElementsAre("1 v 1 _int4 202"));
    EXPECT_THAT(ParametersOf(*catalog, "nothing"), ElementsAre("1 x 1 int 3"));
    EXPECT_THAT(ParametersOf(*catalog, "bare"), ElementsAre("0 RETURN_VALUE 4 varbinary 205"));
}

TEST_F(PostgreSqlProcedures, HaveTheTypeWordsOfTheRules)
{
    PostgreSqlDatabase database;
    database.Run("create function f(a int8, b float4, c char, d timestamp, e timestamptz, f date, g numeric, h money,"
                 " i \"char\", j json) returns void language sql as '';");
    const auto catalog = database.OpenCatalog();
    EXPECT_THAT(ParametersOf(*catalog, "f"),
                ElementsAre("1 a 1 bigint 20", "2 b 1 real 4", "3 c 1 char 130", "4 d 1 datetime 135",
                            "5 e 1 datetime 135", "6 f 1 datetime 133", "7 g 1 numeric 131", "8 h 1 money 6",
                            "9 i 1 char 130", "10 j 1 text 202"));
    EXPECT_EQ(Parameter(*catalog, "d").LocalDataTypeName, "timestamp");
    EXPECT_EQ(Parameter(*catalog, "c").LocalDataTypeName, "bpchar");
}

TEST_F(PostgreSqlProcedures, TellWhatTheTypesTell)
{
    PostgreSqlDatabase database;
    database.Run("create domain code as varchar(12); create domain price as numeric(9, 2);"
                 "create domain rounded as numeric(3, -2); comment on domain code is 'x';"
                 "create function f(c code, p price, r rounded, i int, t text, v varchar(25), n numeric(4,1))"
                 " returns void language sql as '';");
    const auto catalog = database.OpenCatalog();
    const SPParameter code = Parameter(*catalog, "c");
    EXPECT_EQ(code.CharacterMaximumLength, "12");
    EXPECT_EQ(code.LocalDataTypeName, "code");
    EXPECT_EQ(code.DataType, "varchar");
    EXPECT_EQ(code.NumericPrecision, "");
    EXPECT_TRUE(code.IsNullable);
    EXPECT_EQ(code.Description, "");
    EXPECT_EQ(Parameter(*catalog, "p").NumericPrecision, "9");
    EXPECT_EQ(Parameter(*catalog, "p").NumericScale, "2");
    EXPECT_EQ(Parameter(*catalog, "r").NumericScale, "-2");
    EXPECT_EQ(Parameter(*catalog, "i").NumericPrecision, "10");
    EXPECT_EQ(Parameter(*catalog, "t").CharacterMaximumLength, "");
    // The server keeps neither of a parameter's own.
    EXPECT_EQ(Parameter(*catalog, "v").CharacterMaximumLength, "");
    EXPECT_EQ(Parameter(*catalog, "n").NumericPrecision, "");
}

TEST_F(PostgreSqlProcedures, HaveTheirDefaults)
{
    PostgreSqlDatabase database;
    database.Run("create function f(a int, out o int, b text default 'it''s', c int default 1 + 2) language sql"
                 " as 'select 1'; create procedure p(x int default null) language sql as 'select 1';");
    const auto catalog = database.OpenCatalog();
    EXPECT_FALSE(Parameter(*catalog, "a").ParameterHasDefault);
    EXPECT_FALSE(Parameter(*catalog, "o").ParameterHasDefault);
    EXPECT_EQ(Parameter(*catalog, "o").DefaultValue, "");
    EXPECT_TRUE(Parameter(*catalog, "b").ParameterHasDefault);
    EXPECT_EQ(Parameter(*catalog, "b").DefaultValue, "'it''s'::text");
    EXPECT_EQ(Parameter(*catalog, "c").DefaultValue, "(1 + 2)");
    EXPECT_TRUE(Parameter(*catalog, "x").ParameterHasDefault);
}

TEST_F(PostgreSqlProcedures, ThatShareANameShowTheEldest)
{
    PostgreSqlDatabase database;
    database.Run("create function f(first int, again int) returns void language sql as '';"
                 "create function f(second text) returns void language sql as '';");
    const auto catalog = database.OpenCatalog();
    EXPECT_THAT(catalog->Procedures(), ElementsAre("f"));
    EXPECT_THAT(ParametersOf(*catalog, "f"), ElementsAre("1 first 1 int 3", "2 again 1 int 3"));
}

TEST_F(PostgreSqlProcedures, MayHaveAnyName)
{
    PostgreSqlDatabase database;
    database.Run("create schema \"s x\"; create function \"s x\".\"Größe \"\"%;'\\\"(\"a b\" int, \"Ünï\" text)"
                 " returns void language sql as '';");
    const auto catalog = database.OpenCatalog();
    EXPECT_THAT(catalog->Procedures(), ElementsAre("s x.Größe \"%;'\\"));
    EXPECT_THAT(ParametersOf(*catalog, "s x.Größe \"%;'\\"), ElementsAre("1 a b 1 int 3", "2 Ünï 1 text 203"));
}

} // namespace
} // namespace veldrane
