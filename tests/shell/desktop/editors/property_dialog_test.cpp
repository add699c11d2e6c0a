#include "shell/desktop/editors/property_dialog.h"

#include "datasource/builtin_members.h"
#include "property_dialog_fixture.h"

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::Contains;
using ::testing::ElementsAre;

struct ThePropertyWindow : PropertyDialogFixture
{
    QWidget& Add()
    {
        form.emplace(surroundings);
        return Open<PropertyDialog>(*form);
    }

    QWidget& Edit(const std::shared_ptr<TTCProperty>& property)
    {
        form.emplace(surroundings, property);
        return Open<PropertyDialog>(*form);
    }

    std::shared_ptr<TTCProperty> total = AddField("Total", "Currency");
    std::optional<frmAddEditProperty> form;
};

TEST_F(ThePropertyWindow, AddsWhatIsTypedAndChosen)
{
    QWidget& window = Add();
    EXPECT_EQ(window.windowTitle(), u"Add New Property"_s);
    EXPECT_EQ(Focused(), "txtPropertyName");
    EXPECT_EQ(Combo("cmbDataType").currentText(), u"String"_s);
    EXPECT_EQ(Combo("cmbScope").currentText(), u"Public"_s);
    Type(window, "txtPropertyName", "Weight");
    QTest::keyClick(&Combo("cmbDataType"), Qt::Key_D);
    EXPECT_EQ(Combo("cmbDataType").currentText(), u"Date"_s);
    QTest::keyClick(&Combo("cmbScope"), Qt::Key_End);
    ClickBox("chkPropertyLetSet");
    ClickBox("chkDefaultProperty");
    Photograph(window, "frmAddEditProperty");
    Click(window, "cmdOK");
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    const auto weight = item->TTCProperties.Item("Weight");
    ASSERT_TRUE(weight);
    EXPECT_EQ(weight->DataType, "Date");
    EXPECT_EQ(weight->Scope, "Friend");
    EXPECT_TRUE(weight->PropertyGet && weight->DefaultProperty);
    EXPECT_FALSE(weight->PropertyLetSet);
}

TEST_F(ThePropertyWindow, IsUsedByTheKeyboardAlone)
{
    Add();
    QTest::keyClicks(QApplication::focusWidget(), u"Weight"_s);
    Texts order;
    for (int control = 0; control < 8; ++control) {
        Press(Qt::Key_Tab);
        order.push_back(Focused());
    }
    EXPECT_THAT(order, ElementsAre("cmbDataType", "cmbScope", "chkPropertyGet", "chkPropertyLetSet",
                                   "chkDefaultProperty", "lstPreview", "cmdOK", "cmdCancel"));
    Press(Qt::Key_G, Qt::AltModifier);
    EXPECT_FALSE(form->chkPropertyGet);
    Press(Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(Focused(), "cmbScope");
    Press(Qt::Key_P);
    EXPECT_EQ(form->cmbScope, "Private");
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    EXPECT_EQ(item->TTCProperties.Item("Weight")->Scope, "Private");
}

TEST_F(ThePropertyWindow, ChangesAProperty)
{
    total->Scope = "Global";
    total->DataType = "Customer";
    QWidget& window = Edit(total);
    EXPECT_EQ(window.windowTitle(), u"Edit Total"_s);
    EXPECT_EQ(Combo("cmbDataType").currentText(), u"Customer"_s);
    EXPECT_EQ(Combo("cmbScope").currentText(), u"Global"_s);
    Type(window, "txtPropertyName", "Sum");
    QTest::keyClick(&Combo("cmbScope"), Qt::Key_Home);
    EXPECT_EQ(Combo("cmbScope").findText(u"Global"_s), 3);
    Click(window, "cmdOK");
    EXPECT_THAT(PropertyNames(), ElementsAre("Sum"));
    EXPECT_EQ(total->Scope, "Public");
    EXPECT_EQ(total->DataType, "Customer");
}

TEST_F(ThePropertyWindow, ClosesWhatTheCodeOfABuiltInPropertyDoesNotFollow)
{
    AcceptBuiltInProperties(edit, {"Modified"});
    QWidget& window = Edit(item->TTCProperties.Item("Modified"));
    for (const char* control :
         {"txtPropertyName", "cmbDataType", "cmbScope", "chkPropertyGet", "chkPropertyLetSet", "chkDefaultProperty"}) {
        EXPECT_FALSE(IsEnabled(control)) << control;
        EXPECT_FALSE(Find<QWidget>(window, control).toolTip().isEmpty()) << control;
    }
    EXPECT_EQ(Focused(), "lstPreview");
    EXPECT_EQ(Told("lblRoutinesTrouble"), "");
    Photograph(window, "frmAddEditProperty-built-in");
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
}

TEST_F(ThePropertyWindow, OpensWithoutAComplaint)
{
    QWidget& window = Add();
    EXPECT_EQ(Told("lblPropertyNameTrouble"), "");
    Type(window, "txtPropertyName", "W");
    Type(window, "txtPropertyName", "");
    EXPECT_NE(Told("lblPropertyNameTrouble"), "");
}

TEST_F(ThePropertyWindow, TellsWhatIsWrongAsItIsTyped)
{
    AddMethod("Clear");
    QWidget& window = Add();
    for (const auto& [typed, words] :
         {std::pair{"To wn", "Invalid Property Name. Please enter a valid name."},
          {"clear", "The property name 'clear' conflicts with an existing member of the Order class. Please enter "
                    "another name."},
          {"TOTAL", "The property name 'TOTAL' conflicts with an existing member of the Order class. Please enter "
                    "another name."},
          {"Date", "The name: 'Date' is invalid because it is either a reserved word or contains invalid characters. "
                   "It has been changed to 'aDate'"},
          {"Weight", ""}}) {
        Type(window, "txtPropertyName", typed);
        EXPECT_EQ(Told("lblPropertyNameTrouble"), words);
        EXPECT_EQ(Find<QWidget>(window, "txtPropertyName").accessibleDescription().toStdString(), words);
    }
    Type(window, "txtPropertyName", "R&D");
    EXPECT_EQ(Told("lblPropertyNameTrouble"), "Invalid Property Name. Please enter a valid name.");
}

TEST_F(ThePropertyWindow, KeepsWhatWasTypedWhenItIsRefused)
{
    const std::string before = Saved();
    QWidget& window = Add();
    Type(window, "txtPropertyName", "total");
    ClickBox("chkPropertyGet");
    ClickBox("chkPropertyLetSet");
    EXPECT_EQ(Told("lblRoutinesTrouble"),
              "A property needs a Property Get or a Property Let. Please select at least one of them.");
    Photograph(window, "frmAddEditProperty-troubles");
    Click(window, "cmdOK");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(TextOf("txtPropertyName"), "total");
    EXPECT_EQ(Focused(), "txtPropertyName");
    EXPECT_EQ(Find<QLineEdit>(window, "txtPropertyName").selectedText(), u"total"_s);
    Type(window, "txtPropertyName", "Weight");
    Click(window, "cmdOK");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Focused(), "chkPropertyGet");
    EXPECT_EQ(messages.Asked().size(), 2U);
    EXPECT_EQ(Saved(), before);
    Press(Qt::Key_Space);
    EXPECT_EQ(Told("lblRoutinesTrouble"), "");
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
}

TEST_F(ThePropertyWindow, ShowsTheNameThatOKHasMadeOfWhatWasTyped)
{
    AddMethod("aDate");
    QWidget& window = Add();
    Type(window, "txtPropertyName", "Date");
    Press(Qt::Key_Return);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(TextOf("txtPropertyName"), "aDate");
}

TEST_F(ThePropertyWindow, TicksTheDefaultOnlyWhereThePersonAgrees)
{
    total->DefaultProperty = true;
    AnswerWith({Answer::No, Answer::Yes});
    QWidget& window = Add();
    Type(window, "txtPropertyName", "Weight");
    ClickBox("chkDefaultProperty");
    EXPECT_FALSE(Box("chkDefaultProperty").isChecked());
    ClickBox("chkDefaultProperty");
    EXPECT_TRUE(Box("chkDefaultProperty").isChecked());
    EXPECT_EQ(messages.Asked().size(), 2U);
}

TEST_F(ThePropertyWindow, LeavesTheClassAsItWasWhenItIsCancelled)
{
    const std::string before = Saved();
    for (const bool byKey : {true, false}) {
        QWidget& window = Edit(total);
        Type(window, "txtPropertyName", "Sum");
        ClickBox("chkPropertyGet");
        ClickBox("chkDefaultProperty");
        if (byKey)
            Press(Qt::Key_Escape);
        else
            Click(window, "cmdCancel");
        EXPECT_TRUE(IsClosedBy(QDialog::Rejected));
        EXPECT_EQ(Saved(), before);
        EXPECT_THAT(Members(), ElementsAre("Total"));
    }
}

TEST_F(ThePropertyWindow, ShowsTheCodeOfWhatIsInHand)
{
    QWidget& window = Add();
    Type(window, "txtPropertyName", "Weight");
    EXPECT_THAT(Code(), Contains("Public Property Get Weight() as String"));
    QTest::keyClick(&Combo("cmbDataType"), Qt::Key_L);
    EXPECT_THAT(Code(), Contains("Public Property Get Weight() as Long"));
    ClickBox("chkPropertyLetSet");
    EXPECT_THAT(Code(), Contains("Friend Property Let Weight(ByVal vData as Long)"));
}

} // namespace
} // namespace veldrane::testing
