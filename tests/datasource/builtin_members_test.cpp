#include "datasource/builtin_members.h"

#include "class_fixture.h"
#include "datasource/row_identifier.h"

namespace veldrane {
namespace {

using testing::Texts;

class BuiltInMembersTest : public testing::ClassFixture
{
  protected:
    BuiltInMembersTest()
    {
        item.TableName = "Orders";
        item.ClassName = "Order";
        item.CollectionName = "Orders";
    }

    void AddIdentity()
    {
        item.TTCProperties.Add(
            {.FieldName = "OrderID", .FieldIsIdentityCol = true, .PropertyName = "OrderID", .DataType = "Long"},
            "OrderID");
        item.TTCKeys.Add(key_type::kIdentityColumn, TTCColumns{}, "1")
            ->TTCColumns.Add("OrderID", "Long", "", "OrderID");
    }

    void AddPrimaryKey()
    {
        const auto key = item.TTCKeys.Add(key_type::kPrimaryKey, TTCColumns{}, "PK");
        key->TTCColumns.Add("Customer ID", "String", "", "Customer ID");
        key->TTCColumns.Add("Year", "Integer", "", "Year");
    }

    template <class Rows>
    [[nodiscard]] static Texts NamesOf(const Rows& rows)
    {
        Texts names;
        for (const auto& row : rows)
            names.emplace_back(row.Name);
        return names;
    }

    [[nodiscard]] Texts EventNames() const
    {
        Texts names;
        for (const ttcEvent& event : item.TTCEvents)
            names.push_back(event.EventName);
        return names;
    }
};

TEST_F(BuiltInMembersTest, TheCataloguesSayWhatTheirRowsAreFor)
{
    Texts rows;
    for (const BuiltInProperty& row : BuiltInProperties())
        rows.push_back(std::string(row.Name) + ": " + std::string(row.Description));
    for (const BuiltInMethod& row : MethodsOnList([&]() -> const KZMClass& {
             AddIdentity();
             AddPrimaryKey();
             return item;
         }()))
        rows.push_back(std::string(row.Name) + ": " + std::string(row.Description));
    for (const BuiltInEvent& row : BuiltInEvents())
        rows.push_back(std::string(row.Name) + " (" + std::string(row.Needs) + "): " + std::string(row.Description));
    EXPECT_EQ(rows,
              (Texts{
                  "Modified: Reflects 'True' when any property value in this class has changed.",
                  "Deleted: Reflects 'True' when the database record is marked for deletion.",
                  "FormatProperties: Turn Property Formatting on or off for this class. (Default = On)",
                  "Add: Add the class as a record to the datasource table using current property values.",
                  "Delete: Delete either the current record or a specific record.",
                  "Update: Update the current record, writing changed properties to fields.",
                  "Clone: Create an independent duplicate of the current class values.",
                  "Clear: Clear all class properties and reset all objects.",
                  "Retrieve: Retrieve a record and populate property values with field values.",
                  "RetrieveIdentity: Retrieve the Identity Column Value of a Primary Key",
                  "RetrieveList: Retrieve a list of records (Useful for populating lists)",
                  "RecordAdded (Add): This event triggers when a database record has been successfully added.",
                  "RecordUpdated (Update): This event triggers when a database record has been successfully updated.",
                  "RecordDeleted (Delete): This event triggers when a database record has been successfully deleted.",
                  "RecordMarkedForDeletion (Deleted): This event triggers when the deleted property is set to True.",
                  "IsModified (): This event triggers when any property value in the class changes.",
                  // NOLINTNEXTLINE(bugprone-suspicious-missing-comma): one text over two lines
                  "RecordRetrieved (Retrieve): This event triggers when a database record has been successfully "
                  "retrieved.",
                  "ErrorOccurred (): This event triggers whenever there is an error in any property or method.",
              }));
}

TEST_F(BuiltInMembersTest, AClassWithoutATableIsOfferedNoMethodOfATable)
{
    item.TableName = "";
    EXPECT_EQ(NamesOf(MethodsOnList(item)), (Texts{"Clone", "Clear"}));
}

TEST_F(BuiltInMembersTest, AReadOnlyClassIsOfferedNoWriting)
{
    item.ReadOnly = true;
    EXPECT_EQ(NamesOf(MethodsOnList(item)), (Texts{"Clone", "Clear", "Retrieve", "RetrieveList"}));
}

TEST_F(BuiltInMembersTest, RetrieveIdentityNeedsAnIdentityColumnAndAPrimaryKey)
{
    const Texts without{"Add", "Delete", "Update", "Clone", "Clear", "Retrieve", "RetrieveList"};
    AddIdentity();
    EXPECT_EQ(NamesOf(MethodsOnList(item)), without);
    item.TTCKeys.Clear();
    AddPrimaryKey();
    EXPECT_EQ(NamesOf(MethodsOnList(item)).size(), 8U);
}

TEST_F(BuiltInMembersTest, EventsAreOfferedForTheMembersThatTheClassHas)
{
    EXPECT_EQ(NamesOf(EventsOnList(item)), (Texts{"IsModified", "ErrorOccurred"}));
    item.TTCMembers.Add("Deleted", "Deleted");
    item.TTCMembers.Add("Retrieve", "Retrieve");
    EXPECT_EQ(NamesOf(EventsOnList(item)),
              (Texts{"RecordMarkedForDeletion", "IsModified", "RecordRetrieved", "ErrorOccurred"}));
}

TEST_F(BuiltInMembersTest, ABuiltInPropertyIsABoolean)
{
    AcceptBuiltInProperties(edit, {"Deleted", "Modified"});
    EXPECT_EQ(PropertyNames(), (Texts{"Modified", "Deleted"}));
    const auto property = item.TTCProperties.Item("Modified");
    EXPECT_TRUE(property->PlusProperty);
    EXPECT_TRUE(property->AddToClass);
    EXPECT_EQ(property->FieldName, "");
    EXPECT_EQ(property->FieldDataType, "");
    EXPECT_EQ(property->Scope, "Public");
    EXPECT_EQ(property->DataType, "Boolean");
    EXPECT_TRUE(item.TTCMembers.Contains("Modified"));
}

TEST_F(BuiltInMembersTest, ARowWhoseNameIsInUseIsSkipped)
{
    item.TTCMembers.Add("modified", "modified");
    item.TTCMembers.Add("RETRIEVE", "RETRIEVE");
    item.TTCMembers.Add("IsModified", "IsModified");
    AcceptBuiltInProperties(edit, {"Modified"});
    AcceptBuiltInMethods(edit, {"Retrieve", "Clear"});
    AcceptBuiltInEvents(edit, {"IsModified", "ErrorOccurred"});
    EXPECT_EQ(item.TTCProperties.Count(), 0U);
    EXPECT_EQ(MethodNames(), Texts{"Clear"});
    EXPECT_EQ(EventNames(), Texts{"ErrorOccurred"});
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(BuiltInMembersTest, AcceptingTwiceChangesNothing)
{
    AcceptBuiltInMethods(edit, {"Clear"});
    AcceptBuiltInMethods(edit, {"Clear"});
    EXPECT_EQ(item.TTCMethods.Count(), 1U);
    EXPECT_TRUE(errors.Reported.empty());
}

TEST_F(BuiltInMembersTest, MethodsReturnWhatTheyFind)
{
    AddPrimaryKey();
    AcceptBuiltInMethods(edit, {"Add", "Delete", "Update", "Clone", "Clear", "Retrieve", "RetrieveList"});
    Texts types;
    for (const TTCMethod& method : item.TTCMethods) {
        types.push_back(method.MethodName + ":" + method.ReturnDataType);
        EXPECT_TRUE(method.PlusMethod);
        EXPECT_EQ(method.Scope, "Public");
        EXPECT_TRUE(item.TTCMembers.Contains(method.MethodName));
    }
    EXPECT_EQ(types, (Texts{"Add:Boolean", "Delete:Boolean", "Update:Boolean", "Clone:Order",
                            "Clear:", "Retrieve:Boolean", "RetrieveList:Orders"}));
}

TEST_F(BuiltInMembersTest, AddReturnsTheIdentity)
{
    AddIdentity();
    AcceptBuiltInMethods(edit, {"Add"});
    EXPECT_EQ(item.TTCMethods.Item("Add")->ReturnDataType, "Long");
}

TEST_F(BuiltInMembersTest, ByIdentityColumnThereIsOneArgument)
{
    AddIdentity();
    AcceptBuiltInMethods(edit, {"Retrieve", "Delete"});
    EXPECT_TRUE(messages.Asked().empty());
    EXPECT_TRUE(item.RetrieveByIdentityCol);
    EXPECT_FALSE(item.RetrieveByPrimaryKey);
    EXPECT_TRUE(item.DeleteByIdentityColumn);
    EXPECT_FALSE(item.DeleteByPrimaryKey);
    const auto& arguments = item.TTCMethods.Item("Retrieve")->Arguments;
    EXPECT_EQ(Signature(arguments), Texts{"anOrderID:Long"});
    const auto argument = arguments.Item("anOrderID");
    EXPECT_TRUE(argument->ByValIndicator);
    EXPECT_FALSE(argument->OptionalIndicator);
    EXPECT_EQ(argument->DefaultValue, "");
    EXPECT_FALSE(argument->IsArray);
    EXPECT_EQ(argument->Index, 1);
    EXPECT_EQ(argument->ColumnName, "OrderID");
}

TEST_F(BuiltInMembersTest, ByPrimaryKeyThereIsOneArgumentAColumn)
{
    AddPrimaryKey();
    AcceptBuiltInMethods(edit, {"Retrieve", "Delete"});
    EXPECT_TRUE(item.RetrieveByPrimaryKey);
    EXPECT_TRUE(item.DeleteByPrimaryKey);
    const auto& arguments = item.TTCMethods.Item("Delete")->Arguments;
    EXPECT_EQ(Signature(arguments), (Texts{"aCustomer_ID:String", "aYear:Integer"}));
    EXPECT_EQ(arguments.Item("aYear")->Index, 2);
    EXPECT_EQ(arguments.Item("aCustomer_ID")->ColumnName, "Customer ID");
}

TEST_F(BuiltInMembersTest, RetrieveIdentityTakesThePrimaryKey)
{
    AddIdentity();
    AddPrimaryKey();
    AcceptBuiltInMethods(edit, {"RetrieveIdentity"});
    const auto method = item.TTCMethods.Item("RetrieveIdentity");
    EXPECT_EQ(method->ReturnDataType, "");
    EXPECT_EQ(Signature(method->Arguments), (Texts{"aCustomer_ID:String", "aYear:Integer"}));
}

TEST_F(BuiltInMembersTest, RetrieveListTakesAnOptionalClause)
{
    AcceptBuiltInMethods(edit, {"RetrieveList"});
    const auto argument = item.TTCMethods.Item("RetrieveList")->Arguments.Item("SQLWhereClause");
    EXPECT_EQ(argument->ParameterDataType, "String");
    EXPECT_TRUE(argument->OptionalIndicator);
    EXPECT_TRUE(argument->ByValIndicator);
}

TEST_F(BuiltInMembersTest, RetrieveListToTreeViewIsTakenByName)
{
    AcceptBuiltInMethods(edit, {"RetrieveListToTreeView"});
    const auto method = item.TTCMethods.Item("RetrieveListToTreeView");
    ASSERT_TRUE(method);
    EXPECT_EQ(method->ReturnDataType, "");
    EXPECT_EQ(Signature(method->Arguments), (Texts{"TreeViewControl:Object", "ParentNodeKey:String"}));
    EXPECT_FALSE(method->Arguments.Item("TreeViewControl")->OptionalIndicator);
    EXPECT_TRUE(method->Arguments.Item("ParentNodeKey")->OptionalIndicator);
    EXPECT_TRUE(method->Arguments.Item("ParentNodeKey")->ByValIndicator);
}

TEST_F(BuiltInMembersTest, NothingIsMadeUnderANameThatIsNotBuiltIn)
{
    EXPECT_FALSE(MakeBuiltInMethod("Vanish", item));
}

TEST_F(BuiltInMembersTest, WithBothKeysRetrieveAsks)
{
    AddIdentity();
    AddPrimaryKey();
    AnswerWith({Answer::Yes});
    AcceptBuiltInMethods(edit, {"Retrieve"});
    ASSERT_EQ(messages.Asked().size(), 1U);
    const Question& question = messages.Asked().front();
    EXPECT_EQ(question.Title, "Choose Retrieval Method");
    EXPECT_EQ(
        question.Text,
        "Do you want to retrieve records by the Identity Column or the Primary Key?\r\nClick 'Yes' to retrieve records by their Identity Column value OR\r\nClick 'No' to retrieve records by their Primary Key value(s).");
    EXPECT_EQ(question.Offered, Buttons::YesNo);
    EXPECT_EQ(question.Default, Answer::No);
    EXPECT_TRUE(item.RetrieveByIdentityCol);
    EXPECT_FALSE(item.RetrieveByPrimaryKey);
}

TEST_F(BuiltInMembersTest, WithBothKeysDeleteAsks)
{
    AddIdentity();
    AddPrimaryKey();
    AnswerWith({Answer::No});
    AcceptBuiltInMethods(edit, {"Delete"});
    ASSERT_EQ(messages.Asked().size(), 1U);
    const Question& question = messages.Asked().front();
    EXPECT_EQ(question.Title, "Add Delete Method to Class");
    EXPECT_EQ(
        question.Text,
        "A Delete Method will be added to this class (NO RECORDS WILL EVER BE AFFECTED BY THIS APPLICATION).\r\nDo you want the delete method in this class to delete rows based on the Identity Column or the Primary Key?\r\nClick 'Yes' to have the delete method use the Identity Column value OR\r\nClick 'No' to have the delete method use the Primary Key value(s).");
    EXPECT_EQ(question.Offered, Buttons::YesNo);
    EXPECT_FALSE(item.DeleteByIdentityColumn);
    EXPECT_TRUE(item.DeleteByPrimaryKey);
    EXPECT_EQ(Signature(item.TTCMethods.Item("Delete")->Arguments), (Texts{"aCustomer_ID:String", "aYear:Integer"}));
}

TEST_F(BuiltInMembersTest, ADeleteThatThePersonTicksIsExplained)
{
    AddPrimaryKey();
    AcceptBuiltInMethods(edit, {"Delete", "Retrieve"}, Occasion::Ticked);
    item.TTCKeys.Clear();
    item.TTCMembers.Remove("Delete");
    item.TTCMethods.Remove("Delete");
    AddIdentity();
    AcceptBuiltInMethods(edit, {"Delete"}, Occasion::Ticked);
    ASSERT_EQ(Titles(), (Texts{"Add Delete Method to Class", "Add Delete Method to Class"}));
    EXPECT_EQ(
        messages.Asked().at(0).Text,
        "A Delete Method will be added to this class (NO RECORDS WILL EVER BE AFFECTED BY THIS APPLICATION).\r\nThe delete method in this class will delete rows based on the Primary Key value(s).");
    EXPECT_EQ(
        messages.Asked().at(1).Text,
        "A Delete Method will be added to this class (NO RECORDS WILL EVER BE AFFECTED BY THIS APPLICATION).\r\nThe delete method in this class will delete rows based on the Identity Column value.");
    EXPECT_EQ(messages.Asked().at(0).Offered, Buttons::Ok);
    EXPECT_EQ(messages.Asked().at(0).Icon, MessageIcon::Information);
}

TEST_F(BuiltInMembersTest, ADeleteWithBothKeysIsExplainedByTheQuestionAlone)
{
    AddIdentity();
    AddPrimaryKey();
    AcceptBuiltInMethods(edit, {"Delete"}, Occasion::Ticked);
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Offered, Buttons::YesNo);
}

TEST_F(BuiltInMembersTest, TheDeleteOfANewClassComesWithoutAWord)
{
    AddPrimaryKey();
    AcceptDefaultMembers(edit);
    EXPECT_TRUE(item.TTCMethods.Contains("Delete"));
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(BuiltInMembersTest, ADeleteThatIsRefusedIsNotExplained)
{
    AcceptBuiltInMethods(edit, {"Delete"}, Occasion::Ticked);
    EXPECT_EQ(Titles(), Texts{"No Row Identifier Found"});
}

TEST_F(BuiltInMembersTest, WithoutAKeyRetrieveAndDeleteAreRefused)
{
    item.RetrieveByPrimaryKey = true;
    AcceptBuiltInMethods(edit, {"Add", "Delete", "Retrieve"});
    EXPECT_EQ(MethodNames(), Texts{"Add"});
    EXPECT_FALSE(item.TTCMembers.Contains("Retrieve"));
    EXPECT_FALSE(item.RetrieveByPrimaryKey);
    const std::string reason =
        "\r\nThere is no Identity Column (a.k.a. AutoNumber) field or Primary Key defined for this database table. \r\nUnable to add method at this time.\r\nPlease set a Primary Key or Identity Column for this table. \r\nYou will need to modify the database table and add either: \r\n     1) A Primary Key to a field or fields with a unique value.\r\n     2) An Identity (a.k.a. AutoNumber) column to the table.\r\nIn the 'Properties' tab, click on the field(s) you want as the key, then right-click and select 'Set as Primary Key'";
    ASSERT_EQ(messages.Asked().size(), 2U);
    EXPECT_EQ(Titles(), (Texts{"No Row Identifier Found", "No Row Identifier Found"}));
    EXPECT_EQ(messages.Asked().at(0).Text, "Unable to add the Delete Method to this class." + reason);
    EXPECT_EQ(messages.Asked().at(1).Text, "Unable to add the Retrieve Method to this class." + reason);
    EXPECT_EQ(messages.Asked().at(0).Icon, MessageIcon::Warning);
}

TEST_F(BuiltInMembersTest, EventsHandOverTheClass)
{
    item.TTCMembers.Add("Add", "Add");
    AcceptBuiltInEvents(edit, {"RecordAdded", "RecordUpdated"});
    EXPECT_EQ(EventNames(), Texts{"RecordAdded"});
    const auto event = item.TTCEvents.Item("RecordAdded");
    EXPECT_TRUE(event->PlusEvent);
    EXPECT_EQ(Signature(event->TTCEventParameters), Texts{"aOrder:Order"});
    EXPECT_EQ(event->TTCEventParameters.Item("aOrder")->Index, 1);
    EXPECT_TRUE(item.TTCMembers.Contains("RecordAdded"));
}

TEST_F(BuiltInMembersTest, ErrorOccurredHandsOverTheError)
{
    AcceptBuiltInEvents(edit, {"ErrorOccurred"});
    EXPECT_EQ(Signature(item.TTCEvents.Item("ErrorOccurred")->TTCEventParameters),
              (Texts{"ErrorNumber:Long", "ErrorMessage:String"}));
}

TEST_F(BuiltInMembersTest, RecordDeletedHandsOverWhatDeleteTakes)
{
    AddIdentity();
    AddPrimaryKey();
    AnswerWith({Answer::Yes});
    AcceptBuiltInMethods(edit, {"Delete"});
    AcceptBuiltInEvents(edit, {"RecordDeleted"});
    const auto event = item.TTCEvents.Item("RecordDeleted");
    EXPECT_EQ(Signature(event->TTCEventParameters), Texts{"anOrderID:Long"});
    EXPECT_EQ(event->TTCEventParameters.Item("anOrderID")->ColumnName, "");
}

TEST_F(BuiltInMembersTest, RecordDeletedFollowsThePrimaryKey)
{
    AddPrimaryKey();
    AcceptBuiltInMethods(edit, {"Delete"});
    AcceptBuiltInEvents(edit, {"RecordDeleted"});
    EXPECT_EQ(Signature(item.TTCEvents.Item("RecordDeleted")->TTCEventParameters),
              (Texts{"aCustomer_ID:String", "aYear:Integer"}));
}

TEST_F(BuiltInMembersTest, TheDefaultsAreAllButAFew)
{
    AddIdentity();
    AcceptDefaultMembers(edit);
    EXPECT_EQ(PropertyNames(), (Texts{"OrderID", "Modified", "Deleted"}));
    EXPECT_EQ(MethodNames(), (Texts{"Add", "Delete", "Update", "Clone", "Clear", "Retrieve"}));
    EXPECT_EQ(EventNames(), (Texts{"RecordAdded", "RecordUpdated", "RecordDeleted", "RecordMarkedForDeletion",
                                   "IsModified", "RecordRetrieved", "ErrorOccurred"}));
}

} // namespace
} // namespace veldrane
