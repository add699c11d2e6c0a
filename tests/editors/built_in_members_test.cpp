#include "editors/frm_built_in_events.h"
#include "editors/frm_built_in_methods.h"

#include "member_fixture.h"

namespace veldrane {
namespace {

using testing::Texts;

// "[x] Name" of each row.
Texts Ticks(const std::vector<BuiltInRow>& rows)
{
    Texts ticks;
    for (const BuiltInRow& row : rows)
        ticks.push_back((row.Ticked ? "[x] " : "[ ] ") + row.Name);
    return ticks;
}

class BuiltInMembersDialogTest : public testing::MemberTest
{
  protected:
    BuiltInMembersDialogTest()
    {
        item.TableName = "Orders";
        AddProperty(item, "OrderID", "Long");
        AddKey(item, 0, {"OrderID"});
    }

    void AddBuiltInMethod(const std::string& name)
    {
        item.TTCMembers.Add(name, name);
        AddMethod(item, name, true);
    }
};

TEST_F(BuiltInMembersDialogTest, MethodsHaveTheirDescriptionsAndWhatTheClassHasIsTicked)
{
    AddBuiltInMethod("Clone");
    const frmBuiltInMethods form(surroundings);
    EXPECT_EQ(Ticks(form.lstMethods()), (Texts{"[ ] Add", "[ ] Delete", "[ ] Update", "[x] Clone", "[ ] Clear",
                                               "[ ] Retrieve", "[ ] RetrieveList"}));
    EXPECT_EQ(form.lstMethods().front().Description,
              "Add the class as a record to the datasource table using current property values.");
    EXPECT_EQ(form.lstMethods().front().Icon, "MethodPlus");
}

TEST_F(BuiltInMembersDialogTest, OkAddsTheTickedMethods)
{
    AddBuiltInMethod("Clone");
    frmBuiltInMethods form(surroundings);
    form.lstMethods_ItemCheck({0, 1, 3, 4}, true);
    form.lstMethods_ItemCheck({3, 4}, false);
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(MethodNames(), (Texts{"Clone", "Add", "Delete"})) << "a method that is there is not taken away";
    EXPECT_TRUE(item.TTCMethods.Item("Add")->PlusMethod);
    EXPECT_EQ(
        Told(),
        Texts{
            "A Delete Method will be added to this class (NO RECORDS WILL EVER BE AFFECTED BY THIS APPLICATION).\r\nThe delete method in this class will delete rows based on the Primary Key value(s)."});
    EXPECT_EQ(Titles(), Texts{"Add Delete Method to Class"});
}

TEST_F(BuiltInMembersDialogTest, ARowWhoseNameIsInUseSaysSoAndIsPassedOver)
{
    AddOwnMethod("ADD");
    frmBuiltInMethods form(surroundings);
    EXPECT_FALSE(form.lstMethods().front().Ticked);
    EXPECT_EQ(form.lstMethods().front().Trouble,
              "The method 'Add' can't be added: an existing member of the Order class has that name.");
    EXPECT_EQ(form.lstMethods().at(1).Trouble, "");
    form.lstMethods_ItemCheck({0, 4}, true);
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(MethodNames(), (Texts{"ADD", "Clear"}));
    EXPECT_FALSE(item.TTCMethods.Item("Add")->PlusMethod);
}

TEST_F(BuiltInMembersDialogTest, AMethodThatFindsNoRowSaysSoBeforehandAndIsNotAddedWithTheOthers)
{
    item.TTCKeys.Clear();
    const std::string before = Saved();
    frmBuiltInMethods form(surroundings);
    EXPECT_EQ(
        form.lstMethods().at(1).Trouble,
        "Unable to add the Delete Method to this class.\r\nThere is no Identity Column (a.k.a. AutoNumber) field or Primary Key defined for this database table. \r\nUnable to add method at this time.\r\nPlease set a Primary Key or Identity Column for this table. \r\nYou will need to modify the database table and add either: \r\n     1) A Primary Key to a field or fields with a unique value.\r\n     2) An Identity (a.k.a. AutoNumber) column to the table.\r\nIn the 'Properties' tab, click on the field(s) you want as the key, then right-click and select 'Set as Primary Key'");
    EXPECT_TRUE(form.lstMethods().at(5).Trouble.starts_with("Unable to add the Retrieve Method to this class."));
    form.lstMethods_ItemCheck({0, 1, 5}, true);
    EXPECT_EQ(Saved(), before);
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(Titles(), (Texts{"No Row Identifier Found", "No Row Identifier Found"}));
    EXPECT_EQ(Told(), (Texts{form.lstMethods().at(1).Trouble, form.lstMethods().at(5).Trouble}));
    EXPECT_EQ(MethodNames(), Texts{"Add"});
}

TEST_F(BuiltInMembersDialogTest, AMethodThatFindsNoRowIsPassedOverWhereItsNameIsInUse)
{
    item.TTCKeys.Clear();
    AddOwnMethod("Delete");
    frmBuiltInMethods form(surroundings);
    EXPECT_EQ(form.lstMethods().at(1).Trouble,
              "The method 'Delete' can't be added: an existing member of the Order class has that name.");
    form.lstMethods_ItemCheck({1}, true);
    EXPECT_TRUE(form.cmdOK_Click());
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(BuiltInMembersDialogTest, CancelLeavesTheClassAsItWas)
{
    const std::string before = Saved();
    frmBuiltInMethods methods(surroundings);
    methods.lstMethods_ItemCheck({0, 1, 5}, true);
    EXPECT_TRUE(methods.cmdCancel_Click());
    frmBuiltInEvents events(surroundings);
    events.lstEvents_ItemCheck({0}, true);
    EXPECT_TRUE(events.cmdCancel_Click());
    EXPECT_EQ(Saved(), before);
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(BuiltInMembersDialogTest, ThePreviewShowsAMethodThatIsNotThereYet)
{
    const std::string before = Saved();
    const frmBuiltInMethods form(surroundings);
    for (std::size_t row = 0; row < form.lstMethods().size(); ++row)
        EXPECT_GT(form.Preview(row).Count(), 0U) << form.lstMethods().at(row).Name;
    EXPECT_EQ(Saved(), before);
    EXPECT_TRUE(messages.Asked().empty()) << "nothing is asked for it";
    EXPECT_TRUE(errors.Reported.empty());
}

TEST_F(BuiltInMembersDialogTest, ThePreviewOfARowThatCannotBeAddedIsEmpty)
{
    item.TTCKeys.Clear();
    AddOwnMethod("Add");
    const frmBuiltInMethods form(surroundings);
    EXPECT_EQ(form.Preview(0).Count(), 0U) << "the name is in use";
    EXPECT_EQ(form.Preview(1).Count(), 0U) << "nothing identifies a row";
    EXPECT_TRUE(messages.Asked().empty());
}

TEST_F(BuiltInMembersDialogTest, EventsOfTheMembersThatTheClassHasAreOffered)
{
    AddBuiltInMethod("Add");
    AddBuiltInMethod("Retrieve");
    item.TTCMembers.Add("IsModified", "IsModified");
    AddEvent(item, "IsModified");
    frmBuiltInEvents form(surroundings);
    EXPECT_EQ(Ticks(form.lstEvents()),
              (Texts{"[ ] RecordAdded", "[x] IsModified", "[ ] RecordRetrieved", "[ ] ErrorOccurred"}));
    EXPECT_EQ(form.lstEvents().front().Description,
              "This event triggers when a database record has been successfully added.");
    EXPECT_EQ(form.lstEvents().front().Icon, "EventPlus");
    EXPECT_EQ(OutputsToText(form.Preview(0)), "Public Event RecordAdded(ByRef aOrder as Order)\r\n");
    EXPECT_EQ(OutputsToText(form.Preview(3)),
              "Public Event ErrorOccurred(ByRef ErrorNumber as Long, ByRef ErrorMessage as String)\r\n");
    form.lstEvents_ItemCheck({0, 1, 3}, true);
    ASSERT_TRUE(form.cmdOK_Click());
    EXPECT_EQ(EventNames(), (Texts{"IsModified", "RecordAdded", "ErrorOccurred"}));
    EXPECT_TRUE(item.TTCEvents.Item("ErrorOccurred")->PlusEvent);
}

} // namespace
} // namespace veldrane
