#include "editors/frm_add_edit_argument.h"

#include "member_fixture.h"

namespace veldrane {
namespace {

using testing::Texts;

constexpr const char* kNotLast =
    "The 'Optional' setting may only be applied to the last items in an argument list. There are arguments that are not optional appearing after this argument.";

class AddEditArgumentTest : public testing::MemberTest
{
  protected:
    // Does something to the dialog of a new argument behind those of the list.
    template <class Act>
    void Add(const Arguments& list, Act&& act)
    {
        frmAddEditArgument form(surroundings, list, NoPreview);
        form.AddArgument();
        act(form);
    }

    template <class Act>
    void Edit(const Arguments& list, std::size_t position, Act&& act)
    {
        frmAddEditArgument form(surroundings, list, NoPreview);
        form.EditArgument(position);
        act(form);
    }

    static TTCOutputs NoPreview(const Arguments& /*arguments*/) { return TTCOutputs(); }
};

TEST_F(AddEditArgumentTest, TheTitleTellsWhatItIsFor)
{
    Add({}, [](const frmAddEditArgument& form) { EXPECT_EQ(form.Caption(), "Add Argument"); });
    Edit({Argument("a", "Long")}, 0,
         [](const frmAddEditArgument& form) { EXPECT_EQ(form.Caption(), "Edit Argument"); });
}

TEST_F(AddEditArgumentTest, TheControlsShowTheArgument)
{
    TTCParameter argument = OptionalArgument("Names", "Order");
    argument.ByValIndicator = true;
    argument.IsArray = true;
    argument.DefaultValue = "\"x\"";
    argument.ColumnName = "Name";
    argument.Index = 4;
    Edit({Argument("a", "Long"), argument}, 1, [&](const frmAddEditArgument& form) {
        EXPECT_EQ(form.txtArgumentName, "Names");
        EXPECT_EQ(form.cmbDataType, ":Order");
        EXPECT_EQ(form.DataTypes().back().Text, "Order");
        EXPECT_TRUE(form.chkByVal);
        EXPECT_TRUE(form.chkArray);
        EXPECT_TRUE(form.chkOptional());
        EXPECT_EQ(form.txtDefaultValue, "\"x\"");
        EXPECT_EQ(form.lblSignature(), "Optional ByVal Names() as Order");
        EXPECT_EQ(form.Argument(), argument) << "what no control shows stays, the column among it";
    });
}

TEST_F(AddEditArgumentTest, ANewArgumentIsAVariantByReference)
{
    Add({}, [](frmAddEditArgument& form) {
        form.txtArgumentName = "What";
        EXPECT_EQ(form.lblSignature(), "What as Variant");
        EXPECT_EQ(form.DataTypes().front().Text, "(None)");
        EXPECT_TRUE(form.cmdOK_Click());
    });
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(AddEditArgumentTest, ANewArgumentDoesNotBeginWithAComplaint)
{
    Add({}, [](frmAddEditArgument& form) {
        EXPECT_EQ(form.Trouble("txtArgumentName"), "");
        form.txtArgumentName_Change("");
        EXPECT_NE(form.Trouble("txtArgumentName"), "");
    });
    Edit({Argument("", "Long")}, 0,
         [](const frmAddEditArgument& form) { EXPECT_NE(form.Trouble("txtArgumentName"), ""); });
}

TEST_F(AddEditArgumentTest, ANameThatIsTooLongIsRefused)
{
    Add({}, [](frmAddEditArgument& form) {
        form.txtArgumentName = std::string(256, 'n');
        EXPECT_NE(form.Trouble("txtArgumentName"), "");
        EXPECT_FALSE(form.cmdOK_Click());
    });
    EXPECT_EQ(Titles(), Texts{"Name Too Long"});
}

TEST_F(AddEditArgumentTest, AnArgumentWithoutATypeGetsAHint)
{
    Add({}, [](frmAddEditArgument& form) {
        form.txtArgumentName = "a";
        EXPECT_EQ(form.Trouble("cmbDataType"), "");
        form.cmbDataType = ":0";
        EXPECT_EQ(form.Trouble("cmbDataType"),
                  "Without a type the generated line ends in 'as', which Visual Basic does not compile.");
        EXPECT_TRUE(form.cmdOK_Click());
    });
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(AddEditArgumentTest, ANameThatIsNoneIsMadeOneAndTold)
{
    Add({}, [](frmAddEditArgument& form) {
        form.txtArgumentName = "my name";
        EXPECT_TRUE(form.cmdOK_Click());
        EXPECT_EQ(form.txtArgumentName, "my_name");
        EXPECT_EQ(form.Argument().VariableName, "my_name");
    });
    Add({}, [](frmAddEditArgument& form) {
        EXPECT_TRUE(form.cmdOK_Click());
        EXPECT_EQ(form.Argument().VariableName, "InvalidName");
    });
    EXPECT_EQ(
        Told(),
        (Texts{
            "The name: 'my name' is invalid because it is either a reserved word or contains invalid characters. It has been changed to 'my_name'",
            "The name: '' is invalid because it is either a reserved word or contains invalid characters. It has been changed to 'InvalidName'"}));
    EXPECT_EQ(Titles(), (Texts{"Invalid Name Detected", "Invalid Name Detected"}));
}

TEST_F(AddEditArgumentTest, TheDialogStaysWhileAnotherArgumentHasTheName)
{
    const std::string told =
        "The argument name 'A' conflicts with an existing argument of this list. Please enter another name.";
    Edit({Argument("a", "Long"), Argument("b", "Long")}, 1, [&](frmAddEditArgument& form) {
        Texts focus;
        const Connection listening =
            form.FocusWanted.Connect([&](std::string_view control) { focus.emplace_back(control); });
        form.txtArgumentName = "A";
        EXPECT_EQ(form.Trouble("txtArgumentName"), told);
        EXPECT_FALSE(form.cmdOK_Click());
        EXPECT_EQ(form.txtArgumentName, "A");
        EXPECT_EQ(focus, Texts{"txtArgumentName"});
        form.txtArgumentName = "B";
        EXPECT_EQ(form.Trouble("txtArgumentName"), "") << "its own name";
        EXPECT_TRUE(form.cmdOK_Click());
    });
    EXPECT_EQ(Told(), Texts{told});
    EXPECT_EQ(Titles(), Texts{"Duplicate Argument Name"});
}

TEST_F(AddEditArgumentTest, ANameThatTheFileCannotHoldIsRefused)
{
    Add({}, [](frmAddEditArgument& form) {
        form.txtArgumentName = "łódź";
        EXPECT_FALSE(form.cmdOK_Click());
    });
    EXPECT_EQ(Titles(), Texts{"Name Not Writable"});
}

TEST_F(AddEditArgumentTest, OnlyTheLastArgumentsMayBeOptional)
{
    Edit({Argument("a", "Long"), Argument("b", "Long")}, 0, [](frmAddEditArgument& form) {
        form.chkOptional_Click(true);
        EXPECT_FALSE(form.chkOptional());
    });
    ASSERT_EQ(Titles(), Texts{"Optional Setting Not Propogated"});
    EXPECT_EQ(messages.Asked().front().Text, kNotLast);
    EXPECT_EQ(messages.Asked().front().Icon, MessageIcon::Warning);
}

TEST_F(AddEditArgumentTest, TheLastArgumentMayBeOptional)
{
    Edit({Argument("a", "Long"), Argument("b", "Long"), OptionalArgument("c", "Long")}, 1,
         [](frmAddEditArgument& form) {
             EXPECT_FALSE(form.txtDefaultValue_Enabled());
             form.chkOptional_Click(true);
             EXPECT_TRUE(form.chkOptional());
             EXPECT_TRUE(form.txtDefaultValue_Enabled());
             form.chkOptional_Click(false);
             EXPECT_FALSE(form.txtDefaultValue_Enabled());
         });
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(AddEditArgumentTest, BehindAnOptionalArgumentNoneHasToBeGiven)
{
    Add({OptionalArgument("a", "Long")}, [](frmAddEditArgument& form) {
        EXPECT_TRUE(form.chkOptional());
        form.chkOptional_Click(false);
        EXPECT_TRUE(form.chkOptional());
    });
    EXPECT_EQ(
        Told(),
        Texts{
            "The 'Optional' setting may only be applied to the last items in an argument list. There are arguments that are optional appearing before this argument."});
}

TEST_F(AddEditArgumentTest, WhereNoneMayBeLeftOutTheBoxCanOnlyBeUnticked)
{
    const Arguments list{OptionalArgument("a", "Long"), OptionalArgument("b", "Long")};
    frmAddEditArgument form(surroundings, list, NoPreview, "Not here.");
    form.EditArgument(1);
    EXPECT_EQ(form.WhyNotOptional(), "");
    form.chkOptional_Click(false);
    EXPECT_FALSE(form.chkOptional());
    EXPECT_EQ(form.WhyNotOptional(), "Not here.");
    form.chkOptional_Click(true);
    EXPECT_FALSE(form.chkOptional());
    frmAddEditArgument added(surroundings, list, NoPreview, "Not here.");
    added.AddArgument();
    EXPECT_FALSE(added.chkOptional());
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(AddEditArgumentTest, ADefaultValueCountsForAnOptionalArgumentAlone)
{
    Add({}, [](frmAddEditArgument& form) {
        form.txtArgumentName = "a";
        form.chkOptional_Click(true);
        form.txtDefaultValue = "60";
        EXPECT_EQ(form.Argument().DefaultValue, "60");
        form.chkOptional_Click(false);
        EXPECT_EQ(form.Argument().DefaultValue, "");
        EXPECT_EQ(form.txtDefaultValue, "60") << "what was typed is there again when the box is";
    });
}

TEST_F(AddEditArgumentTest, ADefaultValueOfARequiredArgumentStays)
{
    TTCParameter argument = Argument("a", "Long");
    argument.DefaultValue = "60";
    Edit({argument}, 0, [&](const frmAddEditArgument& form) { EXPECT_EQ(form.Argument(), argument); });
}

TEST_F(AddEditArgumentTest, ADefaultValueThatWouldBreakTheFileIsRefused)
{
    const std::string told =
        "The default value 'a\nb' has a control character in it, so it can't enter the project. Please enter another value.";
    Add({}, [&](frmAddEditArgument& form) {
        Texts focus;
        const Connection listening =
            form.FocusWanted.Connect([&](std::string_view control) { focus.emplace_back(control); });
        form.txtArgumentName = "a";
        form.txtDefaultValue = "a\nb";
        EXPECT_EQ(form.Trouble("txtDefaultValue"), "");
        form.chkOptional_Click(true);
        EXPECT_EQ(form.Trouble("txtDefaultValue"), told);
        EXPECT_FALSE(form.cmdOK_Click());
        EXPECT_EQ(focus, Texts{"txtDefaultValue"});
    });
    EXPECT_EQ(Told(), Texts{told});
    EXPECT_EQ(Titles(), Texts{"Default Value Not Writable"});
}

TEST_F(AddEditArgumentTest, ADefaultValueThatTheFilesCannotHoldIsRefused)
{
    const std::string told =
        "The default value 'łódź' has letters that code page 1252 lacks, so it can't enter the project. Please enter another value.";
    Add({}, [&](frmAddEditArgument& form) {
        form.txtArgumentName = "a";
        form.txtDefaultValue = "łódź";
        EXPECT_EQ(form.Trouble("txtDefaultValue"), "");
        form.chkOptional_Click(true);
        EXPECT_EQ(form.Trouble("txtDefaultValue"), told);
        EXPECT_FALSE(form.cmdOK_Click());
        form.txtDefaultValue = "\"Größe\"";
        EXPECT_TRUE(form.cmdOK_Click());
    });
    EXPECT_EQ(Told(), Texts{told});
    EXPECT_EQ(Titles(), Texts{"Default Value Not Writable"});
}

TEST_F(AddEditArgumentTest, TheChosenTypeIsTaken)
{
    Add({}, [](frmAddEditArgument& form) {
        form.txtArgumentName = "a";
        for (const TypeItem& type : form.DataTypes()) {
            form.cmbDataType = type.Key;
            EXPECT_EQ(form.Argument().ParameterDataType, type.Type);
        }
    });
}

TEST_F(AddEditArgumentTest, ThePreviewHasTheListWithTheArgument)
{
    Arguments seen;
    frmAddEditArgument form(surroundings, {Argument("a", "Long"), Argument("b", "Long")}, [&](const Arguments& list) {
        seen = list;
        return TTCOutputs();
    });
    form.EditArgument(1);
    form.txtArgumentName = "New One";
    (void)form.Preview();
    ASSERT_EQ(seen.size(), 2U);
    EXPECT_EQ(seen.at(0).VariableName, "a");
    EXPECT_EQ(seen.at(1).VariableName, "New_One");
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(AddEditArgumentTest, CancelClosesWithoutAQuestion)
{
    Add({}, [](frmAddEditArgument& form) {
        form.txtArgumentName = "a";
        EXPECT_TRUE(form.cmdCancel_Click());
    });
    EXPECT_TRUE(messages.Asked().empty());
}

} // namespace
} // namespace veldrane
