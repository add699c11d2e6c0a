#include "shell/main_window/tree_state.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace veldrane {
namespace {

using ::testing::ElementsAre;

// A root with this many nodes below it, each below the one before.
ProjectTree Chain(std::size_t length)
{
    ProjectTree tree{{.Id = {NodeKind::Fixed, "Root"}, .Caption = "Shop"}};
    for (std::size_t i = 0; i < length; ++i) {
        const std::string name = "C" + std::to_string(i + 1);
        tree.push_back({.Id = {NodeKind::Class, name}, .Parent = i, .Caption = name, .ClassName = name});
    }
    return tree;
}

class TreeStateTest : public ::testing::Test
{
  protected:
    void Show(std::size_t length)
    {
        Tree.Rebuild([length] { return Chain(length); });
    }

    [[nodiscard]] std::vector<std::size_t> Expanded() const
    {
        std::vector<std::size_t> expanded;
        for (std::size_t i = 0; i < Tree.Nodes().size(); ++i)
            if (Tree.IsExpanded(i))
                expanded.push_back(i);
        return expanded;
    }

    TreeState Tree;
};

TEST_F(TreeStateTest, ARebuildKeepsWhatIsExpandedAndSelectedByPlace)
{
    Show(4);
    Tree.Expand(0);
    Tree.Expand(2);
    Tree.Select(3);
    Show(5);
    EXPECT_THAT(Expanded(), ElementsAre(0, 2));
    EXPECT_EQ(Tree.Selected(), 3U);
    EXPECT_EQ(Tree.SelectedNode()->Caption, "C3");
}

TEST_F(TreeStateTest, ARebuildForgetsPlacesThatAreNoMoreThere)
{
    Show(4);
    Tree.Expand(0);
    Tree.Expand(4);
    Tree.Select(4);
    Show(1);
    EXPECT_THAT(Expanded(), ElementsAre(0));
    EXPECT_EQ(Tree.Selected(), std::nullopt);
    EXPECT_EQ(Tree.SelectedNode(), nullptr);
}

TEST_F(TreeStateTest, ARebuildEndsAllMarks)
{
    Show(2);
    Tree.Mark({1});
    EXPECT_TRUE(Tree.IsMarked(1));
    Show(2);
    EXPECT_FALSE(Tree.IsMarked(1));
}

TEST_F(TreeStateTest, ARebuildWithinARebuildDoesNothing)
{
    int raised = 0;
    const Connection connection = Tree.Rebuilt.Connect([&] {
        ++raised;
        Show(7);
    });
    Show(2);
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(Tree.Nodes().size(), 3U);
}

TEST_F(TreeStateTest, AFailedBuildLeavesTheTreeAsItWasAndTheNextOneWorks)
{
    Show(2);
    Tree.Select(1);
    EXPECT_THROW(Tree.Rebuild([]() -> ProjectTree { throw std::runtime_error("no tree"); }), std::runtime_error);
    EXPECT_EQ(Tree.Nodes().size(), 3U);
    EXPECT_EQ(Tree.Selected(), 1U);
    Show(3);
    EXPECT_EQ(Tree.Nodes().size(), 4U);
}

TEST_F(TreeStateTest, CollapsingAllLeavesTheRootAndTheSelection)
{
    Show(3);
    Tree.ExpandAll();
    EXPECT_THAT(Expanded(), ElementsAre(0, 1, 2, 3));
    Tree.Select(3);
    Tree.CollapseAll();
    EXPECT_THAT(Expanded(), ElementsAre(0));
    EXPECT_EQ(Tree.Selected(), 3U);
}

TEST_F(TreeStateTest, ARevealedNodeIsSelectedAndSeen)
{
    Show(3);
    Tree.Reveal({NodeKind::Class, "C3"});
    EXPECT_EQ(Tree.Selected(), 3U);
    EXPECT_THAT(Expanded(), ElementsAre(0, 1, 2, 3));
    Tree.Reveal({NodeKind::Class, "C9"});
    EXPECT_EQ(Tree.Selected(), 3U);
}

TEST_F(TreeStateTest, OnlyTheLatestMarksStand)
{
    Show(3);
    Tree.Mark({1, 2});
    Tree.Mark({3});
    EXPECT_FALSE(Tree.IsMarked(1));
    EXPECT_TRUE(Tree.IsMarked(3));
    Tree.Mark({});
    EXPECT_FALSE(Tree.IsMarked(3));
}

TEST_F(TreeStateTest, ARenamedClassKeepsItsPlace)
{
    Tree.Rebuild([] {
        ProjectTree tree = Chain(2);
        tree[1] = {.Id = {NodeKind::Collection, "C2"}, .Parent = 0, .Caption = "C2", .ClassName = "C2"};
        return tree;
    });
    Tree.Select(2);
    Tree.RenameClass("c2", "Order");
    EXPECT_EQ(Tree.Nodes()[1].Caption, "C2");
    EXPECT_EQ(Tree.Nodes()[1].ClassName, "Order");
    EXPECT_EQ(Tree.Nodes()[2].Id, (NodeKey{NodeKind::Class, "Order"}));
    EXPECT_EQ(Tree.Nodes()[2].Caption, "Order");
    EXPECT_EQ(Tree.Selected(), 2U);
}

TEST_F(TreeStateTest, ACaptionChangesInPlace)
{
    Show(1);
    Tree.SetCaption({NodeKind::Fixed, "Root"}, "Store");
    Tree.SetCaption({NodeKind::Fixed, "None"}, "?");
    EXPECT_EQ(Tree.Nodes()[0].Caption, "Store");
}

} // namespace
} // namespace veldrane
