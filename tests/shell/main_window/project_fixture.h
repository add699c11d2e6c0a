#pragma once

#include "shell/main_window/project_tree.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace veldrane::testing {

// A class as far as the tree looks at it.
struct ClassFacts
{
    std::string Name;
    std::string Table;      // "" for none
    std::string Parent{};   // "" for none
    std::string Collection; // "" for none
    bool IsDomain = false;
};

// Every node on a line of its own below its parent, from the node with this index on: "caption key tag icon".
inline std::string TreeText(const ProjectTree& tree, std::size_t from = 0)
{
    std::string text;
    for (std::size_t i = from; i < tree.size(); ++i) {
        std::size_t depth = 0;
        for (auto above = tree[i].Parent; above; above = tree[*above].Parent)
            ++depth;
        text += std::string(depth * 2, ' ') + tree[i].Caption + " | " + tree[i].Id.Key + " | " + tree[i].Tag + " | " +
                tree[i].Icon + (tree[i].ExpandedIcon.empty() ? "" : "/" + tree[i].ExpandedIcon) + "\n";
    }
    return text;
}

// A project and its classes, whose names are in the project as a file's are.
class ProjectFixture : public ::testing::Test
{
  protected:
    ProjectFixture()
    {
        Project.SetProjectName("Shop");
        Project.VBProjectName = "ShopObject";
        Project.WrapperClassName = "Auto";
        Project.ClassPrefix = "cls";
        Project.ModulePrefix = "bas";
    }

    std::shared_ptr<KZMClass> AddClass(const ClassFacts& facts)
    {
        auto item = std::make_shared<KZMClass>();
        item->ClassName = facts.Name;
        item->TableName = facts.Table;
        item->ParentClassName = facts.Parent;
        item->CollectionName = facts.Collection;
        item->CreateCollection = !facts.Collection.empty();
        item->IsDomainTable = facts.IsDomain;
        Classes.AddExisting(item, facts.Name);
        Project.ClassCollectionNames.Add(facts.Name, facts.Name);
        if (item->CreateCollection)
            Project.ClassCollectionNames.Add(facts.Collection, facts.Collection);
        return item;
    }

    [[nodiscard]] ProjectTree Tree() const { return BuildProjectTree(Project, Classes); }

    TTCProject Project;
    KZMClasses Classes;
};

} // namespace veldrane::testing
