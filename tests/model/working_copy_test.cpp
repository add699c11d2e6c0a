#include "model/working_copy.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

TEST(WorkingCopyOfAClass, HasAllKeysUnderTheirOwnNames)
{
    KZMClass item;
    item.TTCKeys.Add(key_type::kPrimaryKey, {}, "PK_Orders")->TTCColumns.Add("OrderNo", "Long", "", "OrderNo");
    item.TTCKeys.Add(key_type::kIdentityColumn, {}, "1")->TTCColumns.Add("ID", "Long", "", "ID");
    const auto copy = WorkingCopy(item);
    ASSERT_EQ(copy->TTCKeys.Count(), 2U);
    EXPECT_EQ(copy->TTCKeys.Item("pk_orders")->TTCColumns.Item("OrderNo")->ColumnDataType, "Long");
    EXPECT_EQ(copy->TTCKeys.Item("1")->KeyType, key_type::kIdentityColumn);
}

TEST(WorkingCopyOfAClass, HasItsFlags)
{
    KZMClass item;
    item.ReadOnly = item.IsMTSRequiredClass = true;
    const auto copy = WorkingCopy(item);
    EXPECT_TRUE(copy->ReadOnly);
    EXPECT_TRUE(copy->IsMTSRequiredClass);
}

TEST(WorkingCopyOfAClass, HasWhatNoFileKeeps)
{
    KZMClass item;
    item.Enumerations.Add("Kind", "Kind")->EnumValues.Add("Small", std::int64_t{7}, "Small");
    item.TTCMethods.Add("GetOrders", false, {}, "", "Public", false, "GetOrders")->SPReturnValuesOnly = true;
    const auto property = item.TTCProperties.Add({.PropertyName = "City"}, "City");
    property->FieldReference = "A.City";
    property->FieldAlias = "A";
    property->Include = true;
    const auto copy = WorkingCopy(item);
    EXPECT_EQ(std::get<std::int64_t>(copy->Enumerations.Item("Kind")->EnumValues.Item("Small")->Value), 7);
    EXPECT_TRUE(copy->TTCMethods.Item("GetOrders")->SPReturnValuesOnly);
    EXPECT_EQ(copy->TTCProperties.Item("City")->FieldReference, "A.City");
    EXPECT_EQ(copy->TTCProperties.Item("City")->FieldAlias, "A");
    EXPECT_TRUE(copy->TTCProperties.Item("City")->Include);
    EXPECT_EQ(copy->TTCProperties.LastIndex(), "City");
}

TEST(WorkingCopyOfAClass, KnowsTheNamesThatAreTaken)
{
    KZMClass item;
    item.TTCMembers.Add("City", "City");
    EXPECT_EQ(WorkingCopy(item)->TTCMembers.Add("CITY", "CITY"), nullptr);
}

TEST(WorkingCopyOfAClass, ChangesNothingInTheClass)
{
    KZMClass item;
    item.ClassName = "Order";
    item.TTCProperties.Add({.PropertyName = "City"}, "City")->TTCLookupFields.Add("Name", "String", "Name", "Name");
    const auto method = item.TTCMethods.Add("GetOrders", false, {}, "", "Public", false, "GetOrders");
    method->StoredProcedure = std::make_shared<SP>();
    method->StoredProcedure->SPParameters.Add("@From", "int", 3, "@From");
    item.TTCRelationships.Add("FK", "Customers", {}, "FK")->Columns.Add("CustomerID", "", "ID", "CustomerID");

    const auto copy = WorkingCopy(item);
    copy->ClassName = "Changed";
    copy->TTCProperties.Item("City")->TTCLookupFields.Item("Name")->FieldName = "Changed";
    copy->TTCMethods.Item("GetOrders")->StoredProcedure->SPMethodName = "Changed";
    copy->TTCMethods.Item("GetOrders")->StoredProcedure->SPParameters.Item("@From")->DataType = "changed";
    copy->TTCRelationships.Item("FK")->Columns.Item("CustomerID")->JoinColumnName = "Changed";
    copy->TTCProperties.Remove("City");
    copy->TTCRelationships.Clear();

    EXPECT_EQ(item.ClassName, "Order");
    EXPECT_EQ(item.TTCProperties.Item("City")->TTCLookupFields.Item("Name")->FieldName, "Name");
    EXPECT_EQ(method->StoredProcedure->SPMethodName, "");
    EXPECT_EQ(method->StoredProcedure->SPParameters.Item("@From")->DataType, "int");
    EXPECT_EQ(item.TTCRelationships.Item("FK")->Columns.Item("CustomerID")->JoinColumnName, "ID");
}

} // namespace
} // namespace veldrane
