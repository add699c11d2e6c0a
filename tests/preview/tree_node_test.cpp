#include "preview/tree_node.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace veldrane {
namespace {

class TreeNode : public ::testing::Test
{
  protected:
    KZMClass* AddClass(const std::string& name, const std::string& collection = "")
    {
        const auto item = std::make_shared<KZMClass>();
        item->ClassName = name;
        item->CollectionName = collection;
        item->CreateCollection = !collection.empty();
        classes.AddExisting(item, name);
        return item.get();
    }

    void Names(std::string_view name, NodeType type, const KZMClass* item = nullptr)
    {
        const auto node = FindNode(name, classes);
        ASSERT_TRUE(node.has_value()) << name;
        EXPECT_EQ(node->Type, type) << name;
        EXPECT_EQ(node->Class, item) << name;
    }

    KZMClasses classes;
};

TEST_F(TreeNode, ShowsWhatItsTagSays)
{
    KZMClass* const order = AddClass("Order", "Orders");
    struct Case
    {
        std::string_view Tag;
        std::string_view Key;
        int Number;
        KZMClass* Class = nullptr;
    };
    for (const Case& one : {
             Case{"Root", "Root", 0},
             Case{"KZMParent", "KZMParent", 1},
             Case{"TypeOf", "TypeOf", 2},
             Case{"TypeOf", "Class", 3},
             Case{"Class", "Order", 4, order},
             Case{"Table", "Order", 4, order},
             Case{"Domain", "Order", 4, order},
             Case{"ClassCollection", "Orders", 5, order},
             Case{"TableCollection", "Orders", 5, order},
             Case{"DomainCollection", "Orders", 5, order},
             Case{"KZMRequired", "KZMRequired", 6},
             Case{"KZMRequiredModules", "KZMRequiredModules", 7},
             Case{"KZMRequiredClassModules", "KZMRequiredClassModules", 8},
             Case{"KZMRequiredProjects", "KZMRequiredProjects", 9},
             Case{"KZMGlobals", "KZMGlobals", 10},
             Case{"KZMWRAPPER", "KZMWRAPPER", 11},
             Case{"VBProjectFile", "VBProjectFile", 12},
             Case{"VBProjectTestFile", "VBProjectTestFile", 13},
             Case{"VBProjectGroupFile", "VBProjectGroupFile", 14},
         }) {
        const auto node = NodeOfTree(one.Tag, one.Key, classes);
        ASSERT_TRUE(node.has_value()) << one.Tag << ' ' << one.Key;
        EXPECT_EQ(static_cast<int>(node->Type), one.Number) << one.Tag << ' ' << one.Key;
        EXPECT_EQ(node->Class, one.Class) << one.Tag << ' ' << one.Key;
    }
}

TEST_F(TreeNode, ShowsNothingUnderATagOfNoView)
{
    AddClass("Order");
    EXPECT_FALSE(NodeOfTree("", "Root", classes).has_value());
    EXPECT_FALSE(NodeOfTree("root", "Root", classes).has_value());
    EXPECT_FALSE(NodeOfTree("MTSRoot", "MTSRoot", classes).has_value());
    EXPECT_FALSE(NodeOfTree("TypeOf", "Order", classes).has_value());
}

TEST_F(TreeNode, ShowsNothingOfAClassThatIsGone)
{
    AddClass("Order");
    EXPECT_FALSE(NodeOfTree("Table", "Customer", classes).has_value());
    EXPECT_FALSE(NodeOfTree("TableCollection", "Orders", classes).has_value());
    EXPECT_FALSE(NodeOfTree("Table", "", classes).has_value());
}

TEST_F(TreeNode, IsNamedByItsClassOrItsCollectionWithoutRegardToCase)
{
    const KZMClass* const order = AddClass("Ärztin", "Ärzte");
    Names("Ärztin", NodeType::Class, order);
    Names("äRZTIN", NodeType::Class, order);
    Names("ÄRZTE", NodeType::Collection, order);
}

TEST_F(TreeNode, OfACollectionIsThereOnlyIfItIsMade)
{
    AddClass("Order", "Orders")->CreateCollection = false;
    EXPECT_FALSE(FindNode("Orders", classes).has_value());
}

TEST_F(TreeNode, OfAClassComesBeforeACollectionAndBothBeforeTheKeysOfEveryTree)
{
    AddClass("Order", "News");
    const KZMClass* const news = AddClass("News", "Root");
    Names("news", NodeType::Class, news);
    Names("root", NodeType::Collection, news);
    const KZMClass* const root = AddClass("Root");
    Names("root", NodeType::Class, root);
}

TEST_F(TreeNode, OfEveryTreeIsNamedByItsKeyWithoutRegardToCase)
{
    Names("Root", NodeType::ProjectSummary);
    Names("kzmparent", NodeType::ParentClasses);
    Names("TYPEOF", NodeType::LookupClasses);
    Names("class", NodeType::AdditionalClasses);
    Names("KZMRequired", NodeType::RequiredFiles);
    Names("KZMRequiredProjects", NodeType::RequiredProjects);
    Names("vbprojectfile", NodeType::ProjectFile);
    Names("VBProjectTestFile", NodeType::TestProjectFile);
    Names("VBProjectGroupFile", NodeType::TestProjectGroup);
    Names("KZMRequiredModules", NodeType::RequiredModules);
    Names("KZMGlobals", NodeType::GlobalsModule);
    Names("KZMRequiredClassModules", NodeType::RequiredClasses);
    Names("KZMWrapper", NodeType::WrapperClass);
}

TEST_F(TreeNode, IsNotThereUnderAnyOtherName)
{
    AddClass("Order", "Orders");
    for (const char* name : {"", "Customer", "Table", "Root ", "\xFF"})
        EXPECT_FALSE(FindNode(name, classes).has_value()) << name;
}

TEST_F(TreeNode, OfEveryTreeIsListedInTheTreesOrderWithWhatItShows)
{
    const std::vector<FixedNode> nodes = FixedNodes();
    std::string keys;
    for (const FixedNode& node : nodes) {
        keys.append(node.Key).append(" ");
        EXPECT_NE(node.Shows, "") << node.Key;
    }
    EXPECT_EQ(keys, "Root KZMParent TypeOf Class KZMRequired KZMRequiredProjects VBProjectFile VBProjectTestFile VBProjectGroupFile "
                    "KZMRequiredModules KZMGlobals KZMRequiredClassModules KZMWRAPPER ");
}

} // namespace
} // namespace veldrane
