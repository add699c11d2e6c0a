#include "editors/class_editor.h"

#include "class_editor_fixture.h"

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A person who accepts what the editor proposes.
class ShownEditor : public testing::ClassEditorTest
{
  protected:
    [[nodiscard]] std::shared_ptr<KZMClass> Class(const std::string& name) const { return Classes.Item(name); }

    testing::ScriptedEditorDialogs Dialogs;
    ShownClassEditor Editor{World, Dialogs};
};

// Orders below their customers, and shippers under which they are to go.
class MoveWithoutAnswer : public ShownEditor
{
  protected:
    MoveWithoutAnswer()
    {
        MadeCustomer();
        Made({.TableName = "Shippers"});
        order = MadeOrder();
    }

    void ExpectAsBefore()
    {
        EXPECT_EQ(Class("Order"), order);
        EXPECT_EQ(order->ParentClassName, "Customer");
        EXPECT_TRUE(order->TTCRelationships.Contains("FK_Customer"));
        EXPECT_EQ(order->TTCKeys.Count(), 2U);
        EXPECT_FALSE(Project.Modified());
    }

    std::shared_ptr<KZMClass> order;
};

TEST_F(ShownEditor, AddsTheClassThatItsTableGives)
{
    Table("Customers").Indexes = {testing::PrimaryIndex({"Name"})};
    AnswerWith({Answer::No, Answer::Yes});
    EXPECT_TRUE(Editor.Add({.TableName = "Customers"}));
    EXPECT_THAT(Titles(), ElementsAre("Add Delete Method to Class", "Choose Retrieval Method"));
    const auto customer = Class("Customer");
    ASSERT_TRUE(customer);
    EXPECT_EQ(customer->TableName, "Customers");
    EXPECT_TRUE(customer->TTCProperties.Contains("Name"));
    EXPECT_TRUE(customer->RetrieveByIdentityCol);
    EXPECT_TRUE(customer->DeleteByPrimaryKey);
    EXPECT_TRUE(Project.ClassCollectionNames.ClassNameExists("Customer"));
    EXPECT_TRUE(Project.Modified());
}

TEST_F(ShownEditor, AddsAClassUnderItsParentWithItsJoinsAndACollection)
{
    ASSERT_TRUE(Editor.Add({.TableName = "Customers"}));
    ASSERT_TRUE(Editor.Add({.TableName = "Orders", .ParentClassName = "Customer", .Place = Placement::UnderParent}));
    const auto order = Class("Order");
    EXPECT_EQ(order->ParentClassName, "Customer");
    EXPECT_TRUE(order->CreateCollection);
    EXPECT_TRUE(order->TTCRelationships.Contains("FK_Customer"));
}

TEST_F(ShownEditor, ATableThatIsThereAlreadyIsRefusedInWords)
{
    Made({.TableName = "Orders"});
    EXPECT_FALSE(Editor.Add({.TableName = "Orders"}));
    ExpectTold("Duplicate Class Name",
               "The Class Name already exists in this project. Please change the Class Name then click OK.");
    EXPECT_FALSE(Project.Modified());
}

TEST_F(ShownEditor, ATableThatWasDroppedMeanwhileIsToldAndNothingIsAdded)
{
    AnswerWith({Answer::No});
    EXPECT_FALSE(Editor.Add({.TableName = "Gone"}));
    ASSERT_FALSE(Messages.Asked().empty());
    EXPECT_EQ(Messages.Asked()[0].Title, "Table Missing");
    EXPECT_EQ(Messages.Asked()[0].Text,
              "The table named 'Gone' cannot be found. Has this table been renamed?\r\n"
              "Click 'Yes' if the table has been renamed and you know what the new name is.\r\n"
              "Click 'No' if the table has been deleted\r\n"
              "Click 'Cancel' to cancel this operation.");
    EXPECT_EQ(Messages.Asked()[1].Text, "To Delete this class, right click on it and select 'Delete Class'");
    EXPECT_EQ(Classes.Count(), 0U);
    EXPECT_FALSE(Project.Modified());
}

TEST_F(ShownEditor, WithoutADataSourceAClassIsOfferedWithoutFields)
{
    IsOpen = false;
    bool shown = false;
    Dialogs.Class = [&](frmAddEditClass& form) {
        shown = true;
        EXPECT_EQ(form.txtClassName(), "Order");
        EXPECT_THAT(form.Rows(ClassList::lstProperties), IsEmpty());
        return false;
    };
    EXPECT_FALSE(Editor.Add({.TableName = "Orders"}));
    EXPECT_TRUE(shown);
    ASSERT_FALSE(Errors.Reported.empty());
    EXPECT_EQ(Errors.Reported[0].Place.Hint,
              "The DataSource is currently unavailable. Unable to add new DataSource fields as properties at this "
              "time. \r\nYou may continue, but some functionality will be unavailable.");
    EXPECT_EQ(Classes.Count(), 0U);
}

TEST_F(ShownEditor, ACatalogThatCanNotBeOpenedAddsNothingAndIsToldOnce)
{
    Source.CatalogFailure = "The server is gone.";
    EXPECT_FALSE(Editor.Add({.TableName = "Orders"}));
    ASSERT_EQ(Errors.Reported.size(), 1U);
    EXPECT_EQ(Errors.Reported[0].Error.Description(), "The server is gone.");
    EXPECT_EQ(Errors.Reported[0].Place.RoutineName, "OpenCatalog");
    EXPECT_EQ(Classes.Count(), 0U);
}

TEST_F(ShownEditor, MovesAClassWithAllThatItHas)
{
    MadeCustomer();
    Made({.TableName = "Orders", .Access = ClassAccess::ReadOnly});
    Class("Order")->TTCProperties.Item("Customer")->FormatStringOnGet = "0000";
    EXPECT_TRUE(Editor.Move(Class("Order"), "Customer"));
    const auto moved = Class("Order");
    EXPECT_EQ(moved->ParentClassName, "Customer");
    EXPECT_TRUE(moved->ReadOnly);
    EXPECT_EQ(moved->TTCProperties.Item("Customer")->FormatStringOnGet, "0000");
    EXPECT_TRUE(moved->TTCRelationships.Contains("FK_Customer"));
    EXPECT_THAT(Messages.Asked(), IsEmpty());
}

TEST_F(MoveWithoutAnswer, IsToldAndGivenUpByThePerson)
{
    IsOpen = false;
    Dialogs.Class = [](frmAddEditClass& form) { return !form.cmdCancel_Click(); };
    const std::string before = Saved();
    EXPECT_FALSE(Editor.Move(order, "Shipper"));
    ASSERT_EQ(Errors.Reported.size(), 1U);
    EXPECT_STREQ(Errors.Reported[0].Error.what(), "No data source is open.");
    EXPECT_THAT(Titles(), ElementsAre("Unable to display Relationships"));
    EXPECT_EQ(Saved(), before);
    ExpectAsBefore();
}

TEST_F(MoveWithoutAnswer, KeepsTheKeysAndPropertiesOfTheClass)
{
    IsOpen = false;
    EXPECT_TRUE(Editor.Move(order, "Shipper"));
    EXPECT_EQ(Class("Order")->ParentClassName, "Shipper");
    EXPECT_EQ(Class("Order")->TTCRelationships.Count(), 0U);
    EXPECT_EQ(Class("Order")->TTCKeys.Count(), 2U);
    EXPECT_EQ(Class("Order")->TTCProperties.Count(), order->TTCProperties.Count());
}

TEST_F(MoveWithoutAnswer, FromADataSourceThatFailsIsToldAndTheClassCanBeLeftInItsPlace)
{
    Source.Content.Failures = {{"Keys", data_source_error::kFailed}};
    Dialogs.Class = [](frmAddEditClass& form) { return !form.cmdCancel_Click(); };
    EXPECT_FALSE(Editor.Move(order, "Shipper"));
    EXPECT_THAT(Titles(), ElementsAre("Unable to display Relationships"));
    EXPECT_EQ(Messages.Asked()[0].Text,
              "Unable to display Relationship information because the datasource provider does not supply it.");
    EXPECT_EQ(Errors.Reported.size(), 1U);
    ExpectAsBefore();
}

TEST_F(MoveWithoutAnswer, FromADataSourceThatKnowsNoRelationshipsGoesOnWithoutThem)
{
    Source.Content.Failures = {{"Keys", data_source_error::kNotSupported}};
    EXPECT_TRUE(Editor.Move(order, "Shipper"));
    EXPECT_THAT(Titles(), ElementsAre("Unable to display Relationships"));
    EXPECT_THAT(Errors.Reported, IsEmpty());
    EXPECT_EQ(Class("Order")->ParentClassName, "Shipper");
    EXPECT_EQ(Class("Order")->TTCRelationships.Count(), 0U);
}

TEST_F(ShownEditor, AClassIsNotMovedUnderOneThatIsGone)
{
    const auto order = Made({.TableName = "Orders"});
    EXPECT_FALSE(Editor.Move(order, "Gone"));
    EXPECT_EQ(Class("Order"), order);
}

} // namespace
} // namespace veldrane
