#include "shell/main_window/project_tree.h"

#include "model/xml_assist.h"
#include "preview/tree_node.h"
#include "project_fixture.h"

#include <gmock/gmock.h>

#include <set>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TreeText;

class ProjectTreeOf : public testing::ProjectFixture
{
  protected:
    // The nodes of the classes: those behind the fixed ones.
    [[nodiscard]] std::string ClassNodes() const { return TreeText(Tree(), FixedNodes().size()); }

    // "Parent>Class" in the order of the tree.
    [[nodiscard]] std::vector<std::string> Links() const
    {
        const ProjectTree tree = Tree();
        std::vector<std::string> links;
        for (std::size_t i = FixedNodes().size(); i < tree.size(); ++i)
            links.push_back(tree.at(*tree[i].Parent).Id.Key + ">" + tree[i].Id.Key);
        return links;
    }

    [[nodiscard]] std::vector<std::string> Order() const
    {
        std::vector<std::string> names;
        for (const KZMClass* item : ParentsFirst(Classes))
            names.push_back(item->ClassName);
        return names;
    }
};

TEST_F(ProjectTreeOf, AProjectWithoutClassesHasAllFixedNodes)
{
    EXPECT_EQ(TreeText(Tree()), "Shop | Root | Root | Root\n"
                                "  Parent/Children Classes | KZMParent | KZMParent | ParentChild\n"
                                "  Lookup/Domain Classes | TypeOf | TypeOf | Lookup\n"
                                "  Additional Collections/Classes | Class | TypeOf | Class\n"
                                "  Required Files | KZMRequired | KZMRequired | Project\n"
                                "    Projects | KZMRequiredProjects | KZMRequiredProjects | ClosedFolder/OpenFolder\n"
                                "      ShopObject.vbp | VBProjectFile | VBProjectFile | Root\n"
                                "      TestShopObject.vbp | VBProjectTestFile | VBProjectTestFile | Root\n"
                                "      TestShopObject.vbg | VBProjectGroupFile | VBProjectGroupFile | Root\n"
                                "    Modules | KZMRequiredModules | KZMRequiredModules | ClosedFolder/OpenFolder\n"
                                "      Globals (basGlobals.bas) | KZMGlobals | KZMGlobals | Module\n"
                                "    Class Modules | KZMRequiredClassModules | KZMRequiredClassModules | "
                                "ClosedFolder/OpenFolder\n"
                                "      Auto (clsAuto.cls) | KZMWRAPPER | KZMWRAPPER | Class\n");
}

TEST_F(ProjectTreeOf, ANewProjectNamesTheAdditionalClassesTheOtherWayRound)
{
    const ProjectTree tree = BuildNewProjectTree(Project, Classes);
    EXPECT_EQ(tree.size(), FixedNodes().size());
    EXPECT_EQ(tree.at(3).Caption, "Additional Classes/Collections");
    EXPECT_EQ(Tree().at(3).Caption, "Additional Collections/Classes");
}

TEST_F(ProjectTreeOf, AProjectWithoutANameIsCalledNewProject)
{
    Project.SetProjectName("");
    EXPECT_EQ(Tree().front().Caption, "New Project");
}

TEST_F(ProjectTreeOf, ARequiredClassStandsAmongTheClassModules)
{
    ASSERT_TRUE(AddXmlAssist(Project, Classes));
    EXPECT_EQ(ClassNodes(), "      xmlAssist | xmlAssist | Class | Class\n");
    EXPECT_THAT(Links(), ElementsAre("KZMRequiredClassModules>xmlAssist"));
}

TEST_F(ProjectTreeOf, ATableClassWithoutAParentStandsAmongTheParentClassesUnderItsCollection)
{
    AddClass({.Name = "Customer", .Table = "Customers", .Collection = "Customers"});
    AddClass({.Name = "Order", .Table = "Orders"});
    EXPECT_EQ(ClassNodes(), "    Customers | Customers | TableCollection | Collection\n"
                            "      Customer | Customer | Table | TableClass\n"
                            "    Order | Order | Table | TableClass\n");
    EXPECT_THAT(Links(), ElementsAre("KZMParent>Customers", "Customers>Customer", "KZMParent>Order"));
}

TEST_F(ProjectTreeOf, ALookupClassStandsAmongTheLookupClassesWhateverItsTableAndParent)
{
    AddClass({.Name = "Country", .Table = "Countries", .Collection = "Countries", .IsDomain = true});
    AddClass({.Name = "Unit", .Table = "", .IsDomain = true});
    AddClass({.Name = "Title", .Table = "Titles", .Parent = "Country", .IsDomain = true});
    EXPECT_EQ(ClassNodes(), "    Countries | Countries | DomainCollection | Collection\n"
                            "      Country | Country | Domain | TableClass\n"
                            "    Unit | Unit | Domain | TableClass\n"
                            "    Title | Title | Domain | TableClass\n");
    EXPECT_THAT(Links(), ElementsAre("TypeOf>Countries", "Countries>Country", "TypeOf>Unit", "TypeOf>Title"));
}

TEST_F(ProjectTreeOf, AClassWithoutATableAndAParentStandsAmongTheAdditionalClasses)
{
    AddClass({.Name = "Basket", .Table = "", .Collection = "Baskets"});
    AddClass({.Name = "Clerk", .Table = ""});
    EXPECT_EQ(ClassNodes(), "    Baskets | Baskets | ClassCollection | Collection\n"
                            "      Basket | Basket | Class | Class\n"
                            "    Clerk | Clerk | Class | Class\n");
    EXPECT_THAT(Links(), ElementsAre("Class>Baskets", "Baskets>Basket", "Class>Clerk"));
}

TEST_F(ProjectTreeOf, AClassWithAParentStandsUnderTheParentsClassNode)
{
    AddClass({.Name = "Customer", .Table = "Customers", .Collection = "Customers"});
    AddClass({.Name = "Order", .Table = "Orders", .Parent = "customer", .Collection = "Orders"});
    AddClass({.Name = "Note", .Table = "", .Parent = "Order", .Collection = "Notes"});
    AddClass({.Name = "Stamp", .Table = "", .Parent = "Order"});
    EXPECT_EQ(ClassNodes(), "    Customers | Customers | TableCollection | Collection\n"
                            "      Customer | Customer | Table | TableClass\n"
                            "        Orders | Orders | TableCollection | Collection\n"
                            "          Order | Order | Table | TableClass\n"
                            "            Notes | Notes | ClassCollection | Collection\n"
                            "              Note | Note | Class | Class\n"
                            "            Stamp | Stamp | Class | Class\n");
}

TEST_F(ProjectTreeOf, AClassNodeKnowsItsClassAndSoDoesItsCollections)
{
    AddClass({.Name = "Customer", .Table = "Customers", .Collection = "Clients"});
    const ProjectTree tree = Tree();
    EXPECT_EQ(tree.at(*IndexOf(tree, {NodeKind::Collection, "Clients"})).ClassName, "Customer");
    EXPECT_EQ(tree.at(*IndexOf(tree, {NodeKind::Class, "Customer"})).ClassName, "Customer");
    EXPECT_EQ(tree.at(*IndexOf(tree, {NodeKind::Fixed, "KZMParent"})).ClassName, "");
}

TEST_F(ProjectTreeOf, AClassMayBeCalledAsAFixedNodeOrAsACollectionIs)
{
    AddClass({.Name = "Root", .Table = "Root", .Collection = "Class"});
    AddClass({.Name = "KZMParent", .Table = "", .Parent = "Root"});
    EXPECT_THAT(Links(), ElementsAre("KZMParent>Class", "Class>Root", "Root>KZMParent"));
    const ProjectTree tree = Tree();
    const std::size_t fixed = FixedNodes().size();
    EXPECT_EQ(IndexOf(tree, {NodeKind::Fixed, "Root"}), 0U);
    EXPECT_EQ(IndexOf(tree, {NodeKind::Collection, "Class"}), fixed);
    EXPECT_EQ(IndexOf(tree, {NodeKind::Class, "Root"}), fixed + 1);
    EXPECT_EQ(IndexOf(tree, {NodeKind::Class, "Class"}), std::nullopt);
}

TEST_F(ProjectTreeOf, ClassesAreSortedSoThatAParentPrecedesItsChildren)
{
    AddClass({.Name = "Line", .Table = "Lines", .Parent = "Order"});
    AddClass({.Name = "Order", .Table = "Orders", .Parent = "Customer"});
    AddClass({.Name = "Address", .Table = "Addresses", .Parent = "Customer"});
    AddClass({.Name = "Customer", .Table = "Customers"});
    AddClass({.Name = "Product", .Table = "Products"});
    EXPECT_THAT(Order(), ElementsAre("Customer", "Product", "Order", "Address", "Line"));
    EXPECT_THAT(Links(), ElementsAre("KZMParent>Customer", "KZMParent>Product", "Customer>Order", "Customer>Address",
                                     "Order>Line"));
}

TEST_F(ProjectTreeOf, SortingLeavesTheClassesOfTheProjectAsTheyStand)
{
    AddClass({.Name = "Order", .Table = "Orders", .Parent = "Customer"});
    AddClass({.Name = "Customer", .Table = "Customers"});
    EXPECT_EQ(Tree().size(), FixedNodes().size() + 2);
    EXPECT_EQ(Classes.Item(std::size_t{1})->ClassName, "Order");
}

TEST_F(ProjectTreeOf, AClassWhoseParentIsMissingStandsInItsGroupWithItsChildrenUnderIt)
{
    AddClass({.Name = "Line", .Table = "Lines", .Parent = "Order"});
    AddClass({.Name = "Order", .Table = "Orders", .Parent = "Customer"});
    AddClass({.Name = "Note", .Table = "", .Parent = "Letter"});
    AddClass({.Name = "Product", .Table = "Products"});
    EXPECT_THAT(Order(), ElementsAre("Product", "Order", "Note", "Line"));
    EXPECT_THAT(Links(), ElementsAre("KZMParent>Product", "KZMParent>Order", "Class>Note", "Order>Line"));
}

TEST_F(ProjectTreeOf, ARingOfParentsStandsUnderItsFirstClass)
{
    AddClass({.Name = "Own", .Table = "Own", .Parent = "Own"});
    AddClass({.Name = "A", .Table = "A", .Parent = "C"});
    AddClass({.Name = "B", .Table = "B", .Parent = "A"});
    AddClass({.Name = "C", .Table = "C", .Parent = "B"});
    EXPECT_THAT(Links(), ElementsAre("KZMParent>Own", "KZMParent>A", "A>B", "B>C"));
}

TEST_F(ProjectTreeOf, EveryClassOfATangledProjectAppearsOnce)
{
    for (int i = 0; i < 60; ++i)
        AddClass({.Name = "C" + std::to_string(i),
                  .Table = i % 3 == 0 ? "" : "T",
                  .Parent = "C" + std::to_string((i * 7 + 5) % 80)});
    const ProjectTree tree = Tree();
    std::multiset<std::string> names;
    for (std::size_t i = FixedNodes().size(); i < tree.size(); ++i) {
        names.insert(tree[i].Id.Key);
        EXPECT_LT(*tree[i].Parent, i);
    }
    EXPECT_EQ(names.size(), 60U);
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), 60U);
}

TEST_F(ProjectTreeOf, EveryNodeHasAPreviewOfItsOwn)
{
    AddClass({.Name = "TypeOf", .Table = "T", .Collection = "Root"});
    AddClass({.Name = "Class", .Table = "", .Collection = "KZMParent"});
    AddClass({.Name = "Unit", .Table = "Units", .Collection = "Table", .IsDomain = true});
    std::set<std::pair<int, const KZMClass*>> shown;
    const ProjectTree tree = Tree();
    for (const TreeNode& node : tree) {
        const auto preview = NodeOfTree(node.Tag, node.Id.Key, Classes);
        ASSERT_TRUE(preview) << node.Caption;
        shown.emplace(static_cast<int>(preview->Type), preview->Class);
    }
    EXPECT_EQ(shown.size(), tree.size());
}

TEST_F(ProjectTreeOf, NodesBelowANodeAreAllItsDescendants)
{
    AddClass({.Name = "Customer", .Table = "Customers", .Collection = "Customers"});
    AddClass({.Name = "Product", .Table = "Products"});
    AddClass({.Name = "Order", .Table = "Orders", .Parent = "Customer"});
    const ProjectTree tree = Tree();
    std::vector<std::string> keys;
    for (const std::size_t index : NodesBelow(tree, *IndexOf(tree, {NodeKind::Collection, "Customers"})))
        keys.push_back(tree.at(index).Id.Key);
    EXPECT_THAT(keys, ElementsAre("Customer", "Order"));
    EXPECT_THAT(NodesBelow(tree, *IndexOf(tree, {NodeKind::Class, "Product"})), IsEmpty());
    EXPECT_EQ(NodesBelow(tree, 0).size(), tree.size() - 1);
}

} // namespace
} // namespace veldrane
