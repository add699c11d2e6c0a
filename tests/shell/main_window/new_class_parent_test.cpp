#include "shell/main_window/new_class_parent.h"

#include "project_fixture.h"

namespace veldrane {
namespace {

class NewClassParentTest : public testing::ProjectFixture
{
  protected:
    NewClassParentTest()
    {
        AddClass({.Name = "Customer", .Table = "Customers"});
        AddClass({.Name = "Order", .Table = "Orders", .Parent = "Customer", .Collection = "Orders"});
        tree_.Rebuild([this] { return Tree(); });
    }

    std::string ParentOn(const NodeKey& key)
    {
        tree_.Select(IndexOf(tree_.Nodes(), key));
        return NewClassParent(tree_);
    }

    TreeState tree_;
};

TEST_F(NewClassParentTest, IsThatOfTheSelectedClass)
{
    EXPECT_EQ(ParentOn({.Kind = NodeKind::Class, .Key = "Order"}), "Customer");
    EXPECT_EQ(ParentOn({.Kind = NodeKind::Collection, .Key = "Orders"}), "Customer");
}

TEST_F(NewClassParentTest, IsNoneForAClassOfAGroupAndForAGroup)
{
    EXPECT_EQ(ParentOn({.Kind = NodeKind::Class, .Key = "Customer"}), "n/a");
    for (const char* key : {"Root", "KZMParent", "TypeOf", "Class"})
        EXPECT_EQ(ParentOn({.Kind = NodeKind::Fixed, .Key = key}), "n/a") << key;
}

TEST_F(NewClassParentTest, IsNoneWhereNothingIsSelected)
{
    tree_.Select(std::nullopt);
    EXPECT_EQ(NewClassParent(tree_), "n/a");
}

} // namespace
} // namespace veldrane
