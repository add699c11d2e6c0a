#pragma once

#include "shell/desktop/icons.h"
#include "shell/main_window/project_tree.h"

#include <QAbstractItemModel>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace veldrane {

// The project tree as a tree view shows it. It holds a copy of the nodes, so the rules may rebuild theirs at any time.
class ProjectTreeModel : public QAbstractItemModel
{
    Q_OBJECT

  public:
    // Takes the new label of a node; false keeps the old one.
    using Rename = std::function<bool(const NodeKey& node, const std::string& label)>;

    // The pictures must outlive the model.
    ProjectTreeModel(Rename rename, IconSet& icons, QObject* parent = nullptr);

    // Shows this tree from now on. Every index of before is gone, unless the same nodes stand at the same places: a new
    // caption leaves the label that is being typed alone.
    void Show(const ProjectTree& tree);

    // Marks the node, or takes its mark away.
    void Mark(std::size_t node, bool marked);

    // Folders look open while their node is expanded.
    void ShowExpanded(const QModelIndex& index, bool expanded);

    // The node behind a valid index of this model.
    [[nodiscard]] const TreeNode& Node(const QModelIndex& index) const;

    // The place of a node in the tree that is shown, and back; an invalid index for a place that there is not.
    [[nodiscard]] std::size_t NodeIndex(const QModelIndex& index) const;
    [[nodiscard]] QModelIndex IndexOfNode(std::size_t node) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    // A node and what the view needs of it beyond the rules.
    struct Entry
    {
        TreeNode Node;
        std::vector<std::size_t> Children;
        int Row = 0; // among the children of its parent
        bool Expanded = false;
        bool Marked = false;
    };

    [[nodiscard]] bool HasNodesOf(const ProjectTree& tree) const;
    void ShowAnew(const ProjectTree& tree);
    [[nodiscard]] const Entry& EntryOf(const QModelIndex& index) const { return entries_.at(index.internalId()); }
    [[nodiscard]] Entry& EntryOf(const QModelIndex& index) { return entries_.at(index.internalId()); }
    [[nodiscard]] const std::vector<std::size_t>& ChildrenOf(const QModelIndex& parent) const;

    Rename rename_;
    IconSet& icons_;
    std::vector<Entry> entries_;
    std::vector<std::size_t> roots_;
};

} // namespace veldrane
