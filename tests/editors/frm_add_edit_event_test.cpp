#include "editors/frm_add_edit_event.h"

#include "editors/frm_add_edit_argument.h"
#include "member_fixture.h"

namespace veldrane {
namespace {

using testing::Texts;

class AddEditEventTest : public testing::MemberTest
{
  protected:
    AddEditEventTest()
    {
        StoreArguments({Argument("aReason", "String")}, AddOwnEvent("Refused").TTCEventParameters);
        AddOwnEvent("Last");
    }
};

TEST_F(AddEditEventTest, ANewEventDoesNotBeginWithAComplaint)
{
    frmAddEditEvent form(surroundings);
    EXPECT_EQ(form.Trouble("txtEventName"), "");
    form.txtEventName_Change("");
    EXPECT_NE(form.Trouble("txtEventName"), "");
}

TEST_F(AddEditEventTest, TheTitleSaysMethodForAnEventToo)
{
    EXPECT_EQ(frmAddEditEvent(surroundings).Caption(), "Add New Event");
    EXPECT_EQ(frmAddEditEvent(surroundings, item.TTCEvents.Item("Refused")).Caption(), "Edit Refused Method");
}

TEST_F(AddEditEventTest, OkAddsAnEventOfThePersons)
{
    frmAddEditEvent form(surroundings);
    form.txtEventName = "Paid";
    dialogs.Argument = [](frmAddEditArgument& argument) {
        argument.txtArgumentName = "anAmount";
        argument.cmbDataType = ":4";
        return argument.cmdOK_Click();
    };
    form.lstArguments().New();
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(EventNames(), (Texts{"Refused", "Last", "Paid"}));
    EXPECT_FALSE(item.TTCEvents.Item("Paid")->PlusEvent);
    EXPECT_EQ(item.TTCEvents.Item("Paid")->TTCEventParameters.Item("anAmount")->ParameterDataType, "Currency");
    EXPECT_TRUE(item.TTCMembers.Contains("Paid"));
    EXPECT_EQ(item.TTCEvents.LastIndex(), "Paid");
}

TEST_F(AddEditEventTest, ARenamedEventKeepsItsPlaceAndItsArguments)
{
    frmAddEditEvent form(surroundings, item.TTCEvents.Item("Refused"));
    EXPECT_EQ(form.txtEventName, "Refused");
    form.txtEventName = "Turned Down";
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Titles(), Texts{"Invalid Name Detected"});
    EXPECT_EQ(EventNames(), (Texts{"Turned_Down", "Last"}));
    EXPECT_EQ(item.TTCEvents.Item("Turned_Down")->TTCEventParameters.Count(), 1U);
    EXPECT_FALSE(item.TTCMembers.Contains("Refused"));
}

TEST_F(AddEditEventTest, TheDialogStaysWhileAMemberHasTheName)
{
    AddOwnMethod("Pay");
    const std::string before = Saved();
    frmAddEditEvent form(surroundings);
    Texts focus;
    const Connection listening =
        form.FocusWanted.Connect([&](std::string_view control) { focus.emplace_back(control); });
    form.txtEventName = "pay";
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_EQ(Titles(), Texts{"Duplicate Event Name"});
    EXPECT_EQ(
        Told(),
        Texts{"The event name 'pay' conflicts with an existing member of the Order class. Please enter another name."});
    EXPECT_EQ(form.Trouble("txtEventName"), Told().front());
    EXPECT_EQ(focus, Texts{"txtEventName"});
    EXPECT_EQ(Saved(), before);
}

TEST_F(AddEditEventTest, ABuiltInEventKeepsItsName)
{
    item.TTCEvents.Item("Refused")->PlusEvent = true;
    frmAddEditEvent form(surroundings, item.TTCEvents.Item("Refused"));
    EXPECT_FALSE(form.txtEventName_Enabled());
    EXPECT_TRUE(frmAddEditEvent(surroundings, item.TTCEvents.Item("Last")).txtEventName_Enabled());
    form.txtEventName = "Other";
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(EventNames(), (Texts{"Refused", "Last"}));
    EXPECT_TRUE(item.TTCEvents.Item("Refused")->PlusEvent);
}

TEST_F(AddEditEventTest, TheArgumentsOfABuiltInEventStay)
{
    item.TTCEvents.Item("Refused")->PlusEvent = true;
    frmAddEditEvent form(surroundings, item.TTCEvents.Item("Refused"));
    EXPECT_EQ(form.WhyFixed(), "The generated code raises the Refused event by this name, with these arguments.");
    EXPECT_EQ(form.lstArguments().WhyFixed(), form.WhyFixed());
    frmAddEditEvent own(surroundings, item.TTCEvents.Item("Last"));
    EXPECT_EQ(own.WhyFixed() + own.lstArguments().WhyFixed(), "");
}

TEST_F(AddEditEventTest, TheArgumentsOfADeletionFollowThoseOfDeleteByHand)
{
    ttcEvent& deleted = *item.TTCEvents.Item("Refused");
    deleted.EventName = "RecordDeleted";
    deleted.PlusEvent = true;
    frmAddEditEvent form(surroundings, item.TTCEvents.Item("Refused"));
    EXPECT_EQ(form.lstArguments().WhyFixed(), "");
    EXPECT_EQ(form.WhyFixed(), "The generated code raises the RecordDeleted event by this name.");
}

TEST_F(AddEditEventTest, NoArgumentThatMovesBecomesOptional)
{
    auto refused = item.TTCEvents.Item("Refused");
    StoreArguments({Argument("a", "Long"), OptionalArgument("b", "Long")}, // as older files have them
                   refused->TTCEventParameters);
    frmAddEditEvent form(surroundings, refused);
    form.lstArguments().Select({form.lstArguments().Rows().size() - 1});
    form.lstArguments().MoveUp();
    EXPECT_TRUE(messages.Asked().empty());
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_FALSE(item.TTCEvents.Item("Refused")->TTCEventParameters.Item("a")->OptionalIndicator);
}

TEST_F(AddEditEventTest, NoArgumentCanBeLeftOut)
{
    std::string why;
    dialogs.Argument = [&](frmAddEditArgument& argument) {
        why = argument.WhyNotOptional();
        return false;
    };
    frmAddEditEvent(surroundings).lstArguments().New();
    EXPECT_EQ(why, "Visual Basic lets no argument of an event be left out.");
}

TEST_F(AddEditEventTest, CancelOfAChangedEventAsks)
{
    const std::string before = Saved();
    frmAddEditEvent form(surroundings, item.TTCEvents.Item("Refused"));
    EXPECT_TRUE(form.cmdCancel_Click());
    form.txtEventName = "Paid";
    EXPECT_FALSE(form.cmdCancel_Click());
    AnswerWith({Answer::Yes});
    EXPECT_TRUE(form.cmdCancel_Click());
    EXPECT_EQ(Titles(), Texts{"Discard Changes?"});
    EXPECT_EQ(Told(), Texts{"This event has been modified, do you want to discard all changes to this event?"});
    EXPECT_EQ(Saved(), before);
}

TEST_F(AddEditEventTest, ChangedArgumentsAreAChange)
{
    AnswerWith({Answer::Ok});
    frmAddEditEvent form(surroundings, item.TTCEvents.Item("Refused"));
    form.lstArguments().Select({0});
    form.lstArguments().Delete();
    EXPECT_FALSE(form.cmdCancel_Click());
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(item.TTCEvents.Item("Refused")->TTCEventParameters.Count(), 0U);
}

TEST_F(AddEditEventTest, ThePreviewIsItsDeclaration)
{
    frmAddEditEvent form(surroundings, item.TTCEvents.Item("Refused"));
    form.txtEventName = "Denied";
    EXPECT_EQ(OutputsToText(form.Preview()), "Public Event Denied(ByRef aReason as String)\r\n");
    EXPECT_EQ(EventNames(), (Texts{"Refused", "Last"}));
}

TEST_F(AddEditEventTest, AnUntouchedEventStaysByteForByte)
{
    item.TTCEvents.Item("Refused")->TTCEventParameters.Item("aReason")->Index = 0;
    const std::string before = Saved();
    EXPECT_TRUE(frmAddEditEvent(surroundings, item.TTCEvents.Item("Refused")).cmdOK_Click());
    EXPECT_EQ(Saved(), before);
}

} // namespace
} // namespace veldrane
