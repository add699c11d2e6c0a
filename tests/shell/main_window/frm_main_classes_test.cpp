#include "frm_main_fixture.h"

namespace veldrane {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The main window and the editor of classes over it.
class FrmMainClasses : public testing::FrmMainTest
{
  protected:
    FrmMainClasses()
    {
        Windows.ClassEditors.Class = [this](frmAddEditClass& form) {
            shape_ = World.Pointer.Current;
            status_ = Form.Status().Status();
            return inEditor_ ? inEditor_(form) : form.cmdOK_Click();
        };
    }

    std::function<bool(frmAddEditClass&)> inEditor_;
    PointerShape shape_ = PointerShape::Hourglass;
    std::string status_;
};

TEST_F(FrmMainClasses, ANewClassIsMadeInTheEditorAndSelected)
{
    StartOnShop();
    Form.actbar_Click("NewClass");
    EXPECT_THAT(Windows.ClassEditors.Opened, ElementsAre("Add New Class"));
    ASSERT_NE(Form.Classes().Item("NewClass"), nullptr);
    EXPECT_EQ(Form.Classes().Item("NewClass")->ParentClassName, "");
    EXPECT_EQ(SelectedKey(), "NewClass");
    EXPECT_TRUE(Form.Project().Modified());
}

TEST_F(FrmMainClasses, ANewClassStandsBesideTheSelectedOne)
{
    StartWithCustomer();
    DropRow("Orders", OfClass("Customer"));
    Click(OfClass("Order"));
    std::string parent;
    inEditor_ = [&](frmAddEditClass& form) {
        parent = form.txtParentClassName();
        return false;
    };
    Form.actbar_Click("NewClass");
    EXPECT_EQ(parent, "Customer");
    EXPECT_EQ(Form.Classes().Item("NewClass"), nullptr);
}

TEST_F(FrmMainClasses, ADoubleClickOnAClassEditsIt)
{
    StartWithCustomer();
    Form.treMain_DblClick(Node(OfClass("Customer")));
    EXPECT_THAT(Windows.ClassEditors.Opened, Contains("Edit Customer"));
    EXPECT_TRUE(Form.Project().Modified());
}

TEST_F(FrmMainClasses, ARenamedClassKeepsItsChildrenAndIsSelected)
{
    StartWithCustomer();
    DropRow("Orders", OfClass("Customer"));
    Click(OfClass("Customer"));
    inEditor_ = [&](frmAddEditClass& form) {
        form.txtClassName_Change("Client");
        return form.cmdOK_Click();
    };
    Form.actbar_Click("EditClass");
    EXPECT_EQ(SelectedKey(), "Client");
    EXPECT_EQ(Form.Classes().Item("Order")->ParentClassName, "Client");
    EXPECT_EQ(LineAt(1), "Class Name: Client");
}

TEST_F(FrmMainClasses, ACancelledEditorLeavesTheProjectAsItWas)
{
    StartWithCustomer();
    inEditor_ = [&](frmAddEditClass& form) {
        form.txtClassName_Change("Client");
        return false;
    };
    Click(OfClass("Customer"));
    Form.actbar_Click("EditClass");
    EXPECT_EQ(SelectedKey(), "Customer");
    EXPECT_FALSE(Form.Project().Modified());
}

TEST_F(FrmMainClasses, ARequiredClassIsNotEdited)
{
    StartWithCustomer();
    Form.Classes().Item("Customer")->IsMTSRequiredClass = true;
    Windows.ClassEditors.Opened.clear();
    Form.actbar_Click("EditClass");
    EXPECT_THAT(Windows.ClassEditors.Opened, IsEmpty());
    EXPECT_THAT(Titles(), ElementsAre("Component Services Required Class"));
}

TEST_F(FrmMainClasses, NothingIsReadWhileTheEditorStandsOpen)
{
    StartOnShop();
    DropRow("Customers", Fixed(tree_key::kParentClasses));
    EXPECT_EQ(shape_, PointerShape::Default);
    EXPECT_EQ(status_, "Ready...");
    Reading.Read(1); // outside of a session nothing is cancelled
    Reading.Cancel();
    EXPECT_NO_THROW(Reading.Read(2));
}

TEST_F(FrmMainClasses, EachReadingHasItsHourglassAndCanBeCancelled)
{
    StartWithCustomer();
    std::vector<PointerShape> shapes;
    Database().Answering = [&](const std::string& /*call*/) { shapes.push_back(World.Pointer.Current); };
    inEditor_ = [&](frmAddEditClass& form) {
        form.actBar_Click("GetNewFields");
        CancelIn("Fields");
        return form.cmdOK_Click();
    };
    Form.treMain_DblClick(Node(OfClass("Customer")));
    EXPECT_FALSE(shapes.empty());
    EXPECT_THAT(shapes, Each(PointerShape::Hourglass));
    EXPECT_EQ(World.Pointer.Current, PointerShape::Default);
}

TEST_F(FrmMainClasses, AReadingCancelledWhileAClassIsOpenedOpensNoEditor)
{
    StartWithCustomer();
    Windows.ClassEditors.Opened.clear();
    CancelIn("Fields");
    Form.treMain_DblClick(Node(OfClass("Customer")));
    EXPECT_THAT(Windows.ClassEditors.Opened, IsEmpty());
    EXPECT_EQ(Form.Status().Status(), "The reading was cancelled: nothing has changed.");
    EXPECT_FALSE(Form.Project().Modified());
}

TEST_F(FrmMainClasses, TheProjectIsAutosavedWhileTheEditorStandsOpen)
{
    StartWithCustomer();
    Form.Project().AutosaveProject = true;
    Form.Project().AutosaveProjectInterval = 1;
    Form.Project().SetModified(true);
    const int before = World.Recovery.Made;
    inEditor_ = [&](frmAddEditClass& /*form*/) {
        Form.tmrAutosave_Timer();
        Form.tmrAutosave_Timer();
        return false;
    };
    Form.treMain_DblClick(Node(OfClass("Customer")));
    EXPECT_EQ(World.Recovery.Made, before + 1);
}

TEST_F(FrmMainClasses, WhatIsMissingBelowIsToldAfterAnEdit)
{
    StartWithCustomer();
    DropRow("Orders", OfClass("Customer"));
    Form.Classes().Item("Order")->TTCMethods.Remove("Clone");
    Click(OfClass("Customer"));
    World.Messages.Forget();
    Form.actbar_Click("EditClass");
    EXPECT_THAT(Titles(), ElementsAre("Modifications Are Needed"));
}

} // namespace
} // namespace veldrane
