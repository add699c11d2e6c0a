#include "model/properties.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

TTCProperty FullProperty()
{
    TTCProperty property;
    property.PropertyName = "City";
    property.DataType = "String";
    property.Scope = "Friend";
    property.AttributeDescription = "The town";
    property.FieldName = "TownID";
    property.FieldDataType = "Long";
    property.LookupTable = "Towns";
    property.LookupJoinField = "ID";
    property.FormatStringOnLet = property.FormatStringOnGet = "0.00";
    property.FieldReference = property.FieldAlias = "working";
    property.MaxLength = 30;
    property.DefaultProperty = property.PropertyGet = property.PropertyLetSet = property.EnforceMaxLength = true;
    property.DisplayTruncationMessage = property.FieldIsIdentityCol = property.AddToClass = true;
    property.LookupUseOuterJoin = property.ReadOnly = property.PlusProperty = property.FieldAllowsNull = true;
    property.FormatOnLet = property.FormatOnGet = property.AllowPropertyToBeNull = property.Include = true;
    const auto field = property.TTCLookupFields.Add("Name", "Text", "TownName", "TownName");
    field->FieldReference = field->FieldAlias = "working";
    return property;
}

void ExpectWhatAClonePassesOn(const TTCProperty& copy)
{
    EXPECT_EQ(copy.PropertyName + copy.DataType + copy.Scope, "CityStringFriend");
    EXPECT_EQ(copy.AttributeDescription + copy.FieldName + copy.FieldDataType, "The townTownIDLong");
    EXPECT_EQ(copy.MaxLength, 30);
    EXPECT_TRUE(copy.DefaultProperty && copy.PropertyGet && copy.PropertyLetSet && copy.EnforceMaxLength);
    EXPECT_TRUE(copy.DisplayTruncationMessage && copy.FieldIsIdentityCol && copy.AddToClass);
    ASSERT_EQ(copy.TTCLookupFields.Count(), 1U);
    const auto field = copy.TTCLookupFields.Item("TownName");
    EXPECT_EQ(field->PropertyName + field->FieldName + field->FieldDataType, "TownNameNameText");
    EXPECT_EQ(field->FieldReference + field->FieldAlias, "");
}

void ExpectWhatACloneLeavesOut(const TTCProperty& copy)
{
    EXPECT_EQ(copy.LookupTable + copy.LookupJoinField + copy.FormatStringOnLet + copy.FormatStringOnGet, "");
    EXPECT_EQ(copy.FieldReference + copy.FieldAlias, "");
    EXPECT_FALSE(copy.LookupUseOuterJoin || copy.ReadOnly || copy.PlusProperty || copy.FieldAllowsNull);
    EXPECT_FALSE(copy.FormatOnLet || copy.FormatOnGet || copy.AllowPropertyToBeNull || copy.Include);
}

TEST(Property, BeginsEmpty)
{
    const TTCProperty property;
    ExpectWhatACloneLeavesOut(property);
    EXPECT_EQ(property.PropertyName + property.DataType + property.Scope, "");
    EXPECT_EQ(property.AttributeDescription + property.FieldName + property.FieldDataType, "");
    EXPECT_EQ(property.MaxLength, 0);
    EXPECT_FALSE(property.DefaultProperty || property.PropertyGet || property.PropertyLetSet ||
                 property.EnforceMaxLength || property.DisplayTruncationMessage || property.FieldIsIdentityCol ||
                 property.AddToClass);
    EXPECT_EQ(property.TTCLookupFields.Count(), 0U);
    const TTCLookupField field;
    EXPECT_EQ(field.FieldName + field.FieldDataType + field.PropertyName + field.FieldReference + field.FieldAlias, "");
    const TrackFields track;
    EXPECT_EQ(track.FieldName + track.PropertyName + track.FieldReference + track.FieldAlias, "");
}

TEST(CloneOfAProperty, HasItsLookupFieldsButNoLookupTable)
{
    const TTCProperty property = FullProperty();
    const auto clone = property.Clone();
    ExpectWhatAClonePassesOn(*clone);
    ExpectWhatACloneLeavesOut(*clone);
    clone->TTCLookupFields.Item("TownName")->FieldName = "Other";
    EXPECT_EQ(property.TTCLookupFields.Item("TownName")->FieldName, "Name");
}

TEST(CopyMeTo, ReplacesTheLookupFieldsOfItsTarget)
{
    TTCProperty target;
    target.TTCLookupFields.Add("Old", "Text", "Old", "Old");
    FullProperty().CopyMeTo(target);
    ExpectWhatAClonePassesOn(target);
    ExpectWhatACloneLeavesOut(target);
}

TEST(LookupFields, KeepWhatTheyHoldWhenMoreAreAdded)
{
    TTCProperty property;
    property.TTCLookupFields.Add("Name", "Text", "TownName", "TownName");
    property.TTCLookupFields.Add("Code", "Text", "TownCode", "TownCode");
    EXPECT_TRUE(property.TTCLookupFields.AddExisting(std::make_shared<TTCLookupField>(), "Other"));
    EXPECT_FALSE(property.TTCLookupFields.AddExisting(std::make_shared<TTCLookupField>(), "TOWNNAME"));
    EXPECT_EQ(property.TTCLookupFields.Count(), 3U);
    EXPECT_EQ(property.TTCLookupFields.Item("TownName")->FieldName, "Name");
}

TEST(CopyMeTo, LeavesWhatItDoesNotCopy)
{
    TTCProperty target = FullProperty();
    TTCProperty().CopyMeTo(target);
    EXPECT_EQ(target.PropertyName, "");
    EXPECT_EQ(target.TTCLookupFields.Count(), 0U);
    EXPECT_EQ(target.LookupTable + target.LookupJoinField, "TownsID");
    EXPECT_TRUE(target.LookupUseOuterJoin && target.ReadOnly && target.PlusProperty && target.FieldAllowsNull);
    EXPECT_TRUE(target.FormatOnLet && target.FormatOnGet && target.AllowPropertyToBeNull);
}

TEST(Properties, StoreWhatTheyAreGivenButTheNull)
{
    TTCLookupFields fields;
    fields.Add("Name", "Text", "TownName", "TownName");
    TTCProperties properties;
    const auto property = properties.Add({.ReadOnly = true,
                                          .AddToClass = true,
                                          .FieldAllowsNull = true,
                                          .FieldName = "TownID",
                                          .FieldDataType = "Long",
                                          .FieldIsIdentityCol = true,
                                          .PropertyName = "City",
                                          .DataType = "String",
                                          .Scope = "Friend",
                                          .DefaultProperty = true,
                                          .AttributeDescription = "The town",
                                          .PropertyGet = true,
                                          .PropertyLetSet = true,
                                          .EnforceMaxLength = true,
                                          .MaxLength = 30,
                                          .DisplayTruncationMessage = true,
                                          .LookupTable = "Towns",
                                          .LookupJoinField = "ID",
                                          .LookupUseOuterJoin = true,
                                          .PlusProperty = true,
                                          .TTCLookupFields = std::move(fields)},
                                         "City");
    ExpectWhatAClonePassesOn(*property);
    EXPECT_EQ(property->LookupTable + property->LookupJoinField, "TownsID");
    EXPECT_TRUE(property->LookupUseOuterJoin && property->ReadOnly && property->PlusProperty);
    EXPECT_FALSE(property->FieldAllowsNull);
    EXPECT_EQ(properties.LastIndex(), "City");
}

} // namespace
} // namespace veldrane
