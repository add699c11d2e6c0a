#include "shell/main_window/class_editor.h"

#include "support/fake_connection.h"
#include "support/memory_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using testing::Field;
using testing::ForeignKey;
using testing::IdentityField;
using ::testing::IsEmpty;
using testing::PrimaryIndex;

// A new project on a data source with customers and their orders.
class AcceptingEditor : public ::testing::Test
{
  protected:
    AcceptingEditor()
    {
        session.New();
        auto connection = std::make_unique<testing::FakeConnection>();
        source = &connection->Content;
        state.ActiveConnection = std::move(connection);
        auto& customers = source->Add("Customers");
        customers.Fields = {IdentityField("ID"), Field("Name", adVarWChar, 50)};
        customers.Indexes = {PrimaryIndex({"Name"})};
        auto& orders = source->Add("Orders");
        orders.Fields = {IdentityField("OrderID"), Field("Customer", adInteger)};
        orders.Keys = {ForeignKey("FK_Customer", "Customers", {{"Customer", "ID"}})};
        session.Project().SetModified(false);
    }

    void AnswerWith(std::initializer_list<Answer> answers) { messages = testing::ScriptedMessages(answers); }

    [[nodiscard]] std::vector<std::string> Titles() const
    {
        std::vector<std::string> titles;
        for (const Question& question : messages.Asked())
            titles.push_back(question.Title);
        return titles;
    }

    [[nodiscard]] std::shared_ptr<KZMClass> Class(const std::string& name) { return session.Classes().Item(name); }

    testing::MemoryApplication world;
    testing::ScriptedMessages& messages = world.Messages;
    testing::RecordedErrors& errors = world.Errors;
    ModuleState& state = world.State;
    ProjectSession session{world.World};
    AcceptingClassEditor editor{world.World, session};
    testing::FakeCatalog* source = nullptr;
};

// Orders below their customers, and shippers under which they are to go.
class MoveWithoutAnswer : public AcceptingEditor
{
  protected:
    MoveWithoutAnswer()
    {
        source->Add("Shippers").Fields = {IdentityField("ID")};
        EXPECT_TRUE(editor.Add({.TableName = "Customers"}));
        EXPECT_TRUE(editor.Add({.TableName = "Shippers"}));
        EXPECT_TRUE(
            editor.Add({.TableName = "Orders", .ParentClassName = "Customer", .Place = Placement::UnderParent}));
        order = Class("Order");
        session.Project().SetModified(false);
        messages.Forget();
    }

    void ExpectAsBefore()
    {
        EXPECT_EQ(Class("Order"), order);
        EXPECT_EQ(order->ParentClassName, "Customer");
        EXPECT_TRUE(order->TTCRelationships.Contains("FK_Customer"));
        EXPECT_EQ(order->TTCKeys.Count(), 1U);
        EXPECT_FALSE(session.Project().Modified());
    }

    std::shared_ptr<KZMClass> order;
};

TEST_F(AcceptingEditor, AddsTheClassThatItsTableGives)
{
    AnswerWith({Answer::No, Answer::Yes});
    EXPECT_TRUE(editor.Add({.TableName = "Customers"}));
    EXPECT_THAT(Titles(), ElementsAre("Add Delete Method to Class", "Choose Retrieval Method"));
    const auto customer = Class("Customer");
    ASSERT_TRUE(customer);
    EXPECT_EQ(customer->TableName, "Customers");
    EXPECT_TRUE(customer->TTCProperties.Contains("Name"));
    EXPECT_TRUE(customer->RetrieveByIdentityCol);
    EXPECT_TRUE(customer->DeleteByPrimaryKey);
    EXPECT_TRUE(session.Project().ClassCollectionNames.ClassNameExists("Customer"));
    EXPECT_TRUE(session.Project().Modified());
}

TEST_F(AcceptingEditor, AddsAClassUnderItsParentWithItsJoinsAndACollection)
{
    ASSERT_TRUE(editor.Add({.TableName = "Customers"}));
    ASSERT_TRUE(editor.Add({.TableName = "Orders", .ParentClassName = "Customer", .Place = Placement::UnderParent}));
    const auto order = Class("Order");
    EXPECT_EQ(order->ParentClassName, "Customer");
    EXPECT_TRUE(order->CreateCollection);
    EXPECT_TRUE(order->TTCRelationships.Contains("FK_Customer"));
}

TEST_F(AcceptingEditor, ATableThatIsThereAlreadyIsRefusedInWords)
{
    ASSERT_TRUE(editor.Add({.TableName = "Orders"}));
    session.Project().SetModified(false);
    messages.Forget();
    EXPECT_FALSE(editor.Add({.TableName = "Orders"}));
    EXPECT_THAT(Titles(), ElementsAre("Duplicate Class Name"));
    EXPECT_EQ(messages.Asked().at(0).Text,
              "The Class Name already exists in this project. Please change the Class Name then click OK.");
    EXPECT_FALSE(session.Project().Modified());
}

TEST_F(AcceptingEditor, ATableThatWasDroppedMeanwhileIsToldAndNothingIsAdded)
{
    const std::size_t before = session.Classes().Count();
    AnswerWith({Answer::No});
    EXPECT_FALSE(editor.Add({.TableName = "Gone"}));
    ASSERT_FALSE(messages.Asked().empty());
    EXPECT_EQ(messages.Asked()[0].Title, "Table Missing");
    EXPECT_EQ(messages.Asked()[0].Text,
              "The table named 'Gone' cannot be found. Has this table been renamed?\r\n"
              "Click 'Yes' if the table has been renamed and you know what the new name is.\r\n"
              "Click 'No' if the table has been deleted\r\n"
              "Click 'Cancel' to cancel this operation.");
    EXPECT_EQ(session.Classes().Count(), before);
    EXPECT_FALSE(session.Project().Modified());
}

TEST_F(AcceptingEditor, WithoutADataSourceNoClassIsAdded)
{
    const std::size_t before = session.Classes().Count();
    state.ActiveConnection.reset();
    EXPECT_FALSE(editor.Add({.TableName = "Orders"}));
    ASSERT_FALSE(errors.Reported.empty());
    EXPECT_EQ(errors.Reported[0].Place.Hint,
              "The DataSource is currently unavailable. Unable to add new DataSource fields as properties at this "
              "time. \r\nYou may continue, but some functionality will be unavailable.");
    EXPECT_EQ(session.Classes().Count(), before);
}

TEST_F(AcceptingEditor, MovesAClassWithAllThatItHas)
{
    ASSERT_TRUE(editor.Add({.TableName = "Customers"}));
    ASSERT_TRUE(editor.Add({.TableName = "Orders", .Access = ClassAccess::ReadOnly}));
    Class("Order")->TTCProperties.Item("Customer")->FormatStringOnGet = "0000";
    messages.Forget();
    EXPECT_TRUE(editor.Move(Class("Order"), "Customer"));
    const auto moved = Class("Order");
    EXPECT_EQ(moved->ParentClassName, "Customer");
    EXPECT_TRUE(moved->ReadOnly);
    EXPECT_EQ(moved->TTCProperties.Item("Customer")->FormatStringOnGet, "0000");
    EXPECT_TRUE(moved->TTCRelationships.Contains("FK_Customer"));
    EXPECT_THAT(messages.Asked(), IsEmpty());
}

TEST_F(MoveWithoutAnswer, WithoutADataSourceIsToldAndTheClassKeepsItsPlaceAndItsJoins)
{
    state.ActiveConnection.reset();
    EXPECT_FALSE(editor.Move(order, "Shipper"));
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_STREQ(errors.Reported[0].Error.what(), "No data source is open.");
    EXPECT_THAT(messages.Asked(), IsEmpty());
    ExpectAsBefore();
}

TEST_F(MoveWithoutAnswer, UnderAClassWithoutATableAsksForTheDataSourceToo)
{
    Class("Shipper")->TableName.clear();
    state.ActiveConnection.reset();
    EXPECT_FALSE(editor.Move(order, "Shipper"));
    EXPECT_EQ(errors.Reported.size(), 1U);
    ExpectAsBefore();
}

TEST_F(MoveWithoutAnswer, FromADataSourceThatFailsIsToldAndTheClassKeepsItsPlaceAndItsJoins)
{
    source->Failures = {{"Keys", data_source_error::kFailed}};
    EXPECT_FALSE(editor.Move(order, "Shipper"));
    EXPECT_THAT(Titles(), ElementsAre("Unable to display Relationships"));
    EXPECT_EQ(messages.Asked()[0].Text,
              "Unable to display Relationship information because the datasource provider does not supply it.");
    EXPECT_EQ(errors.Reported.size(), 1U);
    ExpectAsBefore();
}

TEST_F(MoveWithoutAnswer, FromADataSourceThatKnowsNoRelationshipsGoesOnWithoutThem)
{
    source->Failures = {{"Keys", data_source_error::kNotSupported}};
    EXPECT_TRUE(editor.Move(order, "Shipper"));
    EXPECT_THAT(Titles(), ElementsAre("Unable to display Relationships"));
    EXPECT_THAT(errors.Reported, IsEmpty());
    EXPECT_EQ(Class("Order")->ParentClassName, "Shipper");
    EXPECT_EQ(Class("Order")->TTCRelationships.Count(), 0U);
}

TEST_F(AcceptingEditor, AClassIsNotMovedUnderOneThatIsGone)
{
    ASSERT_TRUE(editor.Add({.TableName = "Orders"}));
    const auto order = Class("Order");
    EXPECT_FALSE(editor.Move(order, "Gone"));
    EXPECT_EQ(Class("Order"), order);
}

} // namespace
} // namespace veldrane
