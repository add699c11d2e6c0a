#include "editors/default_member.h"

#include "support/scripted_messages.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

class DefaultMemberTest : public ::testing::Test
{
  protected:
    DefaultMemberTest()
    {
        for (const char* name : {"Name", "City"})
            item.TTCProperties.Add({.PropertyName = name}, name);
        for (const char* name : {"Add", "Clear"})
            item.TTCMethods.Add(name, true, KZMArguments{}, "", "Public", false, name);
    }

    // The box, and whether the member may become the default.
    bool Confirm(const WantedDefault& wanted, Answer answer = Answer::Yes)
    {
        messages = testing::ScriptedMessages{answer};
        return ConfirmDefaultMember(item, wanted, messages);
    }

    KZMClass item;
    testing::ScriptedMessages messages;
};

TEST_F(DefaultMemberTest, NobodyIsAskedWhereThereIsNone)
{
    EXPECT_TRUE(Confirm({.Kind = MemberKind::Property, .Present = "Name", .Name = "Name"}));
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(DefaultMemberTest, NobodyIsAskedAboutTheMemberItself)
{
    item.TTCProperties.Item("Name")->DefaultProperty = true;
    EXPECT_TRUE(Confirm({.Kind = MemberKind::Property, .Present = "name", .Name = "Renamed"}));
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(DefaultMemberTest, AMethodOfThePropertysNameIsAnother)
{
    item.TTCMethods.Item("Add")->DefaultMethod = true;
    EXPECT_TRUE(OtherDefault(item, {.Kind = MemberKind::Property, .Present = "Add", .Name = "Add"}).has_value());
}

struct Wording
{
    MemberKind Wanted;
    MemberKind Present;
    const char* Title;
    const char* Text;
};

TEST_F(DefaultMemberTest, EachDialogAsksInItsWords)
{
    const Wording wordings[] = {
        {MemberKind::Property, MemberKind::Property, "Confirm Change Default Property",
         "The City property is currently set as the default property.\r\n"
         "Are you sure you want to change the default property to New"},
        {MemberKind::Property, MemberKind::Method, "Confirm Change Default Property",
         "The Clear method is currently set as the default method.\r\n"
         "Are you sure you want to change the default interface setting to New"},
        {MemberKind::Method, MemberKind::Method, "Confirm Change Default Method",
         "The Clear method is currently set as the default method.\r\n"
         "Are you sure you want to change the default method to New"},
        {MemberKind::Method, MemberKind::Property, "Confirm Change Default Method",
         "The City property is currently set as the default property.\r\n"
         "Are you sure you want to change the default interface to New"},
    };
    for (const Wording& wording : wordings) {
        ClearDefaultMembers(item);
        if (wording.Present == MemberKind::Property)
            item.TTCProperties.Item("City")->DefaultProperty = true;
        else
            item.TTCMethods.Item("Clear")->DefaultMethod = true;
        for (const Answer answer : {Answer::Yes, Answer::No}) {
            EXPECT_EQ(Confirm({.Kind = wording.Wanted, .Present = "", .Name = "New"}, answer), answer == Answer::Yes);
            ASSERT_EQ(messages.Asked().size(), 1U);
            EXPECT_EQ(messages.Asked().front().Title, wording.Title);
            EXPECT_EQ(messages.Asked().front().Text, wording.Text);
            EXPECT_EQ(messages.Asked().front().Offered, Buttons::YesNo);
        }
    }
}

TEST_F(DefaultMemberTest, ClearingLeavesNoDefaultOfEitherKind)
{
    item.TTCProperties.Item("City")->DefaultProperty = true;
    item.TTCMethods.Item("Clear")->DefaultMethod = true;
    ClearDefaultMembers(item);
    EXPECT_FALSE(OtherDefault(item, {.Kind = MemberKind::Property, .Present = "", .Name = ""}).has_value());
}

} // namespace
} // namespace veldrane
