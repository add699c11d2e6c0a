#pragma once

#include "model/classes.h"
#include "model/project.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The project tree of the main window, treMain, as plain nodes.
namespace veldrane {

// Each kind has keys of its own, so that a class may be called "Root" or "Class".
enum class NodeKind
{
    Fixed,      // one that every project has; its key is one of tree_key
    Class,      // its key is the class's name
    Collection, // its key is the collection's name
};

struct NodeKey
{
    NodeKind Kind = NodeKind::Fixed;
    std::string Key;

    friend bool operator==(const NodeKey&, const NodeKey&) = default;
};

struct TreeNode
{
    NodeKey Id;
    std::optional<std::size_t> Parent; // the index of the node above, which stands before this one
    std::string Caption;
    std::string Icon;
    std::string ExpandedIcon; // "" as Icon
    std::string Tag;          // tells the kind of the node to the preview, the menus and a drag
    std::string ClassName;    // the class meant by the node of a class or a collection, "" for any other
};

using ProjectTree = std::vector<TreeNode>;

// The nodes that every project has, then those of its classes: each class once, under its collection where it has one,
// and both under the class's parent. A class whose parent is not in the project, and the first of a ring of classes
// that are each other's parents, stand under the group that they would stand under without a parent.
[[nodiscard]] ProjectTree BuildProjectTree(const TTCProject& project, const KZMClasses& classes);

// The same for a project that the New command has just made: one caption differs.
[[nodiscard]] ProjectTree BuildNewProjectTree(const TTCProject& project, const KZMClasses& classes);

// All classes, those without a parent first, then those whose parent is among the classes before; otherwise in their
// own order. What has no parent in the project at all comes last, with what stands below it.
[[nodiscard]] std::vector<const KZMClass*> ParentsFirst(const KZMClasses& classes);

// The index of the node with this key; nothing if there is none.
[[nodiscard]] std::optional<std::size_t> IndexOf(const ProjectTree& tree, const NodeKey& key);

// Whether the node is the fixed one with this key (tree_key).
[[nodiscard]] bool IsFixed(const TreeNode& node, std::string_view key);

// The indices of all nodes below the node, parents before their children.
[[nodiscard]] std::vector<std::size_t> NodesBelow(const ProjectTree& tree, std::size_t index);

// The names of the classes below the node, in the order of their nodes.
[[nodiscard]] std::vector<std::string> ClassesBelow(const ProjectTree& tree, std::size_t index);

// What `Root` shows of a project's name.
[[nodiscard]] std::string RootCaption(const TTCProject& project);

} // namespace veldrane
