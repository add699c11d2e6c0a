#include "model/attached_objects.h"
#include "model/class.h"
#include "model/class_collection_names.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

TEST(Members, ShareOneSetOfNamesWhateverTheCase)
{
    TTCMembers members;
    ASSERT_NE(members.Add("City", "City"), nullptr); // a property
    EXPECT_EQ(members.Add("CITY", "CITY"), nullptr); // a method
    EXPECT_EQ(members.Item("cITY")->MemberName, "City");
}

TEST(Members, FreeANameThatIsRemoved)
{
    TTCMembers members;
    members.Add("City", "City");
    members.Remove("CITY");
    EXPECT_NE(members.Add("city", "city"), nullptr);
}

TEST(ClassCollectionNames, TellWhetherANameExists)
{
    TTCClassCollectionNames names;
    EXPECT_EQ(names.Add("Order", "Order")->ClassCollectionName, "Order");
    EXPECT_TRUE(names.ClassNameExists("ORDER"));
    EXPECT_FALSE(names.ClassNameExists("Orders"));
    EXPECT_FALSE(names.ClassNameExists(""));
}

TEST(Keys, HoldOneOfEachType)
{
    TTCKeys keys;
    EXPECT_EQ(keys.Add(key_type::kPrimaryKey, {}, KeyTypeText(0))->KeyType, 0);
    keys.Add(key_type::kIdentityColumn, {}, KeyTypeText(1));
    EXPECT_THROW(keys.Add(key_type::kPrimaryKey, {}, KeyTypeText(0)), RuntimeError);
    EXPECT_FALSE(keys.AddExisting(std::make_shared<TTCKey>(), "0"));
    EXPECT_EQ(keys.Item("1")->KeyType, 1);
    EXPECT_EQ(keys.Item("2"), nullptr);
}

TEST(Keys, TakeTheColumnsTheyAreGiven)
{
    TTCColumns columns;
    columns.Add("ID", "Long", "", "ID");
    TTCKeys keys;
    EXPECT_EQ(keys.Add(0, std::move(columns), "0")->TTCColumns.Item("id")->ColumnDataType, "Long");
}

TEST(Relationships, TakeTheColumnsTheyAreGiven)
{
    Columns columns;
    columns.Add("CustomerID", "Long", "ID", "CustomerID");
    TTCRelationships relationships;
    const auto relationship = relationships.Add("FK", "Customers", std::move(columns), "FK");
    EXPECT_EQ(relationship->KeyName, "FK");
    EXPECT_EQ(relationship->ParentTableName, "Customers");
    EXPECT_EQ(relationship->Columns.Item("CustomerID")->JoinColumnName, "ID");
}

TEST(ColumnsOfKeyAndRelationship, DifferOnAMissingKey)
{
    EXPECT_EQ(TTCKey().TTCColumns.Item("missing"), nullptr);
    EXPECT_THROW(static_cast<void>(TTCRelationship().Columns.Item("missing")), RuntimeError);
}

TEST(SmallRecords, BeginEmpty)
{
    EXPECT_EQ(TTCKey().KeyType, 0);
    EXPECT_EQ(TTCKey().TTCColumns.Count(), 0U);
    const TTCColumn column;
    EXPECT_EQ(column.ColumnName + column.ColumnDataType + column.JoinColumnName, "");
    const TTCRelationship relationship;
    EXPECT_EQ(relationship.ParentTableName + relationship.KeyName, "");
    EXPECT_EQ(relationship.Columns.Count(), 0U);
    EXPECT_EQ(TTCMember().MemberName + TTCClassCollectionName().ClassCollectionName + KZMTable().TableName +
                  KZMSP().SPName,
              "");
}

TEST(AttachedObjects, KeepTheirNames)
{
    AttachedTables tables;
    EXPECT_EQ(tables.Add("Größen", "Größen")->TableName, "Größen");
    AttachedSPs procedures;
    EXPECT_EQ(procedures.Add("Load;1", "Load;1")->SPName, "Load;1");
}

} // namespace
} // namespace veldrane
