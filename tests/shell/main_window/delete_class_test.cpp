#include "shell/main_window/delete_class.h"

#include "model/xml_assist.h"
#include "project_fixture.h"
#include "shell/main_window/required_class.h"
#include "support/scripted_messages.h"

#include <gmock/gmock.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DeleteClassTest : public testing::ProjectFixture
{
  protected:
    DeleteClassTest()
    {
        AddClass({.Name = "Customer", .Table = "Customers", .Collection = "Customers"});
        AddClass({.Name = "Order", .Table = "Orders", .Parent = "Customer", .Collection = "Orders"});
        AddClass({.Name = "Line", .Table = "Lines", .Parent = "Order"});
        AddClass({.Name = "Address", .Table = "Addresses", .Parent = "Customer"});
        AddClass({.Name = "Product", .Table = "Products"});
    }

    bool Delete(NodeKind kind, const std::string& key)
    {
        State.Rebuild([this] { return Tree(); });
        return DeleteClass({.Project = Project, .Classes = Classes, .Tree = State, .Messages = Asking},
                           *IndexOf(State.Nodes(), {.Kind = kind, .Key = key}));
    }

    [[nodiscard]] std::vector<std::string> ClassNames() const
    {
        std::vector<std::string> names;
        for (const KZMClass& item : Classes)
            names.push_back(item.ClassName);
        return names;
    }

    [[nodiscard]] std::vector<std::string> NamesInUse() const
    {
        std::vector<std::string> names;
        for (const TTCClassCollectionName& name : Project.ClassCollectionNames)
            names.push_back(name.ClassCollectionName);
        return names;
    }

    // The keys of the nodes that were marked while the question was asked.
    class MarkReader : public Messages
    {
      public:
        explicit MarkReader(const TreeState& tree) : tree_(tree) {}

        Answer Ask(const Question& /*question*/) override
        {
            for (std::size_t i = 0; i < tree_.Nodes().size(); ++i)
                if (tree_.IsMarked(i))
                    Marked.push_back(tree_.Nodes()[i].Id.Key);
            return Answer::Cancel;
        }

        std::vector<std::string> Marked;

      private:
        const TreeState& tree_;
    };

    TreeState State;
    testing::ScriptedMessages Asking;
};

TEST_F(DeleteClassTest, AsksOnceAndDeletesTheClassWithAllItsSubclasses)
{
    Asking = testing::ScriptedMessages({Answer::Ok});
    EXPECT_TRUE(Delete(NodeKind::Class, "Customer"));
    ASSERT_EQ(Asking.Asked().size(), 1U);
    const Question& question = Asking.Asked()[0];
    EXPECT_EQ(question.Title, "Confirm Delete");
    EXPECT_EQ(question.Text, "Are you sure you want to delete Customer and the following subclasses?\r\n"
                             "Order\r\nAddress\r\nLine\r\n"
                             "This action cannot be undone.");
    EXPECT_EQ(question.Offered, Buttons::OkCancel);
    EXPECT_EQ(question.Default, Answer::Cancel);
    EXPECT_THAT(ClassNames(), ElementsAre("Product"));
    EXPECT_THAT(NamesInUse(), ElementsAre("Product"));
    EXPECT_TRUE(Project.Modified());
}

TEST_F(DeleteClassTest, AClassWithoutSubclassesIsAskedForAlone)
{
    Asking = testing::ScriptedMessages({Answer::Ok});
    EXPECT_TRUE(Delete(NodeKind::Class, "Product"));
    EXPECT_EQ(Asking.Asked().at(0).Text, "Are you sure you want to delete Product?\r\nThis action cannot be undone.");
    EXPECT_THAT(ClassNames(), ElementsAre("Customer", "Order", "Line", "Address"));
}

TEST_F(DeleteClassTest, OfACollectionTheClassBelowItIsMeant)
{
    Asking = testing::ScriptedMessages({Answer::Ok});
    EXPECT_TRUE(Delete(NodeKind::Collection, "Orders"));
    EXPECT_EQ(Asking.Asked().at(0).Text,
              "Are you sure you want to delete Order and the following subclasses?\r\nLine\r\n"
              "This action cannot be undone.");
    EXPECT_THAT(NamesInUse(), ElementsAre("Customer", "Customers", "Address", "Product"));
}

TEST_F(DeleteClassTest, CancelIsTheDefaultAndKeepsTheClass)
{
    EXPECT_FALSE(Delete(NodeKind::Class, "Customer"));
    EXPECT_EQ(Classes.Count(), 5U);
    EXPECT_FALSE(Project.Modified());
    for (std::size_t i = 0; i < State.Nodes().size(); ++i)
        EXPECT_FALSE(State.IsMarked(i));
}

TEST_F(DeleteClassTest, WhatGoesIsMarkedWhileItIsAskedFor)
{
    State.Rebuild([this] { return Tree(); });
    MarkReader reader(State);
    EXPECT_FALSE(DeleteClass({.Project = Project, .Classes = Classes, .Tree = State, .Messages = reader},
                             *IndexOf(State.Nodes(), {NodeKind::Class, "Customer"})));
    EXPECT_THAT(reader.Marked, ElementsAre("Customer", "Orders", "Order", "Address", "Line"));
}

TEST_F(DeleteClassTest, ARequiredClassIsRefused)
{
    ASSERT_TRUE(AddXmlAssist(Project, Classes));
    EXPECT_FALSE(Delete(NodeKind::Class, "xmlAssist"));
    ASSERT_EQ(Asking.Asked().size(), 1U);
    EXPECT_EQ(Asking.Asked()[0].Title, "Component Services Required Class");
    EXPECT_EQ(Asking.Asked()[0].Text, "This class is a required Component Services class and cannot be deleted.");
    EXPECT_TRUE(Classes.Contains("xmlAssist"));
}

TEST_F(DeleteClassTest, ARequiredClassIsNotEditedEither)
{
    ASSERT_TRUE(AddXmlAssist(Project, Classes));
    EXPECT_FALSE(MayEdit(*Classes.Item("xmlAssist"), Asking));
    EXPECT_EQ(Asking.Asked().at(0).Title, "Component Services Required Class");
    EXPECT_EQ(Asking.Asked().at(0).Text, "This class is a required Component Services class and cannot be edited.");
    EXPECT_TRUE(MayEdit(*Classes.Item("Order"), Asking));
}

TEST_F(DeleteClassTest, ANodeOfNoClassAsksNothing)
{
    EXPECT_FALSE(Delete(NodeKind::Fixed, "KZMParent"));
    EXPECT_FALSE(Delete(NodeKind::Fixed, "Root"));
    EXPECT_THAT(Asking.Asked(), IsEmpty());
}

TEST_F(DeleteClassTest, ACollectionNameThatIsNotInUseStaysAnothersName)
{
    Classes.Item("Product")->CollectionName = "Order"; // as a class without a collection keeps it
    Asking = testing::ScriptedMessages({Answer::Ok});
    EXPECT_TRUE(Delete(NodeKind::Class, "Product"));
    EXPECT_TRUE(Project.ClassCollectionNames.ClassNameExists("Order"));
}

} // namespace
} // namespace veldrane
