#include "shell/desktop/editors/method_dialog.h"

#include "member_dialog_fixture.h"

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* kEveryCommand = "cmdNewArgument cmdEditArgument cmdDeleteArgument cmdMoveUp cmdMoveDown";

class TheMethodWindow : public MemberDialogTest
{
  protected:
    QWidget& Add()
    {
        form.emplace(surroundings);
        return Open<MethodDialog>(*form);
    }

    QWidget& Edit(const std::string& key)
    {
        form.emplace(surroundings, item.TTCMethods.Item(key));
        return Open<MethodDialog>(*form);
    }

    TTCMethod& AddPayMethod()
    {
        TTCMethod& method = AddOwnMethod("Pay");
        method.ReturnDataType = "Currency";
        method.Scope = "Friend";
        StoreArguments(
            {Argument("anAmount", "Currency"), Argument("aRate", "Double"), OptionalArgument("aNote", "String")},
            method.Arguments);
        return method;
    }

    // The buttons of the list that can be pressed.
    std::string Commands()
    {
        std::string commands;
        for (const QString& name : QString::fromLatin1(kEveryCommand).split(u' '))
            if (IsEnabled(*window, name.toStdString()))
                commands += (commands.empty() ? "" : " ") + name.toStdString();
        return commands;
    }

    std::optional<frmAddEditMethod> form;
};

TEST_F(TheMethodWindow, AddsAMethodThatIsClickedTogether)
{
    QWidget& dialog = Add();
    EXPECT_EQ(dialog.windowTitle(), u"Add New Method"_s);
    EXPECT_EQ(Focused(), "txtMethodName");
    Type(dialog, "txtMethodName", "Pay");
    QTest::keyClick(&Find<QComboBox>(dialog, "cmbReturnType"), Qt::Key_C);
    EXPECT_EQ(Find<QComboBox>(dialog, "cmbReturnType").currentText(), u"Currency"_s);
    QTest::keyClick(&Find<QComboBox>(dialog, "cmbScope"), Qt::Key_End);
    Click(dialog, "chkDefault");
    WithDialogs([&] { Click(dialog, "cmdNewArgument"); }, {NameIt("anAmount")});
    EXPECT_THAT(Rows(dialog, "lstArguments"), ElementsAre("anAmount|anAmount as Variant"));
    EXPECT_EQ(TextOf(dialog, "txtSignature"), "anAmount as Variant");
    EXPECT_THAT(Code(dialog), HasSubstr("Friend Function Pay(ByRef anAmount as Variant) as Currency"));
    Click(dialog, "cmdOK");
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    const auto method = item.TTCMethods.Item("Pay");
    ASSERT_TRUE(method);
    EXPECT_EQ(method->Scope, "Friend");
    EXPECT_EQ(method->ReturnDataType, "Currency");
    EXPECT_TRUE(method->DefaultMethod);
    EXPECT_TRUE(method->Arguments.Item("anAmount"));
}

TEST_F(TheMethodWindow, ShowsAMethodThatIsThere)
{
    TTCMethod& method = AddPayMethod();
    method.DefaultMethod = true;
    method.ReturnDataType = "Customer";
    QWidget& dialog = Edit("Pay");
    EXPECT_EQ(dialog.windowTitle(), u"Edit Pay Method"_s);
    EXPECT_EQ(TextOf(dialog, "txtMethodName"), "Pay");
    EXPECT_EQ(Find<QComboBox>(dialog, "cmbReturnType").currentText(), u"Customer"_s) << "a type of the person's";
    EXPECT_EQ(Find<QComboBox>(dialog, "cmbReturnType").itemText(0), u"(None)"_s);
    EXPECT_EQ(Find<QComboBox>(dialog, "cmbScope").currentText(), u"Friend"_s);
    EXPECT_TRUE(Find<QCheckBox>(dialog, "chkDefault").isChecked());
    EXPECT_THAT(Rows(dialog, "lstArguments"), ElementsAre("anAmount|anAmount as Currency", "aRate|aRate as Double",
                                                          "aNote|Optional aNote as String"));
    Photograph(dialog, "frmAddEditMethod");
}

TEST_F(TheMethodWindow, IsUsedByTheKeyboardAlone)
{
    QWidget& dialog = Add();
    Write("Pay");
    EXPECT_THAT(TabOrder(), ElementsAre("txtMethodName", "cmbReturnType", "cmbScope", "chkDefault", "lstArguments",
                                        "cmdNewArgument", "txtSignature", "lstPreview", "cmdOK", "cmdCancel"));
    Press(Qt::Key_R, Qt::AltModifier);
    EXPECT_EQ(Focused(), "cmbReturnType");
    Press(Qt::Key_B);
    Press(Qt::Key_D, Qt::AltModifier);
    Press(Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(Focused(), "lstArguments");
    for (const char* name : {"one", "two", "three"})
        WithInner([&] { Press(Qt::Key_Insert); }, NameItByKeys(name));
    Press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(TextOf(dialog, "txtSignature"), "one as Variant, three as Variant, two as Variant");
    Press(Qt::Key_Down, Qt::ControlModifier);
    Press(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(TextOf(dialog, "txtSignature"), "one as Variant, two as Variant, three as Variant");
    AnswerWith({Answer::Ok});
    Press(Qt::Key_Delete);
    WithInner([&] { Press(Qt::Key_Return); }, NameItByKeys("second"));
    EXPECT_EQ(TextOf(dialog, "txtSignature"), "one as Variant, second as Variant");
    Press(Qt::Key_N, Qt::AltModifier);
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    const auto method = item.TTCMethods.Item("Pay");
    ASSERT_TRUE(method);
    EXPECT_EQ(method->ReturnDataType, "Byte");
    EXPECT_TRUE(method->DefaultMethod);
    EXPECT_EQ(method->Arguments.Count(), 2U);
}

TEST_F(TheMethodWindow, SaysWhatIsWrongWithANameWhileItIsTyped)
{
    AddPayMethod();
    AddOwnEvent("Paid");
    const std::string before = Saved();
    const std::string told =
        "The method name 'PAID' conflicts with an existing member of the Order class. Please enter another name.";
    QWidget& dialog = Edit("Pay");
    EXPECT_EQ(TroubleIn(dialog, "lblMethodNameTrouble"), "");
    Type(dialog, "txtMethodName", "PAID");
    EXPECT_EQ(TroubleIn(dialog, "lblMethodNameTrouble"), told);
    EXPECT_EQ(Find<QLineEdit>(dialog, "txtMethodName").accessibleDescription().toStdString(), told);
    Photograph(dialog, "frmAddEditMethod-trouble");
    Click(dialog, "cmdOK");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Told(), Texts{told});
    EXPECT_EQ(TextOf(dialog, "txtMethodName"), "PAID");
    EXPECT_EQ(Find<QLineEdit>(dialog, "txtMethodName").selectedText(), u"PAID"_s);
    EXPECT_EQ(Saved(), before);
    Write("Paying");
    EXPECT_EQ(TroubleIn(dialog, "lblMethodNameTrouble"), "");
    Click(dialog, "cmdOK");
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    EXPECT_EQ(MethodNames(), Texts{"Paying"});
}

TEST_F(TheMethodWindow, BadNamesAreToldBesideTheField)
{
    QWidget& dialog = Add();
    const int width = dialog.width();
    const Texts names{"1st", "Print", "a b", "x-y", std::string(300, 'n'), "a&b", "<b>x</b>"};
    for (const std::string& name : names) {
        Type(dialog, "txtMethodName", name);
        EXPECT_EQ(TextOf(dialog, "txtMethodName"), name) << "what is typed stays";
        EXPECT_EQ(Find<QLineEdit>(dialog, "txtMethodName").accessibleDescription().toStdString(),
                  form->Trouble("txtMethodName"));
        EXPECT_EQ(TroubleIn(dialog, "lblMethodNameTrouble").empty(), form->Trouble("txtMethodName").empty()) << name;
        QApplication::processEvents();
        EXPECT_EQ(dialog.width(), width) << name;
    }
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(TheMethodWindow, TheCommandsFollowTheSelection)
{
    AddPayMethod();
    QWidget& dialog = Edit("Pay");
    EXPECT_EQ(Commands(), "cmdNewArgument");
    ClickRow(dialog, "lstArguments", 0);
    EXPECT_EQ(Commands(), "cmdNewArgument cmdEditArgument cmdDeleteArgument cmdMoveDown");
    ClickRow(dialog, "lstArguments", 1);
    EXPECT_EQ(Commands(), kEveryCommand);
    ClickRow(dialog, "lstArguments", 2, Qt::ControlModifier);
    EXPECT_EQ(Commands(), "cmdNewArgument cmdDeleteArgument cmdMoveUp");
}

TEST_F(TheMethodWindow, SeveralArgumentsMoveAndGoTogether)
{
    AddPayMethod();
    QWidget& dialog = Edit("Pay");
    ClickRow(dialog, "lstArguments", 0);
    ClickRow(dialog, "lstArguments", 1, Qt::ShiftModifier);
    AnswerWith({Answer::Yes, Answer::Yes, Answer::Ok, Answer::Ok});
    Click(dialog, "cmdMoveDown");
    EXPECT_EQ(TextOf(dialog, "txtSignature"),
              "Optional aNote as String, Optional anAmount as Currency, Optional aRate as Double");
    EXPECT_THAT(Find<EditorList>(dialog, "lstArguments").SelectedRows(), ElementsAre(1U, 2U));
    Click(dialog, "cmdDeleteArgument");
    EXPECT_EQ(TextOf(dialog, "txtSignature"), "Optional aNote as String");
    EXPECT_THAT(Titles(), ElementsAre("Optional Parameter Move Confirmation", "Optional Parameter Move Confirmation",
                                      "Confirm Delete", "Confirm Delete"));
}

TEST_F(TheMethodWindow, ADoubleClickEditsAnArgument)
{
    AddPayMethod();
    QWidget& dialog = Edit("Pay");
    auto& list = Find<EditorList>(dialog, "lstArguments");
    const QPoint place = list.visualItemRect(list.topLevelItem(1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
    WithDialogs([&] { QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place); }, {[](QWidget& argument) {
                    EXPECT_EQ(argument.windowTitle(), u"Edit Argument"_s);
                    EXPECT_EQ(TextOf(argument, "txtArgumentName"), "aRate");
                    QTest::keyClick(&argument, Qt::Key_Escape);
                }});
    EXPECT_EQ(Rows(dialog, "lstArguments").at(1), "aRate|aRate as Double");
}

TEST_F(TheMethodWindow, TheKeysAreTold)
{
    auto& list = Find<EditorList>(Add(), "lstArguments");
    EXPECT_THAT(list.toolTip().toStdString(), HasSubstr("CTRL-Up Arrow     - Moves the selected argument up one"));
}

TEST_F(TheMethodWindow, ABuiltInMethodKeepsItsName)
{
    item.TTCMembers.Add("Clear", "Clear");
    AddMethod(item, "Clear", true);
    QWidget& dialog = Edit("Clear");
    for (const std::string name : {"txtMethodName", "cmbReturnType", "cmbScope", "chkDefault", "cmdNewArgument"}) {
        EXPECT_FALSE(IsEnabled(dialog, name)) << name;
        EXPECT_THAT(Find<QWidget>(dialog, name).toolTip().toStdString(), HasSubstr(" is generated ")) << name;
    }
    EXPECT_EQ(Focused(), "lstArguments");
    Press(Qt::Key_Insert);
    EXPECT_TRUE(Rows(dialog, "lstArguments").empty());
    Photograph(dialog, "frmAddEditMethod-built-in");
    Click(dialog, "cmdOK");
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
}

TEST_F(TheMethodWindow, AnotherDefaultIsAskedFor)
{
    AddPayMethod();
    AddOwnMethod("First").DefaultMethod = true;
    AnswerWith({Answer::No, Answer::Yes});
    QWidget& dialog = Edit("Pay");
    Click(dialog, "chkDefault");
    EXPECT_FALSE(Find<QCheckBox>(dialog, "chkDefault").isChecked());
    Click(dialog, "chkDefault");
    EXPECT_TRUE(Find<QCheckBox>(dialog, "chkDefault").isChecked());
    EXPECT_THAT(Titles(), ElementsAre("Confirm Change Default Method", "Confirm Change Default Method"));
}

TEST_F(TheMethodWindow, CancelLeavesTheClassAsItWas)
{
    AddPayMethod();
    const std::string before = Saved();
    AnswerWith({Answer::No, Answer::Ok, Answer::Yes});
    QWidget& dialog = Edit("Pay");
    Type(dialog, "txtMethodName", "Settle");
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible()) << "the changes are not to go";
    EXPECT_EQ(TextOf(dialog, "txtMethodName"), "Settle");
    Click(dialog, "chkDefault");
    ClickRow(dialog, "lstArguments", 0);
    Click(dialog, "cmdDeleteArgument");
    Click(dialog, "cmdCancel");
    EXPECT_TRUE(IsClosedBy(QDialog::Rejected));
    EXPECT_THAT(Titles(), ElementsAre("Discard Changes?", "Confirm Delete", "Discard Changes?"));
    EXPECT_EQ(Saved(), before);
}

TEST_F(TheMethodWindow, AnUntouchedOneIsLeftWithoutAQuestion)
{
    AddPayMethod();
    const std::string before = Saved();
    QWidget& dialog = Edit("Pay");
    dialog.close();
    EXPECT_TRUE(IsClosedBy(QDialog::Rejected));
    EXPECT_TRUE(messages.Asked().empty());
    EXPECT_EQ(Saved(), before);
}

TEST_F(TheMethodWindow, IsShownByTheEditors)
{
    form.emplace(surroundings);
    WithDialogs([&] { EXPECT_TRUE(shown.Show(*form)); }, {[](QWidget& dialog) {
                    Type(dialog, "txtMethodName", "Pay");
                    Click(dialog, "cmdOK");
                }});
    EXPECT_EQ(MethodNames(), Texts{"Pay"});
}

} // namespace
} // namespace veldrane::testing
