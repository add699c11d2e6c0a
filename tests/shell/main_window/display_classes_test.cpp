#include "shell/main_window/display_classes.h"

#include "project_fixture.h"
#include "support/recorded_errors.h"

#include <stdexcept>

namespace veldrane {
namespace {

class DisplayClassesTest : public testing::ProjectFixture
{
  protected:
    TreeState State;
    testing::RecordedErrors Errors;
};

TEST_F(DisplayClassesTest, ShowsTheClassesOfTheProject)
{
    AddClass({.Name = "Order", .Table = "Orders"});
    DisplayClasses(State, Project, Classes, Errors);
    EXPECT_TRUE(IndexOf(State.Nodes(), {NodeKind::Class, "Order"}));
    EXPECT_TRUE(Errors.Reported.empty());
}

TEST_F(DisplayClassesTest, ANewClassIsSelectedAndSeen)
{
    AddClass({.Name = "Customer", .Table = "Customers", .Collection = "Customers"});
    DisplayClasses(State, Project, Classes, Errors);
    AddClass({.Name = "Order", .Table = "Orders", .Parent = "Customer", .Collection = "Orders"});
    DisplayNewClass("Order", State, Project, Classes, Errors);
    ASSERT_TRUE(State.SelectedNode());
    EXPECT_EQ(State.SelectedNode()->Id, (NodeKey{NodeKind::Class, "Order"}));
    for (auto above = State.SelectedNode()->Parent; above; above = State.Nodes()[*above].Parent)
        EXPECT_TRUE(State.IsExpanded(*above));
}

TEST_F(DisplayClassesTest, AFailureIsReportedFromTheMainWindow)
{
    const Connection connection = State.Rebuilt.Connect([] { throw std::runtime_error("no tree"); });
    DisplayClasses(State, Project, Classes, Errors);
    ASSERT_EQ(Errors.Reported.size(), 1U);
    EXPECT_EQ(Errors.Reported[0].Place.ModuleName, "frmMain");
    EXPECT_EQ(Errors.Reported[0].Place.RoutineName, "DisplayClasses");
    AddClass({.Name = "Order", .Table = "Orders"});
    DisplayClasses(State, Project, Classes, Errors);
    EXPECT_TRUE(IndexOf(State.Nodes(), {NodeKind::Class, "Order"}));
}

} // namespace
} // namespace veldrane
