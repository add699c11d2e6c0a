#include "datasource/ado_types.h"
#include "support/server_database.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::MariaDbDatabase;

using MariaDbRoutines = testing::DatabaseServerTest;

std::vector<SPParameter> ParametersOf(Catalog& catalog, const std::string& procedure)
{
    std::vector<SPParameter> parameters;
    for (const CatalogParameter& each : catalog.ProcedureParameters())
        if (each.ProcedureName == procedure)
            parameters.push_back(each.Parameter);
    return parameters;
}

// "place direction name" of each.
std::vector<std::string> Rows(const std::vector<SPParameter>& parameters)
{
    std::vector<std::string> rows;
    for (const SPParameter& each : parameters)
        rows.push_back(std::to_string(each.OrdianalPosition) + " " + std::to_string(each.Direction) + " " +
                       each.ParameterName);
    return rows;
}

TEST_F(MariaDbRoutines, AreListedByNameProceduresAndFunctionsAlike)
{
    MariaDbDatabase database;
    database.Run("CREATE PROCEDURE zeta() SELECT 1;\nCREATE FUNCTION Alpha() RETURNS INT RETURN 1;\n"
                 "CREATE PROCEDURE `Größe & mehr`(IN `Wert €` INT) SELECT 1;\n"
                 "CREATE FUNCTION both_kinds(f INT) RETURNS INT RETURN f;\nCREATE PROCEDURE Both_Kinds() SELECT 1;\n");
    const auto catalog = database.OpenCatalog();
    EXPECT_THAT(catalog->Procedures(), ElementsAre("Alpha", "Both_Kinds", "both_kinds", "Größe & mehr", "zeta"));
    EXPECT_THAT(Rows(ParametersOf(*catalog, "Größe & mehr")), ElementsAre("1 1 Wert €"));
    EXPECT_THAT(ParametersOf(*catalog, "both_kinds"), IsEmpty());
    EXPECT_THAT(ParametersOf(*catalog, "zeta"), IsEmpty());
}

TEST_F(MariaDbRoutines, ParametersComeInTheirOrderWithTheirDirections)
{
    MariaDbDatabase database;
    database.Run("CREATE PROCEDURE p(IN b INT, OUT a INT, INOUT c INT, d INT) SELECT 1;\n"
                 "CREATE FUNCTION f(y INT, x INT) RETURNS VARCHAR(20) RETURN 'a';\n");
    const auto catalog = database.OpenCatalog();
    EXPECT_THAT(Rows(ParametersOf(*catalog, "p")), ElementsAre("1 1 b", "2 3 a", "3 2 c", "4 1 d"));
    EXPECT_THAT(Rows(ParametersOf(*catalog, "f")), ElementsAre("0 4 RETURN_VALUE", "1 1 y", "2 1 x"));
    for (const CatalogParameter& each : catalog->ProcedureParameters()) {
        EXPECT_TRUE(each.Parameter.IsNullable);
        EXPECT_FALSE(each.Parameter.ParameterHasDefault);
        EXPECT_EQ(each.Parameter.DefaultValue, "");
    }
}

struct ParameterCase
{
    const char* Declared;
    const char* DataType;
    std::int16_t Number;
    const char* Length;
    const char* Precision;
    const char* Scale;
    const char* Local;
};

const std::vector<ParameterCase> kParameterCases{
    {"INT", "int", adInteger, "", "10", "0", "int(11)"},
    {"INTEGER UNSIGNED", "int", adUnsignedInt, "", "10", "0", "int(10) unsigned"},
    {"MEDIUMINT", "int", adInteger, "", "7", "0", "mediumint(9)"},
    {"SMALLINT", "smallint", adSmallInt, "", "5", "0", "smallint(6)"},
    {"TINYINT", "tinyint", adTinyInt, "", "3", "0", "tinyint(4)"},
    {"BOOL", "tinyint", adTinyInt, "", "3", "0", "tinyint(1)"},
    {"BIGINT", "bigint", adBigInt, "", "19", "0", "bigint(20)"},
    {"BIT", "bit", adBoolean, "", "1", "", "bit(1)"},
    {"BIT(8)", "binary", adBinary, "", "8", "", "bit(8)"},
    {"YEAR", "smallint", adUnsignedSmallInt, "", "", "", "year(4)"},
    {"DECIMAL(12,3)", "decimal", adNumeric, "", "12", "3", "decimal(12,3)"},
    {"NUMERIC(5)", "decimal", adNumeric, "", "5", "0", "decimal(5,0)"},
    {"FLOAT", "real", adSingle, "", "12", "", "float"},
    {"DOUBLE", "float", adDouble, "", "22", "", "double"},
    {"DATE", "datetime", adDBDate, "", "", "", "date"},
    {"TIME", "datetime", adDBTime, "", "", "", "time"},
    {"DATETIME", "datetime", adDBTimeStamp, "", "", "", "datetime"},
    {"TIMESTAMP", "datetime", adDBTimeStamp, "", "", "", "timestamp"},
    {"CHAR(10)", "char", adWChar, "10", "", "", "char(10)"},
    {"VARCHAR(50)", "varchar", adVarWChar, "50", "", "", "varchar(50)"},
    {"TINYTEXT", "text", adLongVarWChar, "255", "", "", "tinytext"},
    {"TEXT", "text", adLongVarWChar, "65535", "", "", "text"},
    {"MEDIUMTEXT", "text", adLongVarWChar, "16777215", "", "", "mediumtext"},
    {"LONGTEXT", "text", adLongVarWChar, "1073741823", "", "", "longtext"},
    {"JSON", "text", adLongVarWChar, "1073741823", "", "", "longtext"},
    {"BINARY(16)", "binary", adBinary, "16", "", "", "binary(16)"},
    {"VARBINARY(20)", "varbinary", adVarBinary, "20", "", "", "varbinary(20)"},
    {"TINYBLOB", "image", adLongVarBinary, "255", "", "", "tinyblob"},
    {"LONGBLOB", "image", adLongVarBinary, "2147483647", "", "", "longblob"},
    {"ENUM('a', 'unsigned')", "varchar", adWChar, "8", "", "", "enum('a','unsigned')"},
    {"SET('one', 'two')", "varchar", adWChar, "7", "", "", "set('one','two')"},
    {"UUID", "uniqueidentifier", adWChar, "", "", "", "uuid"},
    {"INET6", "varchar", adWChar, "", "", "", "inet6"},
    {"POINT", "image", adLongVarBinary, "", "", "", "point"},
};

TEST_F(MariaDbRoutines, EveryTypeHasItsWordItsNumberAndItsSizes)
{
    std::string declarations;
    for (const ParameterCase& each : kParameterCases)
        declarations +=
            (declarations.empty() ? "p" : ", p") + std::to_string(&each - kParameterCases.data()) + " " + each.Declared;
    MariaDbDatabase database;
    database.Run("CREATE PROCEDURE p(" + declarations + ") SELECT 1;\n");
    const std::vector<SPParameter> parameters = ParametersOf(*database.OpenCatalog(), "p");
    ASSERT_EQ(parameters.size(), kParameterCases.size());
    for (std::size_t at = 0; at < parameters.size(); ++at) {
        const ParameterCase& expected = kParameterCases[at];
        EXPECT_EQ(parameters[at].DataType, expected.DataType) << expected.Declared;
        EXPECT_EQ(parameters[at].DataTypeNumber, expected.Number) << expected.Declared;
        EXPECT_EQ(parameters[at].CharacterMaximumLength, expected.Length) << expected.Declared;
        EXPECT_EQ(parameters[at].NumericPrecision, expected.Precision) << expected.Declared;
        EXPECT_EQ(parameters[at].NumericScale, expected.Scale) << expected.Declared;
        EXPECT_EQ(parameters[at].LocalDataTypeName, expected.Local) << expected.Declared;
    }
}

TEST_F(MariaDbRoutines, ALongDeclarationIsReadWhole)
{
    std::string values = "'v'";
    for (int number = 0; number < 2000; ++number)
        values += ",'ü" + std::to_string(number) + "'";
    MariaDbDatabase database;
    database.Run("CREATE PROCEDURE p(e ENUM(" + values + ")) SELECT 1;\n");
    const std::vector<SPParameter> parameters = ParametersOf(*database.OpenCatalog(), "p");
    ASSERT_EQ(parameters.size(), 1U);
    EXPECT_EQ(parameters[0].LocalDataTypeName, "enum(" + values + ")");
}

TEST_F(MariaDbRoutines, PackagesAreLeftOut)
{
    MariaDbDatabase database;
    database.Run("SET sql_mode = ORACLE;\nDELIMITER //\n"
                 "CREATE PACKAGE shop AS PROCEDURE sell(n INT); END //\n"
                 "CREATE PACKAGE BODY shop AS PROCEDURE sell(n INT) AS BEGIN SELECT 1; END; END //\n"
                 "CREATE PROCEDURE plain(n INT) AS BEGIN SELECT 1; END //\n");
    const auto catalog = database.OpenCatalog();
    EXPECT_THAT(catalog->Procedures(), ElementsAre("plain"));
    EXPECT_EQ(catalog->ProcedureParameters().size(), 1U);
}

} // namespace
} // namespace veldrane
