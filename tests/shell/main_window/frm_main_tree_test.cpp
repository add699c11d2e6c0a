#include "frm_main_fixture.h"

namespace veldrane {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FrmMainTree : public testing::FrmMainTest
{};

// A node and what a click on it leads to.
struct ClickedNode
{
    std::string_view Key;
    std::string_view FirstLine;
    bool Renames; // whether its state lets the project be renamed
};

TEST_F(FrmMainTree, EveryFixedNodeShowsItsView)
{
    StartOnShop();
    const std::vector<ClickedNode> nodes{
        {tree_key::kRoot, "Project Summary", true},
        {tree_key::kParentClasses, "Parent/Children Classes Summary", false},
        {tree_key::kLookupClasses, "Lookup/Domain Classes Summary", false},
        {tree_key::kAdditionalClasses, "Additional Classes/Collections Summary", false},
        {tree_key::kRequired, "Required Files Summary", false},
        {tree_key::kRequiredProjects, "Required Projects", false},
        {tree_key::kProjectFile, "Required Visual Basic Project: NewProject", false},
        {tree_key::kTestProjectFile, "Required Visual Basic Test Project", false},
        {tree_key::kTestProjectGroup, "Required Visual Basic Test Project Group", false},
        {tree_key::kRequiredModules, "Required Modules:", false},
        {tree_key::kGlobals, "Required: Global Module", false},
        {tree_key::kRequiredClassModules, "Required Classes:", false},
        {tree_key::kWrapper, "Required Wrapper Class: Auto", false},
    };
    for (const ClickedNode& node : nodes) {
        Click(Fixed(node.Key));
        EXPECT_EQ(FirstLine(), node.FirstLine) << node.Key;
        EXPECT_EQ(Form.actBar().IsEnabled("ProjectRename"), node.Renames) << node.Key;
        EXPECT_FALSE(Form.actBar().IsEnabled("DeleteClass")) << node.Key;
    }
    EXPECT_THAT(World.Errors.Reported, IsEmpty());
}

TEST_F(FrmMainTree, AClassAndItsCollectionShowTheirCode)
{
    StartWithCustomer();
    DropRow("Orders", OfClass("Customer"));
    Click(OfClass("Order"));
    EXPECT_EQ(LineAt(1), "Class Name: Order");
    EXPECT_EQ(Form.lstPreview().Title(), "Order");
    EXPECT_TRUE(Form.actBar().IsEnabled("DeleteClass"));
    const std::string collection = Form.Classes().Item("Order")->CollectionName;
    Click({.Kind = NodeKind::Collection, .Key = collection});
    EXPECT_EQ(LineAt(1), "Collection Name: " + collection);
    EXPECT_TRUE(Form.actBar().IsEnabled("DeleteClass"));
}

TEST_F(FrmMainTree, AClassNamedAsAFixedNodeShowsItsOwnCode)
{
    StartWithCustomer();
    const auto item = Form.Classes().Item("Customer");
    item->ClassName = "Root";
    ASSERT_TRUE(Form.Classes().ChangeClassName(item, "Customer", "Root"));
    Click(OfClass("Root"));
    EXPECT_EQ(LineAt(1), "Class Name: Root");
    Click(Fixed(tree_key::kRoot));
    EXPECT_EQ(FirstLine(), "Project Summary");
}

TEST_F(FrmMainTree, ANodeThatIsNotThereIsPassedOver)
{
    StartOnShop();
    Click(Fixed(tree_key::kGlobals));
    const std::size_t beyond = Form.treMain().Nodes().size();
    Form.lstPreview().Clear();
    Form.treMain_NodeClick(beyond);
    Form.treMain_DblClick(beyond);
    EXPECT_FALSE(Form.treMain_AfterLabelEdit(beyond, "Name"));
    EXPECT_FALSE(Form.DraggedFromNode(beyond));
    EXPECT_EQ(SelectedKey(), tree_key::kGlobals);
    EXPECT_EQ(Form.lstPreview().Count(), 0U);
}

TEST_F(FrmMainTree, TheNavigatorLeadsToTheMembersOfTheClass)
{
    StartWithCustomer();
    Click(OfClass("Customer"));
    const auto& entries = Form.cmbNavigate();
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [](const NavigationRow& row) { return row.Caption == "Name (Get)"; });
    ASSERT_NE(found, entries.end());
    Form.cmbNavigate_Click(static_cast<std::size_t>(found - entries.begin()));
    ASSERT_EQ(Form.lstPreview().Selected(), found->Row);
    EXPECT_THAT(LineAt(found->Row), ::testing::HasSubstr("Property Get Name"));
    Form.cmbNavigate_Click(entries.size());
    EXPECT_EQ(Form.lstPreview().Selected(), found->Row);
}

TEST_F(FrmMainTree, TheLabelOfRootIsTheNameOfTheProject)
{
    StartOnShop();
    EXPECT_TRUE(Form.treMain_AfterLabelEdit(Node(Fixed(tree_key::kRoot)), "Shop"));
    EXPECT_EQ(Form.Project().ProjectName(), "Shop");
    EXPECT_EQ(Form.Project().VBProjectName, "NewProject");
    EXPECT_TRUE(Form.Project().Modified());
    EXPECT_EQ(Form.treMain().Nodes().front().Caption, "Shop");
    EXPECT_EQ(Form.Caption(), "Veldrane Professional Edition +Forms - [Shop]");
    EXPECT_EQ(Form.Status().adPanel(), "  Project: Shop");
    EXPECT_TRUE(PreviewHas("Project Name:  Shop"));
}

TEST_F(FrmMainTree, NoOtherLabelCanBeEdited)
{
    StartWithCustomer();
    EXPECT_FALSE(Form.treMain_AfterLabelEdit(Node(OfClass("Customer")), "Client"));
    EXPECT_FALSE(Form.treMain_AfterLabelEdit(Node(Fixed(tree_key::kRequired)), "Files"));
    EXPECT_FALSE(Form.Project().Modified());
}

TEST_F(FrmMainTree, ARenamedClassKeepsItsSubclassesAndItsNodes)
{
    StartWithCustomer();
    DropRow("Orders", OfClass("Customer"));
    const auto item = Form.Classes().Item("Customer");
    item->ClassName = "Client";
    ASSERT_TRUE(Form.Classes().ChangeClassName(item, "Customer", "Client"));
    EXPECT_EQ(Form.Classes().Item("Order")->ParentClassName, "Client");
    EXPECT_EQ(Form.treMain().Nodes().at(Node(OfClass("Client"))).Caption, "Client");
}

TEST_F(FrmMainTree, DeletingAsksOnceAndTakesTheSubclassesToo)
{
    StartWithCustomer();
    DropRow("Orders", OfClass("Customer"));
    Click(OfClass("Customer"));
    World.Messages.Forget();
    World.Messages.Add(Answer::Ok);
    Form.actbar_Click("DeleteClass");
    ASSERT_THAT(Titles(), ElementsAre("Confirm Delete"));
    EXPECT_EQ(World.Messages.Asked()[0].Text,
              "Are you sure you want to delete Customer and the following subclasses?\r\n"
              "Order\r\nThis action cannot be undone.");
    EXPECT_EQ(World.Messages.Asked()[0].Default, Answer::Cancel);
    EXPECT_EQ(Form.Classes().Count(), 0U);
    EXPECT_FALSE(IndexOf(Form.treMain().Nodes(), OfClass("Customer")));
    EXPECT_TRUE(Form.Project().Modified());
}

TEST_F(FrmMainTree, AfterADeletionTheViewIsOfANodeThatIsThere)
{
    StartWithCustomer();
    Click(OfClass("Customer"));
    World.Messages.Add(Answer::Ok);
    Form.actbar_Click("DeleteClass");
    EXPECT_EQ(SelectedKey(), tree_key::kRoot);
    EXPECT_EQ(FirstLine(), "Project Summary");
    EXPECT_FALSE(Form.actBar().IsEnabled("DeleteClass"));
}

TEST_F(FrmMainTree, WhatADeletionTakesIsMarkedWhileItAsks)
{
    StartWithCustomer();
    DropRow("Orders", OfClass("Customer"));
    Click(OfClass("Customer"));
    std::vector<std::vector<std::string>> shown;
    const Connection changes = Form.Changed.Connect([&](WindowPart part) {
        if (part == WindowPart::TreeState)
            shown.push_back(Marked());
    });
    Form.actbar_Click("DeleteClass");
    EXPECT_THAT(shown, Contains(Contains("Order")));
    EXPECT_THAT(shown.back(), IsEmpty());
    EXPECT_EQ(Form.Classes().Count(), 2U);
}

TEST_F(FrmMainTree, ARequiredClassIsNotDeleted)
{
    World.UserSettings.UpdateKey(settings_section::kOptions, "MTSEnabled", "True");
    StartOnShop();
    Click(OfClass("xmlAssist"));
    EXPECT_EQ(FirstLine(), "Required Class: xmlAssist");
    Form.actbar_Click("DeleteClass");
    ASSERT_THAT(Titles(), ElementsAre("Component Services Required Class"));
    EXPECT_EQ(World.Messages.Asked()[0].Text,
              "This class is a required Component Services class and cannot be deleted.");
    EXPECT_EQ(Form.Classes().Count(), 1U);
}

TEST_F(FrmMainTree, AViewThatCanNotBeWrittenIsReportedAndShownAsFarAsItCame)
{
    StartOnShop();
    Form.Project().SetConnectionString("");
    Form.Project().ConnectSameDirectory = true;
    Click(Fixed(tree_key::kWrapper));
    EXPECT_EQ(FirstLine(), "Required Wrapper Class: Auto");
    ASSERT_EQ(World.Errors.Reported.size(), 1U);
    EXPECT_EQ(World.Errors.Reported[0].Place.ModuleName, "Preview");
    EXPECT_EQ(World.Errors.Reported[0].Place.RoutineName, "DisplayPreview");
    Click(Fixed(tree_key::kRoot));
    EXPECT_EQ(FirstLine(), "Project Summary");
}

TEST_F(FrmMainTree, AClickBuildsNothingAnew)
{
    StartWithCustomer();
    std::vector<WindowPart> parts;
    const Connection changes = Form.Changed.Connect([&](WindowPart part) { parts.push_back(part); });
    Click(Fixed(tree_key::kRoot));
    EXPECT_THAT(parts, ElementsAre(WindowPart::TreeState, WindowPart::Menus, WindowPart::Navigator));
}

TEST_F(FrmMainTree, WithoutAPreviewTheNavigatorLeadsNowhere)
{
    StartWithCustomer();
    Click(OfClass("Customer"));
    EXPECT_FALSE(Form.cmbNavigate().empty());
    Form.SetPane(&PaneManagement::pmPreviewVisible, false);
    EXPECT_TRUE(Form.cmbNavigate().empty());
    Click(Fixed(tree_key::kRoot));
    EXPECT_TRUE(Form.cmbNavigate().empty());
    Click(OfClass("Customer"));
    Form.SetPane(&PaneManagement::pmPreviewVisible, true);
    EXPECT_FALSE(Form.cmbNavigate().empty());
}

} // namespace
} // namespace veldrane
