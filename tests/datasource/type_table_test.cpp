#include "datasource/type_table.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

struct Row
{
    std::int32_t Type;
    std::string_view DisplayName;
    std::int32_t Code;
    std::string_view Name;
};

constexpr Row kRows[] = {
    {20, "Big Integer", 7, "Double"},
    {128, "Binary", 11, "Variant"},
    {11, "Boolean", 9, "Boolean"},
    {8, "Unicode String", 1, "String"},
    {129, "Char", 1, "String"},
    {6, "Money/Currency", 4, "Currency"},
    {7, "Small DateTime", 8, "Date"},
    {133, "DateTime", 8, "Date"},
    {134, "Time", 8, "Date"},
    {135, "Timestamp", 8, "Date"},
    {14, "Decimal", 7, "Double"},
    {5, "Double", 7, "Double"},
    {0, "<unknown>", 0, ""},
    {10, "Error Code", 1, "String"},
    {72, "GUID", 1, "String"},
    {9, "<unknown>", 0, ""},
    {3, "Int", 3, "Long"},
    {13, "IUnknown", 10, "Object"},
    {205, "Long VarBinary", 11, "Variant"},
    {201, "Long VarChar", 1, "String"},
    {203, "Long VarWChar", 1, "String"},
    {131, "Numeric", 7, "Double"},
    {4, "Single", 6, "Single"},
    {2, "Small Int", 5, "Integer"},
    {16, "Tiny Int", 2, "Byte"},
    {21, "Unsigned Big Int", 7, "Double"},
    {19, "Unsigned Int", 6, "Single"},
    {18, "Unsigned Small Int", 5, "Integer"},
    {17, "Unsigned Tiny Int", 2, "Byte"},
    {132, "User Defined", 11, "Variant"},
    {204, "Var Binary", 11, "Variant"},
    {200, "VarChar", 1, "String"},
    {12, "Variant", 11, "Variant"},
    {202, "VarWChar", 1, "String"},
    {130, "WChar", 1, "String"},
};

TEST(TypeTable, KnowsEveryTypeUnderBothPairsOfNames)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.Type);
        EXPECT_EQ(ADOTypeDisplayName(row.Type), row.DisplayName);
        EXPECT_EQ(ADOTypeToVBTypeCode(row.Type), row.Code);
        EXPECT_EQ(VBTypeCodeName(row.Code), row.Name);
        EXPECT_EQ(ADOTypeToVBTypeIndex(row.Type), row.Code);
        EXPECT_EQ(VBTypeName(row.Code), row.Name);
        EXPECT_EQ(VBTypeOfADOType(row.Type), row.Name);
    }
}

TEST(TypeTable, AnUnknownTypeHasNothing)
{
    for (const std::int32_t type : {-1, 1, 15, 22, 71, 127, 136, 206, 8192}) {
        SCOPED_TRACE(type);
        EXPECT_EQ(ADOTypeDisplayName(type), "");
        EXPECT_EQ(ADOTypeToVBTypeCode(type), 0);
        EXPECT_EQ(VBTypeOfADOType(type), "");
    }
}

TEST(TypeTable, ACodeOutsideTheListHasNoName)
{
    for (const std::int32_t code : {-1, 0, 12, 1000})
        EXPECT_EQ(VBTypeCodeName(code), "") << code;
}

} // namespace
} // namespace veldrane
