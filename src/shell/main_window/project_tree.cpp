#include "shell/main_window/project_tree.h"

#include "datasource/collection_rule.h"
#include "generator/file_names.h"
#include "preview/tree_node.h"
#include "text/case_folding.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <unordered_set>

namespace veldrane {
namespace {

struct FixedNodeRow
{
    std::string_view Parent; // the key of the node above
    std::string_view Icon;
    std::string_view ExpandedIcon;
    TemplateLine<ProjectScope> Caption;
};

// In the order of FixedNodes().
constexpr auto kFixedNodes = std::to_array<FixedNodeRow>({
    {"", "Root", "", "{ProjectName}"},
    {tree_key::kRoot, "ParentChild", "", "Parent/Children Classes"},
    {tree_key::kRoot, "Lookup", "", "Lookup/Domain Classes"},
    {tree_key::kRoot, "Class", "", "Additional Collections/Classes"},
    {tree_key::kRoot, "Project", "", "Required Files"},
    {tree_key::kRequired, "ClosedFolder", "OpenFolder", "Projects"},
    {tree_key::kRequiredProjects, "Root", "", kProjectFile},
    {tree_key::kRequiredProjects, "Root", "", kTestProjectFile},
    {tree_key::kRequiredProjects, "Root", "", kTestProjectGroup},
    {tree_key::kRequired, "ClosedFolder", "OpenFolder", "Modules"},
    {tree_key::kRequiredModules, "Module", "", "Globals ({ModulePrefix}Globals.bas)"},
    {tree_key::kRequired, "ClosedFolder", "OpenFolder", "Class Modules"},
    {tree_key::kRequiredClassModules, "Class", "", "{WrapperClassName} ({ClassPrefix}{WrapperClassName}.cls)"},
});

// The two captions of this node differ on purpose.
constexpr char kAdditionalOfNewProject[] = "Additional Classes/Collections";

// How a class and its collection show.
struct ClassLook
{
    std::string_view CollectionTag;
    std::string_view Icon;
    std::string_view Tag;
};

constexpr ClassLook kTableLook{tree_tag::kTableCollection, "TableClass", tree_tag::kTable};
constexpr ClassLook kLookupLook{tree_tag::kDomainCollection, "TableClass", tree_tag::kDomain};
constexpr ClassLook kAdditionalLook{tree_tag::kClassCollection, "Class", tree_tag::kClass};

const ClassLook& LookOf(const KZMClass& item)
{
    if (item.IsDomainTable && !item.IsMTSRequiredClass)
        return kLookupLook;
    return item.TableName.empty() || item.IsMTSRequiredClass ? kAdditionalLook : kTableLook;
}

// The group in which a class stands if it has no parent to stand under.
std::string_view GroupOf(const KZMClass& item)
{
    if (item.IsMTSRequiredClass)
        return tree_key::kRequiredClassModules;
    if (item.IsDomainTable)
        return tree_key::kLookupClasses;
    return item.TableName.empty() ? tree_key::kAdditionalClasses : tree_key::kParentClasses;
}

bool StandsUnderParent(const KZMClass& item)
{
    return !item.IsMTSRequiredClass && !item.IsDomainTable && !IsRootClass(item);
}

class TreeBuilder
{
  public:
    TreeBuilder(const TTCProject& project, const KZMClasses& classes) : project_(project), classes_(classes) {}

    ProjectTree Build() &&
    {
        AddFixedNodes();
        for (const KZMClass* item : ParentsFirst(classes_))
            AddClass(*item);
        return std::move(tree_);
    }

  private:
    void AddFixedNodes()
    {
        const GenerationSettings settings;
        const std::vector<FixedNode> nodes = FixedNodes();
        for (std::size_t i = 0; i < kFixedNodes.size(); ++i) {
            const FixedNodeRow& row = kFixedNodes.at(i);
            TreeNode node{.Id = {.Kind = NodeKind::Fixed, .Key = std::string(nodes.at(i).Key)},
                          .Icon = std::string(row.Icon),
                          .ExpandedIcon = std::string(row.ExpandedIcon),
                          .Tag = std::string(nodes.at(i).Tag)};
            if (!row.Parent.empty())
                node.Parent = FixedIndex(row.Parent);
            node.Caption = NameOf(row.Caption, ProjectScope{.Project = project_, .Settings = settings});
            tree_.push_back(std::move(node));
        }
        tree_.front().Caption = RootCaption(project_);
    }

    [[nodiscard]] std::optional<std::size_t> FixedIndex(std::string_view key) const
    {
        return IndexOf(tree_, {.Kind = NodeKind::Fixed, .Key = std::string(key)});
    }

    [[nodiscard]] std::optional<std::size_t> ParentOf(const KZMClass& item) const
    {
        if (StandsUnderParent(item))
            if (const auto parent = classes_.Item(item.ParentClassName))
                if (const auto node = nodes_.find(parent.get()); node != nodes_.end())
                    return node->second;
        return FixedIndex(GroupOf(item));
    }

    void AddClass(const KZMClass& item)
    {
        const ClassLook& look = LookOf(item);
        std::optional<std::size_t> parent = ParentOf(item);
        if (item.CreateCollection && !item.IsMTSRequiredClass) {
            tree_.push_back({.Id = {.Kind = NodeKind::Collection, .Key = item.CollectionName},
                             .Parent = parent,
                             .Caption = item.CollectionName,
                             .Icon = "Collection",
                             .Tag = std::string(look.CollectionTag),
                             .ClassName = item.ClassName});
            parent = tree_.size() - 1;
        }
        nodes_.emplace(&item, tree_.size());
        tree_.push_back({.Id = {.Kind = NodeKind::Class, .Key = item.ClassName},
                         .Parent = parent,
                         .Caption = item.ClassName,
                         .Icon = std::string(look.Icon),
                         .Tag = std::string(look.Tag),
                         .ClassName = item.ClassName});
    }

    const TTCProject& project_;
    const KZMClasses& classes_;
    ProjectTree tree_;
    std::unordered_map<const KZMClass*, std::size_t> nodes_; // the class nodes made so far
};

// Puts classes in an order in which each follows its parent.
class ParentOrder
{
  public:
    explicit ParentOrder(const KZMClasses& classes) : classes_(classes)
    {
        for (const KZMClass& item : classes_)
            if (const KZMClass* const parent = ParentOf(item))
                children_[parent].push_back(&item);
    }

    std::vector<const KZMClass*> Order() &&
    {
        PlaceWhere([](const KZMClass& item) { return IsRootClass(item); });
        PlaceWhere([this](const KZMClass& item) { return ParentOf(item) == nullptr; });
        // What is left are rings of parents: one of each ring has to be first.
        for (const KZMClass& item : classes_)
            PlaceWithChildren(item);
        return std::move(order_);
    }

  private:
    [[nodiscard]] const KZMClass* ParentOf(const KZMClass& item) const
    {
        return IsRootClass(item) ? nullptr : classes_.Item(item.ParentClassName).get();
    }

    void Place(const KZMClass& item)
    {
        if (placed_.insert(&item).second)
            order_.push_back(&item);
    }

    template <class Condition>
    void PlaceWhere(const Condition& condition)
    {
        const std::size_t first = order_.size();
        for (const KZMClass& item : classes_)
            if (condition(item))
                Place(item);
        PlaceChildrenFrom(first);
    }

    void PlaceWithChildren(const KZMClass& item)
    {
        const std::size_t first = order_.size();
        Place(item);
        PlaceChildrenFrom(first);
    }

    // The list grows behind the place up to which its children have followed.
    void PlaceChildrenFrom(std::size_t first)
    {
        for (std::size_t i = first; i < order_.size(); ++i)
            if (const auto found = children_.find(order_[i]); found != children_.end())
                for (const KZMClass* child : found->second)
                    Place(*child);
    }

    const KZMClasses& classes_;
    std::unordered_map<const KZMClass*, std::vector<const KZMClass*>> children_;
    std::unordered_set<const KZMClass*> placed_;
    std::vector<const KZMClass*> order_;
};

} // namespace

ProjectTree BuildProjectTree(const TTCProject& project, const KZMClasses& classes)
{
    return TreeBuilder(project, classes).Build();
}

ProjectTree BuildNewProjectTree(const TTCProject& project, const KZMClasses& classes)
{
    ProjectTree tree = BuildProjectTree(project, classes);
    for (TreeNode& node : tree)
        if (IsFixed(node, tree_key::kAdditionalClasses))
            node.Caption = kAdditionalOfNewProject;
    return tree;
}

std::vector<const KZMClass*> ParentsFirst(const KZMClasses& classes)
{
    return ParentOrder(classes).Order();
}

std::optional<std::size_t> IndexOf(const ProjectTree& tree, const NodeKey& key)
{
    const auto found = std::find_if(tree.begin(), tree.end(), [&](const TreeNode& node) { return node.Id == key; });
    return found == tree.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - tree.begin()));
}

bool IsFixed(const TreeNode& node, std::string_view key)
{
    return node.Id.Kind == NodeKind::Fixed && node.Id.Key == key;
}

std::vector<std::size_t> NodesBelow(const ProjectTree& tree, std::size_t index)
{
    std::vector<std::size_t> below;
    std::unordered_set<std::size_t> reached{index};
    for (std::size_t i = index + 1; i < tree.size(); ++i)
        if (tree[i].Parent && reached.contains(*tree[i].Parent)) {
            reached.insert(i);
            below.push_back(i);
        }
    return below;
}

std::vector<std::string> ClassesBelow(const ProjectTree& tree, std::size_t index)
{
    std::vector<std::string> names;
    for (const std::size_t node : NodesBelow(tree, index))
        if (tree[node].Id.Kind == NodeKind::Class)
            names.push_back(tree[node].ClassName);
    return names;
}

std::string RootCaption(const TTCProject& project)
{
    return project.ProjectName().empty() ? "New Project" : project.ProjectName();
}

} // namespace veldrane
