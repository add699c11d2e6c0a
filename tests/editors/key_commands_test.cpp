#include "editors/key_commands.h"

#include "class_editor_fixture.h"
#include "datasource/table_keys.h"

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class KeyCommandsTest : public testing::ClassEditorTest
{
  protected:
    KeyCommandsTest()
    {
        Table("Orders").Indexes = {testing::PrimaryIndex({"Customer", "Note"})};
        AnswerWith({Answer::Yes, Answer::Yes}); // by the identity column
        MadeCustomer();
        order_ = MadeOrder();
    }

    std::shared_ptr<KZMClass> order_;
};

TEST_F(KeyCommandsTest, RetrieveTakesTheColumnsOfThePrimaryKey)
{
    TTCMethod& retrieve = *order_->TTCMethods.Item("Retrieve");
    FindBy(*order_, retrieve, RowKey::PrimaryKey);
    EXPECT_THAT(Signature(retrieve.Arguments), ElementsAre("aCustomer:Long", "aNote:String"));
    EXPECT_TRUE(order_->RetrieveByPrimaryKey);
    EXPECT_FALSE(order_->RetrieveByIdentityCol);
    FindBy(*order_, retrieve, RowKey::IdentityColumn);
    EXPECT_THAT(Signature(retrieve.Arguments), ElementsAre("anOrderID:Long"));
    EXPECT_FALSE(order_->RetrieveByPrimaryKey);
    EXPECT_TRUE(order_->RetrieveByIdentityCol);
}

TEST_F(KeyCommandsTest, DeleteTakesItsEventAlong)
{
    TTCMethod& remove = *order_->TTCMethods.Item("Delete");
    FindBy(*order_, remove, RowKey::PrimaryKey);
    EXPECT_THAT(Signature(remove.Arguments), ElementsAre("aCustomer:Long", "aNote:String"));
    EXPECT_TRUE(order_->DeleteByPrimaryKey);
    EXPECT_FALSE(order_->DeleteByIdentityColumn);
    EXPECT_THAT(Signature(order_->TTCEvents.Item("RecordDeleted")->TTCEventParameters),
                ElementsAre("aCustomer:Long", "aNote:String"));
    FindBy(*order_, remove, RowKey::IdentityColumn);
    EXPECT_THAT(Signature(order_->TTCEvents.Item("RecordDeleted")->TTCEventParameters), ElementsAre("anOrderID:Long"));
}

TEST_F(KeyCommandsTest, OnlyAKeyOfTheClassIsOffered)
{
    const TTCMethod& retrieve = *order_->TTCMethods.Item("Retrieve");
    EXPECT_TRUE(CanFindBy(*order_, retrieve, RowKey::PrimaryKey));
    EXPECT_TRUE(CanFindBy(*order_, retrieve, RowKey::IdentityColumn));
    EXPECT_FALSE(CanFindBy(*order_, *order_->TTCMethods.Item("Update"), RowKey::PrimaryKey));
    order_->TTCKeys.Clear();
    EXPECT_FALSE(CanFindBy(*order_, retrieve, RowKey::PrimaryKey));
    order_->TTCProperties.Item("OrderID")->FieldIsIdentityCol = false;
    EXPECT_FALSE(CanFindBy(*order_, retrieve, RowKey::IdentityColumn));
}

TEST_F(KeyCommandsTest, APrimaryKeySetByHandReplacesTheOthersButTheIdentityColumn)
{
    SetPrimaryKey(*order_, {order_->TTCProperties.Item("Note"), order_->TTCProperties.Item("OrderID")});
    ASSERT_EQ(order_->TTCKeys.Count(), 2U);
    const auto key = order_->TTCKeys.Item("0");
    ASSERT_TRUE(key);
    EXPECT_EQ(key->KeyType, key_type::kPrimaryKey);
    EXPECT_EQ(key->TTCColumns.Item(1)->ColumnName, "Note");
    EXPECT_EQ(key->TTCColumns.Item(1)->ColumnDataType, "String");
    EXPECT_EQ(key->TTCColumns.Item(2)->ColumnName, "OrderID");
    EXPECT_TRUE(FirstKey(*order_, key_type::kIdentityColumn));
}

TEST_F(KeyCommandsTest, AClassWithoutAnIdentityColumnHasTheOneKey)
{
    order_->TTCProperties.Item("OrderID")->FieldIsIdentityCol = false;
    SetPrimaryKey(*order_, {order_->TTCProperties.Item("Note")});
    EXPECT_EQ(order_->TTCKeys.Count(), 1U);
    EXPECT_THAT(Messages.Asked(), IsEmpty());
}

} // namespace
} // namespace veldrane
