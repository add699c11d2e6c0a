#include "editors/frm_field_properties.h"

#include "property_fixture.h"
#include "text/strings.h"

#include <array>
#include <functional>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using testing::Field;
using testing::IdentityField;
using ::testing::IsEmpty;
using testing::Texts;

constexpr const char* kInvalid = "Invalid Property Name|Invalid Property Name. Please enter a valid name.";

class FieldPropertiesTest : public testing::PropertyFixture
{
  protected:
    FieldPropertiesTest()
    {
        AddField("Name");
        catalog.Add("Customers").Fields = {IdentityField("ID"), Field("Region", adVarWChar, 50)};
        focus_ = form.FocusWanted.Connect([this](std::string_view control) { focused.emplace_back(control); });
    }

    std::shared_ptr<TTCProperty> AddLimitedField(const std::string& name)
    {
        auto property = AddField(name);
        property->EnforceMaxLength = true;
        property->MaxLength = 50;
        return property;
    }

    std::shared_ptr<TTCProperty> city = AddLimitedField("City");
    frmFieldProperties form{surroundings, city};
    Texts focused;

  private:
    Connection focus_;
};

TEST_F(FieldPropertiesTest, ShowsTheProperty)
{
    city->AddToClass = city->DefaultProperty = false;
    city->FormatStringOnGet = ">";
    city->FormatStringOnLet = "<";
    const frmFieldProperties shown(surroundings, city);
    EXPECT_EQ(shown.Caption(), "Edit City");
    EXPECT_EQ(shown.txtPropertyName, "City");
    EXPECT_EQ(shown.FieldName(), "City");
    EXPECT_EQ(shown.FieldDataType(), "VarWChar");
    EXPECT_FALSE(shown.chkAddFieldToClass);
    EXPECT_TRUE(shown.chkPropertyGet);
    EXPECT_FALSE(shown.chkDefaultProperty());
    EXPECT_EQ(shown.Formatting.cmbFormatGet(), ">");
    EXPECT_EQ(shown.Formatting.cmbFormatLet(), "<");
    EXPECT_EQ(shown.Lookup.TableName(), "<none>");
    EXPECT_EQ(shown.Formats().front(), ">");
}

TEST_F(FieldPropertiesTest, OKWithoutAChangeLeavesTheClassAsItIs)
{
    city->AllowPropertyToBeNull = city->FieldAllowsNull = city->FormatOnGet = city->FormatOnLet = true;
    city->ReadOnly = city->DefaultProperty = city->DisplayTruncationMessage = true;
    city->FormatStringOnGet = ">";
    city->FormatStringOnLet = "<";
    city->AttributeDescription = "Where it is";
    city->LookupTable = "Customers";
    city->LookupJoinField = "Code";
    AddLookup(*city, "Region", "CityRegion");
    const std::string before = Saved();
    frmFieldProperties unchanged(surroundings, city);
    EXPECT_TRUE(unchanged.cmdOK_Click());
    EXPECT_EQ(Saved(), before);
    EXPECT_THAT(PropertyNames(), ElementsAre("City", "Name"));
    EXPECT_TRUE(item->TTCMembers.Contains("CityRegion"));
}

TEST_F(FieldPropertiesTest, ADefaultThatIsNotTouchedLeavesTheDefaultMethodThatAFileHasBesideIt)
{
    AddMethod("Clear");
    city->DefaultProperty = item->TTCMethods.Item("Clear")->DefaultMethod = true;
    const std::string before = Saved();
    EXPECT_TRUE(frmFieldProperties(surroundings, city).cmdOK_Click());
    EXPECT_EQ(Saved(), before);
}

TEST_F(FieldPropertiesTest, OfTwoDefaultPropertiesTheOneInHandIsLeft)
{
    city->DefaultProperty = item->TTCProperties.Item("Name")->DefaultProperty = true;
    EXPECT_TRUE(frmFieldProperties(surroundings, city).cmdOK_Click());
    EXPECT_TRUE(city->DefaultProperty);
    EXPECT_FALSE(item->TTCProperties.Item("Name")->DefaultProperty);
}

TEST_F(FieldPropertiesTest, CancelLeavesTheClassAsItWas)
{
    const std::string before = Saved();
    form.txtPropertyName = "Town";
    form.chkAddFieldToClass = false;
    form.chkPropertyGet = false;
    form.chkDefaultProperty_Click(true);
    form.Data.chkIsNullable_Click(true);
    form.Data.txtMaxLength = "7";
    form.Formatting.cmbFormatGet_Change(">");
    form.tabMain_Click(FieldTab::Lookup);
    form.Lookup.cmbTable_Click(1);
    form.Lookup.lstFields_ItemCheck({0}, true);
    static_cast<void>(form.Preview());
    static_cast<void>(form.Trouble("txtPropertyName"));
    EXPECT_TRUE(form.cmdCancel_Click());
    EXPECT_EQ(Saved(), before);
    EXPECT_THAT(Members(), ElementsAre("City", "Name"));
}

TEST_F(FieldPropertiesTest, OKStoresEveryControl)
{
    form.txtPropertyName = "Town";
    form.chkAddFieldToClass = false;
    form.chkPropertyGet = false;
    form.Data.chkEnforceMaxLength_Click(true);
    form.Data.txtMaxLength = " 7 ";
    form.Data.chkDisplayTruncationMessage = true;
    form.Data.chkFormatOnGet = form.Data.chkFormatOnLet = true;
    form.Formatting.cmbFormatGet_Change(">");
    form.Formatting.cmbFormatLet_Change("<");
    form.chkDefaultProperty_Click(true);
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(city->PropertyName, "Town");
    EXPECT_FALSE(city->AddToClass);
    EXPECT_FALSE(city->PropertyGet);
    EXPECT_TRUE(city->PropertyLetSet);
    EXPECT_EQ(city->MaxLength, 7);
    EXPECT_TRUE(city->EnforceMaxLength && city->DisplayTruncationMessage && city->FormatOnGet && city->FormatOnLet);
    EXPECT_EQ(city->FormatStringOnGet, ">");
    EXPECT_EQ(city->FormatStringOnLet, "<");
    EXPECT_TRUE(city->DefaultProperty);
    EXPECT_THAT(messages.Asked(), IsEmpty());
}

TEST_F(FieldPropertiesTest, OKStoresTypeAndNulls)
{
    form.Data.chkPropertyLetSet_Click(false);
    form.Data.chkIsNullable_Click(true);
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(city->DataType, "Variant");
    EXPECT_TRUE(city->AllowPropertyToBeNull);
    EXPECT_FALSE(city->PropertyLetSet);
}

TEST_F(FieldPropertiesTest, OKMakesThePropertyPublic)
{
    city->Scope = "Friend";
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(city->Scope, "Public");
}

TEST_F(FieldPropertiesTest, ARenamedPropertyKeepsItsPlaceAndStandsUnderItsName)
{
    form.txtPropertyName = "Town";
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_THAT(PropertyNames(), ElementsAre("Town", "Name"));
    EXPECT_TRUE(item->TTCProperties.Contains("Town"));
    EXPECT_FALSE(item->TTCProperties.Contains("City"));
    EXPECT_THAT(Members(), ElementsAre("Name", "Town"));
}

TEST_F(FieldPropertiesTest, OtherLetterCaseIsNoOtherName)
{
    form.txtPropertyName = "CITY";
    EXPECT_EQ(form.Trouble("txtPropertyName"), "");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(city->PropertyName, "CITY");
    EXPECT_THAT(Members(), ElementsAre("Name", "CITY"));
}

TEST_F(FieldPropertiesTest, AForbiddenCharacterIsRefused)
{
    for (const char c : std::string_view("~`!@#$%^&*()-=+\\|]}[{';:/?.>,< \"")) {
        messages.Forget();
        const std::string typed = std::string("To") + c + "wn";
        form.txtPropertyName = typed;
        EXPECT_EQ(form.Trouble("txtPropertyName"), "Invalid Property Name. Please enter a valid name.");
        EXPECT_FALSE(form.cmdOK_Click());
        EXPECT_THAT(Boxes(), ElementsAre(kInvalid)) << c;
        EXPECT_EQ(form.txtPropertyName, typed);
        EXPECT_EQ(focused.back(), "txtPropertyName");
    }
    EXPECT_EQ(city->PropertyName, "City");
}

struct Cleaned
{
    const char* Typed;
    const char* Valid;
};

TEST_F(FieldPropertiesTest, ANameThatIsNotLegalForAnotherReasonIsMadeSo)
{
    for (const auto& [typed, valid] : {Cleaned{"Date", "aDate"}, Cleaned{"2nd", "A2nd"}, Cleaned{"", "InvalidName"}}) {
        messages.Forget();
        form.txtPropertyName = typed;
        const std::string text = "The name: '" + std::string(typed) +
                                 "' is invalid because it is either a reserved word or contains invalid characters. It "
                                 "has been changed to '" +
                                 valid + "'";
        EXPECT_EQ(form.Trouble("txtPropertyName"), text);
        EXPECT_TRUE(form.cmdOK_Click());
        EXPECT_THAT(Boxes(), ElementsAre("Invalid Name Detected|" + text));
        EXPECT_EQ(form.txtPropertyName, valid);
        EXPECT_EQ(city->PropertyName, valid);
    }
}

TEST_F(FieldPropertiesTest, ANameThatIsTakenIsRefused)
{
    const std::string before = Saved();
    AddMethod("Clear");
    for (const char* name : {"name", "CLEAR"}) {
        messages.Forget();
        form.txtPropertyName = name;
        const std::string text = "The property name '" + std::string(name) +
                                 "' conflicts with an existing member of the Order class. Please enter another name.";
        EXPECT_EQ(form.Trouble("txtPropertyName"), text);
        EXPECT_FALSE(form.cmdOK_Click());
        EXPECT_THAT(Boxes(), ElementsAre("Duplicate Property Name|" + text));
        EXPECT_EQ(form.txtPropertyName, name);
        EXPECT_EQ(focused.back(), "txtPropertyName");
        EXPECT_EQ(city->PropertyName, "City");
    }
    EXPECT_THAT(Members(), ElementsAre("City", "Name", "Clear"));
}

TEST_F(FieldPropertiesTest, TheBoxTakesTheCleanedNameBeforeItIsRefused)
{
    AddMethod("aDate");
    form.txtPropertyName = "Date";
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_EQ(form.txtPropertyName, "aDate");
    ASSERT_EQ(messages.Asked().size(), 2U);
    EXPECT_EQ(messages.Asked()[0].Title, "Invalid Name Detected");
    EXPECT_EQ(messages.Asked()[1].Title, "Duplicate Property Name");
}

TEST_F(FieldPropertiesTest, ANameThatTheProjectCantHoldIsRefused)
{
    form.txtPropertyName = "Πόλη";
    EXPECT_NE(form.Trouble("txtPropertyName"), "");
    EXPECT_FALSE(form.cmdOK_Click());
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked()[0].Title, "Name Not Writable");
    EXPECT_EQ(messages.Asked()[0].Text, form.Trouble("txtPropertyName"));
    EXPECT_EQ(form.txtPropertyName, "Πόλη");
}

TEST_F(FieldPropertiesTest, ALengthThatIsNoneIsRefused)
{
    const std::string before = Saved();
    for (const char* text : {"", "many", "-1", "2147483648", "99999999999999999999", "1e3", "7.5"}) {
        messages.Forget();
        form.txtPropertyName = "Town";
        form.Data.txtMaxLength = text;
        EXPECT_EQ(form.Trouble("txtMaxLength"),
                  "Invalid Maximum Length. Please enter a whole number from 0 to 2147483647.");
        EXPECT_FALSE(form.cmdOK_Click());
        EXPECT_THAT(Boxes(), ElementsAre("Invalid Maximum Length|Invalid Maximum Length. Please enter a whole number "
                                         "from 0 to 2147483647."))
            << text;
        EXPECT_EQ(form.Data.txtMaxLength, text);
        EXPECT_EQ(focused.back(), "txtMaxLength");
        EXPECT_EQ(Saved(), before);
    }
    form.Data.txtMaxLength = "2147483647";
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(city->MaxLength, 2147483647);
}

TEST_F(FieldPropertiesTest, ALengthThatCantBeTypedKeepsNobody)
{
    form.Data.txtMaxLength = "many";
    form.Data.chkEnforceMaxLength_Click(false);
    EXPECT_EQ(form.Trouble("txtMaxLength"), "");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(city->MaxLength, 50);
}

TEST_F(FieldPropertiesTest, AMaximumOfNothingIsToldAndTaken)
{
    form.Data.txtMaxLength = "0";
    EXPECT_EQ(form.Trouble("txtMaxLength"), "A maximum of 0 leaves nothing of any text.");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(city->MaxLength, 0);
    city->FieldDataType = "GUID";
    EXPECT_EQ(form.Trouble("txtMaxLength"), "");
    city->FieldDataType = "VarWChar";
    form.Data.chkEnforceMaxLength_Click(false);
    EXPECT_EQ(form.Trouble("txtMaxLength"), "");
}

TEST_F(FieldPropertiesTest, AMessageWithoutAMaximumIsTold)
{
    form.Data.chkDisplayTruncationMessage = true;
    EXPECT_EQ(form.Trouble("chkDisplayTruncationMessage"), "");
    form.Data.chkEnforceMaxLength_Click(false);
    EXPECT_EQ(form.Trouble("chkDisplayTruncationMessage"),
              "Without a maximum the message shows whenever the property is assigned. To clear it, enforce a maximum "
              "first.");
    project.MakeWebCompatible = true;
    EXPECT_EQ(form.Trouble("chkDisplayTruncationMessage"), "");
    project.MakeWebCompatible = false;
    form.Data.chkPropertyLetSet_Click(false);
    EXPECT_EQ(form.Trouble("chkDisplayTruncationMessage"), "");
    form.Data.chkPropertyLetSet_Click(true);
    EXPECT_EQ(form.Trouble("chkDisplayTruncationMessage"),
              "Without a maximum the message shows whenever the property is assigned.");
    form.Data.cmbDataType_Click(RowOfType(form.Data.Types(), "Long"));
    EXPECT_EQ(form.Trouble("chkDisplayTruncationMessage"), "");
}

TEST_F(FieldPropertiesTest, ANullablePropertyOfAnotherTypeIsToldAndTaken)
{
    form.Data.chkIsNullable_Click(true);
    EXPECT_EQ(form.Trouble("cmbDataType"), "");
    form.Data.cmbDataType_Click(RowOfType(form.Data.Types(), "Long"));
    EXPECT_EQ(form.Trouble("cmbDataType"), "Only a Variant can be Null.");
    EXPECT_TRUE(form.cmdOK_Click());
    city->DataType = "";
    EXPECT_EQ(frmFieldProperties(surroundings, city).Trouble("cmbDataType"), "");
}

TEST_F(FieldPropertiesTest, AFormatStringThatTheProjectCantHoldIsRefusedWhereItIsUsed)
{
    const std::string before = Saved();
    form.Formatting.cmbFormatLet_Change("Ω@");
    EXPECT_EQ(form.Trouble("cmbFormatLet"), "Unless its box is ticked, the format string is neither used nor saved.");
    form.Data.chkFormatOnLet = true;
    const std::string text = "The format string 'Ω@' has letters that code page 1252 lacks, so it can't enter the "
                             "project. Please enter another one.";
    EXPECT_EQ(form.Trouble("cmbFormatLet"), text);
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_THAT(Boxes(), ElementsAre("Invalid Format String|" + text));
    EXPECT_THAT(focused, ElementsAre("cmbFormatLet"));
    EXPECT_EQ(Saved(), before);
    form.Data.chkFormatOnGet = true;
    form.Formatting.cmbFormatGet_Change("@\n@");
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_EQ(focused.back(), "cmbFormatGet");
    EXPECT_EQ(form.Trouble("cmbFormatGet"), "The format string '@\n@' has a control character in it, so it can't enter "
                                            "the project. Please enter another one.");
    form.Data.chkFormatOnGet = form.Data.chkFormatOnLet = false;
    EXPECT_TRUE(form.cmdOK_Click());
}

TEST_F(FieldPropertiesTest, AQuoteThatEndsTheFormatStringIsTold)
{
    const std::string text =
        "In the generated code a double quote or a backtick ends the format string. Type it twice to have it there.";
    form.Data.chkFormatOnGet = true;
    for (const char* format : {"\"x\" @", "@\"", "@`", "@\"\"\""}) {
        form.Formatting.cmbFormatGet_Change(format);
        EXPECT_EQ(form.Trouble("cmbFormatGet"), text) << format;
    }
    for (const char* format : {"", "@", "\"\"x\"\" @", "``@", "\"`@"}) {
        form.Formatting.cmbFormatGet_Change(format);
        EXPECT_EQ(form.Trouble("cmbFormatGet"), "") << format;
    }
    form.Formatting.cmbFormatGet_Change("@\"");
    EXPECT_TRUE(form.cmdOK_Click());
}

TEST_F(FieldPropertiesTest, AFormatStringThatCantBeTickedNowIsNobodysFault)
{
    form.Formatting.cmbFormatLet_Change(">");
    form.Data.chkPropertyLetSet_Click(false);
    EXPECT_EQ(form.Trouble("cmbFormatLet"), "");
}

TEST_F(FieldPropertiesTest, OKRefusesOneThingAfterAnother)
{
    AddMethod("Region");
    catalog.Content["Customers"].Fields.push_back(IdentityField("Αριθμός"));
    catalog.Add("Πελάτες").Fields = {IdentityField("ID")};
    form.txtPropertyName = "name";
    form.Data.txtMaxLength = "many";
    form.tabMain_Click(FieldTab::Lookup);
    form.Lookup.cmbTable_Click(2);
    form.Lookup.cmbTable_Change("Nothing");
    form.Data.chkFormatOnGet = form.Data.chkFormatOnLet = true;
    form.Formatting.cmbFormatGet_Change("Ω");
    form.Formatting.cmbFormatLet_Change("Ω");
    const std::string before = Saved();
    const auto mends = std::to_array<std::function<void()>>({
        [&] { form.txtPropertyName = "Town"; },
        [&] { form.Data.txtMaxLength = "7"; },
        [&] { form.Lookup.cmbTable_Change("Πελάτες"); },
        [&] {
            form.Lookup.cmbTable_Click(1);
            form.Lookup.cmbField_Click(2);
            form.Lookup.lstFields_ItemCheck({0}, true);
        },
        [&] { form.Lookup.cmbField_Click(1); },
        [&] { form.Lookup.lstFields_AfterLabelEdit(0, "CityRegion"); },
        [&] { form.Formatting.cmbFormatGet_Change(">"); },
        [&] { form.Formatting.cmbFormatLet_Change("<"); },
    });
    for (const auto& mend : mends) {
        EXPECT_FALSE(form.cmdOK_Click());
        EXPECT_EQ(Saved(), before);
        mend();
    }
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_THAT(focused, ElementsAre("txtPropertyName", "txtMaxLength", "cmbTable", "cmbTable", "cmbField", "lstFields",
                                     "cmbFormatGet", "cmbFormatLet"));
    EXPECT_EQ(messages.Asked().size(), focused.size());
}

TEST_F(FieldPropertiesTest, AnotherDefaultIsGivenUpWithAWord)
{
    item->TTCProperties.Item("Name")->DefaultProperty = true;
    AnswerWith({Answer::No, Answer::Yes});
    form.txtPropertyName = "Town";
    form.chkDefaultProperty_Click(true);
    EXPECT_FALSE(form.chkDefaultProperty());
    form.chkDefaultProperty_Click(true);
    EXPECT_TRUE(form.chkDefaultProperty());
    const std::string box = "Confirm Change Default Property|The Name property is currently set as the default "
                            "property.\r\nAre you sure you want to change the default property to Town";
    EXPECT_THAT(Boxes(), ElementsAre(box, box));
    EXPECT_TRUE(item->TTCProperties.Item("Name")->DefaultProperty);
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_TRUE(city->DefaultProperty);
    EXPECT_FALSE(item->TTCProperties.Item("Name")->DefaultProperty);
}

TEST_F(FieldPropertiesTest, ADefaultMethodIsGivenUpToo)
{
    AddMethod("Clear");
    item->TTCMethods.Item("Clear")->DefaultMethod = true;
    AnswerWith({Answer::Yes});
    form.chkDefaultProperty_Click(true);
    EXPECT_THAT(Boxes(), ElementsAre("Confirm Change Default Property|The Clear method is currently set as the default "
                                     "method.\r\nAre you sure you want to change the default interface setting to "
                                     "City"));
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_TRUE(city->DefaultProperty);
    EXPECT_FALSE(item->TTCMethods.Item("Clear")->DefaultMethod);
}

TEST_F(FieldPropertiesTest, ClearingTheDefaultLeavesTheOthers)
{
    city->DefaultProperty = true;
    AddMethod("Clear");
    item->TTCMethods.Item("Clear")->DefaultMethod = true;
    frmFieldProperties shown(surroundings, city);
    shown.chkDefaultProperty_Click(false);
    EXPECT_TRUE(shown.cmdOK_Click());
    EXPECT_FALSE(city->DefaultProperty);
    EXPECT_TRUE(item->TTCMethods.Item("Clear")->DefaultMethod);
    EXPECT_THAT(messages.Asked(), IsEmpty());
}

TEST_F(FieldPropertiesTest, TheFormatsFollowTheType)
{
    form.Data.cmbDataType_Click(RowOfType(form.Data.Types(), "Boolean"));
    EXPECT_THAT(Texts(form.Formats().begin(), form.Formats().end()), ElementsAre("Yes/No", "True/False", "On/Off"));
}

TEST_F(FieldPropertiesTest, TheLookupIsReadWithItsTab)
{
    form.tabMain_Click(FieldTab::General);
    form.tabMain_Click(FieldTab::Formatting);
    EXPECT_THAT(catalog.Calls, IsEmpty());
    form.tabMain_Click(FieldTab::Lookup);
    EXPECT_THAT(catalog.Calls, ElementsAre("Tables"));
}

TEST_F(FieldPropertiesTest, OKStoresTheLookup)
{
    form.tabMain_Click(FieldTab::Lookup);
    form.Lookup.cmbTable_Click(1);
    form.Lookup.lstFields_ItemCheck({0}, true);
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(city->LookupTable, "Customers");
    EXPECT_THAT(LookupFields(*city), ElementsAre("Region:Region:String"));
    EXPECT_THAT(Members(), ElementsAre("City", "Name", "Region"));
}

TEST_F(FieldPropertiesTest, AnAliasThatIsTakenKeepsTheDialogOpenAndLosesNothing)
{
    AddMethod("Region");
    const std::string before = Saved();
    form.txtPropertyName = "Town";
    form.tabMain_Click(FieldTab::Lookup);
    form.Lookup.cmbTable_Click(1);
    form.Lookup.lstFields_ItemCheck({0}, true);
    const std::string text =
        "The property name 'Region' conflicts with an existing member of the Order class. Please enter another name.";
    EXPECT_EQ(form.Trouble(std::size_t{0}), text);
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_THAT(Boxes(), ElementsAre("Duplicate Property Name|" + text));
    EXPECT_THAT(focused, ElementsAre("lstFields"));
    EXPECT_EQ(Saved(), before);
    EXPECT_THAT(Members(), ElementsAre("City", "Name", "Region"));
    form.Lookup.lstFields_AfterLabelEdit(0, "CityRegion");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_THAT(LookupFields(*city), ElementsAre("Region:CityRegion:String"));
}

TEST_F(FieldPropertiesTest, TheNameThatIsGivenUpMayBeAnAlias)
{
    catalog.Content["Customers"].Fields.push_back(Field("City", adVarWChar, 50));
    form.tabMain_Click(FieldTab::Lookup);
    form.Lookup.cmbTable_Click(1);
    form.Lookup.lstFields_ItemCheck({1}, true);
    EXPECT_NE(form.Trouble(std::size_t{1}), "");
    form.txtPropertyName = "CityNumber";
    EXPECT_EQ(form.Trouble(std::size_t{1}), "");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_THAT(LookupFields(*city), ElementsAre("City:City:String"));
    EXPECT_THAT(Members(), ElementsAre("Name", "CityNumber", "City"));
}

TEST_F(FieldPropertiesTest, ATableThatIsNotListedIsRefused)
{
    const std::string before = Saved();
    form.tabMain_Click(FieldTab::Lookup);
    form.Lookup.cmbTable_Change("Custom");
    const std::string text = "No table or view of this name is listed. Please choose one from the list.";
    EXPECT_EQ(form.Trouble("cmbTable"), text);
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_THAT(Boxes(), ElementsAre("Invalid Lookup Table|" + text));
    EXPECT_THAT(focused, ElementsAre("cmbTable"));
    EXPECT_EQ(Saved(), before);
}

TEST_F(FieldPropertiesTest, OKChoosesTheTableThatIsTyped)
{
    form.tabMain_Click(FieldTab::Lookup);
    form.Lookup.cmbTable_Change("customers");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(city->LookupTable, "Customers");
    EXPECT_EQ(city->LookupJoinField, "ID");
}

TEST_F(FieldPropertiesTest, ATypedTableThatCantBeJoinedIsSeenBeforeTheDialogGoes)
{
    catalog.Add("Codes").Fields = {Field("Code", adVarWChar, 5)};
    form.tabMain_Click(FieldTab::Lookup);
    form.Lookup.cmbTable_Change("codes");
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_THAT(focused, ElementsAre("cmbTable"));
    EXPECT_NE(form.Trouble("cmbField"), "");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(city->LookupTable, "");
}

TEST_F(FieldPropertiesTest, AJoinFieldThatTheProjectCantHoldIsRefused)
{
    catalog.Content["Customers"].Fields = {IdentityField("Αριθμός")};
    form.tabMain_Click(FieldTab::Lookup);
    form.Lookup.cmbTable_Click(1);
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_THAT(focused, ElementsAre("cmbField"));
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked()[0].Title, "Name Not Writable");
    EXPECT_EQ(messages.Asked()[0].Text, form.Trouble("cmbField"));
    EXPECT_EQ(city->LookupTable, "");
}

TEST_F(FieldPropertiesTest, ATableThatCantBeJoinedIsToldBesideItsBox)
{
    catalog.Add("Codes").Fields = {Field("Code", adVarWChar, 5)};
    form.tabMain_Click(FieldTab::Lookup);
    form.Lookup.cmbTable_Click(2);
    EXPECT_EQ(form.Trouble("cmbField"),
              "No identity field of 'Codes' is chosen to join it by: the lookup stays as it was.");
    EXPECT_EQ(form.Trouble("txtInput"), "");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(city->LookupTable, "");
}

TEST_F(FieldPropertiesTest, ThePreviewShowsThePropertyAsTheDialogHasIt)
{
    form.txtPropertyName = "Town";
    form.Data.chkPropertyLetSet_Click(false);
    form.tabMain_Click(FieldTab::Lookup);
    form.Lookup.cmbTable_Click(1);
    form.Lookup.lstFields_ItemCheck({0}, true);
    EXPECT_THAT(LinesOf(form.Preview()),
                ElementsAre("Public Property Get Town() as String", "    Town = mstrTown", "End Property",
                            "Friend Property Let Town(ByVal vData as String)", "    mstrTown = vData", "End Property",
                            "Public Property Get Region() as String", "    Region=mstrRegion", "End Property",
                            "Friend Property Let Region(ByVal vData as String)", "    mstrRegion = vData",
                            "End Property"));
}

TEST_F(FieldPropertiesTest, ThePreviewIsThatOfTheWholeClass)
{
    for (const char* name : {"City", "Name"}) {
        const frmFieldProperties shown(surroundings, item->TTCProperties.Item(name));
        const std::string whole = OutputsToText(generation.WriteClassProperties(*item, classes));
        EXPECT_NE(whole.find(OutputsToText(shown.Preview())), std::string::npos) << name;
    }
}

TEST_F(FieldPropertiesTest, ThePreviewOfWhatIsTypedWrongShowsTheRest)
{
    form.txtPropertyName = "To wn";
    form.Data.txtMaxLength = "many";
    const Texts lines = LinesOf(form.Preview());
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "Public Property Get To_wn() as String");
    EXPECT_THAT(messages.Asked(), IsEmpty());
}

TEST_F(FieldPropertiesTest, AGuidsLengthIsCorrectedInThePreviewAlone)
{
    city->FieldDataType = "GUID";
    const Texts lines = LinesOf(frmFieldProperties(surroundings, city).Preview());
    EXPECT_THAT(lines, ::testing::Contains("    If Len(vData) > 38 Then "));
    EXPECT_EQ(city->MaxLength, 50);
}

} // namespace
} // namespace veldrane
