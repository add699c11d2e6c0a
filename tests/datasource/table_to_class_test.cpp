#include "datasource/table_to_class.h"

#include "class_fixture.h"
#include "datasource/class_names.h"
#include "datasource/table_keys.h"

#include <algorithm>

namespace veldrane {
namespace {

using testing::Field;
using testing::ForeignKey;
using testing::IdentityField;
using testing::NullableField;
using testing::PrimaryIndex;
using testing::Texts;

class TableToClassTest : public testing::ClassFixture
{
  protected:
    void AddParent(const std::string& className, const std::string& tableName)
    {
        const auto parent = std::make_shared<KZMClass>();
        parent->ClassName = className;
        parent->TableName = tableName;
        classes.AddExisting(parent, className);
    }
};

TEST_F(TableToClassTest, ARootClassHasNoCollectionAtFirst)
{
    InitialiseClass(edit, {.TableName = "Orders"});
    EXPECT_EQ(item.TableName, "Orders");
    EXPECT_EQ(item.ClassName, "Order");
    EXPECT_EQ(item.CollectionName, "Orders");
    EXPECT_EQ(item.ParentClassName, "");
    EXPECT_FALSE(item.IsDomainTable);
    EXPECT_FALSE(item.CreateCollection);
    EXPECT_EQ(item.TTCMethods.Count(), 0U);
}

TEST_F(TableToClassTest, AClassUnderAParentHasACollection)
{
    InitialiseClass(edit, {.TableName = "Orders", .ParentClassName = "Customer", .Place = Placement::UnderParent});
    EXPECT_EQ(item.ParentClassName, "Customer");
    EXPECT_FALSE(item.IsDomainTable);
    EXPECT_TRUE(item.CreateCollection);
    EXPECT_EQ(item.TTCMethods.Count(), 0U);
}

TEST_F(TableToClassTest, ALookupClassIsADomainTable)
{
    InitialiseClass(edit, {.TableName = "Status", .Place = Placement::Lookup});
    EXPECT_EQ(item.ClassName, "Statu");
    EXPECT_EQ(item.CollectionName, "Status");
    EXPECT_TRUE(item.IsDomainTable);
    EXPECT_FALSE(item.CreateCollection);
}

TEST_F(TableToClassTest, AViewGivesAReadOnlyClass)
{
    EXPECT_EQ(AccessText(item), "This class is Updatable.");
    InitialiseClass(edit, {.TableName = "Totals", .Access = ClassAccess::ReadOnly});
    EXPECT_TRUE(item.ReadOnly);
    EXPECT_EQ(AccessText(item), "This class is Read Only.");
}

TEST_F(TableToClassTest, AClassWithoutATableHasNamesOfItsOwn)
{
    EXPECT_EQ(BuildClass(edit, {.ParentClassName = "n/a"}, classes), BuildOutcome::Built);
    EXPECT_EQ(item.ClassName, "NewClass");
    EXPECT_EQ(item.CollectionName, "NewClasses");
    EXPECT_EQ(item.ParentClassName, "");
    EXPECT_FALSE(item.IsDomainTable);
    EXPECT_TRUE(item.CreateCollection);
    EXPECT_TRUE(catalog.Calls.empty());
    EXPECT_EQ(PropertyNames(), (Texts{"Modified", "Deleted"}));
    EXPECT_EQ(MethodNames(), (Texts{"RetrieveList", "Clone", "Clear"}));
}

TEST_F(TableToClassTest, AReservedTableNameIsToldTwice)
{
    OwnTable("Class").Fields = {Field("A", adInteger)};
    EXPECT_EQ(BuildClass(edit, {.TableName = "Class"}, classes), BuildOutcome::Built);
    EXPECT_EQ(item.ClassName, "aClass");
    EXPECT_EQ(item.CollectionName, "aClasses");
    EXPECT_EQ(std::ranges::count(Titles(), "Invalid Name Detected"), 2);
}

TEST_F(TableToClassTest, BuildsAWholeClassInTheEditorsOrder)
{
    AddParent("Customer", "Customers");
    catalog.Add("Customers");
    auto& table = catalog.Add("Orders");
    table.Fields = {IdentityField("OrderID"), NullableField("Customer", adWChar, 5)};
    table.Keys = {ForeignKey("FK", "Customers", {{"Customer", "ID"}})};
    EXPECT_EQ(BuildClass(edit, {.TableName = "Orders", .ParentClassName = "Customer", .Place = Placement::UnderParent},
                         classes),
              BuildOutcome::Built);
    EXPECT_EQ(catalog.Calls, (Texts{"Fields SELECT * FROM Orders WHERE 1=0", "Indexes Orders", "Indexes Orders",
                                    "Keys Customers", "Keys Orders"}));
    EXPECT_EQ(PropertyNames(), (Texts{"OrderID", "Customer", "Modified", "Deleted"}));
    EXPECT_EQ(MethodNames(), (Texts{"Add", "Delete", "Update", "Clone", "Clear", "Retrieve"}));
    EXPECT_EQ(item.TTCEvents.Count(), 7U);
    EXPECT_EQ(item.TTCRelationships.Count(), 1U);
    EXPECT_EQ(item.TTCKeys.Count(), 1U);
    EXPECT_EQ(item.TTCMethods.Item("Add")->ReturnDataType, "Long");
    EXPECT_TRUE(messages.Asked().empty());
    EXPECT_TRUE(errors.Reported.empty());
}

TEST_F(TableToClassTest, WithBothKeysRetrieveAndDeleteAskOneQuestionEach)
{
    auto& table = catalog.Add("Orders");
    table.Fields = {IdentityField("OrderID")};
    table.Indexes = {PrimaryIndex({"OrderID"})};
    EXPECT_EQ(BuildClass(edit, {.TableName = "Orders"}, classes), BuildOutcome::Built);
    EXPECT_EQ(Titles(), (Texts{"Add Delete Method to Class", "Choose Retrieval Method"}));
    EXPECT_TRUE(item.TTCMethods.Contains("RetrieveIdentity"));
}

TEST_F(TableToClassTest, WithNeitherKeyRetrieveAndDeleteAreMissing)
{
    catalog.Add("Logs").Fields = {Field("Line", adVarChar, 80)};
    EXPECT_EQ(BuildClass(edit, {.TableName = "Logs"}, classes), BuildOutcome::Built);
    EXPECT_EQ(MethodNames(), (Texts{"Add", "Update", "Clone", "Clear"}));
    EXPECT_EQ(Titles(), (Texts{"No Row Identifier Found", "No Row Identifier Found"}));
    EXPECT_FALSE(item.TTCEvents.Contains("RecordDeleted"));
    EXPECT_FALSE(item.TTCEvents.Contains("RecordRetrieved"));
}

TEST_F(TableToClassTest, AMissingTableEndsTheBuilding)
{
    const std::pair<Answer, BuildOutcome> outcomes[] = {{Answer::Yes, BuildOutcome::TableRenamed},
                                                        {Answer::No, BuildOutcome::TableDeleted},
                                                        {Answer::Cancel, BuildOutcome::Cancelled}};
    for (const auto& [answer, outcome] : outcomes) {
        AnswerWith({answer});
        EXPECT_EQ(BuildClass(edit, {.TableName = "Gone"}, classes), outcome);
        EXPECT_EQ(item.TTCMethods.Count(), 0U);
    }
}

TEST_F(TableToClassTest, WithoutADataSourceTheClassCanStillBeEdited)
{
    edit.Source = nullptr;
    EXPECT_EQ(BuildClass(edit, {.TableName = "Orders"}, classes), BuildOutcome::SourceUnavailable);
    EXPECT_TRUE(item.TTCMethods.Contains("Clear"));
}

TEST_F(TableToClassTest, AFailureIsReportedAndTheClassIsBuiltWithoutFields)
{
    catalog.Failures["Fields"] = data_source_error::kFailed;
    EXPECT_EQ(BuildClass(edit, {.TableName = "Orders"}, classes), BuildOutcome::Failed);
    EXPECT_EQ(errors.Reported.size(), 1U);
    EXPECT_TRUE(item.TTCMethods.Contains("Clear"));
}

TEST_F(TableToClassTest, ATableWhoseNameCanNotBeWrittenIsRefused)
{
    EXPECT_EQ(BuildClass(edit, {.TableName = "Заказы"}, classes), BuildOutcome::NameRefused);
    EXPECT_EQ(messages.Asked().size(), 1U);
    EXPECT_TRUE(catalog.Calls.empty());
}

TEST_F(TableToClassTest, ARefreshFollowsTheTableAndKeepsTheRest)
{
    auto& table = catalog.Add("Orders");
    table.Fields = {IdentityField("OrderID"), Field("City", adVarChar, 20), Field("Old", adInteger)};
    ASSERT_EQ(BuildClass(edit, {.TableName = "Orders"}, classes), BuildOutcome::Built);
    item.TTCProperties.Item("City")->DataType = "Variant";
    item.TTCMethods.Remove("Update");
    table.Fields = {IdentityField("OrderID"), Field("City", adVarChar, 30), Field("Fresh", adInteger)};
    EXPECT_EQ(RefreshClass(edit), FieldsOutcome::Read);
    EXPECT_EQ(PropertyNames(), (Texts{"OrderID", "City", "Modified", "Deleted", "Fresh"}));
    EXPECT_EQ(item.TTCProperties.Item("City")->DataType, "Variant");
    EXPECT_EQ(item.TTCProperties.Item("City")->MaxLength, 20);
    EXPECT_FALSE(item.TTCMethods.Contains("Update"));
}

TEST_F(TableToClassTest, ARefreshKeepsAKeySetByHandWhileItsColumnsAreThere)
{
    OwnTable("Totals").Fields = {Field("A", adInteger), Field("B", adInteger)};
    item.TTCKeys.Add(key_type::kPrimaryKey, TTCColumns{}, "0")->TTCColumns.Add("A", "Long", "", "A");
    RefreshClass(edit);
    EXPECT_TRUE(item.TTCKeys.Contains("0"));
    catalog.Content["Totals"].Fields = {Field("B", adInteger)};
    RefreshClass(edit);
    EXPECT_EQ(item.TTCKeys.Count(), 0U);
}

TEST_F(TableToClassTest, ARefreshTakesTheTablesOwnKey)
{
    auto& table = OwnTable("Orders");
    table.Fields = {Field("A", adInteger), Field("B", adInteger)};
    table.Indexes = {PrimaryIndex({"B"})};
    item.TTCKeys.Add(key_type::kPrimaryKey, TTCColumns{}, "0")->TTCColumns.Add("A", "Long", "", "A");
    RefreshClass(edit);
    EXPECT_EQ(item.TTCKeys.Count(), 1U);
    EXPECT_TRUE(item.TTCKeys.Contains("PK"));
}

class MovedClassTest : public TableToClassTest
{
  protected:
    MovedClassTest()
    {
        auto& table = OwnTable("Orders");
        table.Fields = {IdentityField("ID"), Field("Customer", adInteger), Field("Shop", adInteger)};
        table.Keys = {ForeignKey("FK_Customer", "Customers", {{"Customer", "ID"}})};
        table.Indexes = {PrimaryIndex({"ID"})};
        catalog.Add("Customers").Fields = {Field("ID", adInteger)};
        EXPECT_EQ(RefreshClass(edit), FieldsOutcome::Read);
        item.ParentClassName = "Shop";
        item.IsDomainTable = true;
        item.TTCRelationships.Add("FK_Shop", "Shops", {}, "FK_Shop");
        item.TTCMethods.Add("Mine", false, {}, "", "Public", false, "Mine");
        parent.ClassName = "Customer";
        parent.TableName = "Customers";
    }

    KZMClass parent;
};

TEST_F(MovedClassTest, IsJoinedToItsNewParentAlone)
{
    EXPECT_TRUE(MoveClassUnder(edit, parent));
    EXPECT_EQ(item.ParentClassName, "Customer");
    EXPECT_FALSE(item.IsDomainTable);
    ASSERT_EQ(item.TTCRelationships.Count(), 1U);
    EXPECT_EQ(item.TTCRelationships.Item("FK_Customer")->ParentTableName, "Customers");
    EXPECT_TRUE(item.TTCKeys.Contains("PK"));
    EXPECT_TRUE(item.TTCMethods.Contains("Mine"));
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(MovedClassTest, KeepsItsKeysWithoutADataSource)
{
    edit.Source = nullptr;
    EXPECT_FALSE(MoveClassUnder(edit, parent));
    EXPECT_EQ(item.ParentClassName, "Customer");
    EXPECT_EQ(item.TTCRelationships.Count(), 0U);
    EXPECT_EQ(FirstKey(item, key_type::kPrimaryKey)->TTCColumns.Item(1)->ColumnName, "ID");
    EXPECT_TRUE(FirstKey(item, key_type::kIdentityColumn));
    EXPECT_EQ(Titles(), Texts{"Unable to display Relationships"});
    EXPECT_EQ(errors.Reported.size(), 1U);
}

TEST_F(MovedClassTest, KeepsItsKeysWhenItsTableIsGone)
{
    catalog.Content.erase("Orders");
    MoveClassUnder(edit, parent);
    EXPECT_EQ(FirstKey(item, key_type::kPrimaryKey)->TTCColumns.Item(1)->ColumnName, "ID");
}

TEST_F(MovedClassTest, UnderAClassWithoutATableHasNoJoins)
{
    parent.TableName = "";
    EXPECT_TRUE(MoveClassUnder(edit, parent));
    EXPECT_EQ(item.ParentClassName, "Customer");
    EXPECT_EQ(item.TTCRelationships.Count(), 0U);
    EXPECT_TRUE(item.TTCKeys.Contains("PK"));
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(TableToClassTest, ManyClassesEnterOneProject)
{
    TTCProject project;
    const ProjectNames names{
        .Project = project, .Classes = classes, .Messages = messages, .Errors = errors, .CodePage = codePage};
    for (int i = 0; i < 5000; ++i) {
        const auto added = std::make_shared<KZMClass>();
        ClassForm form{.ClassName = "Class" + std::to_string(i), .TableName = "n/a", .ParentClassName = "n/a"};
        ASSERT_EQ(CheckNames(form, {}, names), NameCheck::Accepted);
        StoreForm(form, *added);
        ASSERT_TRUE(AddClassToProject(added, names));
    }
    EXPECT_EQ(classes.Count(), 5000U);
}

} // namespace
} // namespace veldrane
