#include "jet/column_types.h"

#include "jet/refusal.h"

#include <gtest/gtest.h>

#include <array>

namespace veldrane::jet {
namespace {

struct Case
{
    int Type;
    int Flags;
    std::size_t Size;
    int AdoType;
    int DefinedSize;
};

constexpr int kVariable = 2;
constexpr int kFixed = 3;

constexpr auto kJet4Cases = std::to_array<Case>({
    {2, kFixed, 1, 17, 1},
    {3, kFixed, 2, 2, 2},
    {4, kFixed, 4, 3, 4},
    {5, kFixed, 8, 6, 8},
    {6, kFixed, 4, 4, 4},
    {7, kFixed, 8, 5, 8},
    {8, kFixed, 8, 7, 8},
    {9, kVariable, 510, 204, 510},
    {9, kFixed, 16, 128, 16},
    {10, kVariable, 510, 202, 255},
    {10, kFixed, 20, 130, 10},
    {11, kVariable, 0, 205, 1073741823},
    {12, kVariable, 0, 203, 536870910},
    {15, kFixed, 16, 72, 16},
    {16, kFixed, 17, 131, 19},
    {17, kFixed, 3992, 128, 3992},
});

Column Described(const Case& given, Version version = Version::Jet4, Presence presence = Presence::Optional)
{
    return DescribeColumn({.Name = "C", .Type = given.Type, .Flags = given.Flags, .Size = given.Size}, version,
                          presence);
}

TEST(ColumnTypes, AreThoseOfTheProvidersTable)
{
    for (const Case& given : kJet4Cases) {
        const Column column = Described(given);
        EXPECT_EQ(column.AdoType, given.AdoType) << given.Type;
        EXPECT_EQ(column.DefinedSize, given.DefinedSize) << given.Type;
        EXPECT_EQ(column.Attributes, 96) << given.Type;
        EXPECT_FALSE(column.AutoNumber) << given.Type;
        EXPECT_EQ(Described(given, Version::Jet4, Presence::Required).Attributes, 0) << given.Type;
    }
}

TEST(ColumnTypes, OneThatTheEngineDoesNotHaveIsDamage)
{
    for (const int type : {0, 13, 14, 18, 255})
        EXPECT_THROW(static_cast<void>(Described({type, kFixed, 4, 0, 0})), Refusal) << type;
}

TEST(ColumnTypes, Jet3TextHasAByteACharacter)
{
    EXPECT_EQ(Described({10, kVariable, 50, 0, 0}, Version::Jet3).DefinedSize, 50);
}

TEST(ColumnTypes, YesNoIsNeverNull)
{
    const Column column = Described({1, kFixed, 1, 0, 0});
    EXPECT_EQ(column.AdoType, 11);
    EXPECT_EQ(column.DefinedSize, 2);
    EXPECT_EQ(column.Attributes, 0);
}

TEST(ColumnTypes, CountersAndNewGuidsFillThemselves)
{
    EXPECT_TRUE(Described({4, kFixed | kAutoNumber, 4, 0, 0}).AutoNumber);
    EXPECT_TRUE(Described({15, kFixed | kAutoGuid, 16, 0, 0}).AutoNumber);
}

TEST(ColumnTypes, TheFlagsOfCountersMeanNothingElsewhere)
{
    EXPECT_FALSE(Described({10, kVariable | kAutoGuid, 50, 0, 0}, Version::Jet3).AutoNumber);
    EXPECT_FALSE(Described({3, kFixed | kAutoNumber, 2, 0, 0}).AutoNumber);
    EXPECT_FALSE(Described({4, kFixed | kAutoGuid, 4, 0, 0}).AutoNumber);
}

TEST(ColumnTypes, AnExpressionIsTextThatMayBeNull)
{
    const Column column = DescribeExpression("Total");
    EXPECT_EQ(column.Name, "Total");
    EXPECT_EQ(column.AdoType, 202);
    EXPECT_EQ(column.DefinedSize, 255);
    EXPECT_EQ(column.Attributes, 96);
}

} // namespace
} // namespace veldrane::jet
