#include "editors/frm_add_edit_class.h"

#include "class_editor_fixture.h"

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The orders below their customers, in the editor.
class ClassJoins : public testing::ClassEditorTest
{
  protected:
    ClassJoins() { EXPECT_TRUE(form_.Load()); }

    void SelectFields(const std::string& parent, const std::string& own)
    {
        Select(form_, ClassList::lstParentFields, {parent});
        Select(form_, ClassList::lstFields, {own});
    }

    [[nodiscard]] std::vector<std::string> Joins() const { return Texts(form_, ClassList::lstJoins); }

    std::shared_ptr<KZMClass> customer_ = MadeCustomer();
    std::shared_ptr<KZMClass> order_ = MadeOrder();
    frmAddEditClass form_{World, order_};
};

TEST_F(ClassJoins, ShowTheFieldsOfBothTablesAndTheJoins)
{
    EXPECT_EQ(form_.lblParentFields(), "P&arent Table: Customers");
    EXPECT_EQ(form_.lblFields(), "&This Table: Orders");
    EXPECT_THAT(Texts(form_, ClassList::lstParentFields), ElementsAre("ID", "Name"));
    EXPECT_THAT(Texts(form_, ClassList::lstFields), ElementsAre("OrderID", "Customer", "Note"));
    EXPECT_EQ(form_.Rows(ClassList::lstFields).at(2).Second, "String");
    EXPECT_THAT(Joins(), ElementsAre("Orders.Customer=Customers.ID"));
}

TEST_F(ClassJoins, OneFieldOfEachTableIsJoined)
{
    SelectFields("ID", "OrderID");
    form_.cmdAddRelationship_Click();
    EXPECT_THAT(Joins(), ElementsAre("Orders.Customer=Customers.ID", "Orders.ID=Customers.OrderID"));
    ASSERT_TRUE(form_.cmdOK_Click());
    const auto added = Classes.Item("Order")->TTCRelationships.Item("Customers:ID=Orders:OrderID");
    ASSERT_TRUE(added);
    EXPECT_EQ(added->KeyName, "Customers:ID=Orders:OrderID");
    EXPECT_EQ(added->ParentTableName, "Customers");
    const auto column = added->Columns.Item("ID");
    EXPECT_EQ(column->ColumnName, "ID");
    EXPECT_EQ(column->ColumnDataType, "Long");
    EXPECT_EQ(column->JoinColumnName, "OrderID");
}

TEST_F(ClassJoins, NothingHappensUnlessOneOfEachIsSelected)
{
    EXPECT_FALSE(form_.IsEnabled("cmdAddRelationship"));
    form_.cmdAddRelationship_Click();
    Select(form_, ClassList::lstParentFields, {"ID", "Name"});
    Select(form_, ClassList::lstFields, {"OrderID"});
    form_.cmdAddRelationship_Click();
    EXPECT_THAT(Joins(), ElementsAre("Orders.Customer=Customers.ID"));
    EXPECT_THAT(Messages.Asked(), IsEmpty());
    EXPECT_TRUE(form_.cmdCancel_Click());
}

TEST_F(ClassJoins, ADifferenceOfTypesIsAskedAbout)
{
    SelectFields("Name", "OrderID");
    AnswerWith({Answer::Cancel});
    form_.cmdAddRelationship_Click();
    ExpectTold(
        "Data Type Mismatch",
        "Warning: The Data Type of the Parent Field is 'String' and the related field Data Type in this class is 'Long'.\r\nAre you sure you want to create a mismatched join?");
    EXPECT_EQ(Messages.Asked().back().Offered, Buttons::OkCancel);
    EXPECT_THAT(Joins(), ElementsAre("Orders.Customer=Customers.ID"));
}

TEST_F(ClassJoins, TheSameJoinIsRefusedBehindTheQuestion)
{
    SelectFields("Name", "OrderID");
    AnswerWith({Answer::Ok, Answer::Ok});
    form_.cmdAddRelationship_Click();
    form_.cmdAddRelationship_Click();
    EXPECT_THAT(Titles(), ElementsAre("Data Type Mismatch", "Data Type Mismatch", "Duplicate Relationship"));
    ExpectTold("Duplicate Relationship", "Unable to add relationship. The relationship already exists.");
    EXPECT_EQ(Joins().size(), 2U);
}

TEST_F(ClassJoins, AJoinIsDeletedWithAllItsColumnsAfterOneQuestion)
{
    Table("Orders").Keys.push_back(testing::ForeignKey("FK_Both", "Customers", {{"Note", "Name"}, {"Customer", "ID"}}));
    form_.actBar_Click("GetNewRelationships");
    ASSERT_EQ(Joins().size(), 3U);
    form_.Select(ClassList::lstJoins, {1, 2});
    AnswerWith({Answer::Ok});
    form_.actBar_Click("DeleteRelationship");
    EXPECT_THAT(Titles(), ElementsAre("Confirm Delete Relationship"));
    ExpectTold("Confirm Delete Relationship",
               "Are you sure you want to delete the 'FK_Both' Relationship from this class?");
    EXPECT_THAT(Joins(), ElementsAre("Orders.Customer=Customers.ID"));
    EXPECT_TRUE(form_.Selected(ClassList::lstJoins).empty());
}

TEST_F(ClassJoins, CancelKeepsTheJoin)
{
    form_.Select(ClassList::lstJoins, {0});
    form_.actBar_Click("DeleteRelationship");
    EXPECT_EQ(Joins().size(), 1U);
}

TEST_F(ClassJoins, RelationshipsAreReadAgainAndKeysByHandStay)
{
    Table("Orders").Indexes.clear();
    Select(form_, ClassList::lstProperties, {"Note"});
    AnswerWith({Answer::Ok});
    form_.actBar_Click("SetAsPrimaryKey");
    Table("Orders").Keys.push_back(testing::ForeignKey("FK_New", "Customers", {{"Note", "Name"}}));
    form_.actBar_Click("GetNewRelationships");
    EXPECT_THAT(Joins(), ElementsAre("Orders.Customer=Customers.ID", "Orders.Note=Customers.Name"));
    ASSERT_TRUE(form_.cmdOK_Click());
    EXPECT_EQ(Classes.Item("Order")->TTCKeys.Item("0")->TTCColumns.Item(1)->ColumnName, "Note");
    EXPECT_TRUE(Classes.Item("Order")->TTCKeys.Contains("1"));
}

TEST_F(ClassJoins, WhatCanNotBeReadLeavesTheClassAsItWas)
{
    Source.Content.Failures = {{"Keys", data_source_error::kFailed}};
    form_.actBar_Click("GetNewRelationships");
    EXPECT_THAT(Titles(), ElementsAre("Unable to display Relationships"));
    EXPECT_THAT(Joins(), ElementsAre("Orders.Customer=Customers.ID"));
    EXPECT_TRUE(form_.cmdCancel_Click());
}

} // namespace
} // namespace veldrane
