#include "datasource/table_fields.h"

#include "class_fixture.h"

#include <algorithm>

namespace veldrane {
namespace {

using testing::Field;
using testing::IdentityField;
using testing::NullableField;
using testing::PrimaryIndex;
using testing::Texts;

class AddFieldsAsPropertiesTest : public testing::ClassFixture
{};

TEST_F(AddFieldsAsPropertiesTest, AClassWithoutATableAsksNothing)
{
    EXPECT_EQ(AddFieldsAsProperties(edit), FieldsOutcome::Read);
    EXPECT_TRUE(catalog.Calls.empty());
}

TEST_F(AddFieldsAsPropertiesTest, GivesAFieldAPropertyWithAllDefaults)
{
    OwnTable("Customers").Fields = {NullableField("Company Name", adVarWChar, 50)};
    EXPECT_EQ(AddFieldsAsProperties(edit), FieldsOutcome::Read);
    const auto property = item.TTCProperties.Item("CompanyName");
    ASSERT_TRUE(property);
    EXPECT_FALSE(property->ReadOnly);
    EXPECT_TRUE(property->AddToClass);
    EXPECT_TRUE(property->FieldAllowsNull);
    EXPECT_EQ(property->FieldName, "Company Name");
    EXPECT_EQ(property->FieldDataType, "VarWChar");
    EXPECT_FALSE(property->FieldIsIdentityCol);
    EXPECT_EQ(property->PropertyName, "CompanyName");
    EXPECT_EQ(property->DataType, "String");
    EXPECT_EQ(property->Scope, "Public");
    EXPECT_FALSE(property->DefaultProperty);
    EXPECT_EQ(property->AttributeDescription, "");
    EXPECT_TRUE(property->PropertyGet);
    EXPECT_TRUE(property->PropertyLetSet);
    EXPECT_TRUE(property->EnforceMaxLength);
    EXPECT_EQ(property->MaxLength, 50);
    EXPECT_TRUE(property->DisplayTruncationMessage);
    EXPECT_EQ(property->LookupTable, "");
    EXPECT_EQ(property->LookupJoinField, "");
    EXPECT_FALSE(property->LookupUseOuterJoin);
    EXPECT_FALSE(property->PlusProperty);
    EXPECT_EQ(property->TTCLookupFields.Count(), 0U);
    EXPECT_TRUE(item.TTCMembers.Contains("CompanyName"));
}

TEST_F(AddFieldsAsPropertiesTest, AnIdentityColumnCanNotBeSetAndIsNeverNull)
{
    CatalogField field = IdentityField("OrderID");
    field.Attributes = field_attribute::kIsNullable | field_attribute::kMayBeNull;
    OwnTable("Orders").Fields = {field};
    AddFieldsAsProperties(edit);
    const auto property = item.TTCProperties.Item("OrderID");
    EXPECT_TRUE(property->FieldIsIdentityCol);
    EXPECT_FALSE(property->PropertyLetSet);
    EXPECT_FALSE(property->FieldAllowsNull);
    EXPECT_EQ(property->DataType, "Long");
    EXPECT_FALSE(property->EnforceMaxLength);
    EXPECT_EQ(property->MaxLength, 0);
    EXPECT_FALSE(property->DisplayTruncationMessage);
}

TEST_F(AddFieldsAsPropertiesTest, EitherNullBitAllowsNull)
{
    OwnTable("T").Fields = {{.Name = "A", .Type = adInteger, .Attributes = 64},
                            {.Name = "B", .Type = adInteger, .Attributes = 32},
                            {.Name = "C", .Type = adInteger, .Attributes = 16}};
    AddFieldsAsProperties(edit);
    EXPECT_TRUE(item.TTCProperties.Item("A")->FieldAllowsNull);
    EXPECT_TRUE(item.TTCProperties.Item("B")->FieldAllowsNull);
    EXPECT_FALSE(item.TTCProperties.Item("C")->FieldAllowsNull);
}

TEST_F(AddFieldsAsPropertiesTest, LengthsComeFromTheFieldButAGuidHas38)
{
    OwnTable("T").Fields = {Field("Guid", adGUID, 16), Field("Memo", adLongVarChar, 65536),
                            Field("Blob", adLongVarBinary, 100)};
    AddFieldsAsProperties(edit);
    EXPECT_EQ(item.TTCProperties.Item("Guid")->MaxLength, 38);
    EXPECT_EQ(item.TTCProperties.Item("Memo")->MaxLength, 65536);
    EXPECT_EQ(item.TTCProperties.Item("Memo")->DataType, "String");
    EXPECT_EQ(item.TTCProperties.Item("Blob")->MaxLength, 0);
}

TEST_F(AddFieldsAsPropertiesTest, PropertiesOfAReadOnlyClassAreReadOnly)
{
    item.ReadOnly = true;
    OwnTable("V").Fields = {Field("A", adInteger)};
    AddFieldsAsProperties(edit);
    EXPECT_TRUE(item.TTCProperties.Item("A")->ReadOnly);
}

TEST_F(AddFieldsAsPropertiesTest, AFieldWhoseNameIsTakenIsToldAndSkipped)
{
    item.ClassName = "Order";
    OwnTable("Orders").Fields = {Field("Order_ID", adInteger), Field("OrderID", adInteger), Field("City", adInteger)};
    AddFieldsAsProperties(edit);
    EXPECT_EQ(PropertyNames(), (Texts{"OrderID", "City"}));
    EXPECT_EQ(item.TTCProperties.Item("OrderID")->FieldName, "Order_ID");
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Title, "Duplicate Property Name");
    EXPECT_EQ(
        messages.Asked().front().Text,
        "The field name 'OrderID' conflicts with an existing property in the Order class. This field cannot be added as a property at this time.");
    EXPECT_EQ(messages.Asked().front().Icon, MessageIcon::Information);
}

TEST_F(AddFieldsAsPropertiesTest, ASecondDisplayRefreshesFieldAllowsNullAlone)
{
    OwnTable("Orders").Fields = {Field("City", adVarChar, 20)};
    AddFieldsAsProperties(edit);
    const auto property = item.TTCProperties.Item("City");
    property->DataType = "Variant";
    property->PropertyName = "Town";
    property->LookupTable = "Cities";
    property->MaxLength = 7;
    catalog.Content["Orders"].Fields = {NullableField("City", adInteger)};
    AddFieldsAsProperties(edit);
    EXPECT_TRUE(property->FieldAllowsNull);
    EXPECT_EQ(property->DataType, "Variant");
    EXPECT_EQ(property->PropertyName, "Town");
    EXPECT_EQ(property->LookupTable, "Cities");
    EXPECT_EQ(property->MaxLength, 7);
    EXPECT_EQ(item.TTCProperties.Count(), 1U);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(AddFieldsAsPropertiesTest, ADroppedColumnGoesAndANewOneComes)
{
    OwnTable("Orders").Fields = {Field("A", adInteger), Field("B", adInteger), Field("C", adInteger)};
    AddFieldsAsProperties(edit);
    catalog.Content["Orders"].Fields = {Field("B", adInteger), Field("D", adInteger)};
    AddFieldsAsProperties(edit);
    EXPECT_EQ(PropertyNames(), (Texts{"B", "D"}));
    EXPECT_FALSE(item.TTCMembers.Contains("A"));
    EXPECT_FALSE(item.TTCMembers.Contains("C"));
}

TEST_F(AddFieldsAsPropertiesTest, APropertyThatWasRenamedGoesWithItsColumn)
{
    OwnTable("Orders").Fields = {Field("A", adInteger)};
    AddFieldsAsProperties(edit);
    item.TTCProperties.Item("A")->PropertyName = "Alpha";
    item.TTCMembers.Remove("A");
    item.TTCMembers.Add("Alpha", "Alpha");
    catalog.Content["Orders"].Fields = {};
    AddFieldsAsProperties(edit);
    EXPECT_EQ(item.TTCProperties.Count(), 0U);
    EXPECT_EQ(item.TTCMembers.Count(), 0U);
}

TEST_F(AddFieldsAsPropertiesTest, TheFirstNameOfARenamedPropertyIsStillTaken)
{
    OwnTable("Orders").Fields = {Field("A", adInteger)};
    AddFieldsAsProperties(edit);
    item.TTCProperties.Item("A")->PropertyName = "Alpha";
    item.TTCMembers.Remove("A");
    catalog.Content["Orders"].Fields.push_back(Field("A_", adInteger));
    EXPECT_EQ(AddFieldsAsProperties(edit), FieldsOutcome::Read);
    EXPECT_EQ(PropertyNames(), Texts{"Alpha"});
    EXPECT_EQ(Titles(), Texts{"Duplicate Property Name"});
}

TEST_F(AddFieldsAsPropertiesTest, WhatADroppedColumnLookedUpLeavesItsNames)
{
    OwnTable("Orders").Fields = {Field("A", adInteger)};
    AddFieldsAsProperties(edit);
    item.TTCProperties.Item("A")->TTCLookupFields.Add("Code", "String", "ACode", "Code");
    item.TTCMembers.Add("ACode", "ACode");
    catalog.Content["Orders"].Fields = {Field("B", adInteger)};
    AddFieldsAsProperties(edit);
    EXPECT_FALSE(item.TTCMembers.Contains("ACode"));
    EXPECT_TRUE(item.TTCMembers.Contains("B"));
}

TEST_F(AddFieldsAsPropertiesTest, BuiltInPropertiesAreNeverPruned)
{
    OwnTable("Orders").Fields = {};
    item.TTCProperties.Add({.PropertyName = "Modified", .PlusProperty = true}, "Modified");
    AddFieldsAsProperties(edit);
    EXPECT_EQ(PropertyNames(), Texts{"Modified"});
}

TEST_F(AddFieldsAsPropertiesTest, EndsInReadingTheKeys)
{
    auto& table = OwnTable("Orders");
    table.Fields = {Field("ID", adInteger)};
    table.Indexes = {PrimaryIndex({"ID"})};
    AddFieldsAsProperties(edit);
    EXPECT_EQ(item.TTCKeys.Count(), 1U);
}

TEST_F(AddFieldsAsPropertiesTest, AColumnThatTheCodePageLacksIsToldAndSkipped)
{
    OwnTable("Orders").Fields = {Field("Дата", adDate), Field("Größe", adInteger)};
    AddFieldsAsProperties(edit);
    EXPECT_EQ(PropertyNames(), Texts{"Größe"});
    EXPECT_EQ(messages.Asked().size(), 1U);
}

TEST_F(AddFieldsAsPropertiesTest, AWideTableIsReadInOnePass)
{
    auto& table = OwnTable("Wide");
    for (int i = 0; i < 2000; ++i)
        table.Fields.push_back(Field("Column" + std::to_string(i), adInteger));
    AddFieldsAsProperties(edit);
    AddFieldsAsProperties(edit);
    EXPECT_EQ(item.TTCProperties.Count(), 2000U);
    EXPECT_EQ(std::ranges::count(catalog.Calls, "Fields SELECT * FROM Wide WHERE 1=0"), 2);
}

class MissingTableTest : public testing::ClassFixture
{
  protected:
    MissingTableTest() { item.TableName = "Gone"; }
};

TEST_F(MissingTableTest, IsAskedAbout)
{
    EXPECT_EQ(AddFieldsAsProperties(edit), FieldsOutcome::Cancelled);
    ASSERT_EQ(messages.Asked().size(), 1U);
    const Question& question = messages.Asked().front();
    EXPECT_EQ(question.Title, "Table Missing");
    EXPECT_EQ(
        question.Text,
        "The table named 'Gone' cannot be found. Has this table been renamed?\r\nClick 'Yes' if the table has been renamed and you know what the new name is.\r\nClick 'No' if the table has been deleted\r\nClick 'Cancel' to cancel this operation.");
    EXPECT_EQ(question.Offered, Buttons::YesNoCancel);
    EXPECT_EQ(question.Default, Answer::Cancel);
    EXPECT_TRUE(errors.Reported.empty());
}

TEST_F(MissingTableTest, YesLetsTheNewNameBeTyped)
{
    AnswerWith({Answer::Yes});
    EXPECT_EQ(AddFieldsAsProperties(edit), FieldsOutcome::TableRenamed);
    EXPECT_EQ(messages.Asked().size(), 1U);
}

TEST_F(MissingTableTest, NoTellsHowAClassIsDeleted)
{
    AnswerWith({Answer::No});
    EXPECT_EQ(AddFieldsAsProperties(edit), FieldsOutcome::TableDeleted);
    ASSERT_EQ(messages.Asked().size(), 2U);
    EXPECT_EQ(messages.Asked().at(1).Title, "");
    EXPECT_EQ(messages.Asked().at(1).Text, "To Delete this class, right click on it and select 'Delete Class'");
    EXPECT_EQ(messages.Asked().at(1).Icon, MessageIcon::Information);
}

TEST_F(MissingTableTest, LeavesTheClassAsItWas)
{
    item.TTCProperties.Add({.FieldName = "A", .PropertyName = "A"}, "A");
    item.TTCKeys.Add(0, TTCColumns{}, "0");
    AddFieldsAsProperties(edit);
    EXPECT_EQ(item.TTCProperties.Count(), 1U);
    EXPECT_EQ(item.TTCKeys.Count(), 1U);
}

TEST_F(AddFieldsAsPropertiesTest, WithoutAConnectionTheHintAloneIsShown)
{
    OwnTable("Orders");
    edit.Source = nullptr;
    EXPECT_EQ(AddFieldsAsProperties(edit), FieldsOutcome::SourceUnavailable);
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Error.Number, 3709);
    EXPECT_EQ(errors.Reported.front().Place.Mode, 4);
    EXPECT_EQ(errors.Reported.front().Place.ModuleName, "");
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "");
    EXPECT_EQ(
        errors.Reported.front().Place.Hint,
        "The DataSource is currently unavailable. Unable to add new DataSource fields as properties at this time. \r\nYou may continue, but some functionality will be unavailable.");
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(AddFieldsAsPropertiesTest, AnErrorOfOtherNumberGoesToTheCentralHandler)
{
    OwnTable("Orders").Fields = {Field("A", adInteger)};
    catalog.Failures["Fields"] = data_source_error::kFailed;
    EXPECT_EQ(AddFieldsAsProperties(edit), FieldsOutcome::Failed);
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Error.Number, data_source_error::kFailed);
    EXPECT_EQ(errors.Reported.front().Place.ModuleName, "frmAddEditClass");
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "AddFieldsAsProperties");
    EXPECT_EQ(item.TTCProperties.Count(), 0U);
}

} // namespace
} // namespace veldrane
