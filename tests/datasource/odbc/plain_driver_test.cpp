// The same servers through a driver that the program knows nothing of: everything comes from the driver's own calls.

#include "datasource/odbc/driver_catalog_source.h"
#include "datasource/odbc/odbc_catalog.h"
#include "server_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using testing::MariaDbDatabase;
using testing::PostgreSqlDatabase;
using ::testing::UnorderedElementsAre;

using PlainDriver = testing::DatabaseServerTest;

std::unique_ptr<Catalog> PlainCatalogOf(const testing::ServerDatabase& database)
{
    const auto session = testing::OpenSession(database, "libplain.so");
    return std::make_unique<OdbcCatalog>(session, std::make_unique<DriverCatalogSource>(*session));
}

// As "procedure.parameter type number direction".
std::vector<std::string> Rows(const std::vector<CatalogParameter>& parameters)
{
    std::vector<std::string> rows;
    for (const auto& [procedure, parameter] : parameters)
        rows.push_back(procedure + "." + parameter.ParameterName + " " + parameter.DataType + " " +
                       std::to_string(parameter.DataTypeNumber) + " " + std::to_string(parameter.Direction));
    return rows;
}

const SPParameter& Parameter(const std::vector<CatalogParameter>& parameters, const std::string& name)
{
    for (const CatalogParameter& each : parameters)
        if (each.Parameter.ParameterName == name)
            return each.Parameter;
    throw std::out_of_range(name);
}

TEST_F(PlainDriver, ListsTheSearchPathBareAndOtherSchemasByName)
{
    const PostgreSqlDatabase database;
    database.Run("create table book (id int primary key);"
                 "create schema other; create table other.book (id int primary key);"
                 "create table other.page (id int primary key, book int references public.book);"
                 "create schema \"a_b\"; create schema \"axb\"; create table \"axb\".leaf (wrong int);"
                 "create table \"a_b\".leaf (id int primary key, page int references other.page);");
    const auto catalog = PlainCatalogOf(database);
    std::vector<std::string> names;
    for (const CatalogTable& table : catalog->Tables())
        if (table.Type == "TABLE")
            names.push_back(table.Name);
    EXPECT_THAT(names, UnorderedElementsAre("book", "other.book", "other.page", "a_b.leaf", "axb.leaf"));
    EXPECT_EQ(catalog->Fields("SELECT * FROM book WHERE 1=0").size(), 1U);
    EXPECT_EQ(catalog->Fields("SELECT * FROM other.page WHERE 1=0").size(), 2U);
    EXPECT_THAT(catalog->Indexes("book").front().Columns, ElementsAre("id"));
    ASSERT_EQ(catalog->Keys("other.page").size(), 1U);
    EXPECT_EQ(catalog->Keys("other.page").front().RelatedTable, "book");
    ASSERT_EQ(catalog->Keys("a_b.leaf").size(), 1U);
    EXPECT_EQ(catalog->Keys("a_b.leaf").front().RelatedTable, "other.page");
}

TEST_F(PlainDriver, AsksForOneTableOfASchemaWhereNoNameIsThereTwice)
{
    const PostgreSqlDatabase database;
    database.Run("create table a_b (id int primary key); create table \"100%\" (id int primary key);"
                 "create schema other; create table other.axb (id int primary key, a int references a_b);"
                 "create table other.page (id int primary key);");
    const auto catalog = PlainCatalogOf(database);
    std::vector<std::string> names;
    for (const CatalogTable& table : catalog->Tables())
        names.push_back(table.Name);
    EXPECT_THAT(names, ElementsAre("100%", "a_b", "other.axb", "other.page"));
    EXPECT_EQ(catalog->Keys("other.axb").at(0).RelatedTable, "a_b");
}

TEST_F(PlainDriver, ReadsProceduresAndOfOverloadedOnesTheFirst)
{
    const PostgreSqlDatabase database;
    database.Run("create schema other; create table other.page (id int primary key);"
                 "create function f(a int, out b text, inout c numeric(10,2)) language sql as $$select 'x', 1.0$$;"
                 "create function g(int, varchar default 'q') returns int language sql as 'select 1';"
                 "create function g(x date) returns int language sql as 'select 1';"
                 "create function other.h(a int) returns table (p int, q text) language sql as $$select 1, 'a'$$;"
                 "create procedure p(inout n int) language plpgsql as 'begin n := 1; end';"
                 "create function nothing() returns void language sql as '';");
    const auto catalog = PlainCatalogOf(database);
    EXPECT_THAT(catalog->Procedures(), UnorderedElementsAre("f", "g", "g", "nothing", "other.h", "p"));
    const std::vector<CatalogParameter> parameters = catalog->ProcedureParameters();
    EXPECT_THAT(Rows(parameters),
                UnorderedElementsAre("f.a int4 3 1", "f.b text 203 3", "f.c numeric 131 2", "g.RETURN_VALUE int4 3 4",
                                     "g.arg1 int4 3 1", "g.arg2 varchar 202 1", "other.h.a int4 3 1", "p.n int4 3 2"));
    EXPECT_TRUE(Parameter(parameters, "n").IsNullable); // the driver does not know
}

TEST_F(PlainDriver, ReadsLengthsPrecisionAndPlacesOfParameters)
{
    const MariaDbDatabase database;
    database.Run("create procedure p(in a int, out b varchar(25), inout c decimal(10,2)) set b='x';"
                 "create function f(a date) returns int return 1; create procedure `no thing`() select 1;");
    const auto catalog = PlainCatalogOf(database);
    EXPECT_THAT(catalog->Procedures(), UnorderedElementsAre("f", "no thing", "p"));
    const std::vector<CatalogParameter> parameters = catalog->ProcedureParameters();
    EXPECT_THAT(Rows(parameters), UnorderedElementsAre("f.RETURN_VALUE int 3 4", "f.a date 133 1", "p.a int 3 1",
                                                       "p.b varchar 202 3", "p.c decimal 131 2"));
    const SPParameter& text = Parameter(parameters, "b");
    EXPECT_EQ(text.CharacterMaximumLength, "25");
    EXPECT_EQ(text.NumericPrecision, "");
    const SPParameter& number = Parameter(parameters, "c");
    EXPECT_EQ(number.CharacterMaximumLength, "");
    EXPECT_EQ(number.NumericPrecision, "10");
    EXPECT_EQ(number.NumericScale, "2");
    EXPECT_EQ(number.OrdianalPosition, 3);
    EXPECT_FALSE(number.ParameterHasDefault);
}

} // namespace
} // namespace veldrane
