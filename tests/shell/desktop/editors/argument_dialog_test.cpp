#include "shell/desktop/editors/argument_dialog.h"

#include "member_dialog_fixture.h"

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;

class TheArgumentWindow : public MemberDialogTest
{
  protected:
    frmAddEditArgument& Rules(const Arguments& list)
    {
        return form.emplace(surroundings, list, [](const Arguments& arguments) {
            TTCOutputs lines;
            for (const TTCParameter& argument : arguments)
                lines.Add(ArgumentSignature(argument), LineClass::Code);
            return lines;
        });
    }

    QWidget& Add(const Arguments& list)
    {
        Rules(list).AddArgument();
        return Open<ArgumentDialog>(*form);
    }

    QWidget& Edit(const Arguments& list, std::size_t position)
    {
        Rules(list).EditArgument(position);
        return Open<ArgumentDialog>(*form);
    }

    static std::string Signature(QWidget& dialog) { return Find<QLabel>(dialog, "lblSignature").text().toStdString(); }

    std::optional<frmAddEditArgument> form;
};

TEST_F(TheArgumentWindow, TakesAnArgumentByTheKeyboardAlone)
{
    QWidget& dialog = Add({Argument("first", "Long")});
    EXPECT_EQ(dialog.windowTitle(), u"Add Argument"_s);
    Write("aNote");
    EXPECT_THAT(TabOrder(), ElementsAre("txtArgumentName", "cmbDataType", "chkByVal", "chkArray", "chkOptional",
                                        "lstPreview", "cmdOK", "cmdCancel"));
    Press(Qt::Key_T, Qt::AltModifier);
    Press(Qt::Key_S);
    EXPECT_EQ(Find<QComboBox>(dialog, "cmbDataType").currentText(), u"String"_s);
    Press(Qt::Key_B, Qt::AltModifier);
    Press(Qt::Key_A, Qt::AltModifier);
    Press(Qt::Key_O, Qt::AltModifier);
    Press(Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(Focused(), "txtDefaultValue");
    Write("none");
    EXPECT_EQ(Signature(dialog), "Optional ByVal aNote() as String");
    EXPECT_EQ(Code(dialog), "first as Long\nOptional ByVal aNote() as String\n");
    Photograph(dialog, "frmAddEditArgument");
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    const TTCParameter argument = form->Argument();
    EXPECT_EQ(argument.VariableName, "aNote");
    EXPECT_EQ(argument.ParameterDataType, "String");
    EXPECT_TRUE(argument.ByValIndicator && argument.IsArray && argument.OptionalIndicator);
    EXPECT_EQ(argument.DefaultValue, "none");
}

TEST_F(TheArgumentWindow, ShowsAnArgumentThatIsThere)
{
    TTCParameter argument = OptionalArgument("aNote", "Customer");
    argument.DefaultValue = "nobody";
    argument.ByValIndicator = true;
    QWidget& dialog = Edit({Argument("first", "Long"), argument}, 1);
    EXPECT_EQ(dialog.windowTitle(), u"Edit Argument"_s);
    EXPECT_EQ(TextOf(dialog, "txtArgumentName"), "aNote");
    EXPECT_EQ(Find<QComboBox>(dialog, "cmbDataType").currentText(), u"Customer"_s);
    EXPECT_TRUE(Find<QCheckBox>(dialog, "chkByVal").isChecked());
    EXPECT_FALSE(Find<QCheckBox>(dialog, "chkArray").isChecked());
    EXPECT_TRUE(Find<QCheckBox>(dialog, "chkOptional").isChecked());
    EXPECT_EQ(TextOf(dialog, "txtDefaultValue"), "nobody");
}

TEST_F(TheArgumentWindow, ADefaultValueIsForAnOptionalArgumentAlone)
{
    QWidget& dialog = Add({});
    EXPECT_FALSE(IsEnabled(dialog, "txtDefaultValue"));
    Click(dialog, "chkOptional");
    EXPECT_TRUE(IsEnabled(dialog, "txtDefaultValue"));
    Type(dialog, "txtDefaultValue", "5");
    Click(dialog, "chkOptional");
    EXPECT_FALSE(IsEnabled(dialog, "txtDefaultValue"));
    EXPECT_EQ(TextOf(dialog, "txtDefaultValue"), "5") << "for a person who ticks it again";
}

TEST_F(TheArgumentWindow, OptionalIsRefusedBeforeARequiredOne)
{
    QWidget& dialog = Edit({Argument("first", "Long"), Argument("second", "Long")}, 0);
    Click(dialog, "chkOptional");
    EXPECT_FALSE(Find<QCheckBox>(dialog, "chkOptional").isChecked());
    EXPECT_FALSE(IsEnabled(dialog, "txtDefaultValue"));
    EXPECT_EQ(Titles(), Texts{"Optional Setting Not Propogated"});
}

TEST_F(TheArgumentWindow, SaysWhatIsWrongWhileItIsTyped)
{
    QWidget& dialog = Add({Argument("first", "Long")});
    Type(dialog, "txtArgumentName", "FIRST");
    EXPECT_EQ(TroubleIn(dialog, "lblArgumentNameTrouble"), form->Trouble("txtArgumentName"));
    EXPECT_NE(TroubleIn(dialog, "lblArgumentNameTrouble"), "");
    Click(dialog, "cmdOK");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Titles(), Texts{"Duplicate Argument Name"});
    EXPECT_EQ(TextOf(dialog, "txtArgumentName"), "FIRST");
    EXPECT_EQ(Focused(), "txtArgumentName");
    Photograph(dialog, "frmAddEditArgument-trouble");
    Write("second");
    EXPECT_EQ(TroubleIn(dialog, "lblArgumentNameTrouble"), "");
    Click(dialog, "cmdOK");
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
}

TEST_F(TheArgumentWindow, ADefaultValueThatCannotBeWrittenStaysInItsField)
{
    QWidget& dialog = Add({});
    Type(dialog, "txtArgumentName", "aNote");
    Click(dialog, "chkOptional");
    Find<QLineEdit>(dialog, "txtDefaultValue").setText(u"a\tb"_s);
    EXPECT_EQ(TroubleIn(dialog, "lblDefaultValueTrouble"), form->Trouble("txtDefaultValue"));
    EXPECT_NE(TroubleIn(dialog, "lblDefaultValueTrouble"), "");
    Click(dialog, "cmdOK");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Titles(), Texts{"Default Value Not Writable"});
    EXPECT_EQ(Focused(), "txtDefaultValue");
    EXPECT_EQ(TextOf(dialog, "txtDefaultValue"), "a\tb");
    Type(dialog, "txtDefaultValue", "ab");
    EXPECT_EQ(TroubleIn(dialog, "lblDefaultValueTrouble"), "");
}

TEST_F(TheArgumentWindow, EscapeLeavesIt)
{
    QWidget& dialog = Add({});
    Write("aNote");
    Press(Qt::Key_Escape);
    EXPECT_TRUE(IsClosedBy(QDialog::Rejected));
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(messages.Asked().empty());
}

} // namespace
} // namespace veldrane::testing
