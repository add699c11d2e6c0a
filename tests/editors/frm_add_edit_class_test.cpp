#include "editors/frm_add_edit_class.h"

#include "class_editor_fixture.h"
#include "model/working_copy.h"

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AddEditClass : public testing::ClassEditorTest
{
  protected:
    void Listen(frmAddEditClass& form)
    {
        focus_ = form.FocusWanted.Connect([this](std::string_view name) { Focused.emplace_back(name); });
    }

    std::vector<std::string> Focused;

  private:
    Connection focus_;
};

TEST_F(AddEditClass, AddForATableShowsWhatTheTableGives)
{
    frmAddEditClass form(World, {.TableName = "Orders"});
    ASSERT_TRUE(form.Load());
    EXPECT_EQ(form.Caption(), "Add Orders");
    EXPECT_EQ(form.Tab(), ClassTab::Class);
    EXPECT_EQ(form.txtClassName(), "Order");
    EXPECT_EQ(form.txtTableName(), "Orders");
    EXPECT_EQ(form.txtParentClassName(), "n/a");
    EXPECT_EQ(form.txtCollectionName(), "Orders");
    EXPECT_FALSE(form.chkGenerateCollection());
    EXPECT_EQ(form.lblReadOnly(), "This class is Updatable.");
    EXPECT_THAT(Texts(form, ClassList::lstProperties), ElementsAre("OrderID", "Customer", "Note"));
    EXPECT_THAT(Texts(form, ClassList::lstPlusProperties), ElementsAre("Modified", "Deleted"));
    EXPECT_THAT(Texts(form, ClassList::lstMethods),
                ElementsAre("Add", "Delete", "Update", "Clone", "Clear", "Retrieve", "RetrieveIdentity"));
    EXPECT_EQ(form.Rows(ClassList::lstEvents).size(), 7U);
    EXPECT_TRUE(form.cmdCancel_Click());
    EXPECT_THAT(Messages.Asked(), ElementsAre(::testing::Field(&Question::Title, "Add Delete Method to Class"),
                                              ::testing::Field(&Question::Title, "Choose Retrieval Method")));
}

TEST_F(AddEditClass, AViewGivesAReadOnlyClass)
{
    frmAddEditClass form(World, {.TableName = "Orders", .Access = ClassAccess::ReadOnly});
    ASSERT_TRUE(form.Load());
    EXPECT_EQ(form.lblReadOnly(), "This class is Read Only.");
}

TEST_F(AddEditClass, AddWithoutATableStartsWithNamesOfItsOwn)
{
    frmAddEditClass form(World, NewClass{});
    ASSERT_TRUE(form.Load());
    EXPECT_EQ(form.Caption(), "Add New Class");
    EXPECT_EQ(form.txtClassName(), "NewClass");
    EXPECT_EQ(form.txtCollectionName(), "NewClasses");
    EXPECT_EQ(form.txtTableName(), "n/a");
    EXPECT_TRUE(form.chkGenerateCollection());
    EXPECT_THAT(form.Rows(ClassList::lstProperties), IsEmpty());
    EXPECT_TRUE(Source.Content.Calls.empty());
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Classes.Item("NewClass")->TableName, "");
    EXPECT_EQ(Classes.Item("NewClass")->ParentClassName, "");
    EXPECT_TRUE(Project.ClassCollectionNames.ClassNameExists("NewClasses"));
}

TEST_F(AddEditClass, EditShowsTheClassAndItsTableAsItIsNow)
{
    MadeCustomer();
    Table("Customers").Fields.push_back(testing::Field("City", adVarWChar, 30));
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    EXPECT_EQ(form.Caption(), "Edit Customer");
    EXPECT_EQ(form.lblReadOnly(), "This class is Updatable.");
    EXPECT_THAT(Texts(form, ClassList::lstProperties), ElementsAre("ID", "Name", "City"));
    EXPECT_FALSE(Classes.Item("Customer")->TTCProperties.Contains("City"));
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_TRUE(Classes.Item("Customer")->TTCProperties.Contains("City"));
    EXPECT_TRUE(Project.Modified());
}

TEST_F(AddEditClass, AClassWithoutATableShowsItsPlusPropertiesAlone)
{
    const auto note = Made(NewClass{});
    frmAddEditClass form(World, note);
    ASSERT_TRUE(form.Load());
    EXPECT_THAT(form.Rows(ClassList::lstProperties), IsEmpty());
    EXPECT_THAT(Texts(form, ClassList::lstPlusProperties), ElementsAre("Modified", "Deleted"));
    EXPECT_FALSE(form.IsEnabled("GetNewFields"));
    EXPECT_FALSE(form.IsEnabled("GetNewRelationships"));
}

TEST_F(AddEditClass, MoveBringsUpTheJoinsWithTheNewParent)
{
    MadeCustomer();
    const auto order = Made({.TableName = "Orders"});
    order->IsDomainTable = true;
    order->TTCRelationships.Add("Old", "Shippers", {}, "Old");
    frmAddEditClass form(World, order,
                         {.TableName = "Orders", .ParentClassName = "Customer", .Place = Placement::UnderParent});
    ASSERT_TRUE(form.Load());
    EXPECT_EQ(form.Caption(), "Move Order");
    EXPECT_EQ(form.Tab(), ClassTab::Relationship);
    EXPECT_EQ(form.txtParentClassName(), "Customer");
    EXPECT_THAT(Texts(form, ClassList::lstJoins), ElementsAre("Orders.Customer=Customers.ID"));
    EXPECT_TRUE(order->IsDomainTable);
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Classes.Item("Order")->ParentClassName, "Customer");
    EXPECT_FALSE(Classes.Item("Order")->IsDomainTable);
    EXPECT_FALSE(Classes.Item("Order")->TTCRelationships.Contains("Old"));
}

TEST_F(AddEditClass, MoveToTheLookupClassesClearsTheJoinsAndTheParent)
{
    MadeCustomer();
    const auto order = MadeOrder();
    frmAddEditClass form(World, order, {.TableName = "Orders", .ParentClassName = "n/a", .Place = Placement::Lookup});
    ASSERT_TRUE(form.Load());
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Classes.Item("Order")->ParentClassName, "");
    EXPECT_TRUE(Classes.Item("Order")->IsDomainTable);
    EXPECT_EQ(Classes.Item("Order")->TTCRelationships.Count(), 0U);
}

TEST_F(AddEditClass, MoveToTheRootClassesClearsTheParentAndTheLookup)
{
    MadeCustomer();
    const auto order = MadeOrder();
    order->IsDomainTable = true;
    frmAddEditClass form(World, order, {.TableName = "Orders", .Place = Placement::Root});
    ASSERT_TRUE(form.Load());
    EXPECT_EQ(form.txtParentClassName(), "n/a");
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Classes.Item("Order")->ParentClassName, "");
    EXPECT_FALSE(Classes.Item("Order")->IsDomainTable);
}

TEST_F(AddEditClass, AMoveHoldsThoughTheServerIsGone)
{
    MadeCustomer();
    const auto order = Made({.TableName = "Orders"});
    Source.CatalogFailure = "The server is gone.";
    frmAddEditClass form(World, order,
                         {.TableName = "Orders", .ParentClassName = "Customer", .Place = Placement::UnderParent});
    ASSERT_TRUE(form.Load());
    EXPECT_EQ(Errors.Reported.size(), 1U);
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Classes.Item("Order")->ParentClassName, "Customer");
    EXPECT_TRUE(Classes.Item("Order")->TTCProperties.Contains("Note"));
}

TEST_F(AddEditClass, AMovedClassCanBeRenamedAtOnce)
{
    MadeCustomer();
    Made({.TableName = "Orders"});
    frmAddEditClass form(World, Classes.Item("Order"),
                         {.TableName = "Orders", .ParentClassName = "Customer", .Place = Placement::UnderParent});
    ASSERT_TRUE(form.Load());
    form.txtClassName_Change("Purchase");
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Classes.Item("Purchase")->ParentClassName, "Customer");
    EXPECT_EQ(Classes.Item("Order"), nullptr);
    EXPECT_FALSE(Project.ClassCollectionNames.ClassNameExists("Order"));
}

TEST_F(AddEditClass, CancelLeavesTheProjectByteForByte)
{
    MadeCustomer();
    const auto order = MadeOrder();
    order->TTCProperties.Item("Note")->FormatStringOnGet = "@@";
    order->TTCProperties.Item("Note")->AllowPropertyToBeNull = true;
    const std::string before = Saved();
    Table("Orders").Fields.pop_back();
    frmAddEditClass form(World, order);
    ASSERT_TRUE(form.Load());
    form.txtClassName_Change("Purchase");
    form.chkNewKey_Click();
    Select(form, ClassList::lstEvents, {"IsModified"});
    AnswerWith({Answer::Ok, Answer::No, Answer::Yes});
    form.actBar_Click("DeleteEvent");
    EXPECT_FALSE(form.cmdCancel_Click());
    ExpectTold("Discard Changes?", "This class has been modified, do you want to discard all changes to this class?");
    EXPECT_EQ(form.txtClassName(), "Purchase");
    EXPECT_TRUE(form.cmdCancel_Click());
    EXPECT_EQ(Saved(), before);
    EXPECT_FALSE(Project.Modified());
}

TEST_F(AddEditClass, AnUnchangedClassIsLeftUnasked)
{
    MadeCustomer();
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    EXPECT_TRUE(form.cmdCancel_Click());
    EXPECT_THAT(Messages.Asked(), IsEmpty());
}

TEST_F(AddEditClass, OkLosesNothingWithOrWithoutADataSource)
{
    MadeCustomer();
    const auto order = MadeOrder();
    order->ReadOnly = true;
    order->TTCProperties.Item("Note")->FormatStringOnGet = "@@";
    order->TTCProperties.Item("Note")->FormatOnGet = true;
    const auto procedure = std::make_shared<SP>();
    procedure->SPName = "GetTotals;1";
    const auto method = order->TTCMethods.Add("GetTotals", false, {}, "", "Public", false, "GetTotals");
    method->MethodIsSP = true;
    method->StoredProcedure = procedure;
    order->TTCMembers.Add("GetTotals", "GetTotals");
    const std::string before = Saved();
    for (const bool isOpen : {true, false}) {
        IsOpen = isOpen;
        frmAddEditClass form(World, Classes.Item("Order"));
        ASSERT_TRUE(form.Load());
        ASSERT_TRUE(form.cmdOK_Click());
        EXPECT_EQ(Saved(), before) << isOpen;
    }
}

TEST_F(AddEditClass, AnUnreachableServerIsToldOnceAndTheClassCanBeEdited)
{
    MadeCustomer();
    MadeOrder();
    const std::string before = Saved();
    Source.CatalogFailure = "The server is gone.";
    frmAddEditClass form(World, Classes.Item("Order"));
    ASSERT_TRUE(form.Load());
    EXPECT_EQ(Errors.Reported.size(), 1U);
    EXPECT_THAT(Texts(form, ClassList::lstProperties), ElementsAre("OrderID", "Customer", "Note"));
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Saved(), before);
}

TEST_F(AddEditClass, AnEditedClassKeepsItsPlaceAndARenamedOneIsLast)
{
    MadeCustomer();
    MadeOrder();
    frmAddEditClass edit(World, Classes.Item("Customer"));
    ASSERT_TRUE(edit.Load());
    ASSERT_TRUE(edit.cmdOK_Click());
    EXPECT_EQ(Classes.Item(1)->ClassName, "Customer");
    frmAddEditClass rename(World, Classes.Item("Customer"));
    ASSERT_TRUE(rename.Load());
    rename.txtClassName_Change("Client");
    ASSERT_TRUE(rename.cmdOK_Click());
    EXPECT_EQ(Classes.Item(2)->ClassName, "Client");
    EXPECT_EQ(Classes.Item("Order")->ParentClassName, "Client");
    EXPECT_TRUE(Project.ClassCollectionNames.ClassNameExists("Client"));
    EXPECT_FALSE(Project.ClassCollectionNames.ClassNameExists("Customer"));
}

TEST_F(AddEditClass, ARenamedClassRewritesWhatCarriesItsName)
{
    MadeCustomer();
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    form.chkGenerateCollection_Click();
    form.txtClassName_Change("Client");
    form.txtCollectionName_Change("Clients");
    ASSERT_TRUE(form.cmdOK_Click());
    const auto client = Classes.Item("Client");
    EXPECT_EQ(client->TTCMethods.Item("Clone")->ReturnDataType, "Client");
    EXPECT_EQ(client->TTCMethods.Item("RetrieveList")->ReturnDataType, "Clients");
    for (const char* name :
         {"RecordAdded", "RecordRetrieved", "RecordUpdated", "IsModified", "RecordMarkedForDeletion"})
        EXPECT_THAT(Signature(client->TTCEvents.Item(name)->TTCEventParameters), ElementsAre("aClient:Client")) << name;
    EXPECT_TRUE(Project.ClassCollectionNames.ClassNameExists("Clients"));
}

TEST_F(AddEditClass, EachRefusalKeepsTheDialogAndGoesToTheText)
{
    MadeCustomer();
    Made({.TableName = "Shippers"});
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    Listen(form);
    form.SelectTab(ClassTab::Events);
    for (const char delimiter : std::string("~`!@#$%^&*()-=+\\|]}[{';:/?.>,< \"")) {
        form.txtClassName_Change(std::string("My") + delimiter + "Client");
        EXPECT_FALSE(form.cmdOK_Click()) << delimiter;
        ExpectTold("Invalid Class Name",
                   "Invalid Class Name. Please remove special characters and spaces from the name.");
        EXPECT_EQ(form.txtClassName(), std::string("My") + delimiter + "Client");
        for (const std::string& name : {std::string("Client") + delimiter, delimiter + std::string("Client")}) {
            form.txtClassName_Change(name);
            EXPECT_NE(form.Trouble(ClassField::ClassName), "") << name;
            EXPECT_FALSE(form.cmdOK_Click()) << name;
            EXPECT_EQ(form.txtClassName(), name);
        }
    }
    EXPECT_EQ(form.Tab(), ClassTab::Class);
    EXPECT_EQ(Focused.back(), "txtClassName");
    const std::vector<std::array<std::string, 3>> cases{
        {"shop", "Duplicate Name in Project",
         "The Class Name cannot be the same name as the VB Project Name. Please change the Class Name then click OK."},
        {"SHIPPER", "Duplicate Class Name",
         "The Class Name already exists in this project. Please change the Class Name then click OK."},
        {std::string(36, 'x'), "Programmatic ID Too Long",
         "Warning: The combined length of the project name (Shop) and the class name (xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx) exceeds 39 characters.\r\n"
         "The maximum length of the combined names cannot exceed 39 characters. Your COM Object will not compile successfully. Please make the class name shorter."},
    };
    for (const auto& [name, title, text] : cases) {
        form.txtClassName_Change(name);
        EXPECT_EQ(form.Trouble(ClassField::ClassName), text);
        EXPECT_FALSE(form.cmdOK_Click()) << name;
        ExpectTold(title, text);
    }
    form.txtClassName_Change(std::string(35, 'x'));
    EXPECT_EQ(form.Trouble(ClassField::ClassName), "");
    EXPECT_TRUE(form.cmdOK_Click());
}

TEST_F(AddEditClass, ACollectionThatIsRefusedIsShownOnItsTab)
{
    MadeCustomer();
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    Listen(form);
    form.txtCollectionName_Change("My Clients");
    EXPECT_EQ(form.Trouble(ClassField::CollectionName), ""); // not generated
    form.chkGenerateCollection_Click();
    const std::string text = "Invalid Collection Name. Please remove special characters and spaces from the name.";
    EXPECT_EQ(form.Trouble(ClassField::CollectionName), text);
    EXPECT_FALSE(form.cmdOK_Click());
    ExpectTold("Invalid Collection Name", text);
    EXPECT_EQ(form.Tab(), ClassTab::Collections);
    EXPECT_THAT(Focused, ElementsAre("txtCollectionName"));
    EXPECT_EQ(form.txtCollectionName(), "My Clients");
}

TEST_F(AddEditClass, ANameIsMeasuredOnceMoreWhenItHasGrownByCleaning)
{
    MadeCustomer();
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    form.txtClassName_Change("1" + std::string(34, 'x'));
    EXPECT_NE(form.Trouble(ClassField::ClassName).find("exceeds 39 characters"), std::string::npos);
    EXPECT_FALSE(form.cmdOK_Click());
    EXPECT_EQ(Messages.Asked().back().Title, "Programmatic ID Too Long");
    EXPECT_NE(Classes.Item("Customer"), nullptr);
}

TEST_F(AddEditClass, ACollectionMayNotBeCalledAsTheProjectOrAnotherClass)
{
    MadeCustomer();
    Made({.TableName = "Shippers"});
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    form.chkGenerateCollection_Click();
    const std::vector<std::array<std::string, 3>> cases{
        {"SHOP", "Duplicate Name in Project",
         "The Collection Name cannot be the same name as the VB Project Name. Please change the Class Name then click OK."},
        {"shipper", "Duplicate Class Name",
         "The Collection Name already exists in this project. Please change the Collection Name then click OK."},
        {"Customer", "Duplicate Class Name",
         "The Collection Name already exists in this project. Please change the Collection Name then click OK."}};
    for (const auto& [name, title, text] : cases) {
        form.txtCollectionName_Change(name);
        EXPECT_FALSE(form.cmdOK_Click()) << name;
        ExpectTold(title, text);
        EXPECT_EQ(form.Tab(), ClassTab::Collections);
    }
}

TEST_F(AddEditClass, AReservedWordIsCleanedInTheBox)
{
    MadeCustomer();
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    EXPECT_EQ(form.ClassNameHint(), "");
    form.txtClassName_Change("My Class");
    EXPECT_EQ(form.ClassNameHint(), ""); // it is refused
    form.txtClassName_Change("Property");
    EXPECT_EQ(form.Trouble(ClassField::ClassName), "");
    EXPECT_EQ(
        form.ClassNameHint(),
        "The name: 'Property' is invalid because it is either a reserved word or contains invalid characters. It has been changed to 'aProperty'");
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(form.txtClassName(), "aProperty");
    EXPECT_NE(Classes.Item("aProperty"), nullptr);
}

TEST_F(AddEditClass, TheCollectionOfARootClassBringsAndTakesItsMethod)
{
    MadeCustomer();
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    EXPECT_EQ(
        form.CollectionHelp(),
        "If you generate a collection for a Root Class, you will be able to add the 'RetrieveList' method to retrieve an enumerated list of the root class members.");
    EXPECT_FALSE(form.IsEnabled("txtCollectionName"));
    form.chkGenerateCollection_Click();
    EXPECT_TRUE(form.IsEnabled("txtCollectionName"));
    EXPECT_FALSE(form.IsEnabled("chkIncludeAddExisting"));
    EXPECT_EQ(Texts(form, ClassList::lstMethods).back(), "RetrieveList");
    AnswerWith({Answer::No, Answer::Yes});
    form.chkGenerateCollection_Click();
    EXPECT_TRUE(form.chkGenerateCollection());
    ExpectTold(
        "Confirm Change",
        "The 'RetrieveList' method relies on this collection. Are you sure you want to remove the collection and the 'RetrieveList' method?");
    EXPECT_EQ(Messages.Asked().back().Offered, Buttons::YesNo);
    form.chkGenerateCollection_Click();
    EXPECT_FALSE(form.chkGenerateCollection());
    EXPECT_NE(Texts(form, ClassList::lstMethods).back(), "RetrieveList");
}

TEST_F(AddEditClass, TheCollectionOfAChildClassMayIncludeExistingOnes)
{
    MadeCustomer();
    frmAddEditClass form(World, MadeOrder());
    ASSERT_TRUE(form.Load());
    EXPECT_EQ(form.CollectionHelp(), "");
    EXPECT_TRUE(form.IsEnabled("chkIncludeAddExisting"));
    form.chkIncludeAddExisting_Click();
    form.chkNewKey_Click();
    form.chkGenerateCollection_Click();
    EXPECT_FALSE(form.IsEnabled("chkIncludeAddExisting"));
    EXPECT_THAT(Messages.Asked(), IsEmpty());
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_TRUE(Classes.Item("Order")->IncludeAddExisting);
    EXPECT_TRUE(Classes.Item("Order")->CollectionAddNewKey);
    EXPECT_FALSE(Classes.Item("Order")->CreateCollection);
    EXPECT_FALSE(Project.ClassCollectionNames.ClassNameExists("Orders"));
}

TEST_F(AddEditClass, WhatSubclassesLackIsToldAfterAnEdit)
{
    MadeCustomer();
    MadeOrder();
    Classes.Item("Order")->TTCMethods.Remove("Update");
    Below = {"Order", "Gone"};
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    ASSERT_TRUE(form.cmdOK_Click());
    ExpectTold(
        "Modifications Are Needed",
        "There are manual modifications you need to make to ensure that your generated code will compile correctly:\r\n"
        "The Update method must be added to the Order class.\r\n");
}

TEST_F(AddEditClass, ThePreviewIsWhatIsWrittenForTheTab)
{
    MadeCustomer();
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    form.txtClassName_Change("Client");
    const auto has = [&](ClassTab tab, const std::string& words) {
        form.SelectTab(tab);
        return OutputsToText(form.Preview()).find(words) != std::string::npos;
    };
    EXPECT_TRUE(has(ClassTab::Class, "Client"));
    EXPECT_TRUE(has(ClassTab::Properties, "Property Get Name() as String"));
    EXPECT_TRUE(has(ClassTab::Methods, "Public Function Clone() as Client"));
    EXPECT_TRUE(has(ClassTab::Events, "Public Event IsModified(ByRef aClient as Client)"));
    EXPECT_FALSE(has(ClassTab::Collections, "Sub"));
    form.chkGenerateCollection_Click();
    EXPECT_TRUE(has(ClassTab::Collections, "Sub"));
    EXPECT_EQ(Classes.Item("Customer")->ClassName, "Customer");
}

TEST_F(AddEditClass, ThePreviewOfARenamedParentKeepsItsChildren)
{
    MadeCustomer();
    MadeOrder();
    frmAddEditClass form(World, Classes.Item("Customer"));
    ASSERT_TRUE(form.Load());
    form.SelectTab(ClassTab::Properties);
    ASSERT_NE(OutputsToText(form.Preview()).find("Property Get Orders("), std::string::npos);
    form.txtClassName_Change("Client");
    EXPECT_NE(OutputsToText(form.Preview()).find("Property Get Orders("), std::string::npos);
    EXPECT_EQ(Classes.Item("Order")->ParentClassName, "Customer");
}

TEST_F(AddEditClass, TheFirstFocusIsOnTheNameOrOnTheJoinThatIsToBePicked)
{
    MadeCustomer();
    MadeOrder();
    EXPECT_EQ(frmAddEditClass(World, NewClass{}).FirstFocus(), "txtClassName");
    EXPECT_EQ(frmAddEditClass(World, Classes.Item("Order")).FirstFocus(), "txtClassName");
    EXPECT_EQ(frmAddEditClass(World, Classes.Item("Order"), {.TableName = "Orders", .ParentClassName = "Customer"})
                  .FirstFocus(),
              "lstParentFields");
}

TEST_F(AddEditClass, ThePreviewOfAChildHasTheMethodThatFollowsItsJoins)
{
    MadeCustomer();
    frmAddEditClass form(World, MadeOrder());
    ASSERT_TRUE(form.Load());
    form.SelectTab(ClassTab::Relationship);
    EXPECT_NE(OutputsToText(form.Preview()).find("Customer"), std::string::npos);
}

} // namespace
} // namespace veldrane
