#pragma once

#include "model/signal.h"
#include "shell/main_window/project_tree.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace veldrane {

// What a rebuild of the tree keeps of one node.
struct SaveNodes
{
    std::size_t NodeIndex = 0;
    bool Expanded = false;
    bool Selected = false;
};

// The project tree as it is shown: its nodes, which of them are expanded, selected and marked.
class TreeState
{
  public:
    using Build = std::function<ProjectTree()>;

    [[nodiscard]] const ProjectTree& Nodes() const { return nodes_; }

    // Puts what `build` makes in place of the nodes. Expanded and selected are then the nodes that stand where the
    // expanded ones and the selected one stood, whatever they are now; nothing is marked. Raises Rebuilt. A call that
    // comes from `build` or from a listener of Rebuilt does nothing. What `build` throws goes on to the caller, and the
    // tree stays as it was.
    void Rebuild(const Build& build);

    [[nodiscard]] bool IsExpanded(std::size_t index) const { return expanded_.contains(index); }
    void Expand(std::size_t index);
    void Collapse(std::size_t index) { expanded_.erase(index); }

    void ExpandAll();

    // Collapses every node that has a parent; the selection stays.
    void CollapseAll();

    // Nothing if no node is selected.
    [[nodiscard]] std::optional<std::size_t> Selected() const { return selected_; }

    // The selected node; nothing if there is none.
    [[nodiscard]] const TreeNode* SelectedNode() const;

    // Selects the node, or nothing. An index beyond the nodes is ignored.
    void Select(std::optional<std::size_t> index);

    // Selects the node and expands it and all above it, so that it is seen. A key that no node has is ignored.
    void Reveal(const NodeKey& key);

    [[nodiscard]] bool IsMarked(std::size_t index) const { return marked_.contains(index); }

    // Marks these nodes and no other. Raises MarksChanged.
    void Mark(const std::vector<std::size_t>& indices);

    // Changes a caption in place. A key that no node has is ignored.
    void SetCaption(const NodeKey& key, const std::string& caption);

    // Gives the nodes of a class its new name, in place; letter case of the old one does not count.
    void RenameClass(std::string_view oldName, const std::string& newName);

    // The nodes are other ones now.
    Signal<> Rebuilt;

    // Other nodes are marked now, but for a rebuild.
    Signal<> MarksChanged;

  private:
    [[nodiscard]] std::vector<SaveNodes> Save() const;
    void Restore(const std::vector<SaveNodes>& saved);

    ProjectTree nodes_;
    std::unordered_set<std::size_t> expanded_;
    std::unordered_set<std::size_t> marked_;
    std::optional<std::size_t> selected_;
    bool rebuilding_ = false;
};

} // namespace veldrane
