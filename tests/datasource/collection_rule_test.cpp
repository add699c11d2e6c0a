#include "datasource/collection_rule.h"

#include "class_fixture.h"

namespace veldrane {
namespace {

class CollectionBoxTest : public testing::ClassFixture
{
  protected:
    CollectionBoxTest() { item.CollectionName = "Orders"; }

    CollectionBox Change(CollectionBox wanted, Buttons buttons = Buttons::OkCancel)
    {
        return ChangeCollectionBox(item, wanted, buttons, messages);
    }
};

TEST_F(CollectionBoxTest, TickedOnARootClassAddsRetrieveList)
{
    EXPECT_EQ(Change(CollectionBox::Ticked), CollectionBox::Ticked);
    const auto method = item.TTCMethods.Item("RetrieveList");
    ASSERT_TRUE(method);
    EXPECT_TRUE(method->PlusMethod);
    EXPECT_EQ(method->ReturnDataType, "Orders");
    EXPECT_EQ(method->Scope, "Public");
    EXPECT_TRUE(item.TTCMembers.Contains("RetrieveList"));
}

TEST_F(CollectionBoxTest, TickedTwiceAddsItOnce)
{
    Change(CollectionBox::Ticked);
    Change(CollectionBox::Ticked);
    EXPECT_EQ(item.TTCMethods.Count(), 1U);
}

TEST_F(CollectionBoxTest, AMemberOfThatNameKeepsTheMethodOut)
{
    item.TTCMembers.Add("RetrieveList", "RetrieveList");
    EXPECT_EQ(Change(CollectionBox::Ticked), CollectionBox::Ticked);
    EXPECT_EQ(item.TTCMethods.Count(), 0U);
}

TEST_F(CollectionBoxTest, AChildClassGetsNoMethod)
{
    item.ParentClassName = "Customer";
    EXPECT_FALSE(IsRootClass(item));
    EXPECT_EQ(Change(CollectionBox::Ticked), CollectionBox::Ticked);
    EXPECT_EQ(item.TTCMethods.Count(), 0U);
    item.ParentClassName = "n/a";
    EXPECT_TRUE(IsRootClass(item));
}

TEST_F(CollectionBoxTest, ClearingAsksInTheCallersKind)
{
    Change(CollectionBox::Ticked);
    EXPECT_EQ(Change(CollectionBox::Cleared), CollectionBox::Ticked);
    EXPECT_EQ(Change(CollectionBox::Cleared, Buttons::YesNo), CollectionBox::Ticked);
    ASSERT_EQ(messages.Asked().size(), 2U);
    const Question& question = messages.Asked().front();
    EXPECT_EQ(question.Title, "Confirm Change");
    EXPECT_EQ(
        question.Text,
        "The 'RetrieveList' method relies on this collection. Are you sure you want to remove the collection and the 'RetrieveList' method?");
    EXPECT_EQ(question.Offered, Buttons::OkCancel);
    EXPECT_EQ(question.Default, Answer::Cancel);
    EXPECT_EQ(messages.Asked().at(1).Offered, Buttons::YesNo);
    EXPECT_EQ(messages.Asked().at(1).Default, Answer::No);
    EXPECT_EQ(item.TTCMethods.Count(), 1U);
}

TEST_F(CollectionBoxTest, OkAndYesRemoveTheMethod)
{
    for (const auto& [buttons, answer] :
         {std::pair{Buttons::OkCancel, Answer::Ok}, std::pair{Buttons::YesNo, Answer::Yes}}) {
        Change(CollectionBox::Ticked);
        AnswerWith({answer});
        EXPECT_EQ(Change(CollectionBox::Cleared, buttons), CollectionBox::Cleared);
        EXPECT_EQ(item.TTCMethods.Count(), 0U);
        EXPECT_FALSE(item.TTCMembers.Contains("RetrieveList"));
    }
}

TEST_F(CollectionBoxTest, ClearingWithoutTheMethodAsksNothing)
{
    EXPECT_EQ(Change(CollectionBox::Cleared), CollectionBox::Cleared);
    EXPECT_TRUE(messages.Asked().empty());
}

} // namespace
} // namespace veldrane
