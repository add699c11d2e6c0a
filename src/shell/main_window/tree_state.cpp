#include "shell/main_window/tree_state.h"

#include "text/case_folding.h"

#include <utility>

namespace veldrane {
namespace {

// Sets a flag for as long as it lives.
class FlagWhile
{
  public:
    explicit FlagWhile(bool& flag) : flag_(flag) { flag_ = true; }
    ~FlagWhile() { flag_ = false; }
    FlagWhile(const FlagWhile&) = delete;
    FlagWhile& operator=(const FlagWhile&) = delete;

  private:
    bool& flag_;
};

} // namespace

void TreeState::Rebuild(const Build& build)
{
    if (rebuilding_)
        return;
    const FlagWhile rebuilding(rebuilding_);
    ProjectTree nodes = build();
    const std::vector<SaveNodes> saved = Save();
    nodes_ = std::move(nodes);
    Restore(saved);
    Rebuilt.Raise();
}

void TreeState::Expand(std::size_t index)
{
    if (index < nodes_.size())
        expanded_.insert(index);
}

void TreeState::ExpandAll()
{
    for (std::size_t i = 0; i < nodes_.size(); ++i)
        expanded_.insert(i);
}

void TreeState::CollapseAll()
{
    std::erase_if(expanded_, [this](std::size_t index) { return nodes_[index].Parent.has_value(); });
}

const TreeNode* TreeState::SelectedNode() const
{
    return selected_ ? &nodes_[*selected_] : nullptr;
}

void TreeState::Select(std::optional<std::size_t> index)
{
    if (!index || *index < nodes_.size())
        selected_ = index;
}

void TreeState::Reveal(const NodeKey& key)
{
    const auto index = IndexOf(nodes_, key);
    if (!index)
        return;
    selected_ = index;
    for (auto shown = index; shown; shown = nodes_[*shown].Parent)
        expanded_.insert(*shown);
}

void TreeState::Mark(const std::vector<std::size_t>& indices)
{
    marked_ = {indices.begin(), indices.end()};
    MarksChanged.Raise();
}

void TreeState::SetCaption(const NodeKey& key, const std::string& caption)
{
    if (const auto index = IndexOf(nodes_, key))
        nodes_[*index].Caption = caption;
}

void TreeState::RenameClass(std::string_view oldName, const std::string& newName)
{
    for (TreeNode& node : nodes_) {
        if (node.Id.Kind == NodeKind::Fixed || !text::EqualFolded(node.ClassName, oldName))
            continue;
        node.ClassName = newName;
        if (node.Id.Kind == NodeKind::Class) {
            node.Id.Key = newName;
            node.Caption = newName;
        }
    }
}

std::vector<SaveNodes> TreeState::Save() const
{
    std::vector<SaveNodes> saved;
    for (std::size_t i = 0; i < nodes_.size(); ++i)
        saved.push_back({.NodeIndex = i, .Expanded = IsExpanded(i), .Selected = selected_ == i});
    return saved;
}

void TreeState::Restore(const std::vector<SaveNodes>& saved)
{
    expanded_.clear();
    marked_.clear();
    selected_.reset();
    for (const SaveNodes& node : saved) {
        if (node.NodeIndex >= nodes_.size())
            continue;
        if (node.Expanded)
            expanded_.insert(node.NodeIndex);
        if (node.Selected)
            selected_ = node.NodeIndex;
    }
}

} // namespace veldrane
