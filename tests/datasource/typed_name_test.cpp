#include "datasource/typed_name.h"

#include "model/class.h"
#include "support/scripted_messages.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

class TypedNameTest : public ::testing::Test
{
  protected:
    TypedNameTest()
    {
        item.ClassName = "Order";
        item.TTCMembers.Add("Red", "Red");
    }

    [[nodiscard]] TypedName Rules(const std::string& before = "") const
    {
        return MethodNameRules(item, before, codePage);
    }

    // Accepts the name; the titles of what was told.
    std::vector<std::string> Told(std::string typed, bool accepted)
    {
        messages.Forget();
        EXPECT_EQ(AcceptName(typed, Rules(), messages), accepted) << typed;
        std::vector<std::string> titles;
        for (const Question& question : messages.Asked())
            titles.push_back(question.Title);
        return titles;
    }

    KZMClass item;
    text::CodePage codePage;
    testing::ScriptedMessages messages;
};

TEST_F(TypedNameTest, AValidFreeNameIsTakenAsItIs)
{
    EXPECT_TRUE(Told("Blue", true).empty());
    EXPECT_EQ(NameTrouble("Blue", Rules()), "");
}

TEST_F(TypedNameTest, ANameIsMadeValidBeforeItIsLookedFor)
{
    item.TTCMembers.Add("Light_Red", "Light_Red");
    EXPECT_EQ(Told("Light Red", false), (std::vector<std::string>{"Invalid Name Detected", "Duplicate Method Name"}));
}

TEST_F(TypedNameTest, ANameThatTheLanguageHasNoRoomForIsRefused)
{
    std::string longest;
    for (int i = 0; i < 255; ++i)
        longest += "ö";
    EXPECT_TRUE(Told(longest, true).empty()) << "letters count, not their bytes";
    EXPECT_EQ(NameTrouble(longest, Rules()), "");
    EXPECT_EQ(Told(longest + "n", false), std::vector<std::string>{"Name Too Long"});
    EXPECT_EQ(NameTrouble(longest + "n", Rules()),
              "The name has 256 characters, and Visual Basic allows 255. Please enter a shorter name.");
    EXPECT_EQ(Told("1" + longest, false), (std::vector<std::string>{"Invalid Name Detected", "Name Too Long"}))
        << "the letter in front counts";
}

TEST_F(TypedNameTest, TheOwnNameIsInNobodysWay)
{
    EXPECT_EQ(NameTrouble("RED", Rules("Red")), "");
    EXPECT_EQ(NameTrouble("RED", Rules()),
              "The method name 'RED' conflicts with an existing member of the Order class. Please enter another name.");
}

TEST_F(TypedNameTest, AnEventIsCalledOne)
{
    EXPECT_EQ(NameTrouble("Red", EventNameRules(item, "", codePage)),
              "The event name 'Red' conflicts with an existing member of the Order class. Please enter another name.");
    std::string typed = "Red";
    EXPECT_FALSE(AcceptName(typed, EventNameRules(item, "", codePage), messages));
    EXPECT_EQ(messages.Asked().front().Title, "Duplicate Event Name");
}

TEST_F(TypedNameTest, TheTroubleIsTheFirstBox)
{
    for (const std::string& typed : {std::string(), std::string("Light Red"), std::string("łódź"), std::string("RED"),
                                     std::string("Set"), std::string(256, 'n')}) {
        messages.Forget();
        std::string name = typed;
        (void)AcceptName(name, Rules(), messages);
        ASSERT_FALSE(messages.Asked().empty()) << typed;
        EXPECT_EQ(NameTrouble(typed, Rules()), messages.Asked().front().Text);
    }
    EXPECT_EQ(item.TTCMembers.Count(), 1U);
}

} // namespace
} // namespace veldrane
