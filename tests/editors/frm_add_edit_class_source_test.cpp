#include "editors/frm_add_edit_class.h"

#include "class_editor_fixture.h"
#include "datasource/table_keys.h"

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// What the editor reads from the data source, and what becomes of it.
class ClassSource : public testing::ClassEditorTest
{
  protected:
    void Listen(frmAddEditClass& form)
    {
        focus_ = form.FocusWanted.Connect([this](std::string_view name) { Focused.emplace_back(name); });
        close_ = form.CloseWanted.Connect([this] { ++Closed; });
    }

    std::vector<std::string> Focused;
    int Closed = 0;

  private:
    Connection focus_;
    Connection close_;
};

TEST_F(ClassSource, AMissingTableWhoseNewNameIsKnownIsReadUnderIt)
{
    MadeCustomer();
    const auto order = MadeOrder();
    Source.Content.Content["Purchases"] = Table("Orders");
    Source.Content.Content.erase("Orders");
    Table("Purchases").Fields.push_back(testing::Field("City", adVarWChar, 30));
    AnswerWith({Answer::Yes});
    frmAddEditClass form(World, order);
    ASSERT_TRUE(form.Load());
    EXPECT_EQ(form.FirstFocus(), "txtTableName");
    EXPECT_TRUE(form.IsEnabled("txtTableName"));
    EXPECT_THAT(Texts(form, ClassList::lstProperties), ElementsAre("OrderID", "Customer", "Note"));
    form.txtTableName_Change("Purchases");
    form.actBar_Click("GetNewFields");
    EXPECT_THAT(Texts(form, ClassList::lstProperties), ElementsAre("OrderID", "Customer", "Note", "City"));
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Classes.Item("Order")->TableName, "Purchases");
}

TEST_F(ClassSource, OkReadsTheTableThatWasTypedAndStaysWhileItIsMissing)
{
    AnswerWith({Answer::Yes, Answer::Yes});
    frmAddEditClass form(World, {.TableName = "Purchases"});
    ASSERT_TRUE(form.Load());
    Listen(form);
    form.txtTableName_Change("Nothing");
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_THAT(Titles(), ElementsAre("Table Missing", "Table Missing"));
    EXPECT_THAT(Focused, ElementsAre("txtTableName"));
    EXPECT_EQ(form.txtTableName(), "Nothing");
    form.txtTableName_Change("Orders");
    EXPECT_TRUE(form.cmdOK_Click());
    const auto made = Classes.Item("Purchase");
    ASSERT_TRUE(made);
    EXPECT_EQ(made->TableName, "Orders");
    EXPECT_TRUE(made->TTCProperties.Contains("Note"));
    EXPECT_TRUE(made->TTCMethods.Contains("Retrieve"));
}

TEST_F(ClassSource, ATypedTableIsNotReadBeforeTheNamesAreAccepted)
{
    AnswerWith({Answer::Yes});
    frmAddEditClass form(World, {.TableName = "Purchases"});
    ASSERT_TRUE(form.Load());
    form.txtTableName_Change("Orders");
    form.txtClassName_Change("Shop");
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_EQ(Messages.Asked().back().Title, "Duplicate Name in Project");
    EXPECT_THAT(Texts(form, ClassList::lstProperties), IsEmpty());
    form.txtTableName_Change("Customers"); // and nothing of the other one is in its way
    form.txtClassName_Change("Person");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_TRUE(Classes.Item("Person")->TTCProperties.Contains("Name"));
    EXPECT_FALSE(Classes.Item("Person")->TTCProperties.Contains("Note"));
}

TEST_F(ClassSource, ANewClassWaitsForItsFieldsWhateverReadingIsCancelled)
{
    MadeCustomer();
    bool isCancelled = true;
    for (int cancelled = 1; isCancelled; ++cancelled) {
        AnswerWith({Answer::Yes});
        Source.Content.Answering = [](const std::string&) {};
        frmAddEditClass form(World, {.TableName = "Purchases", .ParentClassName = "Customer"});
        ASSERT_TRUE(form.Load());
        form.txtTableName_Change("Orders");
        const std::string name = "Purchase" + std::to_string(cancelled);
        form.txtClassName_Change(name);
        form.txtCollectionName_Change(name + "s");
        int calls = 0;
        isCancelled = false;
        Source.Content.Answering = [&](const std::string&) {
            if (++calls != cancelled)
                return;
            isCancelled = true;
            throw ReadingCancelled();
        };
        const bool isDone = form.cmdOK_Click();
        EXPECT_EQ(isDone, !isCancelled) << cancelled;
        EXPECT_TRUE(isDone || form.cmdOK_Click()) << cancelled;
        const auto made = Classes.Item(name);
        ASSERT_TRUE(made) << cancelled;
        EXPECT_TRUE(made->TTCProperties.Contains("Note")) << cancelled;
    }
}

TEST_F(ClassSource, AnAwaitedTableNeedsAName)
{
    MadeCustomer();
    const auto order = MadeOrder();
    Source.Content.Content.erase("Orders");
    AnswerWith({Answer::Yes});
    frmAddEditClass form(World, order);
    ASSERT_TRUE(form.Load());
    Listen(form);
    EXPECT_EQ(form.Trouble(ClassField::TableName), "");
    for (const char* name : {"", "n/a"}) {
        form.txtTableName_Change(name);
        const std::string text = "Invalid Table Name. Please type the new name of the table.";
        EXPECT_EQ(form.Trouble(ClassField::TableName), text);
        EXPECT_FALSE(form.cmdOK_Click());
        ExpectTold("Invalid Table Name", text);
        EXPECT_EQ(Focused.back(), "txtTableName");
    }
    EXPECT_EQ(Classes.Item("Order")->TableName, "Orders");
}

TEST_F(ClassSource, EachNameThatIsTypedForATableIsRead)
{
    MadeCustomer();
    const auto order = MadeOrder();
    Source.Content.Content["Purchases"] = Table("Orders");
    Source.Content.Content.erase("Orders");
    AnswerWith({Answer::Yes, Answer::Yes});
    frmAddEditClass form(World, order);
    ASSERT_TRUE(form.Load());
    form.txtTableName_Change("Purchases");
    form.actBar_Click("GetNewFields");
    form.txtTableName_Change("Nothing");
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_THAT(Titles(), ElementsAre("Table Missing", "Table Missing"));
    form.txtTableName_Change("Purchases");
    EXPECT_TRUE(form.cmdOK_Click());
}

TEST_F(ClassSource, ANewClassWaitsForItsFields)
{
    AnswerWith({Answer::Yes});
    frmAddEditClass form(World, {.TableName = "Purchases"});
    ASSERT_TRUE(form.Load());
    form.txtTableName_Change("Orders");
    Source.Content.Failures = {{"Fields", data_source_error::kFailed}};
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_EQ(Errors.Reported.size(), 2U);
    EXPECT_EQ(Classes.Count(), 0U);
    Source.Content.Failures.clear();
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_TRUE(Classes.Item("Purchase")->TTCProperties.Contains("Note"));
    EXPECT_TRUE(Classes.Item("Purchase")->TTCMethods.Contains("Retrieve"));
}

TEST_F(ClassSource, AMovedClassIsJoinedByTheTableThatWasTyped)
{
    MadeCustomer();
    const auto order = Made({.TableName = "Orders"});
    Source.Content.Content["Purchases"] = Table("Orders");
    Source.Content.Content.erase("Orders");
    AnswerWith({Answer::Yes});
    frmAddEditClass form(World, order,
                         {.TableName = "Orders", .ParentClassName = "Customer", .Place = Placement::UnderParent});
    ASSERT_TRUE(form.Load());
    EXPECT_THAT(form.Rows(ClassList::lstJoins), IsEmpty());
    form.txtTableName_Change("Purchases");
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_THAT(Texts(form, ClassList::lstJoins), ElementsAre("Purchases.Customer=Customers.ID"));
    EXPECT_EQ(Classes.Item("Order")->TTCRelationships.Count(), 1U);
}

TEST_F(ClassSource, ATableThatIsGoneForGoodClosesTheEditor)
{
    MadeCustomer();
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    Listen(form);
    Source.Content.Content.erase("Customers");
    const std::string before = Saved();
    AnswerWith({Answer::No});
    form.actBar_Click("GetNewFields");
    EXPECT_EQ(Closed, 1);
    EXPECT_EQ(Messages.Asked().back().Text, "To Delete this class, right click on it and select 'Delete Class'");
    EXPECT_EQ(Saved(), before);
}

TEST_F(ClassSource, AMissingTableThatIsCancelledOpensNoEditor)
{
    MadeCustomer();
    Source.Content.Content.erase("Customers");
    AnswerWith({Answer::Cancel});
    frmAddEditClass form(World, Classes.Item("Customer"));
    EXPECT_FALSE(form.Load());
    EXPECT_THAT(Titles(), ElementsAre("Table Missing"));
}

TEST_F(ClassSource, ATableWhoseNameCanNotBeWrittenOpensNoEditor)
{
    frmAddEditClass form(World, {.TableName = "Заказы"});
    EXPECT_FALSE(form.Load());
    EXPECT_THAT(Titles(), ElementsAre("Name Not Writable"));
}

TEST_F(ClassSource, ASourceWithoutKeysIsTold)
{
    Source.Content.Failures = {{"Indexes", data_source_error::kNotSupported}};
    frmAddEditClass form(World, {.TableName = "Orders"});
    ASSERT_TRUE(form.Load());
    ASSERT_FALSE(Messages.Asked().empty());
    EXPECT_EQ(Messages.Asked().at(0).Title, "Unable to display Keys/Indexes");
    EXPECT_EQ(Messages.Asked().at(0).Text,
              "Unable to display Key/Index information because the datasource provider does not supply it.\r\n"
              "You will need to set the Primary Key for this class manually.");
}

TEST_F(ClassSource, ASourceWithoutRelationshipsIsTold)
{
    MadeCustomer();
    Source.Content.Failures = {{"Keys", data_source_error::kNotSupported}};
    frmAddEditClass form(World,
                         {.TableName = "Orders", .ParentClassName = "Customer", .Place = Placement::UnderParent});
    ASSERT_TRUE(form.Load());
    ASSERT_FALSE(Messages.Asked().empty());
    EXPECT_EQ(Messages.Asked().at(0).Title, "Unable to display Relationships");
    EXPECT_EQ(Messages.Asked().at(0).Text,
              "Unable to display Relationship information because the datasource provider does not supply it.");
}

TEST_F(ClassSource, NewFieldsComeAndAClashIsTold)
{
    MadeCustomer();
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    Table("Customers").Fields.push_back(testing::Field("City", adVarWChar, 30));
    Table("Customers").Fields.push_back(testing::Field("Na_me", adVarWChar, 30));
    form.actBar_Click("GetNewFields");
    EXPECT_THAT(Texts(form, ClassList::lstProperties), ElementsAre("ID", "Name", "City"));
    ExpectTold(
        "Duplicate Property Name",
        "The field name 'Na_me' conflicts with an existing property in the Customer class. This field cannot be added as a property at this time.");
    EXPECT_FALSE(form.cmdCancel_Click());
}

TEST_F(ClassSource, AFieldIsReadAnewAfterAQuestion)
{
    MadeCustomer();
    const auto name = Classes.Item("Customer")->TTCProperties.Item("Name");
    name->MaxLength = 7;
    name->TTCLookupFields.Add("Code", "String", "Code", "Code");
    Classes.Item("Customer")->TTCMembers.Add("Code", "Code");
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    Select(form, ClassList::lstProperties, {"Name"});
    AnswerWith({Answer::Cancel, Answer::Ok});
    form.actBar_Click("RefreshField");
    ExpectTold(
        "Refresh Field",
        "Refreshing Name will delete this field/property and re-add it to this class using the properties of the corresponding database field. \r\n"
        "Any customized settings and/or lookups will be lost and this action cannot be undone.\r\n"
        "Click Ok to refesh, or Cancel to abort.");
    EXPECT_TRUE(form.cmdCancel_Click());
    form.actBar_Click("RefreshField");
    ASSERT_TRUE(form.cmdOK_Click());
    const auto refreshed = Classes.Item("Customer")->TTCProperties.Item("Name");
    EXPECT_EQ(refreshed->MaxLength, 50);
    EXPECT_EQ(refreshed->TTCLookupFields.Count(), 0U);
    EXPECT_FALSE(Classes.Item("Customer")->TTCMembers.Contains("Code"));
}

TEST_F(ClassSource, SeveralFieldsAreReadAnewAfterOneQuestion)
{
    MadeCustomer();
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    Select(form, ClassList::lstProperties, {"ID", "Name"});
    AnswerWith({Answer::Ok});
    form.actBar_Click("RefreshField");
    EXPECT_THAT(Titles(), ElementsAre("Refresh Field"));
    EXPECT_EQ(
        Messages.Asked().back().Text,
        "Refreshing ID, Name will delete these fields/properties and re-add them to this class using the properties of each corresponding database field. \r\n"
        "Any customized settings and/or lookups will be lost and this action cannot be undone.\r\n"
        "Click Ok to refesh, or Cancel to abort.");
    EXPECT_THAT(Texts(form, ClassList::lstProperties), ElementsAre("ID", "Name"));
}

TEST_F(ClassSource, AFieldThatCouldNotComeBackIsKept)
{
    MadeCustomer();
    const auto customer = Classes.Item("Customer");
    customer->TTCProperties.Item("Name")->PropertyName = "FullName";
    frmAddEditClass form(World, customer);
    ASSERT_TRUE(form.Load());
    Members.Do = [](KZMClass& item) {
        item.TTCMethods.Add("Name", false, {}, "", "Public", false, "Name");
        item.TTCMembers.Add("Name", "Name");
        return true;
    };
    form.actBar_Click("NewMethod");
    Select(form, ClassList::lstProperties, {"FullName"});
    AnswerWith({Answer::Ok});
    form.actBar_Click("RefreshField");
    EXPECT_THAT(Titles(), ElementsAre("Refresh Field", "Duplicate Property Name"));
    EXPECT_THAT(Texts(form, ClassList::lstProperties), ElementsAre("ID", "FullName"));
}

TEST_F(ClassSource, ARefusedRefreshLeavesTheJoinPageAsItWas)
{
    MadeCustomer();
    const auto order = MadeOrder();
    order->TTCProperties.Item("Note")->PropertyName = "Remark";
    order->TTCMembers.Add("Note", "Note");
    frmAddEditClass form(World, order);
    ASSERT_TRUE(form.Load());
    Table("Orders").Fields.push_back(testing::Field("City", adVarWChar, 30));
    Select(form, ClassList::lstProperties, {"Remark"});
    AnswerWith({Answer::Ok});
    form.actBar_Click("RefreshField");
    EXPECT_THAT(Texts(form, ClassList::lstProperties), ElementsAre("OrderID", "Customer", "Remark"));
    Members.Do = [](KZMClass& /*item*/) { return true; };
    form.actBar_Click("AddBuiltInMethod"); // fills all lists again
    EXPECT_THAT(Texts(form, ClassList::lstFields), ElementsAre("OrderID", "Customer", "Note"));
}

TEST_F(ClassSource, WithoutADataSourceAFieldIsKept)
{
    MadeCustomer();
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    IsOpen = false;
    Select(form, ClassList::lstProperties, {"Name"});
    AnswerWith({Answer::Ok});
    form.actBar_Click("RefreshField");
    EXPECT_EQ(Errors.Reported.size(), 1U);
    EXPECT_THAT(Texts(form, ClassList::lstProperties), ElementsAre("ID", "Name"));
    EXPECT_TRUE(form.cmdCancel_Click());
}

TEST_F(ClassSource, AFailedReadingIsNoChange)
{
    MadeCustomer();
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    Source.Content.Failures = {{"Fields", data_source_error::kFailed}};
    form.actBar_Click("GetNewFields");
    EXPECT_EQ(Errors.Reported.size(), 1U);
    EXPECT_TRUE(form.cmdCancel_Click());
    EXPECT_THAT(Messages.Asked(), IsEmpty());
}

TEST_F(ClassSource, AReadingThatIsCancelledChangesNothing)
{
    MadeCustomer();
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    Table("Customers").Fields.push_back(testing::Field("City", adVarWChar, 30));
    Source.Content.CancelledCall = "Indexes";
    form.actBar_Click("GetNewFields");
    EXPECT_THAT(Texts(form, ClassList::lstProperties), ElementsAre("ID", "Name"));
    EXPECT_THAT(Errors.Reported, IsEmpty());
    EXPECT_TRUE(form.cmdCancel_Click());
}

TEST_F(ClassSource, RelationshipsWhoseReadingIsCancelledStay)
{
    MadeCustomer();
    frmAddEditClass form(World, MadeOrder());
    ASSERT_TRUE(form.Load());
    Source.Content.CancelledCall = "Keys";
    form.actBar_Click("GetNewRelationships");
    EXPECT_THAT(Texts(form, ClassList::lstJoins), ElementsAre("Orders.Customer=Customers.ID"));
    EXPECT_THAT(Errors.Reported, IsEmpty());
    EXPECT_TRUE(form.cmdCancel_Click());
}

TEST_F(ClassSource, AFieldAmongOthersStaysSelectedWhenItIsReadAnew)
{
    MadeCustomer();
    frmAddEditClass form(World, MadeOrder());
    ASSERT_TRUE(form.Load());
    Select(form, ClassList::lstProperties, {"Customer"});
    AnswerWith({Answer::Ok});
    form.actBar_Click("RefreshField");
    EXPECT_THAT(Texts(form, ClassList::lstProperties), ::testing::UnorderedElementsAre("OrderID", "Customer", "Note"));
    ASSERT_EQ(form.Selected(ClassList::lstProperties).size(), 1U);
    EXPECT_EQ(form.Rows(ClassList::lstProperties).at(form.Selected(ClassList::lstProperties).front()).Text, "Customer");
}

TEST_F(ClassSource, WhatIsSelectedStaysSoWhenFieldsAreReadAgain)
{
    MadeCustomer();
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    Select(form, ClassList::lstProperties, {"Name"});
    form.actBar_Click("GetNewFields");
    EXPECT_THAT(form.Selected(ClassList::lstProperties), ElementsAre(1U));
}

TEST_F(ClassSource, AClassUnderAParentOfflineReadsNoJoinPage)
{
    MadeCustomer();
    MadeOrder();
    IsOpen = false;
    frmAddEditClass form(World, Classes.Item("Order"));
    ASSERT_TRUE(form.Load());
    EXPECT_EQ(Errors.Reported.size(), 1U);
    EXPECT_THAT(form.Rows(ClassList::lstFields), IsEmpty());
    EXPECT_THAT(Texts(form, ClassList::lstJoins), ElementsAre("Orders.Customer=Customers.ID"));
}

} // namespace
} // namespace veldrane
