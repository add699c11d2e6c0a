#include "frm_main_fixture.h"

namespace veldrane {
namespace {

using ::testing::StartsWith;

class FrmMainHistory : public testing::FrmMainTest
{
  protected:
    [[nodiscard]] std::string Caption(std::string_view tool) { return Form.ToolCaption(*FindTool(tool)); }
};

TEST_F(FrmMainHistory, NothingCanBeTakenBackAtFirst)
{
    StartOnShop();
    EXPECT_FALSE(Form.actBar().IsEnabled("Undo"));
    EXPECT_FALSE(Form.actBar().IsEnabled("Redo"));
    EXPECT_EQ(Caption("Undo"), "&Undo");
    EXPECT_EQ(Caption("Save"), "&Save Project");
}

TEST_F(FrmMainHistory, ADeletedClassComesBackWhereItStoodAndGoesAgain)
{
    StartWithCustomer();
    Form.Project().SetModified(false);
    Click({.Kind = NodeKind::Class, .Key = "Customer"});
    World.Messages.Add(Answer::Ok);
    Form.actbar_Click("DeleteClass");
    ASSERT_EQ(Form.Classes().Item("Customer"), nullptr);
    EXPECT_EQ(Caption("Undo"), "&Undo Delete Class Customer");
    EXPECT_TRUE(Form.actBar().IsEnabled("Undo"));
    Form.actbar_Click("Undo");
    EXPECT_NE(Form.Classes().Item("Customer"), nullptr);
    EXPECT_FALSE(Form.Project().Modified());
    EXPECT_EQ(Form.Status().Status(), "Undone: Delete Class Customer");
    EXPECT_EQ(Caption("Undo"), "&Undo Add Class");
    EXPECT_EQ(Caption("Redo"), "&Redo Delete Class Customer");
    Form.actbar_Click("Redo");
    EXPECT_EQ(Form.Classes().Item("Customer"), nullptr);
    EXPECT_TRUE(Form.Project().Modified());
    EXPECT_EQ(Form.Status().Status(), "Done again: Delete Class Customer");
}

TEST_F(FrmMainHistory, ARenamedProjectAndItsPropertiesAreAStepEach)
{
    StartWithCustomer();
    EXPECT_TRUE(Form.treMain_AfterLabelEdit(0, "Corner"));
    Windows.InProperties = [](frmProjectProperties& properties) {
        properties.Text_Change("txtAuthor", "Ann");
        properties.Check_Click("chkMTS", true);
        return properties.cmdOK_Click();
    };
    Form.actbar_Click("ProjectProperties");
    EXPECT_EQ(Caption("Undo"), "&Undo Project Properties");
    Form.actbar_Click("Undo");
    EXPECT_EQ(Form.Project().Author, "");
    EXPECT_EQ(Form.Classes().Item("xmlAssist"), nullptr);
    EXPECT_EQ(Caption("Undo"), "&Undo Rename Project");
    Form.actbar_Click("Undo");
    EXPECT_THAT(Form.treMain().Nodes().front().Caption, ::testing::Not(StartsWith("Corner")));
}

TEST_F(FrmMainHistory, AnotherProjectHasAHistoryOfItsOwn)
{
    StartWithCustomer();
    EXPECT_TRUE(Form.treMain_AfterLabelEdit(0, "Corner"));
    World.Messages.Add(Answer::No);
    Form.actbar_Click("New");
    EXPECT_FALSE(Form.actBar().IsEnabled("Undo"));
}

} // namespace
} // namespace veldrane
