#include "datasource/class_names.h"

#include "class_fixture.h"
#include "datasource/builtin_members.h"

#include <algorithm>

namespace veldrane {
namespace {

using testing::Texts;

class ClassNamesTest : public testing::ClassFixture
{
  protected:
    ClassNamesTest() { project.VBProjectName = "Sales"; }

    void ExpectRefused(NameCheck refusal, const std::string& title, const std::string& text)
    {
        EXPECT_EQ(CheckNames(form, before, names), refusal);
        ASSERT_EQ(messages.Asked().size(), 1U);
        EXPECT_EQ(messages.Asked().front().Title, title);
        EXPECT_EQ(messages.Asked().front().Text, text);
    }

    TTCProject project;
    ProjectNames names{
        .Project = project, .Classes = classes, .Messages = messages, .Errors = errors, .CodePage = codePage};
    ClassForm form{.ClassName = "Order",
                   .TableName = "Orders",
                   .ParentClassName = "n/a",
                   .GenerateCollection = true,
                   .CollectionName = "Orders"};
    NamesBefore before;
};

TEST_F(ClassNamesTest, GoodNamesPassInSilence)
{
    EXPECT_EQ(CheckNames(form, before, names), NameCheck::Accepted);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(ClassNamesTest, AClassNameOfTwoWordsIsRefused)
{
    form.ClassName = "Order Detail";
    form.CollectionName = "Order Details";
    ExpectRefused(NameCheck::ClassNameRefused, "Invalid Class Name",
                  "Invalid Class Name. Please remove special characters and spaces from the name.");
    EXPECT_EQ(form.ClassName, "Order Detail");
}

TEST_F(ClassNamesTest, EveryDelimiterCutsAName)
{
    for (const char delimiter : std::string("~`!@#$%^&*()-=+\\|]}[{';:/?.>,< \"")) {
        form.ClassName = std::string("Order") + delimiter + "Detail";
        EXPECT_EQ(CheckNames(form, before, names), NameCheck::ClassNameRefused) << delimiter;
    }
}

TEST_F(ClassNamesTest, ACollectionNameOfTwoWordsIsRefused)
{
    form.CollectionName = "Order-Details";
    ExpectRefused(NameCheck::CollectionNameRefused, "Invalid Collection Name",
                  "Invalid Collection Name. Please remove special characters and spaces from the name.");
}

TEST_F(ClassNamesTest, WithoutACollectionItsNameIsNotChecked)
{
    form.GenerateCollection = false;
    form.CollectionName = "Order Details";
    EXPECT_EQ(CheckNames(form, before, names), NameCheck::Accepted);
}

TEST_F(ClassNamesTest, AnEmptyNameIsReportedAndRefused)
{
    form.ClassName = "";
    EXPECT_EQ(CheckNames(form, before, names), NameCheck::ClassNameRefused);
    form.ClassName = "Order";
    form.CollectionName = "";
    EXPECT_EQ(CheckNames(form, before, names), NameCheck::CollectionNameRefused);
    ASSERT_EQ(errors.Reported.size(), 2U);
    EXPECT_EQ(errors.Reported.front().Error.Number, 1001);
    EXPECT_EQ(errors.Reported.front().Place.ModuleName, "frmAddEditClass");
    EXPECT_EQ(errors.Reported.front().Place.RoutineName, "cmdOK_Click");
}

TEST_F(ClassNamesTest, AProgrammaticIdentifierHas39CharactersAtMost)
{
    project.VBProjectName = "ÄÄÄÄÄÄÄÄÄÄ"; // characters count, not bytes
    form.GenerateCollection = false;
    form.ClassName = std::string(29, 'x');
    EXPECT_EQ(CheckNames(form, before, names), NameCheck::Accepted);
    form.ClassName = std::string(30, 'x');
    ExpectRefused(
        NameCheck::ClassNameRefused, "Programmatic ID Too Long",
        "Warning: The combined length of the project name (ÄÄÄÄÄÄÄÄÄÄ) and the class name (xxxxxxxxxxxxxxxxxxxxxxxxxxxxxx) exceeds 39 characters.\r\nThe maximum length of the combined names cannot exceed 39 characters. Your COM Object will not compile successfully. Please make the class name shorter.");
}

TEST_F(ClassNamesTest, TheLengthOfTheCollectionNameIsCheckedAfterThatOfTheClass)
{
    project.VBProjectName = "TenLetters";
    form.CollectionName = "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxx";
    ExpectRefused(
        NameCheck::CollectionNameRefused, "Programmatic ID Too Long",
        "Warning: The combined length of the project name (TenLetters) and the collection name (xxxxxxxxxxxxxxxxxxxxxxxxxxxxxx) exceeds 39 characters.\r\nThe maximum length of the combined names cannot exceed 39 characters. Your COM Object will not compile successfully. Please make the collection name shorter.");
}

TEST_F(ClassNamesTest, NamesAreCleanedInSilence)
{
    form.ClassName = "2nd";
    form.CollectionName = "Collection";
    EXPECT_EQ(CheckNames(form, before, names), NameCheck::Accepted);
    EXPECT_EQ(form.ClassName, "A2nd");
    EXPECT_EQ(form.CollectionName, "aCollection");
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(ClassNamesTest, AClassCanNotBeNamedAsTheProject)
{
    form.ClassName = "sales";
    ExpectRefused(
        NameCheck::ClassNameRefused, "Duplicate Name in Project",
        "The Class Name cannot be the same name as the VB Project Name. Please change the Class Name then click OK.");
}

TEST_F(ClassNamesTest, ACollectionCanNotBeNamedAsTheProject)
{
    form.CollectionName = "SALES";
    ExpectRefused(
        NameCheck::CollectionNameRefused, "Duplicate Name in Project",
        "The Collection Name cannot be the same name as the VB Project Name. Please change the Class Name then click OK.");
}

TEST_F(ClassNamesTest, AClassNameOfTheProjectIsRefused)
{
    project.ClassCollectionNames.Add("ORDER", "ORDER");
    project.ClassCollectionNames.Add("Orders", "Orders");
    ExpectRefused(NameCheck::ClassNameRefused, "Duplicate Class Name",
                  "The Class Name already exists in this project. Please change the Class Name then click OK.");
}

TEST_F(ClassNamesTest, ACollectionNameOfTheProjectIsRefused)
{
    project.ClassCollectionNames.Add("Orders", "Orders");
    ExpectRefused(
        NameCheck::CollectionNameRefused, "Duplicate Class Name",
        "The Collection Name already exists in this project. Please change the Collection Name then click OK.");
}

TEST_F(ClassNamesTest, AClassAndItsCollectionCanNotShareAName)
{
    form.CollectionName = "ORDER";
    ExpectRefused(
        NameCheck::CollectionNameRefused, "Duplicate Class Name",
        "The Collection Name already exists in this project. Please change the Collection Name then click OK.");
}

TEST_F(ClassNamesTest, EachCheckSeesBothNamesBeforeTheNext)
{
    project.ClassCollectionNames.Add("Order", "Order");
    const std::vector<std::pair<std::string, std::string>> cases{
        {std::string(40, 'x'), "Order Details"}, // the class is too long, but words are counted first
        {"Order", std::string(40, 'x')},         // the class is there already, but lengths are measured before
        {"Order", "Sales"},                      // the same, but the project's name is compared before
    };
    for (const auto& [className, collectionName] : cases) {
        form.ClassName = className;
        form.CollectionName = collectionName;
        EXPECT_EQ(CheckNames(form, before, names), NameCheck::CollectionNameRefused) << collectionName;
    }
    EXPECT_EQ(Titles(), (Texts{"Invalid Collection Name", "Programmatic ID Too Long", "Duplicate Name in Project"}));
}

TEST_F(ClassNamesTest, NamesThatDidNotChangeAreNotLookedFor)
{
    project.VBProjectName = "Order";
    project.ClassCollectionNames.Add("Order", "Order");
    project.ClassCollectionNames.Add("Orders", "Orders");
    before = {.ClassName = "Order", .CollectionName = "Orders"};
    EXPECT_EQ(CheckNames(form, before, names), NameCheck::Accepted);
}

TEST_F(ClassNamesTest, ANewlyGeneratedCollectionIsLookedFor)
{
    project.ClassCollectionNames.Add("Order", "Order");
    project.ClassCollectionNames.Add("Orders", "Orders");
    before = {.ClassName = "Order", .CollectionName = ""};
    EXPECT_EQ(CheckNames(form, before, names), NameCheck::CollectionNameRefused);
}

TEST_F(ClassNamesTest, NamesThatTheCodePageLacksAreRefused)
{
    form.ClassName = "Заказ";
    EXPECT_EQ(CheckNames(form, before, names), NameCheck::ClassNameRefused);
    form.ClassName = "Order";
    form.CollectionName = "Заказы";
    EXPECT_EQ(CheckNames(form, before, names), NameCheck::CollectionNameRefused);
    form.CollectionName = "Orders";
    form.TableName = "Заказы";
    EXPECT_EQ(CheckNames(form, before, names), NameCheck::TableNameRefused);
    EXPECT_EQ(messages.Asked().size(), 3U);
}

TEST_F(ClassNamesTest, TheFormShowsWhatIsMissingAndStoresItEmpty)
{
    form = FormOf(item);
    EXPECT_EQ(form.TableName, "n/a");
    EXPECT_EQ(form.ParentClassName, "n/a");
    form.IncludeAddExisting = true;
    form.CollectionAddNewKey = true;
    StoreForm(form, item);
    EXPECT_EQ(item.TableName, "");
    EXPECT_EQ(item.ParentClassName, "");
    EXPECT_TRUE(item.IncludeAddExisting);
    EXPECT_TRUE(item.CollectionAddNewKey);
}

TEST_F(ClassNamesTest, StoringRewritesTheBuiltInMembersThatCarryNames)
{
    item.TableName = "Orders";
    item.ClassName = "Old";
    item.CollectionName = "Olds";
    for (const std::string name : {"Add", "Update", "Retrieve"})
        item.TTCMembers.Add(name, name);
    AcceptBuiltInProperties(edit, {"Deleted"});
    AcceptBuiltInMethods(edit, {"Clone", "RetrieveList"});
    AcceptBuiltInEvents(edit, {"RecordAdded", "RecordRetrieved", "RecordUpdated", "IsModified",
                               "RecordMarkedForDeletion", "ErrorOccurred"});
    StoreForm(form, item);
    EXPECT_EQ(item.ClassName, "Order");
    EXPECT_EQ(item.CollectionName, "Orders");
    EXPECT_TRUE(item.CreateCollection);
    EXPECT_EQ(item.TTCMethods.Item("Clone")->ReturnDataType, "Order");
    EXPECT_EQ(item.TTCMethods.Item("RetrieveList")->ReturnDataType, "Orders");
    for (const char* name :
         {"RecordAdded", "RecordRetrieved", "RecordUpdated", "IsModified", "RecordMarkedForDeletion"})
        EXPECT_EQ(Signature(item.TTCEvents.Item(name)->TTCEventParameters), Texts{"aOrder:Order"}) << name;
    EXPECT_EQ(item.TTCEvents.Item("ErrorOccurred")->TTCEventParameters.Count(), 2U);
}

TEST_F(ClassNamesTest, MembersOfTheUsersOwnKeepTheirArguments)
{
    item.TTCEvents.Add("IsModified", {}, false, "IsModified");
    item.TTCMethods.Add("Clone", false, {}, "Object", "Public", false, "Clone");
    StoreForm(form, item);
    EXPECT_EQ(item.TTCEvents.Item("IsModified")->TTCEventParameters.Count(), 0U);
    EXPECT_EQ(item.TTCMethods.Item("Clone")->ReturnDataType, "Object");
}

TEST_F(ClassNamesTest, ANewClassAndItsNamesEnterTheProject)
{
    const auto added = std::make_shared<KZMClass>();
    StoreForm(form, *added);
    EXPECT_TRUE(AddClassToProject(added, names));
    EXPECT_EQ(classes.Item("Order"), added);
    EXPECT_TRUE(project.ClassCollectionNames.ClassNameExists("Order"));
    EXPECT_TRUE(project.ClassCollectionNames.ClassNameExists("Orders"));
    EXPECT_TRUE(project.Modified());
}

TEST_F(ClassNamesTest, TheNameOfACollectionThatIsNotGeneratedStaysFree)
{
    const auto added = std::make_shared<KZMClass>();
    form.GenerateCollection = false;
    StoreForm(form, *added);
    EXPECT_TRUE(AddClassToProject(added, names));
    EXPECT_FALSE(project.ClassCollectionNames.ClassNameExists("Orders"));
}

TEST_F(ClassNamesTest, ANameInUseKeepsAClassOut)
{
    project.ClassCollectionNames.Add("Orders", "Orders");
    const auto added = std::make_shared<KZMClass>();
    StoreForm(form, *added);
    EXPECT_FALSE(AddClassToProject(added, names));
    EXPECT_EQ(Titles(), Texts{"Duplicate Class Name"});
    EXPECT_EQ(classes.Count(), 0U);
    EXPECT_FALSE(project.ClassCollectionNames.ClassNameExists("Order"));
    EXPECT_FALSE(project.Modified());
}

TEST_F(ClassNamesTest, AChangedClassTakesItsNewNames)
{
    const auto changed = std::make_shared<KZMClass>();
    StoreForm(form, *changed);
    AddClassToProject(changed, names);
    before = NamesInProject(*changed);
    form.ClassName = "Purchase";
    form.CollectionName = "Purchases";
    StoreForm(form, *changed);
    EXPECT_TRUE(ChangeNamesInProject(changed, before, names));
    EXPECT_EQ(classes.Item("Purchase"), changed);
    EXPECT_FALSE(classes.Item("Order"));
    EXPECT_FALSE(project.ClassCollectionNames.ClassNameExists("Order"));
    EXPECT_FALSE(project.ClassCollectionNames.ClassNameExists("Orders"));
    EXPECT_TRUE(project.ClassCollectionNames.ClassNameExists("Purchase"));
    EXPECT_TRUE(project.ClassCollectionNames.ClassNameExists("Purchases"));
}

TEST_F(ClassNamesTest, ACollectionThatIsNoLongerGeneratedGivesItsNameBack)
{
    const auto changed = std::make_shared<KZMClass>();
    StoreForm(form, *changed);
    AddClassToProject(changed, names);
    before = NamesInProject(*changed);
    form.GenerateCollection = false;
    StoreForm(form, *changed);
    EXPECT_TRUE(ChangeNamesInProject(changed, before, names));
    EXPECT_TRUE(project.ClassCollectionNames.ClassNameExists("Order"));
    EXPECT_FALSE(project.ClassCollectionNames.ClassNameExists("Orders"));
}

TEST_F(ClassNamesTest, AChangeToANameInUseChangesNothing)
{
    const auto changed = std::make_shared<KZMClass>();
    StoreForm(form, *changed);
    AddClassToProject(changed, names);
    project.ClassCollectionNames.Add("Purchase", "Purchase");
    before = NamesInProject(*changed);
    changed->ClassName = "Purchase";
    EXPECT_FALSE(ChangeNamesInProject(changed, before, names));
    EXPECT_EQ(classes.Item("Order"), changed);
    EXPECT_TRUE(project.ClassCollectionNames.ClassNameExists("Order"));
}

TEST_F(ClassNamesTest, TroubleIsInTheWordsOfTheBoxAndTellsNothing)
{
    project.ClassCollectionNames.Add("Shop", "Shop");
    const std::vector<std::pair<std::string, std::string>> cases{
        {"Order", ""},
        {"Order Detail", "Invalid Class Name. Please remove special characters and spaces from the name."},
        {"SALES",
         "The Class Name cannot be the same name as the VB Project Name. Please change the Class Name then click OK."},
        {"shop", "The Class Name already exists in this project. Please change the Class Name then click OK."},
        {std::string(35, 'x'),
         "Warning: The combined length of the project name (Sales) and the class name (xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx) exceeds 39 characters.\r\nThe maximum length of the combined names cannot exceed 39 characters. Your COM Object will not compile successfully. Please make the class name shorter."},
    };
    for (const auto& [typed, trouble] : cases) {
        form.ClassName = typed;
        EXPECT_EQ(NameTrouble(ClassField::ClassName, form, before, names), trouble) << typed;
        EXPECT_EQ(form.ClassName, typed);
        EXPECT_EQ(NameTrouble(ClassField::CollectionName, form, before, names), "") << typed;
    }
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(ClassNamesTest, TroubleOfACollectionLooksAtTheClassToo)
{
    form.CollectionName = "order";
    EXPECT_EQ(NameTrouble(ClassField::CollectionName, form, before, names),
              "The Collection Name already exists in this project. Please change the Collection Name then click OK.");
    EXPECT_EQ(NameTrouble(ClassField::ClassName, form, before, names), "");
    form.GenerateCollection = false;
    EXPECT_EQ(NameTrouble(ClassField::CollectionName, form, before, names), "");
}

TEST_F(ClassNamesTest, TroubleOfAnEmptyNameIsWhatIsReported)
{
    form.ClassName = "";
    const std::string trouble = NameTrouble(ClassField::ClassName, form, before, names);
    EXPECT_TRUE(errors.Reported.empty());
    EXPECT_EQ(CheckNames(form, before, names), NameCheck::ClassNameRefused);
    EXPECT_EQ(trouble, errors.Reported.at(0).Error.Description());
}

TEST_F(ClassNamesTest, ACollectionThatIsNeitherGeneratedNorNamedGetsNoName)
{
    form.GenerateCollection = false;
    form.CollectionName = "";
    EXPECT_EQ(CheckNames(form, before, names), NameCheck::Accepted);
    EXPECT_EQ(form.CollectionName, "");
}

} // namespace
} // namespace veldrane
