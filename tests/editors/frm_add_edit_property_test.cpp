#include "editors/frm_add_edit_property.h"

#include "datasource/builtin_members.h"
#include "property_fixture.h"

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using testing::Texts;

class AddEditPropertyTest : public testing::PropertyFixture
{
  protected:
    AddEditPropertyTest()
    {
        AddField("Name");
        total = AddField("Total", "Currency");
        total->FieldName = "";
        total->FieldDataType = "";
    }

    static void Choose(frmAddEditProperty& form, std::string_view type)
    {
        form.cmbDataType_Click(RowOfType(form.Types(), type));
    }

    std::shared_ptr<TTCProperty> total;
};

TEST_F(AddEditPropertyTest, TitlesSayWhatIsDone)
{
    EXPECT_EQ(frmAddEditProperty(surroundings).Caption(), "Add New Property");
    EXPECT_EQ(frmAddEditProperty(surroundings, total).Caption(), "Edit Total");
}

TEST_F(AddEditPropertyTest, ANewPropertyIsAStringWithBothRoutines)
{
    const frmAddEditProperty form(surroundings);
    EXPECT_EQ(form.txtPropertyName, "");
    EXPECT_EQ(form.Types().at(form.cmbDataType()).Type, "String");
    EXPECT_EQ(form.cmbScope, "Public");
    EXPECT_TRUE(form.chkPropertyGet && form.chkPropertyLetSet);
    EXPECT_FALSE(form.chkDefaultProperty());
    EXPECT_THAT(frmAddEditProperty::kScopes, ElementsAre("Public", "Private", "Friend"));
}

TEST_F(AddEditPropertyTest, OKAddsAPropertyThatStandsOnNoField)
{
    frmAddEditProperty form(surroundings);
    form.txtPropertyName = "Weight";
    Choose(form, "Collection");
    form.cmbScope = "Friend";
    form.chkPropertyLetSet = false;
    form.chkDefaultProperty_Click(true);
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_THAT(PropertyNames(), ElementsAre("Name", "Total", "Weight"));
    EXPECT_THAT(Members(), ElementsAre("Name", "Total", "Weight"));
    const auto weight = item->TTCProperties.Item("Weight");
    ASSERT_TRUE(weight);
    EXPECT_EQ(weight->DataType, "Collection");
    EXPECT_EQ(weight->Scope, "Friend");
    EXPECT_TRUE(weight->PropertyGet && weight->DefaultProperty && weight->AddToClass);
    EXPECT_FALSE(weight->PropertyLetSet || weight->PlusProperty);
    EXPECT_EQ(weight->FieldName, "");
    EXPECT_EQ(item->TTCProperties.LastIndex(), "Weight");
}

TEST_F(AddEditPropertyTest, WithoutAScopeItIsPublic)
{
    frmAddEditProperty form(surroundings);
    form.txtPropertyName = "Weight";
    form.cmbScope = "";
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(item->TTCProperties.Item("Weight")->Scope, "Public");
}

TEST_F(AddEditPropertyTest, OKChangesThePropertyAndNothingElseOfIt)
{
    total->AttributeDescription = "Sum";
    total->MaxLength = 7;
    total->FormatOnGet = true;
    total->FormatStringOnGet = "0.00";
    frmAddEditProperty form(surroundings, total);
    EXPECT_EQ(form.Types().at(form.cmbDataType()).Type, "Currency");
    form.txtPropertyName = "Sum";
    Choose(form, "Double");
    form.cmbScope = "Private";
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_THAT(PropertyNames(), ElementsAre("Name", "Sum"));
    EXPECT_THAT(Members(), ElementsAre("Name", "Sum"));
    EXPECT_TRUE(item->TTCProperties.Contains("Sum"));
    EXPECT_EQ(total->DataType, "Double");
    EXPECT_EQ(total->Scope, "Private");
    EXPECT_EQ(total->AttributeDescription, "Sum");
    EXPECT_EQ(total->FormatStringOnGet, "0.00");
}

TEST_F(AddEditPropertyTest, OKWithoutAChangeLeavesTheClassAsItIs)
{
    total->DataType = "Customer";
    total->PlusProperty = true;
    const std::string before = Saved();
    EXPECT_TRUE(frmAddEditProperty(surroundings, total).cmdOK_Click());
    EXPECT_EQ(Saved(), before);
}

TEST_F(AddEditPropertyTest, ADefaultThatIsNotTouchedLeavesTheDefaultMethodThatAFileHasBesideIt)
{
    AddMethod("Clear");
    total->DefaultProperty = item->TTCMethods.Item("Clear")->DefaultMethod = true;
    const std::string before = Saved();
    EXPECT_TRUE(frmAddEditProperty(surroundings, total).cmdOK_Click());
    EXPECT_EQ(Saved(), before);
}

TEST_F(AddEditPropertyTest, ADefaultThatIsTickedAnewTakesThePlaceOfTheMethodThatAFileHasBesideIt)
{
    AddMethod("Clear");
    total->DefaultProperty = item->TTCMethods.Item("Clear")->DefaultMethod = true;
    AnswerWith({Answer::Yes});
    frmAddEditProperty form(surroundings, total);
    form.chkDefaultProperty_Click(false);
    form.chkDefaultProperty_Click(true);
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_TRUE(total->DefaultProperty);
    EXPECT_FALSE(item->TTCMethods.Item("Clear")->DefaultMethod);
}

struct ABuiltInProperty : AddEditPropertyTest
{
    ABuiltInProperty()
    {
        AcceptBuiltInProperties(edit, {"Modified"});
        modified = item->TTCProperties.Item("Modified");
    }

    std::shared_ptr<TTCProperty> modified;
};

TEST_F(ABuiltInProperty, IsTakenByOKAsItIs)
{
    const std::string before = Saved();
    frmAddEditProperty form(surroundings, modified);
    EXPECT_EQ(form.Trouble("chkPropertyGet"), "");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_THAT(messages.Asked(), ::testing::IsEmpty());
    EXPECT_EQ(Saved(), before);
}

TEST_F(ABuiltInProperty, KeepsTheNameByWhichItsCodeIsGenerated)
{
    frmAddEditProperty form(surroundings, modified);
    form.txtPropertyName = "Chan ged";
    EXPECT_EQ(form.Trouble("txtPropertyName"), "");
    EXPECT_EQ(LinesOf(form.Preview()).front(), "Public Property Get Modified() as Boolean");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(modified->PropertyName, "Modified");
    EXPECT_THAT(messages.Asked(), ::testing::IsEmpty());
}

TEST_F(ABuiltInProperty, ClosesTheControlsThatItsCodeDoesNotFollow)
{
    const frmAddEditProperty form(surroundings, modified);
    EXPECT_EQ(form.WhyDisabled("txtPropertyName"), "The code of this property is generated by its name, which stays.");
    for (const char* control : {"cmbDataType", "cmbScope", "chkPropertyGet", "chkPropertyLetSet", "chkDefaultProperty"})
        EXPECT_EQ(form.WhyDisabled(control), "The code of the Modified property is generated without regard to this.");
    modified->DefaultProperty = true;
    EXPECT_EQ(frmAddEditProperty(surroundings, modified).WhyDisabled("chkDefaultProperty"), "");
    EXPECT_EQ(frmAddEditProperty(surroundings, total).WhyDisabled("txtPropertyName"), "");
    EXPECT_EQ(frmAddEditProperty(surroundings).WhyDisabled("cmbScope"), "");
}

TEST_F(AddEditPropertyTest, ANewPropertyOpensWithoutAComplaint)
{
    const std::string invalid = "The name: '' is invalid because it is either a reserved word or contains invalid "
                                "characters. It has been changed to 'InvalidName'";
    frmAddEditProperty form(surroundings);
    EXPECT_EQ(form.Trouble("txtPropertyName"), "");
    form.txtPropertyName_Change("");
    EXPECT_EQ(form.Trouble("txtPropertyName"), invalid);
    frmAddEditProperty refused(surroundings);
    refused.chkPropertyGet = refused.chkPropertyLetSet = false;
    EXPECT_FALSE(refused.cmdOK_Click());
    refused.txtPropertyName = "";
    EXPECT_EQ(refused.Trouble("txtPropertyName"), invalid);
}

TEST_F(AddEditPropertyTest, CancelLeavesTheClassAsItWas)
{
    const std::string before = Saved();
    frmAddEditProperty form(surroundings, total);
    form.txtPropertyName = "Sum";
    form.chkPropertyGet = false;
    form.chkDefaultProperty_Click(true);
    static_cast<void>(form.Preview());
    EXPECT_TRUE(form.cmdCancel_Click());
    frmAddEditProperty added(surroundings);
    added.txtPropertyName = "Weight";
    static_cast<void>(added.Preview());
    EXPECT_TRUE(added.cmdCancel_Click());
    EXPECT_EQ(Saved(), before);
    EXPECT_THAT(Members(), ElementsAre("Name", "Total"));
}

TEST_F(AddEditPropertyTest, AtLeastOneRoutineIsOn)
{
    frmAddEditProperty form(surroundings, total);
    Texts focused;
    const Connection focus = form.FocusWanted.Connect([&](std::string_view name) { focused.emplace_back(name); });
    const std::string before = Saved();
    form.txtPropertyName = "Sum";
    form.chkPropertyGet = form.chkPropertyLetSet = false;
    const std::string text = "A property needs a Property Get or a Property Let. Please select at least one of them.";
    EXPECT_EQ(form.Trouble("chkPropertyGet"), text);
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_THAT(Boxes(), ElementsAre("Invalid Property|" + text));
    EXPECT_THAT(focused, ElementsAre("chkPropertyGet"));
    EXPECT_EQ(Saved(), before);
    form.chkPropertyLetSet = true;
    EXPECT_EQ(form.Trouble("chkPropertyGet"), "");
    EXPECT_TRUE(form.cmdOK_Click());
}

TEST_F(AddEditPropertyTest, NamesAreCheckedAsThoseOfFields)
{
    AddMethod("Clear");
    frmAddEditProperty form(surroundings);
    Texts focused;
    const Connection focus = form.FocusWanted.Connect([&](std::string_view name) { focused.emplace_back(name); });
    for (const char* name : {"To wn", "clear", "total", "Πόλη"}) {
        messages.Forget();
        form.txtPropertyName = name;
        EXPECT_FALSE(form.cmdOK_Click()) << name;
        ASSERT_EQ(messages.Asked().size(), 1U) << name;
        EXPECT_EQ(messages.Asked()[0].Text, form.Trouble("txtPropertyName"));
        EXPECT_EQ(form.txtPropertyName, name);
        EXPECT_EQ(focused.back(), "txtPropertyName");
    }
    EXPECT_EQ(form.Trouble("cmbScope"), "");
    EXPECT_THAT(PropertyNames(), ElementsAre("Name", "Total"));
    messages.Forget();
    form.txtPropertyName = "String";
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(messages.Asked().at(0).Title, "Invalid Name Detected");
    EXPECT_TRUE(item->TTCProperties.Contains("aString"));
}

TEST_F(AddEditPropertyTest, OtherLetterCaseIsNoOtherName)
{
    frmAddEditProperty form(surroundings, total);
    form.txtPropertyName = "TOTAL";
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_THAT(Members(), ElementsAre("Name", "TOTAL"));
}

TEST_F(AddEditPropertyTest, AnotherDefaultIsGivenUpWithAWord)
{
    item->TTCProperties.Item("Name")->DefaultProperty = true;
    AnswerWith({Answer::No, Answer::Yes});
    frmAddEditProperty form(surroundings);
    form.txtPropertyName = "Weight";
    form.chkDefaultProperty_Click(true);
    EXPECT_FALSE(form.chkDefaultProperty());
    form.chkDefaultProperty_Click(true);
    EXPECT_TRUE(form.chkDefaultProperty());
    EXPECT_EQ(Boxes().at(1), "Confirm Change Default Property|The Name property is currently set as the default "
                             "property.\r\nAre you sure you want to change the default property to Weight");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_FALSE(item->TTCProperties.Item("Name")->DefaultProperty);
    EXPECT_TRUE(item->TTCProperties.Item("Weight")->DefaultProperty);
}

TEST_F(AddEditPropertyTest, ADefaultMethodIsGivenUpWithAWordOfItsOwn)
{
    AddMethod("Clear");
    item->TTCMethods.Item("Clear")->DefaultMethod = true;
    AnswerWith({Answer::Yes});
    frmAddEditProperty form(surroundings, total);
    form.chkDefaultProperty_Click(true);
    EXPECT_THAT(Boxes(), ElementsAre("Confirm Change Default Property|The Clear method is currently set as the default "
                                     "method.\r\nAre you sure you want to change the default interface setting to "
                                     "Total"));
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_FALSE(item->TTCMethods.Item("Clear")->DefaultMethod);
}

TEST_F(AddEditPropertyTest, ThePreviewShowsThePropertyAsTheDialogHasIt)
{
    frmAddEditProperty form(surroundings);
    form.txtPropertyName = "Weight";
    form.chkDefaultProperty_Click(true);
    form.chkPropertyLetSet = false;
    EXPECT_THAT(LinesOf(form.Preview()),
                ElementsAre("Public Property Get Weight() as String", "Attribute Weight.VB_UserMemId = 0",
                            "    Weight = mstrWeight", "End Property",
                            "Friend Property Let Weight(ByVal vData as String)", "    mstrWeight = vData",
                            "End Property"));
    frmAddEditProperty taken(surroundings);
    taken.txtPropertyName = "Total";
    EXPECT_EQ(LinesOf(taken.Preview()).front(), "Public Property Get Total() as String");
    frmAddEditProperty edited(surroundings, total);
    Choose(edited, "Object");
    EXPECT_EQ(LinesOf(edited.Preview()).front(), "Public Property Get Total() as Object");
}

} // namespace
} // namespace veldrane
