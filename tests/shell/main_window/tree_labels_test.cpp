#include "shell/main_window/tree_labels.h"

#include "project_fixture.h"
#include "shell/main_window/class_renamed.h"

namespace veldrane {
namespace {

class TreeLabels : public testing::ProjectFixture
{
  protected:
    [[nodiscard]] std::string ParentFor(NodeKind kind, const std::string& key) const
    {
        const ProjectTree tree = Tree();
        return ParentForNewClass(tree, *IndexOf(tree, {.Kind = kind, .Key = key}));
    }
};

TEST_F(TreeLabels, RenamingRootRenamesTheProjectButNotItsVisualBasicProject)
{
    EXPECT_TRUE(AfterLabelEdit(Tree().front(), "Store", Project));
    EXPECT_EQ(Project.ProjectName(), "Store");
    EXPECT_EQ(Project.VBProjectName, "ShopObject");
    EXPECT_TRUE(Project.Modified());
}

TEST_F(TreeLabels, TheSameNameChangesNothing)
{
    EXPECT_TRUE(AfterLabelEdit(Tree().front(), "Shop", Project));
    EXPECT_FALSE(Project.Modified());
}

TEST_F(TreeLabels, AProjectKeepsItsNameWhenNothingIsTyped)
{
    EXPECT_FALSE(AfterLabelEdit(Tree().front(), "", Project));
    EXPECT_FALSE(AfterLabelEdit(Tree().front(), "  ", Project));
    EXPECT_EQ(Project.ProjectName(), "Shop");
}

TEST_F(TreeLabels, NoOtherLabelChanges)
{
    AddClass({.Name = "Root", .Table = "Roots"});
    const ProjectTree tree = Tree();
    const TreeNode& item = tree.at(*IndexOf(tree, {NodeKind::Class, "Root"}));
    EXPECT_TRUE(CanEditLabel(tree.front()));
    EXPECT_FALSE(CanEditLabel(item));
    EXPECT_FALSE(CanEditLabel(tree.at(1)));
    EXPECT_FALSE(AfterLabelEdit(item, "Store", Project));
    EXPECT_EQ(Project.ProjectName(), "Shop");
}

TEST_F(TreeLabels, TheWindowTellsTheProjectsName)
{
    EXPECT_EQ(WindowCaption("Veldrane", "Shop"), "Veldrane - [Shop]");
}

TEST_F(TreeLabels, TheParentOfANewClassComesFromTheSelection)
{
    AddClass({.Name = "Customer", .Table = "Customers", .Collection = "Customers"});
    AddClass({.Name = "Order", .Table = "Orders", .Parent = "Customer"});
    AddClass({.Name = "Product", .Table = "Products"});
    EXPECT_EQ(ParentFor(NodeKind::Fixed, "KZMParent"), "n/a");
    EXPECT_EQ(ParentFor(NodeKind::Fixed, "Class"), "n/a");
    EXPECT_EQ(ParentFor(NodeKind::Fixed, "KZMRequired"), "n/a");
    EXPECT_EQ(ParentFor(NodeKind::Fixed, "Root"), "Root");
    EXPECT_EQ(ParentFor(NodeKind::Class, "Order"), "Customer");
    EXPECT_EQ(ParentFor(NodeKind::Class, "Customer"), "Customers");
    EXPECT_EQ(ParentFor(NodeKind::Class, "Product"), "KZMParent");
    EXPECT_EQ(ParentFor(NodeKind::Fixed, "KZMGlobals"), "KZMRequiredModules");
}

TEST_F(TreeLabels, ARenamedClassKeepsItsSubclassesAndItsPlace)
{
    AddClass({.Name = "Customer", .Table = "Customers", .Collection = "Customers"});
    AddClass({.Name = "Order", .Table = "Orders", .Parent = "customer"});
    AddClass({.Name = "Product", .Table = "Products"});
    TreeState tree;
    tree.Rebuild([this] { return Tree(); });
    tree.Reveal({NodeKind::Class, "Order"});
    const Connection connection =
        Classes.ClassNameChanged.Connect([&](const std::string& oldName, const std::string& newName) {
            FollowRenamedClass(oldName, newName, Classes, tree);
        });
    const auto customer = Classes.Item("Customer");
    customer->ClassName = "Client";
    ASSERT_TRUE(Classes.ChangeClassName(customer, "Customer", "Client"));
    EXPECT_EQ(Classes.Item("Order")->ParentClassName, "Client");
    EXPECT_EQ(Classes.Item("Product")->ParentClassName, "");
    EXPECT_EQ(IndexOf(tree.Nodes(), {NodeKind::Class, "Customer"}), std::nullopt);
    const TreeNode& renamed = tree.Nodes().at(*IndexOf(tree.Nodes(), {NodeKind::Class, "Client"}));
    EXPECT_EQ(renamed.Caption, "Client");
    EXPECT_EQ(renamed.ClassName, "Client");
    EXPECT_EQ(tree.Nodes().at(*renamed.Parent).ClassName, "Client");
    EXPECT_EQ(tree.SelectedNode()->Caption, "Order");
}

} // namespace
} // namespace veldrane
