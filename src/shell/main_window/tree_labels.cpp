#include "shell/main_window/tree_labels.h"

#include "datasource/class_names.h"
#include "preview/tree_node.h"
#include "text/strings.h"

#include <algorithm>
#include <array>

namespace veldrane {
namespace {

// The keys that stand for themselves. No node has the last one: lookup classes stand under another key.
constexpr auto kOwnKeys = std::to_array<std::string_view>(
    {tree_key::kRoot, tree_key::kParentClasses, tree_key::kAdditionalClasses, "Domain"});

bool StandsForItself(const TreeNode& node)
{
    return node.Id.Kind == NodeKind::Fixed &&
           std::find(kOwnKeys.begin(), kOwnKeys.end(), node.Id.Key) != kOwnKeys.end();
}

} // namespace

bool CanEditLabel(const TreeNode& node)
{
    return IsFixed(node, tree_key::kRoot);
}

bool AfterLabelEdit(const TreeNode& node, const std::string& text, TTCProject& project)
{
    if (!CanEditLabel(node) || text::Trim(text).empty())
        return false;
    if (text != project.ProjectName()) {
        project.SetProjectName(text);
        project.SetModified(true);
    }
    return true;
}

std::string WindowCaption(const std::string& title, const std::string& projectName)
{
    return title + " - [" + projectName + "]";
}

std::string ParentForNewClass(const ProjectTree& tree, std::size_t selected)
{
    const TreeNode& node = tree.at(selected);
    if (node.Parent && IsFixed(tree[*node.Parent], tree_key::kRoot))
        return std::string(kNotApplicable);
    return StandsForItself(node) || !node.Parent ? node.Id.Key : tree[*node.Parent].Id.Key;
}

} // namespace veldrane
