#include "shell/desktop/editors/procedure_method_dialog.h"

#include "editors/member_preview.h"
#include "member_dialog_fixture.h"

namespace veldrane::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class TheProcedureMethodWindow : public MemberDialogTest
{
  protected:
    TheProcedureMethodWindow()
    {
        procedure->SPName = "GetOrders;1";
        procedure->SPMethodName = "GetOrders";
        procedure->SPParameters.Add("@CustomerID", "int", 3, "@CustomerID")->Direction = parameter_direction::kInput;
    }

    frmAddEditSP& Rules(ProcedureMode mode, const std::string& key = "")
    {
        return form.emplace(
            ProcedureEdit{.Mode = mode,
                          .Procedure = procedure,
                          .Class = item,
                          .Key = key,
                          .Messages = messages,
                          .Errors = errors,
                          .CodePage = edit.CodePage,
                          .Preview = [this](const SP& called) { return ProcedurePreview(generated, item, called); }});
    }

    QWidget& Show(ProcedureMode mode, const std::string& key = "")
    {
        return Open<ProcedureMethodDialog>(Rules(mode, key));
    }

    std::shared_ptr<SP> procedure = std::make_shared<SP>();
    std::optional<frmAddEditSP> form;
};

TEST_F(TheProcedureMethodWindow, AddsTheMethodByTheKeyboardAlone)
{
    QWidget& dialog = Show(ProcedureMode::Add);
    EXPECT_EQ(dialog.windowTitle(), u"Add New Stored Procedure: GetOrders"_s);
    EXPECT_THAT(TabOrder(), ElementsAre("txtMethodName", "lstParameters", "lstPreview", "cmdOK", "cmdCancel"));
    EXPECT_THAT(Rows(dialog, "lstParameters"), ElementsAre("@CustomerID|Input|int"));
    Write("FetchOrders");
    EXPECT_THAT(Code(dialog), HasSubstr("Public Function FetchOrders(ByVal CustomerID as Long, "));
    Photograph(dialog, "frmAddEditSP");
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsClosedBy(QDialog::Accepted));
    EXPECT_EQ(MethodNames(), Texts{"FetchOrders"});
    EXPECT_TRUE(item.TTCMethods.Item("FetchOrders")->MethodIsSP);
}

TEST_F(TheProcedureMethodWindow, ANameThatIsTakenKeepsIt)
{
    AddOwnMethod("Pay");
    const std::string before = Saved();
    QWidget& dialog = Show(ProcedureMode::Add);
    Type(dialog, "txtMethodName", "PAY");
    EXPECT_EQ(TroubleIn(dialog, "lblMethodNameTrouble"), form->Trouble("txtMethodName"));
    EXPECT_NE(TroubleIn(dialog, "lblMethodNameTrouble"), "");
    Click(dialog, "cmdOK");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Told(), Texts{form->Trouble("txtMethodName")});
    EXPECT_EQ(Focused(), "txtMethodName");
    EXPECT_EQ(TextOf(dialog, "txtMethodName"), "PAY");
    EXPECT_EQ(Saved(), before);
    Write("Fetch");
    EXPECT_EQ(TroubleIn(dialog, "lblMethodNameTrouble"), "");
    Click(dialog, "cmdCancel");
    EXPECT_TRUE(IsClosedBy(QDialog::Rejected));
    EXPECT_EQ(Saved(), before);
}

TEST_F(TheProcedureMethodWindow, RenamesTheMethod)
{
    ASSERT_TRUE(Rules(ProcedureMode::Add).cmdOK_Click());
    QWidget& dialog = Show(ProcedureMode::Edit, "GetOrders");
    EXPECT_EQ(dialog.windowTitle(), u"Edit GetOrders"_s);
    Type(dialog, "txtMethodName", "Fetch");
    Click(dialog, "cmdOK");
    EXPECT_EQ(MethodNames(), Texts{"Fetch"});
}

TEST_F(TheProcedureMethodWindow, IsShownByTheEditors)
{
    WithDialogs([&] { EXPECT_TRUE(shown.Show(Rules(ProcedureMode::Add))); },
                {[](QWidget& dialog) { Click(dialog, "cmdOK"); }});
    EXPECT_EQ(MethodNames(), Texts{"GetOrders"});
}

} // namespace
} // namespace veldrane::testing
