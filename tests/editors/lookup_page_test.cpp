#include "editors/lookup_page.h"

#include "property_fixture.h"

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using testing::Field;
using testing::IdentityField;
using ::testing::IsEmpty;
using testing::Texts;
using ::testing::UnorderedElementsAre;

// A property on the number of a customer, beside the customers' table.
class LookupPageTest : public testing::PropertyFixture
{
  protected:
    LookupPageTest()
    {
        catalog.Add("Customers").Fields = {IdentityField("ID"), Field("Last_Name", adVarWChar, 50),
                                           Field("Order", adVarWChar, 50), Field("Born On", adDate),
                                           Field("Odd", adIDispatch)};
        catalog.Add("Codes").Fields = {Field("Code", adVarWChar, 5)};
        catalog.Add("Sales by Year", "VIEW").Fields = {Field("Total", adCurrency)};
        catalog.Add("sys", "SYSTEM TABLE");
    }

    // As a project file has it.
    void GiveLookup()
    {
        customer->LookupTable = "Customers";
        customer->LookupJoinField = "ID";
        customer->LookupUseOuterJoin = true;
        AddLookup(*customer, "Last_Name", "Surname", "Variant");
        AddLookup(*customer, "Gone", "CustomerGone");
    }

    LookupPage Page() { return {surroundings, customer}; }

    LookupPage LoadedPage()
    {
        LookupPage page = Page();
        page.Load();
        return page;
    }

    static void Choose(LookupPage& page, std::string_view table)
    {
        for (std::size_t row = 0; row < page.Tables().size(); ++row)
            if (page.Tables()[row].Text == table)
                page.cmbTable_Click(row);
        ASSERT_EQ(page.TableName(), table);
    }

    // "icon:text" of each.
    static Texts Shown(const std::vector<ListRow>& rows)
    {
        Texts texts;
        for (const ListRow& row : rows)
            texts.push_back(row.Icon + ":" + row.Text);
        return texts;
    }

    // "Field:Alias:Type", with a + for a tick.
    static Texts Fields(const LookupPage& page)
    {
        Texts texts;
        for (const LookupFieldRow& row : page.lstFields())
            texts.push_back((row.Ticked ? "+" : "") + row.FieldName + ":" + row.PropertyName + ":" + row.DataType);
        return texts;
    }

    std::shared_ptr<TTCProperty> customer = AddField("CustomerID", "Long");
};

TEST_F(LookupPageTest, WithoutALookupNothingIsChosen)
{
    const LookupPage page = LoadedPage();
    EXPECT_THAT(Shown(page.Tables()), ElementsAre(":<none>", "Table:Customers", "Table:Codes", "View:Sales by Year"));
    EXPECT_EQ(page.TableName(), "<none>");
    EXPECT_THAT(Shown(page.JoinFields()), ElementsAre(":<none>"));
    EXPECT_THAT(page.lstFields(), IsEmpty());
    EXPECT_FALSE(page.MakesLookup());
}

TEST_F(LookupPageTest, TheDataSourceIsReadWhenTheTabIsWanted)
{
    GiveLookup();
    LookupPage page = Page();
    EXPECT_THAT(catalog.Calls, IsEmpty());
    page.Load();
    page.Load();
    EXPECT_THAT(catalog.Calls, ElementsAre("Tables", "Fields SELECT * FROM [Customers] WHERE 1=0"));
}

TEST_F(LookupPageTest, ATableShowsItsIdentityFieldsAndTheOthers)
{
    catalog.Content["Customers"].Fields.push_back(IdentityField("Second"));
    LookupPage page = LoadedPage();
    Choose(page, "Customers");
    EXPECT_THAT(Shown(page.JoinFields()), ElementsAre(":<none>", "IdentityCol:ID", "IdentityCol:Second"));
    EXPECT_EQ(page.JoinField(), "ID");
    EXPECT_THAT(Fields(page),
                ElementsAre("Last_Name:LastName:String", "Order:Order:String", "Born On:BornOn:Date", "Odd:Odd:"));
    EXPECT_EQ(page.lstFields().front().Icon, "Field");
    EXPECT_TRUE(page.MakesLookup());
}

TEST_F(LookupPageTest, AReservedFieldNameMakesALegalAlias)
{
    catalog.Content["Customers"].Fields = {Field("Date", adDate), Field("2nd", adDate)};
    LookupPage page = LoadedPage();
    Choose(page, "Customers");
    EXPECT_THAT(Fields(page), ElementsAre("Date:aDate:Date", "2nd:A2nd:Date"));
    EXPECT_THAT(messages.Asked(), IsEmpty());
}

TEST_F(LookupPageTest, WhereBracketsAreNotKnownTheTableIsOpenedWithout)
{
    int statements = 0;
    catalog.Answering = [&](const std::string& call) {
        if (call == "Fields" && ++statements == 1)
            throw DataSourceError(data_source_error::kFailed, "FakeCatalog", "brackets");
    };
    LookupPage page = LoadedPage();
    Choose(page, "Codes");
    EXPECT_THAT(catalog.Calls, ElementsAre("Tables", "Fields SELECT * FROM [Codes] WHERE 1=0",
                                           "Fields SELECT * FROM Codes WHERE 1=0"));
    EXPECT_THAT(Fields(page), ElementsAre("Code:Code:String"));
    EXPECT_THAT(errors.Reported, IsEmpty());
}

TEST_F(LookupPageTest, ATableWithoutAnIdentityFieldCantBeJoined)
{
    LookupPage page = LoadedPage();
    EXPECT_EQ(page.JoinTrouble(), "");
    Choose(page, "Codes");
    EXPECT_EQ(page.JoinField(), "<none>");
    EXPECT_FALSE(page.MakesLookup());
    EXPECT_EQ(page.JoinTrouble(), "No identity field of 'Codes' is chosen to join it by: the lookup stays as it was.");
    Choose(page, "Customers");
    EXPECT_EQ(page.JoinTrouble(), "");
    page.cmbField_Click(0);
    EXPECT_EQ(page.JoinTrouble(),
              "No identity field of 'Customers' is chosen to join it by: the lookup stays as it was.");
}

TEST_F(LookupPageTest, ThePresentLookupIsTickedAsItIs)
{
    GiveLookup();
    const LookupPage page = LoadedPage();
    EXPECT_EQ(page.TableName(), "Customers");
    EXPECT_EQ(page.JoinField(), "ID");
    EXPECT_TRUE(page.chkUseOuterJoin);
    EXPECT_THAT(Fields(page), ElementsAre("+Last_Name:Surname:Variant", "Order:Order:String", "Born On:BornOn:Date",
                                          "Odd:Odd:", "+Gone:CustomerGone:String"));
}

TEST_F(LookupPageTest, AJoinFieldThatIsNoIdentityIsKept)
{
    GiveLookup();
    customer->LookupJoinField = "Order";
    const LookupPage page = LoadedPage();
    EXPECT_THAT(Shown(page.JoinFields()), ElementsAre(":<none>", "IdentityCol:ID", "Field:Order"));
    EXPECT_EQ(page.JoinField(), "Order");
}

TEST_F(LookupPageTest, AnUnreachableDataSourceLeavesThePresentLookup)
{
    GiveLookup();
    edit.Source = nullptr;
    LookupPage page = LoadedPage();
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported[0].Place.Mode, 4);
    EXPECT_EQ(errors.Reported[0].Place.Hint,
              "The DataSource is currently unavailable. Unable to read the tables and fields of a lookup at this time. "
              "\r\nYou may continue, but some functionality will be unavailable.");
    EXPECT_THAT(Shown(page.Tables()), ElementsAre(":<none>", "Table:Customers"));
    EXPECT_EQ(page.TableName(), "Customers");
    EXPECT_EQ(page.JoinField(), "ID");
    EXPECT_THAT(Fields(page), ElementsAre("+Last_Name:Surname:Variant", "+Gone:CustomerGone:String"));
    const std::string before = Saved();
    page.Store(*item, *customer);
    EXPECT_EQ(Saved(), before);
}

TEST_F(LookupPageTest, ATableThatCantBeReadStaysChosen)
{
    GiveLookup();
    LookupPage page = LoadedPage();
    catalog.Failures["Fields"] = data_source_error::kFailed;
    Choose(page, "Codes");
    ASSERT_EQ(errors.Reported.size(), 1U);
    EXPECT_EQ(errors.Reported[0].Place.ModuleName, "frmFieldProperties");
    EXPECT_EQ(errors.Reported[0].Place.RoutineName, "cmbTable_Click");
    EXPECT_THAT(page.lstFields(), IsEmpty());
    const std::string before = Saved();
    page.Store(*item, *customer);
    EXPECT_EQ(Saved(), before);
    Choose(page, "Customers");
    EXPECT_EQ(errors.Reported.size(), 2U);
    EXPECT_THAT(Fields(page), ElementsAre("+Last_Name:Surname:Variant", "+Gone:CustomerGone:String"));
    catalog.Failures.clear();
    Choose(page, "Customers");
    EXPECT_EQ(page.lstFields().size(), 5U);
}

TEST_F(LookupPageTest, AReadingThatIsCancelledIsNoFailure)
{
    catalog.CancelledCall = "Tables";
    const LookupPage page = LoadedPage();
    EXPECT_THAT(Shown(page.Tables()), ElementsAre(":<none>"));
    EXPECT_THAT(errors.Reported, IsEmpty());
}

TEST_F(LookupPageTest, AReadingThatIsCancelledCanBeTriedAgain)
{
    catalog.CancelledCall = "Tables";
    LookupPage page = LoadedPage();
    catalog.CancelledCall = "Fields";
    page.Load();
    EXPECT_EQ(page.Tables().size(), 4U);
    Choose(page, "Customers");
    EXPECT_THAT(page.lstFields(), IsEmpty());
    EXPECT_EQ(page.JoinTrouble(), "The fields of 'Customers' were not read: the lookup stays as it was. Choose the "
                                  "table again to read them.");
    catalog.CancelledCall = "";
    Choose(page, "Customers");
    EXPECT_EQ(page.lstFields().size(), 4U);
    EXPECT_EQ(page.JoinTrouble(), "");
}

TEST_F(LookupPageTest, WhatIsChosenAfterACancelledReadingOutlastsTheNextOne)
{
    GiveLookup();
    catalog.CancelledCall = "Tables";
    LookupPage page = LoadedPage();
    ASSERT_THAT(Fields(page), ElementsAre("+Last_Name:Surname:Variant", "+Gone:CustomerGone:String"));
    page.lstFields_ItemCheck({1}, false);
    page.lstFields_AfterLabelEdit(0, "FamilyName");
    catalog.CancelledCall = "";
    page.Load();
    EXPECT_THAT(Fields(page), ElementsAre("+Last_Name:FamilyName:Variant", "Order:Order:String", "Born On:BornOn:Date",
                                          "Odd:Odd:", "Gone:CustomerGone:String"));
    EXPECT_EQ(page.JoinField(), "ID");
}

TEST_F(LookupPageTest, ALookupThatIsGivenUpAfterACancelledReadingStaysSo)
{
    GiveLookup();
    catalog.CancelledCall = "Tables";
    LookupPage page = LoadedPage();
    Choose(page, "<none>");
    catalog.CancelledCall = "";
    catalog.Hidden = {"Customers"};
    page.Load();
    EXPECT_EQ(page.TableName(), "<none>");
    Choose(page, "Customers");
    EXPECT_EQ(page.TableName(), "Customers");
}

TEST_F(LookupPageTest, ATableThatIsPassedOnTheWayKeepsItsJoin)
{
    catalog.Content["Customers"].Fields.push_back(testing::IdentityField("Number"));
    LookupPage page = LoadedPage();
    Choose(page, "Customers");
    page.cmbField_Click(2);
    ASSERT_EQ(page.JoinField(), "Number");
    Choose(page, "Codes");
    Choose(page, "Customers");
    EXPECT_EQ(page.JoinField(), "Number");
}

TEST_F(LookupPageTest, WhereTheFieldsCouldNotBeReadNoFieldIsMissed)
{
    LookupPage page = LoadedPage();
    catalog.Failures["Fields"] = data_source_error::kFailed;
    Choose(page, "Customers");
    EXPECT_EQ(page.JoinTrouble(), "The fields of 'Customers' were not read: the lookup stays as it was. Choose the "
                                  "table again to read them.");
}

TEST_F(LookupPageTest, ATableThatIsPassedOnTheWayKeepsItsTicks)
{
    LookupPage page = LoadedPage();
    Choose(page, "Customers");
    page.lstFields_ItemCheck({0, 2}, true);
    page.lstFields_AfterLabelEdit(0, "Surname");
    Choose(page, "Codes");
    EXPECT_THAT(Fields(page), ElementsAre("Code:Code:String"));
    Choose(page, "Customers");
    EXPECT_THAT(Fields(page),
                ElementsAre("+Last_Name:Surname:String", "Order:Order:String", "+Born On:BornOn:Date", "Odd:Odd:"));
    Choose(page, "<none>");
    catalog.Content["Customers"].Fields.pop_back();
    Choose(page, "Customers");
    EXPECT_THAT(Fields(page), ElementsAre("Last_Name:LastName:String", "Order:Order:String", "Born On:BornOn:Date"));
}

TEST_F(LookupPageTest, ThePresentLookupIsFoundInAnyLetterCaseAndKeepsItsOwn)
{
    customer->LookupTable = "CUSTOMERS";
    customer->LookupJoinField = "id";
    AddLookup(*customer, "last_name", "Surname");
    const std::string before = Saved();
    const LookupPage page = LoadedPage();
    EXPECT_THAT(Fields(page),
                ElementsAre("+last_name:Surname:String", "Order:Order:String", "Born On:BornOn:Date", "Odd:Odd:"));
    page.Store(*item, *customer);
    EXPECT_EQ(Saved(), before);
}

TEST_F(LookupPageTest, OfTwoFieldsThatDifferInLetterCaseThePresentOneIsTaken)
{
    catalog.Content["Customers"].Fields = {IdentityField("ID"), IdentityField("id"), Field("Name", adVarWChar, 50),
                                           Field("name", adVarWChar, 50)};
    customer->LookupTable = "Customers";
    customer->LookupJoinField = "id";
    AddLookup(*customer, "name", "Surname");
    LookupPage page = LoadedPage();
    EXPECT_EQ(page.cmbField(), 2U);
    EXPECT_THAT(Fields(page), ElementsAre("Name:Name:String", "+name:Surname:String"));
    page.cmbField_Click(1);
    page.Store(*item, *customer);
    EXPECT_EQ(customer->LookupJoinField, "ID");
}

TEST_F(LookupPageTest, WhatIsTypedHasToBeTheNameOfATable)
{
    LookupPage page = LoadedPage();
    EXPECT_EQ(page.cmbTable_Text(), "<none>");
    page.cmbTable_Change("Custom");
    EXPECT_EQ(page.cmbTable_Text(), "Custom");
    EXPECT_EQ(page.TableName(), "<none>");
    ASSERT_TRUE(page.TableRefusal().has_value());
    EXPECT_EQ(page.TableRefusal()->Title, "Invalid Lookup Table");
    EXPECT_EQ(page.TableRefusal()->Text, "No table or view of this name is listed. Please choose one from the list.");
    page.cmbTable_Change("customers");
    EXPECT_FALSE(page.TableRefusal().has_value());
    Choose(page, "Customers");
    page.cmbTable_Change("Custom");
    Choose(page, "Customers");
    EXPECT_EQ(page.cmbTable_Text(), "Customers");
    EXPECT_FALSE(page.TableRefusal().has_value());
}

TEST_F(LookupPageTest, ATypedTableIsChosenWhenItIsWanted)
{
    LookupPage page = LoadedPage();
    page.cmbTable_Change("customers");
    EXPECT_TRUE(page.ChooseTypedTable());
    EXPECT_EQ(page.TableName(), "Customers");
    EXPECT_EQ(page.cmbTable_Text(), "Customers");
    EXPECT_EQ(page.lstFields().size(), 4U);
    EXPECT_FALSE(page.ChooseTypedTable());
}

TEST_F(LookupPageTest, AnEmptyBoxGivesNoLookupUp)
{
    LookupPage page = LoadedPage();
    page.cmbTable_Change("");
    EXPECT_FALSE(page.TableRefusal().has_value()); // there was none
    Choose(page, "Customers");
    page.cmbTable_Change("");
    ASSERT_TRUE(page.TableRefusal().has_value());
    EXPECT_EQ(page.TableRefusal()->Title, "Invalid Lookup Table");
    EXPECT_FALSE(page.ChooseTypedTable());
    EXPECT_EQ(page.TableName(), "Customers");
}

TEST_F(LookupPageTest, ChoosingTheTableAgainKeepsWhatWasTicked)
{
    LookupPage page = LoadedPage();
    Choose(page, "Customers");
    page.lstFields_ItemCheck({0, 2, 99}, true);
    Choose(page, "Customers");
    EXPECT_THAT(Fields(page),
                ElementsAre("+Last_Name:LastName:String", "Order:Order:String", "+Born On:BornOn:Date", "Odd:Odd:"));
    page.lstFields_ItemCheck({0}, false);
    EXPECT_FALSE(page.lstFields().front().Ticked);
}

TEST_F(LookupPageTest, StoresTheTickedRows)
{
    LookupPage page = LoadedPage();
    Choose(page, "Customers");
    page.lstFields_ItemCheck({0, 2}, true);
    page.chkUseOuterJoin = true;
    page.Store(*item, *customer);
    EXPECT_EQ(customer->LookupTable, "Customers");
    EXPECT_EQ(customer->LookupJoinField, "ID");
    EXPECT_TRUE(customer->LookupUseOuterJoin);
    EXPECT_THAT(LookupFields(*customer), ElementsAre("Last_Name:LastName:String", "Born On:BornOn:Date"));
    EXPECT_THAT(Members(), ElementsAre("CustomerID", "LastName", "BornOn"));
    EXPECT_TRUE(customer->TTCLookupFields.Contains("BornOn"));
}

TEST_F(LookupPageTest, AFieldThatIsNoLongerTickedGivesItsNameUp)
{
    GiveLookup();
    LookupPage page = LoadedPage();
    page.lstFields_ItemCheck({0}, false);
    page.Store(*item, *customer);
    EXPECT_THAT(LookupFields(*customer), ElementsAre("Gone:CustomerGone:String"));
    EXPECT_THAT(Members(), ElementsAre("CustomerID", "CustomerGone"));
}

TEST_F(LookupPageTest, WithoutATableTheLookupGoes)
{
    GiveLookup();
    LookupPage page = LoadedPage();
    page.cmbTable_Click(0);
    EXPECT_THAT(page.lstFields(), IsEmpty());
    page.Store(*item, *customer);
    EXPECT_EQ(customer->LookupTable, "");
    EXPECT_EQ(customer->LookupJoinField, "");
    EXPECT_FALSE(customer->LookupUseOuterJoin);
    EXPECT_THAT(LookupFields(*customer), IsEmpty());
    EXPECT_THAT(Members(), ElementsAre("CustomerID"));
}

TEST_F(LookupPageTest, WithoutAJoinFieldTheLookupStaysAsItWas)
{
    GiveLookup();
    LookupPage page = LoadedPage();
    page.cmbField_Click(0);
    page.lstFields_ItemCheck({0, 1}, true);
    const std::string before = Saved();
    page.Store(*item, *customer);
    EXPECT_EQ(Saved(), before);
    EXPECT_THAT(Members(), ElementsAre("CustomerID", "Surname", "CustomerGone"));
}

TEST_F(LookupPageTest, AnAliasThatAnotherMemberHasIsRefused)
{
    AddMethod("order");
    LookupPage page = LoadedPage();
    Choose(page, "Customers");
    EXPECT_EQ(page.Trouble(1, "CustomerID"), "");
    page.lstFields_ItemCheck({0, 1}, true);
    const std::string text = "The property name 'Order' conflicts with an existing member of the Order class. Please "
                             "enter another name.";
    EXPECT_EQ(page.Trouble(0, "CustomerID"), "");
    EXPECT_EQ(page.Trouble(1, "CustomerID"), text);
    ASSERT_TRUE(page.FieldsRefusal("CustomerID").has_value());
    EXPECT_EQ(page.FieldsRefusal("CustomerID")->Text, text);
    page.lstFields_AfterLabelEdit(1, "CustomerOrder");
    EXPECT_EQ(page.Trouble(1, "CustomerID"), "");
    EXPECT_FALSE(page.FieldsRefusal("CustomerID").has_value());
    EXPECT_THAT(Members(), ElementsAre("CustomerID", "order"));
}

TEST_F(LookupPageTest, AnAliasMayNotBeThePropertysOrThatOfAnotherRow)
{
    LookupPage page = LoadedPage();
    Choose(page, "Customers");
    page.lstFields_ItemCheck({0, 1}, true);
    EXPECT_NE(page.Trouble(0, "lastname"), "");
    page.lstFields_AfterLabelEdit(1, "LASTNAME");
    EXPECT_NE(page.Trouble(0, "CustomerID"), "");
    EXPECT_NE(page.Trouble(1, "CustomerID"), "");
    page.lstFields_ItemCheck({1}, false);
    EXPECT_EQ(page.Trouble(0, "CustomerID"), "");
}

TEST_F(LookupPageTest, AnAliasThatThePropertyHasNowIsFree)
{
    GiveLookup();
    LookupPage page = LoadedPage();
    page.lstFields_ItemCheck({0}, false);
    page.lstFields_ItemCheck({1}, true);
    page.lstFields_AfterLabelEdit(1, "Surname");
    EXPECT_EQ(page.Trouble(1, "CustomerID"), "");
    page.Store(*item, *customer);
    EXPECT_THAT(LookupFields(*customer), ElementsAre("Order:Surname:String", "Gone:CustomerGone:String"));
}

TEST_F(LookupPageTest, AnAliasThatAMethodSharesIsNotGivenAway)
{
    GiveLookup();
    item->TTCMethods.Add("Surname", true, KZMArguments{}, "", "Public", false, "Surname");
    LookupPage page = LoadedPage();
    EXPECT_NE(page.Trouble(0, "CustomerID"), "");
    page.lstFields_ItemCheck({0}, false);
    page.Store(*item, *customer);
    EXPECT_THAT(Members(), UnorderedElementsAre("CustomerID", "Surname", "CustomerGone"));
}

TEST_F(LookupPageTest, AnAliasWithAForbiddenCharacterIsKeptAndRefused)
{
    LookupPage page = LoadedPage();
    Choose(page, "Customers");
    page.lstFields_ItemCheck({0}, true);
    page.lstFields_AfterLabelEdit(0, "Last Name");
    EXPECT_EQ(page.lstFields().front().PropertyName, "Last Name");
    EXPECT_EQ(page.Trouble(0, "CustomerID"), "Invalid Property Name. Please enter a valid name.");
    EXPECT_EQ(page.FieldsRefusal("CustomerID")->Title, "Invalid Property Name");
}

TEST_F(LookupPageTest, AnAliasThatIsNoNameOnceItsUnderscoresAreGoneIsRefused)
{
    catalog.Content["Customers"].Fields = {IdentityField("ID"), Field("_2nd", adDate), Field("_", adDate),
                                           Field("_Date", adDate)};
    LookupPage page = LoadedPage();
    Choose(page, "Customers");
    EXPECT_THAT(Fields(page), ElementsAre("_2nd:2nd:Date", "_::Date", "_Date:Date:Date"));
    page.lstFields_ItemCheck({0, 1, 2}, true);
    for (const std::size_t row : {0U, 1U, 2U})
        EXPECT_EQ(page.Trouble(row, "CustomerID"), "Invalid Property Name. Please enter a valid name.") << row;
    page.lstFields_ItemCheck({0, 1}, false);
    EXPECT_EQ(page.FieldsRefusal("CustomerID")->Title, "Invalid Property Name");
    page.lstFields_AfterLabelEdit(2, "DateOfIt");
    EXPECT_FALSE(page.FieldsRefusal("CustomerID").has_value());
}

TEST_F(LookupPageTest, AnAliasIsNoLongerThanNamesMayBe)
{
    LookupPage page = LoadedPage();
    Choose(page, "Customers");
    page.lstFields_ItemCheck({0}, true);
    page.lstFields_AfterLabelEdit(0, std::string(255, 'N'));
    EXPECT_EQ(page.Trouble(0, "CustomerID"), "");
    page.lstFields_AfterLabelEdit(0, std::string(256, 'N'));
    EXPECT_EQ(page.FieldsRefusal("CustomerID")->Title, "Name Too Long");
}

TEST_F(LookupPageTest, AReservedAliasIsMadeLegalAndTold)
{
    LookupPage page = LoadedPage();
    Choose(page, "Customers");
    page.lstFields_AfterLabelEdit(0, "Date");
    page.lstFields_AfterLabelEdit(99, "Date");
    EXPECT_EQ(page.lstFields().front().PropertyName, "aDate");
    EXPECT_THAT(Boxes(),
                ElementsAre("Invalid Name Detected|The name: 'Date' is invalid because it is either a reserved "
                            "word or contains invalid characters. It has been changed to 'aDate'"));
}

TEST_F(LookupPageTest, NamesThatTheProjectCantHoldAreRefused)
{
    catalog.Add("Ελλάς").Fields = {IdentityField("ID"), Field("Όνομα", adVarWChar)};
    catalog.Content["Customers"].Fields.push_back(Field("Όνομα", adVarWChar));
    LookupPage page = LoadedPage();
    Choose(page, "Ελλάς");
    ASSERT_TRUE(page.TableRefusal().has_value());
    EXPECT_EQ(page.TableRefusal()->Title, "Name Not Writable");
    EXPECT_FALSE(page.JoinRefusal().has_value());
    page.cmbField_Click(0);
    EXPECT_FALSE(page.TableRefusal().has_value());
    Choose(page, "Customers");
    EXPECT_FALSE(page.TableRefusal().has_value());
    EXPECT_FALSE(page.FieldsRefusal("CustomerID").has_value());
    catalog.Content["Codes"].Fields = {IdentityField("Κωδικός")};
    page.lstFields_ItemCheck({4}, true);
    page.lstFields_AfterLabelEdit(4, "Onoma");
    EXPECT_EQ(page.FieldsRefusal("CustomerID")->Title, "Name Not Writable");
    EXPECT_NE(page.Trouble(4, "CustomerID"), "");
    Choose(page, "Codes");
    EXPECT_FALSE(page.TableRefusal().has_value());
    ASSERT_TRUE(page.JoinRefusal().has_value());
    EXPECT_EQ(page.JoinRefusal()->Title, "Name Not Writable");
}

TEST_F(LookupPageTest, RowsThatAreNotThereChangeNothing)
{
    LookupPage page = LoadedPage();
    page.cmbTable_Click(99);
    page.cmbField_Click(99);
    EXPECT_EQ(page.cmbTable(), 0U);
    EXPECT_EQ(page.cmbField(), 0U);
    EXPECT_EQ(page.Trouble(99, "CustomerID"), "");
}

} // namespace
} // namespace veldrane
