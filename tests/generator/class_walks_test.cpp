#include "generation_fixture.h"
#include "generator/class_walks.h"

namespace veldrane::testing {
namespace {

using ClassWalks = GenerationTest;

TEST_F(ClassWalks, ChildrenStandInCollectionOrderUnderTheExactNameOfTheirParent)
{
    AddClass("Line", "Order");
    AddClass("Order");
    AddClass("Note", "Order");
    AddClass("Other", "order");
    const ChildIndex children(classes);
    const auto& found = children.Of("Order");
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found.at(0)->ClassName, "Line");
    EXPECT_EQ(found.at(1)->ClassName, "Note");
    EXPECT_TRUE(children.Of("Line").empty());
}

TEST_F(ClassWalks, AChildIsFoundWhoseParentIsNoClass)
{
    AddClass("Line", "Order");
    EXPECT_EQ(ChildIndex(classes).Of("Order").size(), 1U);
}

TEST_F(ClassWalks, KeyPropertiesFollowTheColumnsAndEveryPropertyOnThem)
{
    KZMClass& order = AddClass("Order");
    AddProperty(order, "No", "Long");
    AddProperty(order, "AgainNo", "Long").FieldName = "No";
    AddProperty(order, "Year", "Long");
    AddProperty(order, "Total", "Long");
    AddKey(order, key_type::kPrimaryKey, {"Year", "Missing", "No"});
    AddKey(order, key_type::kIdentityColumn, {"Total"});

    const auto names = [&](std::int32_t keyType, PropertiesOnColumn which) {
        std::string list;
        for (const ColumnProperty& found : PropertiesBehindKey(order, keyType, which))
            list += found.Column->ColumnName + "=" + found.Property->PropertyName + " ";
        return list;
    };
    EXPECT_EQ(names(key_type::kPrimaryKey, PropertiesOnColumn::Every), "Year=Year No=No No=AgainNo ");
    EXPECT_EQ(names(key_type::kPrimaryKey, PropertiesOnColumn::First), "Year=Year No=No ");
    EXPECT_EQ(names(key_type::kIdentityColumn, PropertiesOnColumn::Every), "Total=Total ");
}

TEST_F(ClassWalks, KeyColumnsAreComparedExactly)
{
    KZMClass& order = AddClass("Order");
    AddProperty(order, "No", "Long");
    AddKey(order, key_type::kPrimaryKey, {"NO"});
    EXPECT_TRUE(PropertiesBehindKey(order, key_type::kPrimaryKey).empty());
}

} // namespace
} // namespace veldrane::testing
