#include "shell/desktop/editors/built_in_members_dialog.h"

#include "editors/frm_built_in_events.h"
#include "editors/frm_built_in_methods.h"
#include "member_dialog_fixture.h"

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::HasSubstr;

class TheBuiltInMembersWindow : public MemberDialogTest
{
  protected:
    TheBuiltInMembersWindow()
    {
        item.TableName = "Orders";
        AddProperty(item, "OrderID", "Long");
        AddKey(item, 0, {"OrderID"});
    }

    void AddBuiltInMethod(const std::string& name)
    {
        item.TTCMembers.Add(name, name);
        AddMethod(item, name, true);
    }

    QWidget& ShowMethods()
    {
        methods.emplace(surroundings);
        return Open<BuiltInMembersDialog>(*methods);
    }

    QWidget& ShowEvents()
    {
        events.emplace(surroundings);
        return Open<BuiltInMembersDialog>(*events);
    }

    std::optional<frmBuiltInMethods> methods;
    std::optional<frmBuiltInEvents> events;
};

TEST_F(TheBuiltInMembersWindow, OffersMethodsAndAddsTheTickedOnes)
{
    AddBuiltInMethod("Clone");
    QWidget& dialog = ShowMethods();
    EXPECT_EQ(dialog.objectName(), u"frmBuiltInMethods"_s);
    EXPECT_EQ(dialog.windowTitle(), u"Add Built-In Methods"_s);
    EXPECT_EQ(Focused(), "lstMethods");
    EXPECT_EQ(Rows(dialog, "lstMethods").at(2),
              "Update|Update the current record, writing changed properties to fields.");
    EXPECT_EQ(Rows(dialog, "lstMethods").at(3), "+Clone|Create an independent duplicate of the current class values.");
    EXPECT_TRUE(Find<EditorList>(dialog, "lstMethods").topLevelItem(3)->isDisabled());
    EXPECT_THAT(Code(dialog), HasSubstr("Function Add("));
    ClickRow(dialog, "lstMethods", 4);
    EXPECT_THAT(Code(dialog), HasSubstr("Sub Clear("));
    Press(Qt::Key_Space);
    Photograph(dialog, "frmBuiltInMethods");
    Click(dialog, "cmdOK");
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    EXPECT_EQ(MethodNames(), (Texts{"Clone", "Clear"}));
}

TEST_F(TheBuiltInMembersWindow, TicksSeveralRowsByTheKeyboardAlone)
{
    QWidget& dialog = ShowMethods();
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Space);
    for (const std::string& row : Rows(dialog, "lstMethods"))
        EXPECT_EQ(row.front(), '+') << row;
    Press(Qt::Key_F, Qt::AltModifier);
    EXPECT_EQ(Focused(), "txtFilter");
    Write("duplic");
    EXPECT_EQ(Rows(dialog, "lstMethods").size(), 1U);
    Press(Qt::Key_Down);
    Press(Qt::Key_Space);
    EXPECT_EQ(Rows(dialog, "lstMethods").front().front(), 'C') << "no more ticked";
    Press(Qt::Key_F, Qt::AltModifier);
    Press(Qt::Key_Return);
    EXPECT_EQ(Focused(), "lstMethods");
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    EXPECT_FALSE(item.TTCMethods.Contains("Clone"));
    EXPECT_TRUE(item.TTCMethods.Contains("Retrieve"));
}

TEST_F(TheBuiltInMembersWindow, SaysWhyARowWouldBePassedOver)
{
    AddOwnMethod("ADD");
    QWidget& dialog = ShowMethods();
    EXPECT_EQ(TroubleIn(dialog, "lblTrouble"), methods->lstMethods().front().Trouble);
    EXPECT_NE(TroubleIn(dialog, "lblTrouble"), "");
    EXPECT_EQ(Code(dialog), "");
    Photograph(dialog, "frmBuiltInMethods-trouble");
    ClickRow(dialog, "lstMethods", 1);
    EXPECT_EQ(TroubleIn(dialog, "lblTrouble"), "");
    Type(dialog, "txtFilter", "no such row");
    EXPECT_EQ(Code(dialog), "");
}

TEST_F(TheBuiltInMembersWindow, SaysThatAMethodFindsNoRowAndLeavesItOut)
{
    item.TTCKeys.Clear();
    QWidget& dialog = ShowMethods();
    ClickRow(dialog, "lstMethods", 1);
    EXPECT_THAT(TroubleIn(dialog, "lblTrouble"), HasSubstr("There is no Identity Column"));
    Press(Qt::Key_Space);
    Photograph(dialog, "frmBuiltInMethods-no-key");
    Click(dialog, "cmdOK");
    EXPECT_EQ(Titles(), Texts{"No Row Identifier Found"});
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    EXPECT_EQ(MethodNames(), Texts{});
}

TEST_F(TheBuiltInMembersWindow, OffersTheEventsOfTheMembersThatTheClassHas)
{
    AddBuiltInMethod("Add");
    QWidget& dialog = ShowEvents();
    EXPECT_EQ(dialog.objectName(), u"frmBuiltInEvents"_s);
    EXPECT_EQ(dialog.windowTitle(), u"Add Built-In Events"_s);
    EXPECT_EQ(Rows(dialog, "lstEvents").front(),
              "RecordAdded|This event triggers when a database record has been successfully added.");
    EXPECT_EQ(Code(dialog), "Public Event RecordAdded(ByRef aOrder as Order)\n");
    Press(Qt::Key_Space);
    Photograph(dialog, "frmBuiltInEvents");
    Click(dialog, "cmdOK");
    EXPECT_EQ(EventNames(), Texts{"RecordAdded"});
}

TEST_F(TheBuiltInMembersWindow, CancelLeavesTheClassAsItWas)
{
    const std::string before = Saved();
    QWidget& dialog = ShowMethods();
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Space);
    Click(dialog, "cmdCancel");
    EXPECT_TRUE(IsClosedBy(QDialog::Rejected));
    EXPECT_EQ(Saved(), before);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(TheBuiltInMembersWindow, AClassThatHasAllCanOnlyBeLeft)
{
    for (const char* name : {"Add", "Delete", "Update", "Clone", "Clear", "Retrieve", "RetrieveList"})
        AddBuiltInMethod(name);
    QWidget& dialog = ShowMethods();
    ClickRow(dialog, "lstMethods", 0);
    EXPECT_EQ(Rows(dialog, "lstMethods").front().front(), '+');
    EXPECT_EQ(Code(dialog), "");
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(IsClosedBy(QDialog::Rejected));
}

TEST_F(TheBuiltInMembersWindow, BothAreShownByTheEditors)
{
    methods.emplace(surroundings);
    events.emplace(surroundings);
    const Act cancel = [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); };
    WithDialogs(
        [&] {
            EXPECT_FALSE(shown.Show(*methods));
            EXPECT_FALSE(shown.Show(*events));
        },
        {cancel, cancel});
}

} // namespace
} // namespace veldrane::testing
