#include "editors/argument_list.h"

#include "editors/frm_add_edit_argument.h"
#include "member_fixture.h"

namespace veldrane {
namespace {

using testing::Texts;
using Rows = std::vector<std::size_t>;

constexpr const char* kForced = " argument to become an 'Optional' parameter. Are you sure you want to do this?";

class ArgumentListTest : public testing::MemberTest
{
  protected:
    ArgumentList List(Arguments arguments)
    {
        return ArgumentList(surroundings, {.FormName = "frmAddEditMethod"}, std::move(arguments),
                            [](const Arguments&) { return TTCOutputs(); });
    }

    ArgumentList ThreeRequired() { return List({Argument("a", "Long"), Argument("b", "Long"), Argument("c", "Long")}); }

    // "a b c?", optional ones with a question mark.
    static std::string Names(const ArgumentList& list)
    {
        std::string names;
        for (const TTCParameter& argument : list.Items())
            names += (names.empty() ? "" : " ") + argument.VariableName + (argument.OptionalIndicator ? "?" : "");
        return names;
    }
};

TEST_F(ArgumentListTest, RowsHaveNameAndSignature)
{
    const ArgumentList list = List({Argument("a", "Long"), OptionalArgument("b", "String")});
    ASSERT_EQ(list.Rows().size(), 2U);
    EXPECT_EQ(list.Rows().at(1).Name, "b");
    EXPECT_EQ(list.Rows().at(1).Signature, "Optional b as String");
    EXPECT_EQ(list.Signature(), "a as Long, Optional b as String");
    EXPECT_EQ(List({}).Signature(), "");
}

TEST_F(ArgumentListTest, ArgumentsThatAreFixedCanBeReadAlone)
{
    ArgumentList list(surroundings, {.FormName = "frmAddEditEvent", .WhyFixed = "They are so."},
                      {Argument("a", "Long"), Argument("b", "Long")}, [](const Arguments&) { return TTCOutputs(); });
    EXPECT_EQ(list.WhyFixed(), "They are so.");
    list.Select({1});
    EXPECT_FALSE(list.CanEdit() || list.CanDelete() || list.CanMoveUp() || list.CanMoveDown());
    for (const ArgumentKey key :
         {ArgumentKey::Insert, ArgumentKey::Delete, ArgumentKey::ControlUp, ArgumentKey::ControlDown})
        list.KeyDown(key);
    list.Edit();
    EXPECT_EQ(Names(list), "a b");
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(ArgumentListTest, NewAsksForAnArgumentAndSelectsIt)
{
    ArgumentList list = ThreeRequired();
    int changes = 0;
    const Connection listening = list.Changed.Connect([&] { ++changes; });
    dialogs.Argument = [](frmAddEditArgument& form) {
        EXPECT_EQ(form.Caption(), "Add Argument");
        form.txtArgumentName = "d";
        return form.cmdOK_Click();
    };
    list.New();
    EXPECT_EQ(Names(list), "a b c d");
    EXPECT_EQ(list.Selected(), Rows{3});
    EXPECT_TRUE(list.IsModified());
    EXPECT_EQ(changes, 1);
}

TEST_F(ArgumentListTest, ACancelledDialogChangesNothing)
{
    ArgumentList list = ThreeRequired();
    dialogs.Argument = [](frmAddEditArgument& form) {
        form.txtArgumentName = "d";
        return !form.cmdCancel_Click();
    };
    list.New();
    list.Select({1});
    list.Edit();
    EXPECT_EQ(Names(list), "a b c");
    EXPECT_FALSE(list.IsModified());
}

TEST_F(ArgumentListTest, EditChangesTheOneSelectedRow)
{
    ArgumentList list = ThreeRequired();
    dialogs.Argument = [](frmAddEditArgument& form) {
        EXPECT_EQ(form.Caption(), "Edit Argument");
        EXPECT_EQ(form.txtArgumentName, "b");
        form.txtArgumentName = "B2";
        return form.cmdOK_Click();
    };
    list.Select({1});
    ASSERT_TRUE(list.CanEdit());
    list.Edit();
    EXPECT_EQ(Names(list), "a B2 c");
    list.Select({0, 1});
    EXPECT_FALSE(list.CanEdit());
    list.Edit();
    EXPECT_EQ(Names(list), "a B2 c");
}

TEST_F(ArgumentListTest, DeleteAsksForEachRow)
{
    AnswerWith({Answer::Ok, Answer::Ok});
    ArgumentList list = ThreeRequired();
    list.Select({2, 0});
    list.Delete();
    EXPECT_EQ(Told(), (Texts{"Are you sure you want to delete the a argument?",
                             "Are you sure you want to delete the c argument?"}));
    EXPECT_EQ(Titles(), (Texts{"Confirm Delete", "Confirm Delete"}));
    EXPECT_EQ(messages.Asked().front().Offered, Buttons::OkCancel);
    EXPECT_EQ(messages.Asked().front().Default, Answer::Cancel);
    EXPECT_EQ(Names(list), "b");
    EXPECT_EQ(list.Selected(), Rows{0});
}

TEST_F(ArgumentListTest, CancelEndsADeletion)
{
    AnswerWith({Answer::Ok, Answer::Cancel});
    ArgumentList list = ThreeRequired();
    list.Select({0, 1, 2});
    list.Delete();
    EXPECT_EQ(Names(list), "b c");
    EXPECT_EQ(list.Selected(), (Rows{0, 1})) << "those that are left";
    EXPECT_EQ(messages.Asked().size(), 2U);
}

TEST_F(ArgumentListTest, TheRowThatMovesUpIntoAGapIsSelected)
{
    AnswerWith({Answer::Ok, Answer::Ok, Answer::Ok});
    ArgumentList list = ThreeRequired();
    list.Select({1});
    list.Delete();
    EXPECT_EQ(list.Selected(), Rows{1});
    list.Delete();
    EXPECT_EQ(list.Selected(), Rows{0});
    list.Delete();
    EXPECT_TRUE(list.Selected().empty());
    list.Delete();
    EXPECT_EQ(messages.Asked().size(), 3U);
}

TEST_F(ArgumentListTest, RowsMoveByOne)
{
    ArgumentList list = ThreeRequired();
    list.Select({2});
    list.MoveUp();
    EXPECT_EQ(Names(list), "a c b");
    EXPECT_EQ(list.Selected(), Rows{1});
    list.MoveUp();
    list.MoveUp();
    EXPECT_EQ(Names(list), "c a b");
    EXPECT_FALSE(list.CanMoveUp());
    ASSERT_TRUE(list.CanMoveDown());
    list.MoveDown();
    list.MoveDown();
    EXPECT_FALSE(list.CanMoveDown());
    EXPECT_EQ(Names(list), "a b c");
    EXPECT_FALSE(list.IsModified()) << "all is as it was";
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(ArgumentListTest, SeveralRowsMoveTogether)
{
    ArgumentList list =
        List({Argument("a", "Long"), Argument("b", "Long"), Argument("c", "Long"), Argument("d", "Long")});
    list.Select({1, 2});
    list.MoveUp();
    EXPECT_EQ(Names(list), "b c a d");
    EXPECT_EQ(list.Selected(), (Rows{0, 1}));
    list.Select({0, 3});
    list.MoveUp();
    EXPECT_EQ(Names(list), "b c d a") << "the first stays where it is";
    list.Select({0, 1});
    list.MoveDown();
    EXPECT_EQ(Names(list), "d b c a");
    EXPECT_EQ(list.Selected(), (Rows{1, 2}));
}

TEST_F(ArgumentListTest, MovingAnOptionalArgumentUpForcesTheOneAboveIt)
{
    AnswerWith({Answer::Yes});
    ArgumentList list = List({Argument("a", "Long"), Argument("b", "Long"), OptionalArgument("c", "Long")});
    list.Select({2});
    list.MoveUp();
    EXPECT_EQ(Told(), Texts{std::string("Moving this Argument up will force the b") + kForced});
    EXPECT_EQ(Titles(), Texts{"Optional Parameter Move Confirmation"});
    EXPECT_EQ(messages.Asked().front().Offered, Buttons::YesNo);
    EXPECT_EQ(messages.Asked().front().Default, Answer::No);
    EXPECT_EQ(Names(list), "a c? b?");
}

TEST_F(ArgumentListTest, ARefusedMoveChangesNothing)
{
    AnswerWith({Answer::No, Answer::No});
    ArgumentList list = List({Argument("a", "Long"), OptionalArgument("b", "Long")});
    list.Select({1});
    list.MoveUp();
    list.Select({0});
    list.MoveDown();
    EXPECT_EQ(Names(list), "a b?");
    EXPECT_EQ(list.Selected(), Rows{0});
    EXPECT_FALSE(list.IsModified());
    EXPECT_EQ(messages.Asked().size(), 2U);
}

TEST_F(ArgumentListTest, MovingARequiredArgumentDownForcesIt)
{
    AnswerWith({Answer::Yes});
    ArgumentList list = List({Argument("a", "Long"), OptionalArgument("b", "Long")});
    list.Select({0});
    list.MoveDown();
    EXPECT_EQ(Told(), Texts{std::string("Moving this Argument down will force the a") + kForced});
    EXPECT_EQ(Names(list), "b? a?");
}

TEST_F(ArgumentListTest, OptionalArgumentsChangePlacesWithoutAQuestion)
{
    ArgumentList list = List({OptionalArgument("a", "Long"), OptionalArgument("b", "Long")});
    list.Select({1});
    list.MoveUp();
    EXPECT_EQ(Names(list), "b? a?");
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(ArgumentListTest, KeysStandForCommands)
{
    AnswerWith({Answer::Ok});
    dialogs.Argument = [](frmAddEditArgument& form) {
        form.txtArgumentName = "d";
        return form.cmdOK_Click();
    };
    ArgumentList list = ThreeRequired();
    list.KeyDown(ArgumentKey::Insert);
    EXPECT_EQ(Names(list), "a b c d");
    list.KeyDown(ArgumentKey::ControlUp);
    EXPECT_EQ(Names(list), "a b d c");
    list.KeyDown(ArgumentKey::ControlDown);
    EXPECT_EQ(Names(list), "a b c d");
    list.KeyDown(ArgumentKey::Delete);
    EXPECT_EQ(Names(list), "a b c");
    EXPECT_EQ(kArgumentKeysHelp, "Insert'           - Adds a new argument.\r\n"
                                 "Delete'           - Deletes the currently selected argument\r\n"
                                 "CTRL-Up Arrow     - Moves the selected argument up one\r\n"
                                 "CTRL-Down Arrow   - Moves the selected argument down one");
}

TEST_F(ArgumentListTest, WithNothingSelectedTheCommandsHaveNothingToDo)
{
    ArgumentList list = ThreeRequired();
    EXPECT_FALSE(list.CanEdit() || list.CanDelete() || list.CanMoveUp() || list.CanMoveDown());
    list.Edit();
    list.Delete();
    list.MoveUp();
    list.MoveDown();
    EXPECT_EQ(Names(list), "a b c");
    list.Select({7, 1, 1});
    EXPECT_EQ(list.Selected(), Rows{1}) << "rows that are there, once";
}

TEST_F(ArgumentListTest, AFailureIsReportedUnderTheDialogsName)
{
    ArgumentList list = ThreeRequired();
    dialogs.Argument = [](frmAddEditArgument&) -> bool { throw RuntimeError(5, "Test", "no form"); };
    list.New();
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Place.ModuleName, "frmAddEditMethod");
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "New");
    EXPECT_EQ(Names(list), "a b c");
}

} // namespace
} // namespace veldrane
