#include "datasource/typed_name.h"

#include "model/members.h"
#include "support/scripted_messages.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

constexpr TakenNotice kTaken{"Duplicate Colour", "There is such a colour."};

class TypedNameTest : public ::testing::Test
{
  protected:
    TypedNameTest() { members.Add("Red", "Red"); }

    [[nodiscard]] TypedName Rules(const std::string& before = "") const
    {
        return {.IsTaken = [this, before](std::string_view name) { return IsTakenMember(members, before, name); },
                .Taken = kTaken,
                .CodePage = codePage};
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

    TTCMembers members;
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
    members.Add("Light_Red", "Light_Red");
    EXPECT_EQ(Told("Light Red", false), (std::vector<std::string>{"Invalid Name Detected", "Duplicate Colour"}));
}

TEST_F(TypedNameTest, TheOwnNameIsInNobodysWay)
{
    EXPECT_EQ(NameTrouble("RED", Rules("Red")), "");
    EXPECT_EQ(NameTrouble("RED", Rules()), "There is such a colour.");
}

TEST_F(TypedNameTest, TheTroubleIsTheFirstBox)
{
    for (const char* typed : {"", "Light Red", "łódź", "RED", "Set"}) {
        messages.Forget();
        std::string name = typed;
        (void)AcceptName(name, Rules(), messages);
        ASSERT_FALSE(messages.Asked().empty()) << typed;
        EXPECT_EQ(NameTrouble(typed, Rules()), messages.Asked().front().Text);
    }
    EXPECT_EQ(members.Count(), 1U);
}

} // namespace
} // namespace veldrane
