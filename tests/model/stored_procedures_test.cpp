#include "model/stored_procedures.h"

#include "text/runtime_error.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace veldrane {
namespace {

TEST(StoredProcedure, BeginsEmpty)
{
    const SP procedure;
    EXPECT_EQ(procedure.SPName + procedure.SPMethodName, "");
    EXPECT_EQ(procedure.SPParameters.Count(), 0U);
    const SPParameter parameter;
    EXPECT_EQ(parameter.ParameterName + parameter.DataType + parameter.CharacterMaximumLength + parameter.DefaultValue +
                  parameter.Description + parameter.LocalDataTypeName + parameter.NumericPrecision +
                  parameter.NumericScale,
              "");
    EXPECT_EQ(parameter.DataTypeNumber + parameter.Direction + parameter.OrdianalPosition, 0);
    EXPECT_FALSE(parameter.IsNullable || parameter.ParameterHasDefault);
}

TEST(StoredProcedure, HasACleanNameWithoutVersionAndPunctuation)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"GetOrders;1", "GetOrders"},
        {"GetOrders", "GetOrders"},
        {";1", ""},
        {"", ""},
        {",.:<>/?'[]{}\\|`~!@#$%^&*()-=+\"a_b c", "a_b c"},
        {"Größe!", "Größe"},
    };
    for (const auto& [name, clean] : cases) {
        SP procedure;
        procedure.SPName = name;
        EXPECT_EQ(procedure.SPCleanName(), clean);
        SPParameter parameter;
        parameter.ParameterName = name;
        EXPECT_EQ(parameter.ParameterCleanName(), clean);
    }
    SPParameter parameter;
    parameter.ParameterName = "@CustomerID";
    EXPECT_EQ(parameter.ParameterCleanName(), "CustomerID");
}

TEST(StoredProcedureParameter, MayShareItsCleanNameWithAnother)
{
    SP procedure;
    procedure.SPParameters.Add("@@Total", "int", 3, "@@Total");
    procedure.SPParameters.Add("@Total", "int", 3, "@Total");
    for (const SPParameter& parameter : procedure.SPParameters)
        EXPECT_EQ(parameter.ParameterCleanName(), "Total");
    EXPECT_EQ(procedure.SPParameters.Count(), 2U);
}

TEST(StoredProcedureParameter, HasAVisualBasicType)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"binary", "Variant"},    {"image", "Variant"},
        {"timestamp", "Variant"}, {"varbinary", "Variant"},
        {"datetime", "Date"},     {"smalldatetime", "Date"},
        {"decimal", "Double"},    {"numeric", "Double"},
        {"real", "Double"},       {"int", "Long"},
        {"tinyint", "Byte"},      {"nvarchar", "String"},
        {"varchar", "String"},    {"char", "String"},
        {"nchar", "String"},      {"ntext", "String"},
        {"text", "String"},       {"uniqueidentifier", "String"},
        {"money", "Currency"},    {"smallmoney", "Currency"},
        {"smallint", "Integer"},  {"NVarChar", "String"},
        {"INT", "Long"},          {"bigint", "Variant"},
        {"", "Variant"},          {"float", "Variant"},
        {"Float", "Variant"},
    };
    for (const auto& [dataType, visualBasicType] : cases) {
        SPParameter parameter;
        parameter.DataType = dataType;
        EXPECT_EQ(parameter.VBDataType(), visualBasicType) << dataType;
        parameter.IsNullable = true;
        EXPECT_EQ(parameter.VBDataType(), "Variant") << dataType;
    }
}

TEST(StoredProcedures, AreKeyedByTheirNames)
{
    SPs procedures;
    const auto procedure = procedures.Add("Load;1", "Load;1");
    EXPECT_EQ(procedure->SPName, "Load;1");
    EXPECT_EQ(procedures.Item("LOAD;1"), procedure);
    EXPECT_THROW(procedures.Add("load;1", "load;1"), RuntimeError);
    const auto parameter = procedure->SPParameters.Add("@a", "int", 3, "@a");
    EXPECT_EQ(parameter->ParameterName + parameter->DataType, "@aint");
    EXPECT_EQ(parameter->DataTypeNumber, 3);
    EXPECT_THROW(procedure->SPParameters.Add("@A", "int", 3, "@A"), RuntimeError);
    EXPECT_FALSE(procedure->SPParameters.AddExisting(std::make_shared<SPParameter>(), "@A"));
}

} // namespace
} // namespace veldrane
