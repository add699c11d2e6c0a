#include "datasource/parent_relationships.h"

#include "class_fixture.h"

#include <algorithm>

namespace veldrane {
namespace {

using testing::Field;
using testing::ForeignKey;
using testing::PrimaryIndex;
using testing::Texts;

class ParentRelationshipsTest : public testing::ClassFixture
{
  protected:
    ParentRelationshipsTest()
    {
        OwnTable("Orders").Fields = {Field("ID", adInteger), Field("Customer", adWChar)};
        catalog.Add("Customers").Fields = {Field("ID", adWChar), Field("Best Order", adInteger)};
    }

    [[nodiscard]] Texts Joins() const
    {
        Texts joins;
        for (const JoinRow& row : JoinRows(item))
            joins.push_back(row.Key + " " + row.Text);
        return joins;
    }
};

TEST_F(ParentRelationshipsTest, AKeyOfTheOwnTableJoinsItToTheParent)
{
    catalog.Content["Orders"].Keys = {ForeignKey("FK_Customer", "Customers", {{"Customer", "ID"}, {"Shop", "Shop"}}),
                                      ForeignKey("FK_Other", "Shippers", {{"Via", "ID"}})};
    RetrieveParentRelationships(edit, "Customers");
    const auto relationship = item.TTCRelationships.Item("FK_Customer");
    ASSERT_TRUE(relationship);
    EXPECT_EQ(relationship->ParentTableName, "Customers");
    EXPECT_EQ(relationship->KeyName, "FK_Customer");
    EXPECT_EQ(relationship->Columns.Item("Customer")->JoinColumnName, "ID");
    EXPECT_EQ(Joins(), (Texts{"FK_Customer.Customer Orders.Customer=Customers.ID",
                              "FK_Customer.Shop Orders.Shop=Customers.Shop"}));
}

TEST_F(ParentRelationshipsTest, AKeyOfTheParentIsReadTheSameWay)
{
    catalog.Content["Customers"].Keys = {ForeignKey("FK_Best", "Orders", {{"Best Order", "ID"}})};
    RetrieveParentRelationships(edit, "Customers");
    EXPECT_EQ(Joins(), Texts{"FK_Best.Best Order Orders.Best Order=Customers.ID"});
}

TEST_F(ParentRelationshipsTest, KeysOfOtherKindsAreNone)
{
    CatalogKey key = ForeignKey("U", "Customers", {{"Customer", "ID"}});
    key.Type = catalog_key_type::kUnique;
    catalog.Content["Orders"].Keys = {key};
    RetrieveParentRelationships(edit, "Customers");
    EXPECT_EQ(item.TTCRelationships.Count(), 0U);
}

TEST_F(ParentRelationshipsTest, AKeyOfATableToItselfIsTakenOnce)
{
    catalog.Content["Orders"].Keys = {ForeignKey("FK_Next", "Orders", {{"Next", "ID"}})};
    RetrieveParentRelationships(edit, "Orders");
    EXPECT_EQ(item.TTCRelationships.Count(), 1U);
}

TEST_F(ParentRelationshipsTest, ReadingAgainKeepsWhatIsThere)
{
    catalog.Content["Orders"].Keys = {ForeignKey("FK_Customer", "Customers", {{"Customer", "ID"}})};
    RetrieveParentRelationships(edit, "Customers");
    item.TTCRelationships.Item("FK_Customer")->Columns.Item("Customer")->JoinColumnName = "Code";
    RetrieveParentRelationships(edit, "Customers");
    EXPECT_EQ(Joins(), Texts{"FK_Customer.Customer Orders.Customer=Customers.Code"});
}

TEST_F(ParentRelationshipsTest, TheKeysOfTheClassAreReadAgain)
{
    catalog.Content["Orders"].Indexes = {PrimaryIndex({"ID"})};
    item.TTCKeys.Add(0, TTCColumns{}, "0");
    RetrieveParentRelationships(edit, "Customers");
    EXPECT_EQ(item.TTCKeys.Count(), 1U);
    EXPECT_TRUE(item.TTCKeys.Contains("PK"));
}

TEST_F(ParentRelationshipsTest, WithoutTheParentsTableNothingIsAsked)
{
    RetrieveParentRelationships(edit, "");
    EXPECT_TRUE(catalog.Calls.empty());
}

TEST_F(ParentRelationshipsTest, ASourceWithoutKeysIsTold)
{
    catalog.Failures["Keys"] = data_source_error::kNotSupported;
    RetrieveParentRelationships(edit, "Customers");
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Title, "Unable to display Relationships");
    EXPECT_EQ(messages.Asked().front().Text,
              "Unable to display Relationship information because the datasource provider does not supply it.");
    EXPECT_EQ(messages.Asked().front().Icon, MessageIcon::Information);
    EXPECT_TRUE(errors.Reported.empty());
}

TEST_F(ParentRelationshipsTest, AnyOtherFailureIsReportedToo)
{
    catalog.Failures["Keys"] = data_source_error::kFailed;
    RetrieveParentRelationships(edit, "Customers");
    EXPECT_EQ(Titles(), Texts{"Unable to display Relationships"});
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "RetrieveParentRelationships");
}

TEST_F(ParentRelationshipsTest, TheJoinPageShowsTheColumnsOfBothTables)
{
    const JoinFields fields = ReadJoinFields(edit, "Customers");
    EXPECT_EQ(fields.ParentCaption, "P&arent Table: Customers");
    EXPECT_EQ(fields.OwnCaption, "&This Table: Orders");
    ASSERT_EQ(fields.Parent.size(), 2U);
    EXPECT_EQ(fields.Parent.at(1).ColumnName, "Best Order");
    EXPECT_EQ(fields.Parent.at(1).DataType, "Long");
    ASSERT_EQ(fields.Own.size(), 2U);
    EXPECT_EQ(fields.Own.at(1).ColumnName, "Customer");
    EXPECT_EQ(fields.Own.at(1).DataType, "String");
}

TEST_F(ParentRelationshipsTest, AJoinPageThatCanNotBeReadIsEmptyAndReported)
{
    const JoinFields fields = ReadJoinFields(edit, "Gone");
    EXPECT_TRUE(fields.Parent.empty());
    EXPECT_EQ(fields.Own.size(), 2U);
    EXPECT_EQ(errors.Reported.size(), 1U);
}

} // namespace
} // namespace veldrane
