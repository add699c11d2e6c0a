#include "shell/main_window/project_tree.h"

#include <algorithm>

namespace veldrane {

std::optional<std::size_t> IndexOf(const ProjectTree& tree, const NodeKey& key)
{
    const auto found = std::find_if(tree.begin(), tree.end(), [&](const TreeNode& node) { return node.Id == key; });
    return found == tree.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - tree.begin()));
}

} // namespace veldrane
