#include "shell/desktop/editors/event_dialog.h"

#include "member_dialog_fixture.h"

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class TheEventWindow : public MemberDialogTest
{
  protected:
    QWidget& Add()
    {
        form.emplace(surroundings);
        return Open<EventDialog>(*form);
    }

    QWidget& Edit(const std::string& key)
    {
        form.emplace(surroundings, item.TTCEvents.Item(key));
        return Open<EventDialog>(*form);
    }

    std::optional<frmAddEditEvent> form;
};

TEST_F(TheEventWindow, AddsAnEventByTheKeyboardAlone)
{
    QWidget& dialog = Add();
    EXPECT_EQ(dialog.windowTitle(), u"Add New Event"_s);
    Write("Paid");
    EXPECT_THAT(TabOrder(), ElementsAre("txtEventName", "lstArguments", "cmdNewArgument", "txtSignature", "lstPreview",
                                        "cmdOK", "cmdCancel"));
    WithInner([&] { Press(Qt::Key_W, Qt::AltModifier); }, NameItByKeys("anAmount"));
    EXPECT_EQ(Code(dialog), "Public Event Paid(ByRef anAmount as Variant)\n");
    Photograph(dialog, "frmAddEditEvent");
    Press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(Focused(), "txtEventName");
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    EXPECT_EQ(EventNames(), Texts{"Paid"});
    EXPECT_EQ(item.TTCEvents.Item("Paid")->TTCEventParameters.Count(), 1U);
}

TEST_F(TheEventWindow, ANameThatIsTakenKeepsIt)
{
    AddOwnEvent("Paid");
    AddOwnMethod("Pay");
    const std::string before = Saved();
    QWidget& dialog = Edit("Paid");
    EXPECT_EQ(dialog.windowTitle(), u"Edit Paid Method"_s) << "Method, for an event too";
    Type(dialog, "txtEventName", "pay");
    EXPECT_EQ(TroubleIn(dialog, "lblEventNameTrouble"), form->Trouble("txtEventName"));
    EXPECT_NE(TroubleIn(dialog, "lblEventNameTrouble"), "");
    Click(dialog, "cmdOK");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Told(), Texts{form->Trouble("txtEventName")});
    EXPECT_EQ(Focused(), "txtEventName");
    EXPECT_EQ(TextOf(dialog, "txtEventName"), "pay");
    Type(dialog, "txtEventName", "Payed");
    EXPECT_EQ(TroubleIn(dialog, "lblEventNameTrouble"), "");
    EXPECT_EQ(Saved(), before);
}

TEST_F(TheEventWindow, ABuiltInEventKeepsItsName)
{
    item.TTCMembers.Add("IsModified", "IsModified");
    AddEvent(item, "IsModified");
    StoreArguments({Argument("aOrder", "Order")}, item.TTCEvents.Item("IsModified")->TTCEventParameters);
    QWidget& dialog = Edit("IsModified");
    EXPECT_FALSE(IsEnabled(dialog, "txtEventName"));
    EXPECT_FALSE(IsEnabled(dialog, "cmdNewArgument"));
    EXPECT_THAT(Find<QWidget>(dialog, "cmdNewArgument").toolTip().toStdString(), HasSubstr(form->WhyFixed()));
    EXPECT_EQ(Focused(), "lstArguments");
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
}

TEST_F(TheEventWindow, NoArgumentIsOptional)
{
    QWidget& dialog = Add();
    WithDialogs([&] { Click(dialog, "cmdNewArgument"); }, {[](QWidget& argument) {
                    EXPECT_FALSE(IsEnabled(argument, "chkOptional"));
                    EXPECT_NE(Find<QWidget>(argument, "chkOptional").toolTip(), u""_s);
                    QTest::keyClick(&argument, Qt::Key_Escape);
                }});
}

TEST_F(TheEventWindow, CancelLeavesTheClassAsItWas)
{
    ttcEvent& event = AddOwnEvent("Paid");
    StoreArguments({Argument("anAmount", "Currency"), Argument("aRate", "Double")}, event.TTCEventParameters);
    const std::string before = Saved();
    AnswerWith({Answer::No, Answer::Yes});
    QWidget& dialog = Edit("Paid");
    ClickRow(dialog, "lstArguments", 1);
    Click(dialog, "cmdMoveUp");
    EXPECT_EQ(Code(dialog), "Public Event Paid(ByRef aRate as Double, ByRef anAmount as Currency)\n");
    dialog.close();
    EXPECT_TRUE(dialog.isVisible());
    Click(dialog, "cmdCancel");
    EXPECT_TRUE(IsClosedBy(QDialog::Rejected));
    EXPECT_THAT(Titles(), ElementsAre("Discard Changes?", "Discard Changes?"));
    EXPECT_EQ(Saved(), before);
}

TEST_F(TheEventWindow, IsShownByTheEditors)
{
    form.emplace(surroundings);
    WithDialogs([&] { EXPECT_FALSE(shown.Show(*form)); },
                {[](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }});
    EXPECT_TRUE(EventNames().empty());
}

} // namespace
} // namespace veldrane::testing
