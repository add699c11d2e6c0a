#include "shell/main_window/move_class.h"

#include "project_fixture.h"
#include "shell/main_window/perform_drop.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;

// Keeps what it is asked for.
class RecordedEditor : public ClassEditor
{
  public:
    bool Add(const NewClass& request) override
    {
        Calls.push_back("add " + request.TableName);
        return Accepts;
    }

    bool Edit(const std::shared_ptr<KZMClass>& item) override
    {
        Calls.push_back("edit " + item->ClassName);
        return Accepts;
    }

    bool Move(const std::shared_ptr<KZMClass>& item, const std::string& newParent) override
    {
        Calls.push_back("move " + item->ClassName + " under " + newParent);
        return Accepts;
    }

    bool Accepts = true;
    std::vector<std::string> Calls;
};

class MoveClassTest : public testing::ProjectFixture
{
  protected:
    MoveClassTest()
    {
        AddClass({.Name = "Customer", .Table = "Customers"});
        Order = AddClass({.Name = "Order", .Table = "Orders", .Parent = "Customer", .Collection = "Orders"});
        Order->ReadOnly = true;
        Order->TTCRelationships.Add("FK", "Customers", {}, "FK");
        Order->TTCKeys.Add(key_type::kPrimaryKey, {}, "PK");
        Order->TTCKeys.Add(key_type::kIdentityColumn, {}, "1");
        AddClass({.Name = "Line", .Table = "Lines", .Parent = "Order"});
    }

    [[nodiscard]] std::vector<std::string> ClassNames() const
    {
        std::vector<std::string> names;
        for (const KZMClass& item : Classes)
            names.push_back(item.ClassName);
        return names;
    }

    std::shared_ptr<KZMClass> Order;
    RecordedEditor Editor;
    DropWorld World{.Project = Project, .Classes = Classes, .Editor = Editor};
};

TEST_F(MoveClassTest, TheMovedClassIsACopyUnderTheSameNameWithAllThatItHad)
{
    EXPECT_TRUE(MoveClass({.ClassName = "Order", .ParentClassName = ""}, Project, Classes));
    const auto moved = Classes.Item("Order");
    EXPECT_NE(moved, Order);
    EXPECT_EQ(moved->ParentClassName, "");
    EXPECT_TRUE(moved->ReadOnly);
    EXPECT_EQ(moved->TTCKeys.Count(), 2U);
    EXPECT_EQ(moved->TTCRelationships.Count(), 1U);
    EXPECT_TRUE(moved->CreateCollection);
    EXPECT_EQ(Order->ParentClassName, "Customer");
    EXPECT_THAT(ClassNames(), ElementsAre("Customer", "Line", "Order"));
    EXPECT_TRUE(Project.Modified());
}

TEST_F(MoveClassTest, ItsSubclassesFollow)
{
    EXPECT_TRUE(MoveClass({.ClassName = "Order", .IsDomainTable = true}, Project, Classes));
    const ProjectTree tree = Tree();
    const TreeNode& line = tree.at(*IndexOf(tree, {NodeKind::Class, "Line"}));
    EXPECT_EQ(tree.at(*line.Parent).Id.Key, "Order");
    EXPECT_EQ(tree.at(*line.Parent).Tag, "Domain");
}

TEST_F(MoveClassTest, RelationshipsAndCollectionGoOnlyIfTheMoveSaysSo)
{
    EXPECT_TRUE(
        MoveClass({.ClassName = "Order", .ClearsRelationships = true, .DropsCollection = true}, Project, Classes));
    const auto moved = Classes.Item("Order");
    EXPECT_EQ(moved->TTCRelationships.Count(), 0U);
    EXPECT_FALSE(moved->CreateCollection);
    EXPECT_FALSE(Project.ClassCollectionNames.ClassNameExists("Orders"));
    EXPECT_TRUE(Project.ClassCollectionNames.ClassNameExists("Order"));
}

TEST_F(MoveClassTest, ACollectionThatIsNotMadeFreesNoName)
{
    Classes.Item("Line")->CollectionName = "Order";
    EXPECT_TRUE(MoveClass({.ClassName = "Line", .DropsCollection = true}, Project, Classes));
    EXPECT_TRUE(Project.ClassCollectionNames.ClassNameExists("Order"));
}

TEST_F(MoveClassTest, TheClassIsAnnouncedAsANewOne)
{
    std::vector<std::string> added;
    const Connection connection =
        Classes.NewClassAdded.Connect([&](const std::string& name) { added.push_back(name); });
    EXPECT_TRUE(MoveClass({.ClassName = "Order"}, Project, Classes));
    EXPECT_THAT(added, ElementsAre("Order"));
}

TEST_F(MoveClassTest, AClassThatIsGoneIsNotMoved)
{
    EXPECT_FALSE(MoveClass({.ClassName = "Gone"}, Project, Classes));
    EXPECT_FALSE(Perform(EditedMove{.ClassName = "Gone", .ParentClassName = "Order"}, World));
    EXPECT_FALSE(Project.Modified());
}

TEST_F(MoveClassTest, ADropIsPerformedWhereItBelongs)
{
    EXPECT_FALSE(Perform(NoDrop{}, World));
    EXPECT_TRUE(Perform(NewClass{.TableName = "Letters"}, World));
    EXPECT_TRUE(Perform(EditedMove{.ClassName = "Line", .ParentClassName = "Customer"}, World));
    EXPECT_THAT(Editor.Calls, ElementsAre("add Letters", "move Line under Customer"));
    EXPECT_FALSE(Project.Modified());
    EXPECT_TRUE(Perform(ClassMove{.ClassName = "Line"}, World));
    EXPECT_EQ(Classes.Item("Line")->ParentClassName, "");
    Editor.Accepts = false;
    EXPECT_FALSE(Perform(NewClass{.TableName = "Letters"}, World));
}

} // namespace
} // namespace veldrane
