#include "model/class.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

TEST(Class, BeginsEmpty)
{
    const KZMClass item;
    EXPECT_EQ(item.TableName + item.ClassName + item.ParentClassName + item.CollectionName, "");
    for (const bool flag :
         {item.IsDomainTable, item.CreateCollection, item.IncludeAddExisting, item.RetrieveByIdentityCol,
          item.RetrieveByPrimaryKey, item.ReadOnly, item.CollectionAddNewKey, item.DeleteByIdentityColumn,
          item.DeleteByPrimaryKey, item.IsMTSRequiredClass})
        EXPECT_FALSE(flag);
    EXPECT_EQ(item.Enumerations.Count() + item.TTCEvents.Count() + item.TTCProperties.Count() +
                  item.TTCMethods.Count() + item.TTCRelationships.Count() + item.TTCKeys.Count() +
                  item.TTCMembers.Count(),
              0U);
}

TEST(CloneOfAClass, CopiesItsOptions)
{
    KZMClass item;
    item.TableName = "Orders";
    item.ClassName = "Order";
    item.ParentClassName = "Customer";
    item.CollectionName = "Orders";
    item.IsDomainTable = item.CreateCollection = item.IncludeAddExisting = true;
    item.RetrieveByIdentityCol = item.RetrieveByPrimaryKey = item.CollectionAddNewKey = true;
    item.DeleteByIdentityColumn = item.DeleteByPrimaryKey = true;
    const auto clone = item.Clone();
    EXPECT_EQ(clone->TableName, "Orders");
    EXPECT_EQ(clone->ClassName, "Order");
    EXPECT_EQ(clone->ParentClassName, "Customer");
    EXPECT_EQ(clone->CollectionName, "Orders");
    EXPECT_TRUE(clone->IsDomainTable && clone->CreateCollection && clone->IncludeAddExisting &&
                clone->RetrieveByIdentityCol && clone->RetrieveByPrimaryKey && clone->CollectionAddNewKey &&
                clone->DeleteByIdentityColumn && clone->DeleteByPrimaryKey);
}

TEST(CloneOfAClass, IsNeitherReadOnlyNorRequired)
{
    KZMClass item;
    item.ReadOnly = item.IsMTSRequiredClass = true;
    const auto clone = item.Clone();
    EXPECT_FALSE(clone->ReadOnly);
    EXPECT_FALSE(clone->IsMTSRequiredClass);
}

TEST(CloneOfAClass, HoldsTheLastKeyAlone)
{
    KZMClass item;
    item.TTCKeys.Add(1, {}, KeyTypeText(1))->TTCColumns.Add("OrderID", "Long", "", "OrderID");
    item.TTCKeys.Add(0, {}, KeyTypeText(0))->TTCColumns.Add("OrderNo", "Text", "Join", "OrderNo");
    const auto clone = item.Clone();
    ASSERT_EQ(clone->TTCKeys.Count(), 1U);
    const auto key = clone->TTCKeys.Item(KeyTypeText(0));
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(key->KeyType, key_type::kPrimaryKey);
    ASSERT_EQ(key->TTCColumns.Count(), 1U);
    EXPECT_EQ(key->TTCColumns.Item(1)->ColumnName, "OrderNo");
    EXPECT_EQ(key->TTCColumns.Item(1)->ColumnDataType, "Text");
    EXPECT_EQ(key->TTCColumns.Item(1)->JoinColumnName, "Join");
    EXPECT_EQ(key->TTCColumns.Item("OrderNo"), nullptr); // its columns come without keys
}

TEST(CloneOfAClass, CopiesRelationshipsAndEnumerations)
{
    KZMClass item;
    item.TTCRelationships.Add("FK", "Customers", {}, "FK")->Columns.Add("CustomerID", "Long", "ID", "CustomerID");
    item.Enumerations.Add("Kind", "Kind")->EnumValues.Add("Small", std::int64_t{7}, "Small");
    const auto clone = item.Clone();
    EXPECT_EQ(clone->TTCRelationships.Item("fk")->KeyName, "FK");
    EXPECT_EQ(clone->TTCRelationships.Item("fk")->ParentTableName, "Customers");
    EXPECT_EQ(clone->TTCRelationships.Item("fk")->Columns.Item("CustomerID")->JoinColumnName, "ID");
    EXPECT_EQ(clone->TTCRelationships.Item("fk")->Columns.Item("CustomerID")->ColumnDataType, "Long");
    EXPECT_EQ(clone->Enumerations.Item("Kind")->EnumName, "Kind");
    EXPECT_EQ(std::get<std::int64_t>(clone->Enumerations.Item("Kind")->EnumValues.Item("Small")->Value), 7);
}

TEST(CloneOfAClass, SharesTheObjectThatAnEnumerationHolds)
{
    KZMClass item;
    const auto object = std::make_shared<TTCParameter>();
    item.Enumerations.Add("Kind", "Kind")->EnumValues.Add("Thing", std::shared_ptr<void>(object), "Thing");
    const auto clone = item.Clone();
    EXPECT_EQ(std::get<std::shared_ptr<void>>(clone->Enumerations.Item("Kind")->EnumValues.Item("Thing")->Value),
              object);
}

TEST(CloneOfAClass, CopiesTheNamesOfTheMembers)
{
    KZMClass item;
    item.TTCMembers.Add("City", "City");
    const auto clone = item.Clone();
    EXPECT_EQ(clone->TTCMembers.Item("city")->MemberName, "City");
    EXPECT_EQ(clone->TTCMembers.Add("CITY", "CITY"), nullptr);
}

TEST(CloneOfAClass, LosesWhatAddingAPropertyDrops)
{
    KZMClass item;
    const auto property = item.TTCProperties.Add({.PropertyName = "City", .LookupTable = "Towns"}, "City");
    property->FieldAllowsNull = property->AllowPropertyToBeNull = property->FormatOnGet = property->FormatOnLet = true;
    property->FormatStringOnGet = property->FormatStringOnLet = "0.00";
    property->ReadOnly = property->PlusProperty = property->LookupUseOuterJoin = property->Include = true;
    property->LookupJoinField = "ID";
    property->FieldReference = property->FieldAlias = "working";
    property->TTCLookupFields.Add("Name", "Text", "TownName", "TownName");
    const auto clone = item.Clone()->TTCProperties.Item("City");
    EXPECT_FALSE(clone->FieldAllowsNull || clone->AllowPropertyToBeNull || clone->FormatOnGet || clone->FormatOnLet ||
                 clone->Include);
    EXPECT_EQ(clone->FormatStringOnGet + clone->FormatStringOnLet + clone->FieldReference + clone->FieldAlias, "");
    EXPECT_TRUE(clone->ReadOnly && clone->PlusProperty && clone->LookupUseOuterJoin);
    EXPECT_EQ(clone->LookupTable, "Towns");
    EXPECT_EQ(clone->LookupJoinField, "ID");
    EXPECT_EQ(clone->TTCLookupFields.Item("TownName")->FieldName, "Name");
    EXPECT_EQ(clone->TTCLookupFields.Item("TownName")->FieldDataType, "Text");
}

TEST(CloneOfAClass, LosesTheStoredProcedureOfAMethod)
{
    KZMClass item;
    const auto method = item.TTCMethods.Add("Load", true, {}, "Long", "Public", true, "Load");
    method->MethodIsSP = method->SPReturnValuesOnly = true;
    method->StoredProcedure = std::make_shared<SP>();
    method->Arguments.Add("ID", 1, true, "anID", "Long", true, "0", true, "anID");
    const auto clone = item.Clone()->TTCMethods.Item("Load");
    EXPECT_FALSE(clone->MethodIsSP || clone->SPReturnValuesOnly);
    EXPECT_EQ(clone->StoredProcedure, nullptr);
    EXPECT_TRUE(clone->PlusMethod && clone->DefaultMethod);
    EXPECT_EQ(clone->ReturnDataType + clone->Scope, "LongPublic");
    const auto argument = clone->Arguments.Item("anID");
    EXPECT_EQ(argument->ColumnName, "ID");
    EXPECT_EQ(argument->Index, 1);
    EXPECT_EQ(argument->ParameterDataType + argument->DefaultValue, "Long0");
    EXPECT_TRUE(argument->ByValIndicator && argument->OptionalIndicator && argument->IsArray);
}

TEST(CloneOfAClass, CopiesEventsWithTheirArguments)
{
    KZMClass item;
    const auto event = item.TTCEvents.Add("Changed", {}, true, "Changed");
    event->TTCEventParameters.Add(2, true, "aCity", "String", true, "x", true, "aCity");
    const auto clone = item.Clone()->TTCEvents.Item("changed");
    EXPECT_TRUE(clone->PlusEvent);
    EXPECT_EQ(clone->TTCEventParameters.Item("aCity")->Index, 2);
    EXPECT_EQ(clone->TTCEventParameters.Item("aCity")->DefaultValue, "x");
}

TEST(CloneOfAClass, IsIndependent)
{
    KZMClass item;
    item.TTCProperties.Add({.PropertyName = "City"}, "City");
    item.TTCRelationships.Add("FK", "", {}, "FK");
    item.TTCEvents.Add("Changed", {}, false, "Changed");
    const auto clone = item.Clone();
    clone->TTCProperties.Item("City")->DataType = "String";
    clone->TTCRelationships.Item("FK")->ParentTableName = "Towns";
    clone->TTCEvents.Item("Changed")->PlusEvent = true;
    clone->TTCMembers.Add("New", "New");
    EXPECT_EQ(item.TTCProperties.Item("City")->DataType, "");
    EXPECT_EQ(item.TTCRelationships.Item("FK")->ParentTableName, "");
    EXPECT_FALSE(item.TTCEvents.Item("Changed")->PlusEvent);
    EXPECT_EQ(item.TTCMembers.Count(), 0U);
}

} // namespace
} // namespace veldrane
