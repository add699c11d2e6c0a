#include "catalog_rows.h"
#include "sqlite_file.h"

#include "datasource/ado_types.h"
#include "datasource/odbc/odbc_connection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veldrane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SqliteFields, EveryDeclaredTypeHasItsAdoType)
{
    struct Case
    {
        const char* Declared;
        std::int32_t Type;
        std::int32_t Size;
    };
    const std::vector<Case> cases{
        {"INT", adInteger, 4},
        {"INTEGER", adInteger, 4},
        {"INT2", adInteger, 4},
        {"INT8", adInteger, 4},
        {"MEDIUMINT", adInteger, 4},
        {"TINYINT", adTinyInt, 1},
        {"SMALLINT", adSmallInt, 2},
        {"BIGINT", adBigInt, 8},
        {"UNSIGNED BIG INT", adInteger, 4},
        {"REAL", adDouble, 8},
        {"FLOAT", adDouble, 8},
        {"DOUBLE", adDouble, 8},
        {"DOUBLE PRECISION", adDouble, 8},
        {"NUMERIC", adNumeric, 19},
        {"NUMERIC(10,2)", adNumeric, 19},
        {"DECIMAL(10, 2)", adNumeric, 19},
        {"MONEY", adCurrency, 8},
        {"SMALLMONEY", adCurrency, 8},
        {"CURRENCY", adCurrency, 8},
        {"CHAR(10)", adVarChar, 10},
        {"VARCHAR(50)", adVarChar, 50},
        {"VARCHAR", adVarChar, 255},
        {"NVARCHAR(40)", adVarChar, 40},
        {"TEXT", adLongVarChar, 65536},
        {"MEMO", adLongVarChar, 65536},
        {"NTEXT", adLongVarWChar, 65536},
        {"CLOB", adLongVarChar, 65536},
        {"CLOB(1000)", adLongVarChar, 1000},
        {"LONGTEXT", adLongVarChar, 65536},
        {"BLOB", adLongVarBinary, 255},
        {"BLOB SUB_TYPE TEXT", adLongVarBinary, 255},
        {"IMAGE", adLongVarBinary, 255},
        {"BINARY(16)", adBinary, 16},
        {"VARBINARY(16)", adVarBinary, 16},
        {"GUID", adGUID, 16},
        {"UUID", adGUID, 16},
        {"UNIQUEIDENTIFIER", adGUID, 16},
        {"DATE", adDBDate, 6},
        {"TIME", adDBTime, 6},
        {"DATETIME", adDBTimeStamp, 16},
        {"TIMESTAMP", adDBTimeStamp, 16},
        {"SMALLDATETIME", adDBTimeStamp, 16},
        {"BOOLEAN", adBoolean, 2},
        {"BOOL", adBoolean, 2},
        {"BIT", adBoolean, 2},
        {"LOGICAL", adBoolean, 2},
        {"COUNTER", adInteger, 4},
        {"ANY", adVariant, 255},
        {"", adVarChar, 255},
    };
    std::string columns;
    for (const Case& each : cases)
        columns += (columns.empty() ? "c" : ", c") + std::to_string(&each - cases.data()) + " " + each.Declared;
    SqliteFile file("CREATE TABLE t (" + columns + ");\n");
    const auto catalog = file.OpenCatalog();
    const std::vector<CatalogField> fields = catalog->Fields(Statement("t"));
    ASSERT_EQ(fields.size(), cases.size());
    for (std::size_t at = 0; at < cases.size(); ++at) {
        EXPECT_EQ(fields[at].Type, cases[at].Type) << cases[at].Declared;
        EXPECT_EQ(fields[at].DefinedSize, cases[at].Size) << cases[at].Declared;
        EXPECT_FALSE(fields[at].IsAutoIncrement) << cases[at].Declared;
    }
}

TEST(SqliteFields, WholeNumbersAreWideIfTheDriverIsToldSo)
{
    SqliteFile file("CREATE TABLE t (a INTEGER, b INT, c SMALLINT, d BIGINT);\n");
    OdbcConnection connection(OdbcConnectionOptions{});
    connection.Open("Driver=SQLite3;BigInt=1;Database=" + file.Path() + ";");
    std::vector<std::int32_t> types;
    for (const CatalogField& field : connection.OpenCatalog()->Fields(Statement("t")))
        types.push_back(field.Type);
    EXPECT_THAT(types, ElementsAre(adBigInt, adBigInt, adSmallInt, adBigInt));
}

TEST(SqliteFields, TellWhetherAFieldMayBeNull)
{
    SqliteFile file("CREATE TABLE t (a TEXT, b TEXT NOT NULL);\n");
    const std::vector<CatalogField> fields = file.OpenCatalog()->Fields(Statement("t"));
    EXPECT_EQ(fields.at(0).Attributes, field_attribute::kIsNullable | field_attribute::kMayBeNull);
    EXPECT_EQ(fields.at(1).Attributes, 0);
}

TEST(SqliteFields, KeepTheDotsInTheirNames)
{
    SqliteFile file("CREATE TABLE t (\"a.b\" TEXT, c INT AS (1), \"d.\" TEXT);\n"
                    "CREATE VIEW v AS SELECT \"a.b\" AS \"x.y\" FROM t;\n");
    const auto catalog = file.OpenCatalog();
    EXPECT_THAT(FieldNames(*catalog, Statement("t")), ElementsAre("a.b", "c", "d."));
    EXPECT_THAT(FieldNames(*catalog, Statement("v")), ElementsAre("x.y"));
}

TEST(SqliteFields, ASizeBeyondALongIsTheGreatestLong)
{
    SqliteFile file("CREATE TABLE t (a VARCHAR(3000000000), b VARCHAR(99999999999999999999));\n");
    for (const CatalogField& field : file.OpenCatalog()->Fields(Statement("t")))
        EXPECT_EQ(field.DefinedSize, 2147483647) << field.Name;
}

TEST(SqliteFields, TheColumnThatSqliteFillsIsAutoIncrement)
{
    SqliteFile file("CREATE TABLE auto (id INTEGER PRIMARY KEY AUTOINCREMENT, a TEXT);\n"
                    "CREATE TABLE alias (a TEXT, id integer primary key);\n"
                    "CREATE TABLE at_the_end (a TEXT, id INTEGER, PRIMARY KEY (id));\n"
                    "CREATE TABLE descending (id INTEGER PRIMARY KEY DESC, a TEXT);\n"
                    "CREATE TABLE int_key (id INT PRIMARY KEY, a TEXT);\n"
                    "CREATE TABLE composite (id INTEGER, a TEXT, PRIMARY KEY (id, a));\n"
                    "CREATE TABLE without (id INTEGER PRIMARY KEY, a TEXT) WITHOUT ROWID;\n"
                    "CREATE VIEW seen AS SELECT a, id FROM auto;\n");
    const auto catalog = file.OpenCatalog();
    EXPECT_THAT(AutoIncrementFields(*catalog, "auto"), ElementsAre("id"));
    EXPECT_THAT(AutoIncrementFields(*catalog, "seen"), ElementsAre("id"));
    EXPECT_THAT(AutoIncrementFields(*catalog, "alias"), ElementsAre("id"));
    EXPECT_THAT(AutoIncrementFields(*catalog, "at_the_end"), ElementsAre("id"));
    for (const std::string table : {"descending", "int_key", "composite", "without"})
        EXPECT_THAT(AutoIncrementFields(*catalog, table), IsEmpty()) << table;
}

TEST(SqliteFields, ColumnsHaveTheTypesOfTheFields)
{
    SqliteFile file("CREATE TABLE t (a MONEY, b UUID);\n");
    const std::vector<CatalogColumn> columns = file.OpenCatalog()->Columns("T");
    ASSERT_EQ(columns.size(), 2U);
    EXPECT_EQ(columns[0].Name, "a");
    EXPECT_EQ(columns[0].Type, adCurrency);
    EXPECT_EQ(columns[1].Type, adGUID);
}

} // namespace
} // namespace veldrane
