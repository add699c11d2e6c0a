#include "editors/shown_member_dialogs.h"

#include "editors/frm_add_edit_event.h"
#include "editors/frm_add_edit_method.h"
#include "editors/frm_add_edit_property.h"
#include "editors/frm_built_in_events.h"
#include "editors/frm_built_in_methods.h"
#include "editors/frm_built_in_properties.h"
#include "editors/frm_field_properties.h"
#include "editors/frm_pick_sp.h"
#include "member_fixture.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ShownMemberDialogsTest : public testing::MemberTest
{
  protected:
    // A data source that keeps what it is asked.
    std::unique_ptr<Catalog> Source() { return hasSource ? std::make_unique<testing::FakeCatalog>(catalog) : nullptr; }

    std::shared_ptr<TTCMethod> AddProcedureMethod(const std::string& name)
    {
        const auto procedure = std::make_shared<SP>();
        procedure->SPName = "sp_" + name;
        procedure->SPMethodName = name;
        AddOwnMethod(name);
        auto method = item.TTCMethods.Item(item.TTCMethods.Count());
        method->MethodIsSP = true;
        method->StoredProcedure = procedure;
        return method;
    }

    bool hasSource = true;
    int dataTypesChanged = 0;
    ProjectNames names{.Project = project,
                       .Classes = classes,
                       .Messages = messages,
                       .Errors = errors,
                       .CodePage = generation.Settings.CodePage};
    ShownMemberDialogs shown{{.Dialogs = dialogs,
                              .Names = names,
                              .Generated = generated,
                              .UserSettings = settings,
                              .Source = [this] { return Source(); },
                              .DataTypeChanged = [this] { ++dataTypesChanged; }}};
};

TEST_F(ShownMemberDialogsTest, MethodsAreAddedAndEdited)
{
    dialogs.Method = [](frmAddEditMethod& form) {
        EXPECT_EQ(form.Caption(), "Add New Method");
        form.txtMethodName = "Pay";
        return form.cmdOK_Click();
    };
    EXPECT_TRUE(shown.AddMethod(item));
    dialogs.Method = [](frmAddEditMethod& form) {
        EXPECT_EQ(form.Caption(), "Edit Pay Method");
        form.txtMethodName = "PayAll";
        return form.cmdOK_Click();
    };
    EXPECT_TRUE(shown.EditMethod(item, item.TTCMethods.Item("Pay")));
    EXPECT_THAT(MethodNames(), ElementsAre("PayAll"));
}

TEST_F(ShownMemberDialogsTest, ADialogThatIsCancelledChangesNothing)
{
    AddOwnMethod("Pay");
    const std::string before = Saved();
    dialogs.Method = [](frmAddEditMethod& form) {
        form.txtMethodName = "PayAll";
        return false;
    };
    EXPECT_FALSE(shown.EditMethod(item, item.TTCMethods.Item("Pay")));
    EXPECT_EQ(Saved(), before);
}

// A file may hold two members of one name; the second is reached by no key.
TEST_F(ShownMemberDialogsTest, TheSecondOfTwoMethodsOfOneNameIsTheOneThatIsEdited)
{
    AddOwnMethod("Pay");
    const auto second = std::make_shared<TTCMethod>();
    second->MethodName = "Pay";
    second->ReturnDataType = "Long";
    item.TTCMethods.AddExisting(second, "");
    dialogs.Method = [](frmAddEditMethod& form) {
        EXPECT_EQ(form.cmbReturnType, TypeKey("Long"));
        form.txtMethodName = "PayLater";
        return form.cmdOK_Click();
    };
    EXPECT_TRUE(shown.EditMethod(item, second));
    EXPECT_THAT(MethodNames(), ElementsAre("Pay", "PayLater"));
}

TEST_F(ShownMemberDialogsTest, EventsAreAddedAndEdited)
{
    dialogs.Event = [](frmAddEditEvent& form) {
        form.txtEventName = "Paid";
        return form.cmdOK_Click();
    };
    EXPECT_TRUE(shown.AddEvent(item));
    dialogs.Event = [](frmAddEditEvent& form) {
        EXPECT_EQ(form.txtEventName, "Paid");
        form.txtEventName = "Refused";
        return form.cmdOK_Click();
    };
    EXPECT_TRUE(shown.EditEvent(item, item.TTCEvents.Item("Paid")));
    EXPECT_THAT(EventNames(), ElementsAre("Refused"));
}

TEST_F(ShownMemberDialogsTest, PropertiesAreAddedAndEdited)
{
    dialogs.Property = [](frmAddEditProperty& form) {
        EXPECT_EQ(form.Caption(), "Add New Property");
        form.txtPropertyName = "Total";
        return form.cmdOK_Click();
    };
    EXPECT_TRUE(shown.AddProperty(item));
    dialogs.Property = [](frmAddEditProperty& form) {
        EXPECT_EQ(form.Caption(), "Edit Total");
        return form.cmdOK_Click();
    };
    EXPECT_TRUE(shown.EditProperty(item, item.TTCProperties.Item("Total")));
    dialogs.FieldProperties = [](frmFieldProperties& form) {
        EXPECT_EQ(form.txtPropertyName, "Total");
        return form.cmdOK_Click();
    };
    EXPECT_TRUE(shown.FieldProperties(item, item.TTCProperties.Item("Total")));
}

TEST_F(ShownMemberDialogsTest, BuiltInMembersAreAdded)
{
    dialogs.BuiltInMethods = [](frmBuiltInMethods& form) {
        form.lstMethods_ItemCheck({0}, true);
        return form.cmdOK_Click();
    };
    dialogs.BuiltInEvents = [](frmBuiltInEvents& form) { return form.cmdOK_Click(); };
    dialogs.BuiltInProperties = [](frmBuiltInProperties& form) {
        form.lstProperties_ItemCheck({0}, true);
        return form.cmdOK_Click();
    };
    EXPECT_TRUE(shown.AddBuiltInMethods(item));
    EXPECT_TRUE(shown.AddBuiltInEvents(item));
    EXPECT_TRUE(shown.AddBuiltInProperties(item));
    EXPECT_THAT(MethodNames(), ElementsAre("Clone"));
    EXPECT_TRUE(item.TTCProperties.Contains("Modified"));
}

TEST_F(ShownMemberDialogsTest, ProceduresArePickedAndNamed)
{
    catalog.ProcedureNames = {"GetTotals"};
    dialogs.PickSP = [](frmPickSP& form) {
        form.lstSPs_ItemCheck({0}, true);
        return form.cmdOK_Click();
    };
    SPs picked;
    ASSERT_TRUE(shown.PickProcedures(item, picked));
    dialogs.Procedure = [](frmAddEditSP& form) {
        form.txtMethodName = "Totals";
        return form.cmdOK_Click();
    };
    EXPECT_TRUE(shown.AddProcedure(item, picked.Item(1)));
    EXPECT_THAT(MethodNames(), ElementsAre("Totals"));
}

TEST_F(ShownMemberDialogsTest, WithoutADataSourceNoProceduresAreShown)
{
    hasSource = false;
    SPs picked;
    EXPECT_FALSE(shown.PickProcedures(item, picked));
    EXPECT_EQ(errors.Reported.size(), 1U);
}

TEST_F(ShownMemberDialogsTest, TheMethodOfAProcedureIsRenamed)
{
    AddOwnMethod("Totals");
    const auto method = AddProcedureMethod("Sums");
    dialogs.Procedure = [](frmAddEditSP& form) {
        EXPECT_EQ(form.Caption(), "Edit Sums");
        EXPECT_GT(form.Preview().Count(), 0U);
        form.txtMethodName = "totals";
        EXPECT_FALSE(form.cmdOK_Click());
        form.txtMethodName = "AllSums";
        return form.cmdOK_Click();
    };
    EXPECT_TRUE(shown.EditProcedure(item, method));
    EXPECT_THAT(MethodNames(), ElementsAre("Totals", "AllSums"));
    EXPECT_EQ(item.TTCMethods.Item("AllSums")->StoredProcedure->SPName, "sp_Sums");
    EXPECT_FALSE(item.TTCMembers.Contains("Sums"));
}

TEST_F(ShownMemberDialogsTest, AnotherDataTypeOfAFieldIsTold)
{
    item.TTCMembers.Add("Name", "Name");
    const auto property = item.TTCProperties.Add(
        {.AddToClass = true, .FieldName = "Name", .PropertyName = "Name", .DataType = "String", .PropertyGet = true},
        "Name");
    dialogs.FieldProperties = [](frmFieldProperties& form) { return form.cmdOK_Click(); };
    EXPECT_TRUE(shown.FieldProperties(item, property));
    EXPECT_EQ(dataTypesChanged, 0);
    const auto choose = [](frmFieldProperties& form) {
        form.Data.cmbDataType_Click(form.Data.cmbDataType() == 0 ? 1 : 0);
    };
    dialogs.FieldProperties = [&](frmFieldProperties& form) {
        choose(form);
        return false;
    };
    EXPECT_FALSE(shown.FieldProperties(item, property));
    EXPECT_EQ(dataTypesChanged, 0);
    dialogs.FieldProperties = [&](frmFieldProperties& form) {
        choose(form);
        return form.cmdOK_Click();
    };
    EXPECT_TRUE(shown.FieldProperties(item, property));
    EXPECT_EQ(dataTypesChanged, 1);
}

// Nobody waits for a data source that the dialog may never ask.
TEST_F(ShownMemberDialogsTest, AskTheDataSourceNothingBeforeTheirTabs)
{
    testing::Texts asked;
    catalog.Answering = [&](const std::string& call) { asked.push_back(call); };
    AddOwnMethod("Pay");
    dialogs.Method = [](frmAddEditMethod& form) { return form.cmdOK_Click(); };
    EXPECT_TRUE(shown.EditMethod(item, item.TTCMethods.Item("Pay")));
    EXPECT_THAT(asked, IsEmpty());
    dialogs.PickSP = [](frmPickSP&) { return false; };
    SPs picked;
    EXPECT_FALSE(shown.PickProcedures(item, picked));
    EXPECT_THAT(asked, ElementsAre("Procedures", "ProcedureParameters"));
}

} // namespace
} // namespace veldrane
