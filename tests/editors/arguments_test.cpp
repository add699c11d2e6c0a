#include "editors/arguments.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

TTCParameter Indexed(const std::string& name, std::int16_t index)
{
    TTCParameter argument;
    argument.VariableName = name;
    argument.Index = index;
    return argument;
}

std::vector<std::string> Names(const Arguments& arguments)
{
    std::vector<std::string> names;
    for (const TTCParameter& argument : arguments)
        names.push_back(argument.VariableName);
    return names;
}

TEST(ArgumentSignature, HasTheWordsThatApply)
{
    TTCParameter argument;
    argument.VariableName = "Names";
    argument.ParameterDataType = "String";
    EXPECT_EQ(ArgumentSignature(argument), "Names as String");
    argument.IsArray = true;
    EXPECT_EQ(ArgumentSignature(argument), "Names() as String");
    argument.ByValIndicator = true;
    EXPECT_EQ(ArgumentSignature(argument), "ByVal Names() as String");
    argument.OptionalIndicator = true;
    argument.DefaultValue = "1";
    EXPECT_EQ(ArgumentSignature(argument), "Optional ByVal Names() as String");
}

TEST(ArgumentsOf, AreInTheOrderOfTheirIndex)
{
    KZMArguments collection;
    for (const TTCParameter& argument : {Indexed("b", 2), Indexed("x", 9), Indexed("y", 0), Indexed("a", 1)})
        collection.AddExisting(std::make_shared<TTCParameter>(argument), argument.VariableName);
    EXPECT_EQ(Names(ArgumentsOf(collection)), (std::vector<std::string>{"a", "b", "x", "y"}));
}

TEST(StoreArguments, NumbersThemAndKeysThemByName)
{
    KZMArguments collection;
    StoreArguments({Indexed("b", 7), Indexed("a", 7)}, collection);
    ASSERT_EQ(collection.Count(), 2U);
    EXPECT_EQ(collection.Item("a")->Index, 2);
    EXPECT_EQ(collection.Item("b")->Index, 1);
    StoreArguments({Indexed("c", 0)}, collection);
    EXPECT_EQ(Names(ArgumentsOf(collection)), std::vector<std::string>{"c"});
}

TEST(StoreArguments, LosesNoneOfTwoThatShareAName)
{
    TTCEventParameters collection;
    StoreArguments({Indexed("a", 1), Indexed("A", 2)}, collection);
    EXPECT_EQ(Names(ArgumentsOf(collection)), (std::vector<std::string>{"a", "A"}));
}

} // namespace
} // namespace veldrane
