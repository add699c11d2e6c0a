#include "generator/argument_list.h"

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

TTCParameter& Add(KZMArguments& arguments, std::int16_t index, const std::string& name)
{
    return *arguments.Add("", index, true, name, "Long", false, "", false, name);
}

TEST(FormatArguments, OfNothingIsEmpty)
{
    EXPECT_EQ(FormatArguments(KZMArguments{}), "");
}

TEST(FormatArguments, GivesEachParameterWithItsMarks)
{
    KZMArguments arguments;
    Add(arguments, 1, "First");
    TTCParameter& second = Add(arguments, 2, "Second");
    second.ByValIndicator = false;
    second.OptionalIndicator = true;
    second.IsArray = true;
    second.DefaultValue = "\"a`b\"";
    EXPECT_EQ(FormatArguments(arguments), "ByVal First as Long, Optional ByRef Second() as Long=`a`b`");
}

TEST(FormatArguments, OrdersByIndexAndLeavesOutWhatDoesNotFit)
{
    KZMArguments arguments;
    Add(arguments, 3, "Third");
    Add(arguments, 0, "Zeroth");
    Add(arguments, 1, "First");
    Add(arguments, 5, "Fifth");
    Add(arguments, -1, "Negative");
    EXPECT_EQ(FormatArguments(arguments), "ByVal First as Long, ByVal Third as Long, ByVal Fifth as Long");
    arguments.Remove("Negative");
    EXPECT_EQ(FormatArguments(arguments), "ByVal First as Long, ByVal Third as Long");
}

TEST(FormatArguments, KeepsTheOrderOfParametersThatShareAnIndex)
{
    KZMArguments arguments;
    Add(arguments, 1, "One");
    Add(arguments, 1, "Another");
    EXPECT_EQ(FormatArguments(arguments), "ByVal One as Long, ByVal Another as Long");
}

TEST(FormatArguments, ServesEventsAsWell)
{
    TTCEventParameters parameters;
    parameters.Add(1, false, "Sender", "Object", false, "", false, "Sender");
    EXPECT_EQ(FormatArguments(parameters), "ByRef Sender as Object");
}

} // namespace
} // namespace veldrane::testing
