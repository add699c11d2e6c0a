#include "generator/type_rules.h"

#include <gtest/gtest.h>

#include <array>

namespace veldrane::testing {
namespace {

TEST(VariablePrefix, IsThatOfTheTypeBehindTheLetterOfItsKind)
{
    TTCProject project;
    const auto members = std::to_array<std::pair<std::string_view, std::string TTCProject::*>>({
        {"Boolean", &TTCProject::PrefixBoolean},
        {"Byte", &TTCProject::PrefixByte},
        {"Collection", &TTCProject::PrefixCollection},
        {"Currency", &TTCProject::PrefixCurrency},
        {"Date", &TTCProject::PrefixDate},
        {"Double", &TTCProject::PrefixDouble},
        {"Integer", &TTCProject::PrefixInteger},
        {"Long", &TTCProject::PrefixLong},
        {"Object", &TTCProject::PrefixObject},
        {"Single", &TTCProject::PrefixSingle},
        {"String", &TTCProject::PrefixString},
        {"Variant", &TTCProject::PrefixVariant},
        {"Other", &TTCProject::PrefixOther},
    });
    for (const auto& [typeName, member] : members) {
        project.*member = "x" + std::string(typeName);
        EXPECT_EQ(VariablePrefix(project, typeName), "mx" + std::string(typeName));
        EXPECT_EQ(VariablePrefix(project, typeName, VariableKind::Global), "gx" + std::string(typeName));
    }
}

TEST(VariablePrefix, OfAnUnknownOrOtherwiseSpelledTypeIsThatOfOtherTypes)
{
    TTCProject project;
    project.PrefixOther = "oth";
    project.PrefixString = "str";
    for (const std::string_view typeName : {"Customer", "string", "STRING", "", "DOMDocument"})
        EXPECT_EQ(VariablePrefix(project, typeName), "moth") << typeName;
}

TEST(VariablePrefix, IsVarWhereTheProjectHasNone)
{
    const TTCProject project;
    EXPECT_EQ(VariablePrefix(project, "String"), "mvar");
    EXPECT_EQ(VariablePrefix(project, "Customer"), "mvar");
    EXPECT_EQ(VariablePrefix(project, "Long", VariableKind::Global), "gvar");
}

TEST(DefaultValueForType, IsTheTextOfTheEmptyValue)
{
    EXPECT_EQ(DefaultValueForType("String", false), "\"\"");
    EXPECT_EQ(DefaultValueForType("String", true), "\"{00000000-0000-0000-0000-000000000000}\"");
    EXPECT_EQ(DefaultValueForType("Boolean", true), "False");
    for (const std::string_view typeName : {"Long", "Integer", "Byte", "Single", "Double", "Currency"})
        EXPECT_EQ(DefaultValueForType(typeName, false), "0") << typeName;
    EXPECT_EQ(DefaultValueForType("Date", false), "\"12:00:00AM\"");
    EXPECT_EQ(DefaultValueForType("Variant", false), "Null");
    for (const std::string_view typeName : {"Customer", "Object", "string", ""})
        EXPECT_EQ(DefaultValueForType(typeName, false), "Object") << typeName;
}

TEST(IsObjectType, IsFalseForTheValueTypesInAnyCaseAlone)
{
    for (const std::string_view typeName : {"Byte", "Boolean", "CURRENCY", "date", "Double", "Integer", "String", "Long", "Single"})
        EXPECT_FALSE(IsObjectType(typeName)) << typeName;
    for (const std::string_view typeName : {"Variant", "", "Object", "Customer", "Stringy"})
        EXPECT_TRUE(IsObjectType(typeName)) << typeName;
}

} // namespace
} // namespace veldrane::testing
