#include "editors/frm_add_edit_class.h"

#include "class_editor_fixture.h"
#include "datasource/table_keys.h"

namespace veldrane {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

// The orders below their customers, in the editor.
class ClassMembers : public testing::ClassEditorTest
{
  protected:
    ClassMembers() { EXPECT_TRUE(form_.Load()); }

    void Run(const std::string& tool, ClassList list, const std::vector<std::string>& rows)
    {
        Select(form_, list, rows);
        form_.actBar_Click(tool);
    }

    [[nodiscard]] std::vector<std::string> Methods() const { return Texts(form_, ClassList::lstMethods); }
    [[nodiscard]] std::vector<std::string> Events() const { return Texts(form_, ClassList::lstEvents); }

    std::shared_ptr<KZMClass> customer_ = MadeCustomer();
    std::shared_ptr<KZMClass> order_ = MadeOrder();
    frmAddEditClass form_{World, order_};
};

TEST_F(ClassMembers, RowsTellWhatTheirMembersAre)
{
    const MemberRow& field = form_.Rows(ClassList::lstProperties).at(0);
    EXPECT_EQ(field.Second, "Long");
    EXPECT_EQ(field.Icon, "FieldAuto");
    EXPECT_EQ(form_.Rows(ClassList::lstProperties).at(1).Icon, "Field");
    EXPECT_EQ(form_.Rows(ClassList::lstPlusProperties).at(0).Icon, "PropertyPlus");
    EXPECT_EQ(form_.Rows(ClassList::lstMethods).at(0).Icon, "MethodPlus");
    EXPECT_EQ(form_.Rows(ClassList::lstMethods).at(0).Second, "Long");
    EXPECT_EQ(form_.Rows(ClassList::lstEvents).at(0).Icon, "EventPlus");
}

TEST_F(ClassMembers, ToolsWorkOnWhatIsSelected)
{
    for (const char* tool : {"EditEvent", "DeleteEvent", "EditMethod", "DeleteMethod", "SetAsPrimaryKey",
                             "FieldProperties", "EditPlusProperty", "DeletePlusProperty", "RefreshField",
                             "DeleteRelationship", "ByPrimaryKey", "ByIdentityColumn"}) {
        EXPECT_FALSE(form_.IsEnabled(tool)) << tool;
        form_.actBar_Click(tool);
    }
    for (const char* tool : {"NewEvent", "AddBuiltInEvent", "NewMethod", "AddBuiltInMethod", "AddSP", "NewPlusProperty",
                             "AddPlusProperty", "GetNewFields", "GetNewRelationships"})
        EXPECT_TRUE(form_.IsEnabled(tool)) << tool;
    form_.actBar_Click("Nonsense");
    EXPECT_THAT(Members.Opened, IsEmpty());
    EXPECT_THAT(Messages.Asked(), IsEmpty());
    Select(form_, ClassList::lstMethods, {"Retrieve"});
    EXPECT_TRUE(form_.IsEnabled("ByPrimaryKey"));
    EXPECT_TRUE(form_.IsEnabled("ByIdentityColumn"));
    Select(form_, ClassList::lstMethods, {"Update"});
    EXPECT_FALSE(form_.IsEnabled("ByPrimaryKey"));
}

TEST_F(ClassMembers, OneMemberIsEditedAtATime)
{
    const std::vector<std::pair<const char*, ClassList>> tools{{"EditEvent", ClassList::lstEvents},
                                                               {"EditMethod", ClassList::lstMethods},
                                                               {"FieldProperties", ClassList::lstProperties},
                                                               {"EditPlusProperty", ClassList::lstPlusProperties}};
    for (const auto& [tool, list] : tools) {
        form_.Select(list, {0});
        EXPECT_TRUE(form_.IsEnabled(tool)) << tool;
        form_.Select(list, {0, 1});
        EXPECT_FALSE(form_.IsEnabled(tool)) << tool;
        form_.actBar_Click(tool);
    }
    EXPECT_THAT(Members.Opened, IsEmpty());
}

TEST_F(ClassMembers, ClearIsKeptWhereItsTurnComesBeforeThatOfRetrieve)
{
    customer_->TTCMethods.Remove("Retrieve");
    AnswerWith({Answer::Ok, Answer::Ok, Answer::Ok});
    Run("DeleteMethod", ClassList::lstMethods, {"Clear", "Retrieve"});
    EXPECT_THAT(Titles(), ElementsAre("Dependancies about to be broken", "Dependant Method", "Confirm Delete Method"));
    EXPECT_THAT(Methods(), Contains("Clear"));
    EXPECT_THAT(Methods(), Not(Contains("Retrieve")));
}

TEST_F(ClassMembers, ANewMemberIsListedAndSelected)
{
    Members.Do = [](KZMClass& item) {
        item.TTCMethods.Add("Mine", false, {}, "", "Public", false, "Mine");
        item.TTCEvents.Add("Done", {}, false, "Done");
        NewProperty property;
        property.PropertyName = "Colour";
        item.TTCProperties.Add(std::move(property), "Colour");
        return true;
    };
    form_.actBar_Click("NewMethod");
    EXPECT_EQ(Methods().back(), "Mine");
    EXPECT_THAT(form_.Selected(ClassList::lstMethods), ElementsAre(Methods().size() - 1));
    Members.Do = [](KZMClass& /*item*/) { return true; };
    form_.actBar_Click("NewEvent");
    EXPECT_THAT(form_.Selected(ClassList::lstEvents), ElementsAre(Events().size() - 1));
    form_.actBar_Click("NewPlusProperty");
    EXPECT_EQ(form_.Rows(ClassList::lstPlusProperties).at(form_.Selected(ClassList::lstPlusProperties).at(0)).Text,
              "Colour");
    EXPECT_THAT(Members.Opened, ElementsAre("AddMethod", "AddEvent", "AddProperty"));
    EXPECT_FALSE(order_->TTCMethods.Contains("Mine"));
    EXPECT_FALSE(form_.cmdCancel_Click());
}

TEST_F(ClassMembers, ADialogThatIsCancelledChangesNothing)
{
    for (const char* tool : {"NewMethod", "NewEvent", "NewPlusProperty", "AddBuiltInMethod", "AddBuiltInEvent",
                             "AddPlusProperty", "AddSP"})
        form_.actBar_Click(tool);
    EXPECT_THAT(Members.Opened, ElementsAre("AddMethod", "AddEvent", "AddProperty", "AddBuiltInMethods",
                                            "AddBuiltInEvents", "AddBuiltInProperties", "PickProcedures"));
    EXPECT_TRUE(form_.cmdCancel_Click());
}

TEST_F(ClassMembers, ASelectedMemberIsEditedInItsOwnDialog)
{
    Run("EditMethod", ClassList::lstMethods, {"Update"});
    Run("EditEvent", ClassList::lstEvents, {"IsModified"});
    Run("FieldProperties", ClassList::lstProperties, {"Note"});
    Run("EditPlusProperty", ClassList::lstPlusProperties, {"Deleted"});
    EXPECT_THAT(Members.Opened, ElementsAre("EditMethod Update", "EditEvent IsModified", "FieldProperties Note",
                                            "EditProperty Deleted"));
    EXPECT_TRUE(form_.cmdCancel_Click());
}

TEST_F(ClassMembers, AnEditedMemberShowsItsNewNameAndStaysSelectedBesideIt)
{
    Members.Do = [](KZMClass& item) {
        item.TTCProperties.Item("Note")->PropertyName = "Remark";
        return true;
    };
    Run("FieldProperties", ClassList::lstProperties, {"Note"});
    EXPECT_THAT(Texts(form_, ClassList::lstProperties), ElementsAre("OrderID", "Customer", "Remark"));
    EXPECT_THAT(form_.Selected(ClassList::lstProperties), ElementsAre(2U));
    EXPECT_FALSE(form_.cmdCancel_Click());
}

TEST_F(ClassMembers, ARenamedMemberStaysSelectedWhereverItStandsAfterwards)
{
    const std::vector<std::tuple<const char*, ClassList, const char*, std::function<void(KZMClass&)>>> edits{
        {"EditMethod", ClassList::lstMethods, "Update",
         [](KZMClass& item) {
             item.TTCMethods.Remove("Update");
             item.TTCMethods.Add("Mine", false, {}, "", "Public", false, "Mine");
         }},
        {"EditEvent", ClassList::lstEvents, "IsModified",
         [](KZMClass& item) { item.TTCEvents.Item("IsModified")->EventName = "Mine"; }},
        {"EditPlusProperty", ClassList::lstPlusProperties, "Deleted",
         [](KZMClass& item) { item.TTCProperties.Item("Deleted")->PropertyName = "Mine"; }}};
    for (const auto& [tool, list, name, edit] : edits) {
        Members.Do = [&change = edit](KZMClass& item) {
            change(item);
            return true;
        };
        Run(tool, list, {name});
        ASSERT_EQ(form_.Selected(list).size(), 1U) << tool;
        EXPECT_EQ(form_.Rows(list).at(form_.Selected(list).front()).Text, "Mine");
    }
}

TEST_F(ClassMembers, PickedProceduresAreNamedOneAfterTheOther)
{
    Members.Procedures = {"GetTotals", "-GetNothing", "GetNames"};
    Members.Do = [this](KZMClass& item) {
        const std::string& opened = Members.Opened.back();
        if (opened != "PickProcedures") {
            const std::string name = opened.substr(opened.find(' ') + 1);
            item.TTCMethods.Add(name, false, {}, "", "Public", false, name)->MethodIsSP = true;
        }
        return true;
    };
    form_.actBar_Click("AddSP");
    EXPECT_THAT(Members.Opened, ElementsAre("PickProcedures", "AddProcedure GetTotals", "AddProcedure GetNames"));
    EXPECT_EQ(form_.Rows(ClassList::lstMethods).back().Text, "GetNames");
    EXPECT_EQ(form_.Rows(ClassList::lstMethods).back().Icon, "SP");
    Members.Opened.clear();
    Run("EditMethod", ClassList::lstMethods, {"GetTotals"});
    EXPECT_THAT(Members.Opened, ElementsAre("EditProcedure GetTotals"));
}

TEST_F(ClassMembers, EventsAreDeletedOneQuestionEachUntilCancel)
{
    AnswerWith({Answer::Ok, Answer::Cancel});
    Run("DeleteEvent", ClassList::lstEvents, {"RecordAdded", "IsModified", "ErrorOccurred"});
    EXPECT_EQ(Messages.Asked().size(), 2U);
    EXPECT_EQ(Messages.Asked().front().Title, "Confirm Delete Event");
    EXPECT_EQ(Messages.Asked().front().Text,
              "Are you sure you want to delete the 'RecordAdded' event from this class?");
    EXPECT_THAT(Events(), Not(Contains("RecordAdded")));
    EXPECT_THAT(Events(), Contains("IsModified"));
    ASSERT_TRUE(form_.cmdOK_Click());
    EXPECT_FALSE(Classes.Item("Order")->TTCMembers.Contains("RecordAdded"));
    EXPECT_TRUE(Classes.Item("Order")->TTCMembers.Contains("IsModified"));
}

TEST_F(ClassMembers, PlusPropertiesAreDeletedWithTheirNames)
{
    AnswerWith({Answer::Ok, Answer::Ok});
    Run("DeletePlusProperty", ClassList::lstPlusProperties, {"Modified", "Deleted"});
    EXPECT_EQ(Messages.Asked().front().Title, "Confirm Delete Property");
    EXPECT_EQ(Messages.Asked().front().Text,
              "Are you sure you want to delete the 'Modified' property from this class?");
    EXPECT_THAT(form_.Rows(ClassList::lstPlusProperties), IsEmpty());
    ASSERT_TRUE(form_.cmdOK_Click());
    EXPECT_FALSE(Classes.Item("Order")->TTCMembers.Contains("Deleted"));
}

TEST_F(ClassMembers, ClearIsNotDeletedWhileRetrieveStands)
{
    Run("DeleteMethod", ClassList::lstMethods, {"Clear"});
    EXPECT_THAT(Titles(), ElementsAre("Dependancies about to be broken", "Dependant Method"));
    EXPECT_EQ(Messages.Asked().at(0).Text,
              "The Clear Method is needed by the Delete method.\r\n"
              "The Clear Method is needed by the Retrieve method.\r\n"
              "The Clear Method is needed by the RetrieveIdentity method.\r\n"
              "\r\nThis is only a warning, you will now be prompted to delete the selected method(s).");
    EXPECT_EQ(Messages.Asked().at(1).Text,
              "The Clear Method is needed by the Retrieve method. Please delete the Retrieve Method first.");
    EXPECT_THAT(Methods(), Contains("Clear"));
    EXPECT_TRUE(form_.cmdCancel_Click());
}

TEST_F(ClassMembers, AMethodThatTheParentNeedsIsNotDeleted)
{
    Run("DeleteMethod", ClassList::lstMethods, {"Add"});
    ExpectTold(
        "Cannot Delete Plus Property",
        "You cannot delete the Add method because it is a dependant of the parent class. Delete the method from the parent class first, then delete the method from this class.");
    EXPECT_THAT(Methods(), Contains("Add"));
}

TEST_F(ClassMembers, AMethodGoesWithItsEvent)
{
    customer_->TTCMethods.Remove("Add");
    AnswerWith({Answer::Ok});
    Run("DeleteMethod", ClassList::lstMethods, {"Add"});
    EXPECT_THAT(Titles(), ElementsAre("Confirm Delete Method"));
    ExpectTold("Confirm Delete Method", "Are you sure you want to delete the 'Add' method from this class?\r\n"
                                        "The RecordAdded plus event will also be removed because it is dependant on "
                                        "this method.");
    EXPECT_THAT(Methods(), Not(Contains("Add")));
    EXPECT_THAT(Events(), Not(Contains("RecordAdded")));
    ASSERT_TRUE(form_.cmdOK_Click());
    EXPECT_FALSE(Classes.Item("Order")->TTCMembers.Contains("Add"));
    EXPECT_FALSE(Classes.Item("Order")->TTCMembers.Contains("RecordAdded"));
}

TEST_F(ClassMembers, CancelEndsTheDeletionOfMethods)
{
    customer_->TTCMethods.Remove("Clone");
    AnswerWith({Answer::Cancel});
    Run("DeleteMethod", ClassList::lstMethods, {"Clone", "RetrieveIdentity"});
    EXPECT_THAT(Titles(), ElementsAre("Confirm Delete Method"));
    EXPECT_THAT(Methods(), Contains("Clone"));
}

TEST_F(ClassMembers, SeveralFieldsBecomeThePrimaryKey)
{
    AnswerWith({Answer::Ok});
    Run("SetAsPrimaryKey", ClassList::lstProperties, {"Customer", "Note"});
    ExpectTold("Confirm Replace Primary Key",
               "Are you sure you want to set the selected field(s) to be the Primary Key?\r\n"
               "(The existing Primary Key will be removed)");
    EXPECT_EQ(form_.Rows(ClassList::lstProperties).at(1).Icon, "FieldKey");
    ASSERT_TRUE(form_.cmdOK_Click());
    const auto key = FirstKey(*Classes.Item("Order"), key_type::kPrimaryKey);
    EXPECT_EQ(key->TTCColumns.Count(), 2U);
    EXPECT_EQ(key->TTCColumns.Item(2)->ColumnName, "Note");
}

TEST_F(ClassMembers, ThePrimaryKeyStaysWhereThePersonCancels)
{
    Run("SetAsPrimaryKey", ClassList::lstProperties, {"Note"});
    EXPECT_TRUE(form_.cmdCancel_Click());
}

TEST_F(ClassMembers, AMethodFindsItsRowByTheChosenKey)
{
    Run("ByPrimaryKey", ClassList::lstMethods, {"Delete"});
    ASSERT_TRUE(form_.cmdOK_Click());
    EXPECT_TRUE(Classes.Item("Order")->DeleteByPrimaryKey);
    EXPECT_FALSE(Classes.Item("Order")->DeleteByIdentityColumn);
    EXPECT_FALSE(form_.cmdCancel_Click());
}

TEST_F(ClassMembers, AMethodFindsItsRowByTheIdentityColumn)
{
    Run("ByPrimaryKey", ClassList::lstMethods, {"Retrieve"});
    Run("ByIdentityColumn", ClassList::lstMethods, {"Retrieve"});
    ASSERT_TRUE(form_.cmdOK_Click());
    const auto order = Classes.Item("Order");
    EXPECT_TRUE(order->RetrieveByIdentityCol);
    EXPECT_FALSE(order->RetrieveByPrimaryKey);
    EXPECT_THAT(Signature(order->TTCMethods.Item("Retrieve")->Arguments), ElementsAre("anOrderID:Long"));
}

TEST_F(ClassMembers, AFailureInACommandIsReportedAndTheDialogStays)
{
    Members.Do = [](KZMClass& /*item*/) -> bool { throw RuntimeError(error_number::kSubscript, "x", "Out of range."); };
    form_.actBar_Click("NewMethod");
    ASSERT_EQ(Errors.Reported.size(), 1U);
    EXPECT_EQ(Errors.Reported[0].Place.ModuleName, "frmAddEditClass");
    EXPECT_EQ(Errors.Reported[0].Place.RoutineName, "NewMethod");
    EXPECT_TRUE(form_.cmdCancel_Click());
}

} // namespace
} // namespace veldrane
