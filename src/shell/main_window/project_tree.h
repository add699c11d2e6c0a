#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The project tree of the main window, treMain, as plain nodes.
namespace veldrane {

// Each kind has keys of its own, so that a class may be called "Root" or "Class".
enum class NodeKind
{
    Fixed,      // one that every project has
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

// The index of the node with this key; nothing if there is none.
[[nodiscard]] std::optional<std::size_t> IndexOf(const ProjectTree& tree, const NodeKey& key);

} // namespace veldrane
