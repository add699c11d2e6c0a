#include "datasource/table_keys.h"

#include "class_fixture.h"

namespace veldrane {
namespace {

using testing::Field;
using testing::PrimaryIndex;
using testing::Texts;

class RetrieveTableKeysTest : public testing::ClassFixture
{
  protected:
    void AddIdentityProperty()
    {
        item.TTCProperties.Add(
            {.FieldName = "Order ID", .FieldIsIdentityCol = true, .PropertyName = "OrderID", .DataType = "Long"},
            "OrderID");
    }

    [[nodiscard]] static Texts ColumnsOf(const TTCKey& key)
    {
        Texts columns;
        for (const TTCColumn& column : key.TTCColumns)
            columns.push_back(column.ColumnName + ":" + column.ColumnDataType);
        return columns;
    }
};

TEST_F(RetrieveTableKeysTest, FindsThePrimaryKeyUnderTheNameOfItsIndex)
{
    auto& table = OwnTable("Details");
    table.Fields = {Field("Product", adVarWChar), Field("Order", adInteger)};
    table.Indexes = {{.Name = "U", .PrimaryKey = false, .Unique = true, .Columns = {"Product"}},
                     PrimaryIndex({"Order", "Product", "Order"}, "PK_Details")};
    RetrieveTableKeys(edit);
    EXPECT_EQ(item.TTCKeys.Count(), 1U);
    const auto key = item.TTCKeys.Item("PK_Details");
    ASSERT_TRUE(key);
    EXPECT_EQ(key->KeyType, 0);
    EXPECT_EQ(ColumnsOf(*key), (Texts{"Order:Long", "Product:String"}));
    EXPECT_TRUE(key->TTCColumns.Contains("Order"));
}

TEST_F(RetrieveTableKeysTest, APrimaryKeyWithoutColumnsIsNone)
{
    OwnTable("T").Indexes = {PrimaryIndex({})};
    RetrieveTableKeys(edit);
    EXPECT_EQ(item.TTCKeys.Count(), 0U);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(RetrieveTableKeysTest, ASecondPrimaryIndexOfTheSameNameIsPassedOver)
{
    auto& table = OwnTable("T");
    table.Fields = {Field("A", adInteger), Field("B", adInteger)};
    table.Indexes = {PrimaryIndex({"A"}), PrimaryIndex({"B"})};
    RetrieveTableKeys(edit);
    ASSERT_EQ(item.TTCKeys.Count(), 1U);
    EXPECT_EQ(ColumnsOf(*item.TTCKeys.Item("PK")), Texts{"A:Long"});
}

TEST_F(RetrieveTableKeysTest, AddsTheIdentityColumnUnderItsType)
{
    OwnTable("Orders");
    AddIdentityProperty();
    RetrieveTableKeys(edit);
    ASSERT_EQ(item.TTCKeys.Count(), 1U);
    const auto key = item.TTCKeys.Item("1");
    ASSERT_TRUE(key);
    EXPECT_EQ(key->KeyType, 1);
    EXPECT_EQ(ColumnsOf(*key), Texts{"Order ID:Long"});
    EXPECT_TRUE(key->TTCColumns.Contains("Order ID"));
}

TEST_F(RetrieveTableKeysTest, ReplacesTheKeysOfBefore)
{
    OwnTable("Orders");
    item.TTCKeys.Add(0, TTCColumns{}, "0");
    RetrieveTableKeys(edit);
    EXPECT_EQ(item.TTCKeys.Count(), 0U);
}

TEST_F(RetrieveTableKeysTest, AFailureKeepsTheKeysAndSaysNothing)
{
    OwnTable("Orders");
    AddIdentityProperty();
    item.TTCKeys.Add(0, TTCColumns{}, "0");
    catalog.Failures["Indexes"] = data_source_error::kNotSupported;
    RetrieveTableKeys(edit);
    EXPECT_EQ(item.TTCKeys.Count(), 1U);
    EXPECT_TRUE(item.TTCKeys.Contains("0"));
    EXPECT_TRUE(messages.Asked().empty());
    EXPECT_TRUE(errors.Reported.empty());
    EXPECT_TRUE(edit.KeysFailed);
}

TEST_F(RetrieveTableKeysTest, AFailureOnTheColumnsKeepsTheKeysToo)
{
    OwnTable("Orders").Indexes = {PrimaryIndex({"A"})};
    item.TTCKeys.Add(0, TTCColumns{}, "0");
    catalog.Failures["Columns"] = data_source_error::kNotSupported;
    RetrieveTableKeys(edit);
    EXPECT_TRUE(item.TTCKeys.Contains("0"));
}

TEST_F(RetrieveTableKeysTest, AFailureIsToldIfTheClassHasNoKey)
{
    OwnTable("Orders");
    catalog.Failures["Indexes"] = data_source_error::kNotSupported;
    RetrieveTableKeys(edit);
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Title, "Unable to display Keys/Indexes");
    EXPECT_EQ(
        messages.Asked().front().Text,
        "Unable to display Key/Index information because the datasource provider does not supply it.\r\nYou will need to set the Primary Key for this class manually.");
    EXPECT_EQ(messages.Asked().front().Icon, MessageIcon::Information);
}

TEST_F(RetrieveTableKeysTest, AfterAFailureOnlyTheIdentityColumnIsLookedFor)
{
    OwnTable("Orders").Indexes = {PrimaryIndex({"A"})};
    AddIdentityProperty();
    catalog.Failures["Indexes"] = data_source_error::kNotSupported;
    RetrieveTableKeys(edit);
    EXPECT_EQ(item.TTCKeys.Count(), 0U);
    catalog.Failures.clear();
    catalog.Calls.clear();
    RetrieveTableKeys(edit);
    RetrieveTableKeys(edit);
    EXPECT_TRUE(catalog.Calls.empty());
    EXPECT_EQ(item.TTCKeys.Count(), 1U);
    EXPECT_TRUE(item.TTCKeys.Contains("1"));
}

TEST_F(RetrieveTableKeysTest, AnyOtherFailureIsReportedToo)
{
    OwnTable("Orders");
    catalog.Failures["Indexes"] = data_source_error::kFailed;
    RetrieveTableKeys(edit);
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported.front().Place.ModuleName, "frmAddEditClass");
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "RetrieveTableKeys");
    EXPECT_EQ(Titles(), Texts{"Unable to display Keys/Indexes"});
}

TEST_F(RetrieveTableKeysTest, AKeyThatCanNotBeWrittenIsNone)
{
    auto& table = OwnTable("Orders");
    table.Fields = {Field("Номер", adInteger)};
    table.Indexes = {PrimaryIndex({"Номер"})};
    RetrieveTableKeys(edit);
    EXPECT_EQ(item.TTCKeys.Count(), 0U);
}

} // namespace
} // namespace veldrane
