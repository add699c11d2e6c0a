#include "catalog_rows.h"

#include "datasource/ado_types.h"
#include "support/server_database.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <tuple>
#include <vector>

namespace veldrane {

static bool operator==(const CatalogField& left, const CatalogField& right)
{
    const auto facts = [](const CatalogField& field) {
        return std::tie(field.Name, field.Type, field.DefinedSize, field.Attributes, field.IsAutoIncrement);
    };
    return facts(left) == facts(right);
}

static void PrintTo(const CatalogField& field, std::ostream* out)
{
    *out << field.Name << " " << field.Type << " (" << field.DefinedSize << ") attributes " << field.Attributes
         << (field.IsAutoIncrement ? " auto-increment" : "");
}

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::MariaDbDatabase;

using MariaDbFields = testing::DatabaseServerTest;

// The fields of the table as one statement opens it, and as they are read with those of all tables: they agree.
std::vector<CatalogField> FieldsBothWays(MariaDbDatabase& database, const std::string& table)
{
    std::vector<CatalogField> opened = database.OpenCatalog()->Fields(Statement(table));
    const auto together = database.OpenCatalog();
    together->ExpectManyTables();
    EXPECT_THAT(together->Fields(Statement(table)), ::testing::ElementsAreArray(opened)) << table;
    return opened;
}

struct TypeCase
{
    const char* Declared;
    std::int32_t Type;
    std::int32_t Size;
};

constexpr std::int32_t kGreatestLong = 2147483647;

const std::vector<TypeCase> kNumbers{
    {"TINYINT", adTinyInt, 1},
    {"TINYINT UNSIGNED", adUnsignedTinyInt, 1},
    {"BOOLEAN", adTinyInt, 1},
    {"SMALLINT", adSmallInt, 2},
    {"SMALLINT UNSIGNED", adUnsignedSmallInt, 2},
    {"MEDIUMINT", adInteger, 4},
    {"MEDIUMINT UNSIGNED", adUnsignedInt, 4},
    {"INT", adInteger, 4},
    {"INTEGER(3)", adInteger, 4},
    {"INT UNSIGNED", adUnsignedInt, 4},
    {"INT ZEROFILL", adUnsignedInt, 4},
    {"BIGINT", adBigInt, 8},
    {"BIGINT UNSIGNED", adUnsignedBigInt, 8},
    {"BIT", adBoolean, 2},
    {"BIT(1)", adBoolean, 2},
    {"BIT(2)", adBinary, 2},
    {"BIT(64)", adBinary, 64},
    {"YEAR", adUnsignedSmallInt, 2},
    {"DECIMAL", adNumeric, 19},
    {"DECIMAL(10,2) UNSIGNED", adNumeric, 19},
    {"NUMERIC(65,30)", adNumeric, 19},
    {"FLOAT", adSingle, 4},
    {"FLOAT(53)", adDouble, 8},
    {"FLOAT(7,2)", adSingle, 4},
    {"DOUBLE", adDouble, 8},
    {"REAL", adDouble, 8},
    {"DOUBLE(10,2) UNSIGNED", adDouble, 8},
    {"DATE", adDBDate, 6},
    {"TIME", adDBTime, 6},
    {"TIME(6)", adDBTime, 6},
    {"DATETIME", adDBTimeStamp, 16},
    {"DATETIME(3)", adDBTimeStamp, 16},
    {"TIMESTAMP NULL", adDBTimeStamp, 16},
};

const std::vector<TypeCase> kTexts{
    {"CHAR", adWChar, 1},
    {"CHAR(10)", adWChar, 10},
    {"CHAR(0)", adWChar, 0},
    {"NCHAR(7)", adWChar, 7},
    {"VARCHAR(50)", adVarWChar, 50},
    {"VARCHAR(0)", adVarWChar, 0},
    {"VARCHAR(3000)", adVarWChar, 3000},
    {"VARCHAR(30) CHARACTER SET latin1", adVarWChar, 30},
    {"VARCHAR(30) CHARACTER SET ucs2", adVarWChar, 30},
    {"VARCHAR(30) COLLATE utf8mb4_bin", adVarWChar, 30},
    {"VARCHAR(100) COMPRESSED", adVarWChar, 100},
    {"TINYTEXT", adLongVarWChar, 255},
    {"TEXT", adLongVarWChar, 65535},
    {"TEXT CHARACTER SET latin1", adLongVarWChar, 65535},
    {"TEXT CHARACTER SET ucs2", adLongVarWChar, 32767},
    {"TEXT(70000)", adLongVarWChar, 16777215},
    {"MEDIUMTEXT", adLongVarWChar, 16777215},
    {"LONGTEXT", adLongVarWChar, 1073741823},
    {"LONGTEXT CHARACTER SET ucs2", adLongVarWChar, 1073741823},
    {"JSON", adLongVarWChar, 1073741823},
    {"ENUM('a', 'longest', 'größer')", adWChar, 7},
    {"ENUM('unsigned', 'binary') COLLATE utf8mb4_bin", adWChar, 8},
    {"SET('one', 'two', 'three')", adWChar, 13},
    {"UUID", adWChar, 36},
    {"INET4", adWChar, 15},
    {"INET6", adWChar, 39},
};

const std::vector<TypeCase> kBinaries{
    {"BINARY", adBinary, 1},
    {"BINARY(16)", adBinary, 16},
    {"CHAR(9) CHARACTER SET binary", adBinary, 9},
    {"ENUM('a', 'bc') CHARACTER SET binary", adBinary, 2},
    {"VARBINARY(20)", adVarBinary, 20},
    {"VARCHAR(9) CHARACTER SET binary", adVarBinary, 9},
    {"TINYBLOB", adLongVarBinary, 255},
    {"BLOB", adLongVarBinary, 65535},
    {"BLOB COMPRESSED", adLongVarBinary, 65535},
    {"MEDIUMBLOB", adLongVarBinary, 16777215},
    {"LONGBLOB", adLongVarBinary, kGreatestLong},
    {"GEOMETRY", adLongVarBinary, kGreatestLong},
    {"POINT", adLongVarBinary, kGreatestLong},
    {"MULTIPOLYGON", adLongVarBinary, kGreatestLong},
    {"GEOMETRYCOLLECTION", adLongVarBinary, kGreatestLong},
};

class MariaDbTypes : public testing::DatabaseServerTest,
                     public ::testing::WithParamInterface<const std::vector<TypeCase>*>
{};

TEST_P(MariaDbTypes, EveryDeclaredTypeHasItsAdoType)
{
    const std::vector<TypeCase>& cases = *GetParam();
    std::string columns;
    for (const TypeCase& each : cases)
        columns += (columns.empty() ? "c" : ", c") + std::to_string(&each - cases.data()) + " " + each.Declared;
    MariaDbDatabase database;
    database.Run("CREATE TABLE t (" + columns + ");\n");
    const std::vector<CatalogField> fields = FieldsBothWays(database, "t");
    ASSERT_EQ(fields.size(), cases.size());
    for (std::size_t at = 0; at < cases.size(); ++at) {
        EXPECT_EQ(fields[at].Type, cases[at].Type) << cases[at].Declared;
        EXPECT_EQ(fields[at].DefinedSize, cases[at].Size) << cases[at].Declared;
        EXPECT_EQ(fields[at].Attributes, field_attribute::kIsNullable | field_attribute::kMayBeNull)
            << cases[at].Declared;
    }
}

INSTANTIATE_TEST_SUITE_P(All, MariaDbTypes, ::testing::Values(&kNumbers, &kTexts, &kBinaries));

TEST_F(MariaDbFields, ALongTextHasRoomForTheCharactersOfTheConnection)
{
    MariaDbDatabase database;
    database.Run("CREATE TABLE t (a LONGTEXT, b TEXT, c VARCHAR(20), d ENUM('x', 'yy'), e JSON);\n");
    for (const std::string set : {"latin1", "utf8mb3", "utf8mb4"}) {
        OdbcConnection connection(OdbcConnectionOptions{});
        connection.Open(database.ConnectionString() + "CHARSET=" + set + ";");
        const auto together = connection.OpenCatalog();
        together->ExpectManyTables();
        EXPECT_THAT(together->Fields(Statement("t")),
                    ::testing::ElementsAreArray(connection.OpenCatalog()->Fields(Statement("t"))))
            << set;
    }
}

TEST_F(MariaDbFields, WhatMayNotBeNullHasNeitherBit)
{
    MariaDbDatabase database;
    database.Run("CREATE TABLE t (a INT NOT NULL, b VARCHAR(9) NOT NULL DEFAULT 'x', c INT, d ENUM('a')"
                 " NOT NULL, e DATETIME NOT NULL, f INT PRIMARY KEY, g UUID NOT NULL, h BIT NOT NULL);\n");
    std::vector<std::string> nullable;
    for (const CatalogField& field : FieldsBothWays(database, "t"))
        if (field.Attributes != 0)
            nullable.push_back(field.Name);
    EXPECT_THAT(nullable, ElementsAre("c"));
}

TEST_F(MariaDbFields, ATimestampTakesNullAsTheDriverHasIt)
{
    MariaDbDatabase database;
    database.Run("CREATE TABLE t (a TIMESTAMP NOT NULL, b TIMESTAMP(3) NOT NULL DEFAULT '2000-01-01');\n");
    for (const CatalogField& field : FieldsBothWays(database, "t"))
        EXPECT_EQ(field.Attributes, field_attribute::kIsNullable | field_attribute::kMayBeNull) << field.Name;
}

TEST_F(MariaDbFields, AutoIncrementIsKnownWithAndWithoutAPrimaryKeyAndThroughAView)
{
    MariaDbDatabase database;
    database.Run("CREATE TABLE usual (id INT AUTO_INCREMENT PRIMARY KEY, a INT);\n"
                 "CREATE TABLE keyless (a INT, n BIGINT UNSIGNED AUTO_INCREMENT, KEY (n));\n"
                 "CREATE TABLE none (id INT PRIMARY KEY, a INT UNIQUE NOT NULL);\n"
                 "CREATE SEQUENCE s;\n"
                 "CREATE TABLE sequenced (id INT PRIMARY KEY DEFAULT NEXTVAL(s));\n"
                 "CREATE VIEW v AS SELECT a, id FROM usual;\n"
                 "CREATE VIEW w AS SELECT a, id + 1 AS id FROM usual;\n");
    const auto expect = [&](const std::string& table, const std::vector<std::string>& names) {
        (void)FieldsBothWays(database, table);
        EXPECT_EQ(AutoIncrementFields(*database.OpenCatalog(), table), names) << table;
    };
    expect("usual", {"id"});
    expect("keyless", {"n"});
    expect("none", {});
    expect("sequenced", {});
    expect("v", {"id"});
    expect("w", {});
    expect("s", {});
}

TEST_F(MariaDbFields, GeneratedColumnsAreFieldsAndInvisibleOnesAreNot)
{
    MariaDbDatabase database;
    database.Run(
        "CREATE TABLE t (a INT, hidden INT INVISIBLE DEFAULT 5, b INT AS (a + 1) VIRTUAL,"
        " c VARCHAR(20) AS (CONCAT('x', a)) STORED, n INT AUTO_INCREMENT INVISIBLE UNIQUE, d INT);\n"
        "CREATE TABLE kept (a INT PRIMARY KEY) WITH SYSTEM VERSIONING;\n"
        "CREATE TABLE kept_openly (a INT, b TIMESTAMP(6) GENERATED ALWAYS AS ROW START,"
        " c TIMESTAMP(6) GENERATED ALWAYS AS ROW END, PERIOD FOR SYSTEM_TIME (b, c)) WITH SYSTEM VERSIONING;\n");
    const auto names = [&](const std::string& table) {
        std::vector<std::string> all;
        for (const CatalogField& field : FieldsBothWays(database, table))
            all.push_back(field.Name);
        return all;
    };
    EXPECT_THAT(names("t"), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(names("kept"), ElementsAre("a"));
    EXPECT_THAT(names("kept_openly"), ElementsAre("a", "b", "c"));
}

TEST_F(MariaDbFields, ATableMayHaveAsManyColumnsAsTheEngineAllows)
{
    constexpr int kMost = 1017;
    std::string columns;
    for (int number = 1; number <= kMost; ++number)
        columns.append(number == 1 ? "" : ", ").append("c" + std::to_string(number)).append(" TINYINT");
    MariaDbDatabase database;
    database.Run("CREATE TABLE t (" + columns + ");\n");
    const std::vector<CatalogField> fields = FieldsBothWays(database, "t");
    ASSERT_EQ(fields.size(), static_cast<std::size_t>(kMost));
    for (int number = 1; number <= kMost; ++number)
        EXPECT_EQ(fields[static_cast<std::size_t>(number) - 1].Name, "c" + std::to_string(number));
}

TEST_F(MariaDbFields, AViewThatIsBrokenFailsAloneAndWithTheServersWords)
{
    MariaDbDatabase database;
    database.Run("CREATE TABLE gone (x INT);\nCREATE TABLE a (x INT PRIMARY KEY);\n"
                 "CREATE VIEW broken AS SELECT * FROM gone;\nDROP TABLE gone;\n");
    const auto catalog = database.OpenCatalog();
    catalog->ExpectManyTables();
    EXPECT_THAT(FieldNames(*catalog, Statement("a")), ElementsAre("x"));
    EXPECT_THAT(catalog->Indexes("broken"), IsEmpty());
    try {
        (void)catalog->Fields(Statement("broken"));
        FAIL();
    } catch (const DataSourceError& error) {
        EXPECT_THAT(error.Description(), ::testing::HasSubstr("references invalid table"));
    }
}

TEST_F(MariaDbFields, ATableDroppedBetweenListingAndReadingIsUnknown)
{
    MariaDbDatabase database;
    database.Run("CREATE TABLE a (x INT);\nCREATE TABLE b (x INT);\n");
    const auto catalog = database.OpenCatalog();
    EXPECT_EQ(catalog->Tables().size(), 2U);
    database.Run("DROP TABLE a;\n");
    catalog->ExpectManyTables();
    EXPECT_EQ(NumberOfFailure([&] { (void)catalog->Fields(Statement("a")); }), data_source_error::kTableUnknown);
    EXPECT_THAT(FieldNames(*catalog, Statement("b")), ElementsAre("x"));
}

} // namespace
} // namespace veldrane
