#include "generation_fixture.h"

namespace veldrane::testing {
namespace {

class CollectionMethods : public GenerationTest
{
  protected:
    CollectionMethods()
    {
        line.CollectionName = "Lines";
        line.CreateCollection = true;
    }

    // One argument more, so that the first line of Add has `length` characters.
    void FillAdd(std::size_t length)
    {
        constexpr std::string_view kRest = "Public Function Add( as String, Optional sKey as String) as Line";
        AddProperty(line, std::string(length - kRest.size(), 'x'), "String");
    }

    std::string FirstLinesOfAdd()
    {
        const std::string all = Lines(generation.WriteCollectionMethods(line, classes));
        const std::size_t body = all.find("code|    Dim objNewMember As Line|");
        const std::string before = all.substr(0, body);
        const std::size_t end = before.rfind("head|End Sub|\n");
        return before.substr(end + std::string_view("head|End Sub|\n").size());
    }

    KZMClass& line = AddClass("Line", "Order");
};

TEST_F(CollectionMethods, KeepAnAddOfAThousandCharactersOnOneLine)
{
    FillAdd(1000);
    const std::string first = FirstLinesOfAdd();
    EXPECT_EQ(first.size(), std::string_view("head:Function||\n").size() + 1000);
    EXPECT_TRUE(first.starts_with("head:Function|Public Function Add(xxx")) << first;
}

TEST_F(CollectionMethods, SplitAnAddOfOneMore)
{
    FillAdd(1001);
    EXPECT_TRUE(FirstLinesOfAdd().starts_with("head:Function|    Public Function Add(xxx")) << FirstLinesOfAdd();
}

TEST_F(CollectionMethods, SayThatAnAddIsTooLongToBeSplitAndLeaveItsFirstLineOut)
{
    FillAdd(6200);
    EXPECT_EQ(FirstLinesOfAdd(), "");
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Text, "Unable to add lines to code. The splitting of lines is limited to 16.");
}

TEST_F(CollectionMethods, CountAPropertyWithoutANameAsAForeignKeyWhereARelationshipHasNoProperty)
{
    AddProperty(line, "", "String").PropertyName = "";
    EXPECT_EQ(FirstLinesOfAdd(), "head:Function|Public Function Add( as String, Optional sKey as String) as Line|\n");
    Columns columns;
    columns.Add("Elsewhere", "Long", "", "Elsewhere");
    line.TTCRelationships.Add("FK", "Orders", std::move(columns), "FK");
    EXPECT_EQ(FirstLinesOfAdd(), "head:Function|Public Function Add(Optional sKey as String) as Line|\n");
}

} // namespace
} // namespace veldrane::testing
