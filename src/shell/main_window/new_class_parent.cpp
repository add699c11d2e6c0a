#include "shell/main_window/new_class_parent.h"

#include "datasource/class_names.h"

namespace veldrane {

std::string NewClassParent(const TreeState& tree)
{
    const TreeNode* const selected = tree.SelectedNode();
    if (selected == nullptr)
        return std::string(kNotApplicable);
    const ProjectTree& nodes = tree.Nodes();
    for (auto above = selected->Parent; above; above = nodes[*above].Parent) {
        const TreeNode& node = nodes[*above];
        const bool isOwnCollection = node.ClassName == selected->ClassName;
        if (node.Id.Kind != NodeKind::Fixed && !isOwnCollection)
            return node.ClassName;
    }
    return std::string(kNotApplicable);
}

} // namespace veldrane
