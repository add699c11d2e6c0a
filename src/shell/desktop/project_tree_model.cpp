#include "shell/desktop/project_tree_model.h"

#include "shell/desktop/qt_text.h"
#include "shell/main_window/tree_labels.h"

#include <QApplication>
#include <QPalette>

#include <algorithm>

namespace veldrane {
namespace {

// Enough of the highlight to be seen, and little enough that the text keeps its contrast.
constexpr int kMarkOpacity = 70;

QColor MarkColour()
{
    QColor colour = QApplication::palette().color(QPalette::Highlight);
    colour.setAlpha(kMarkOpacity);
    return colour;
}

} // namespace

ProjectTreeModel::ProjectTreeModel(Rename rename, IconSet& icons, QObject* parent)
    : QAbstractItemModel(parent), rename_(std::move(rename)), icons_(icons)
{}

bool ProjectTreeModel::HasNodesOf(const ProjectTree& tree) const
{
    return std::equal(entries_.begin(), entries_.end(), tree.begin(), tree.end(),
                      [](const Entry& entry, const TreeNode& node) {
                          return entry.Node.Id == node.Id && entry.Node.Parent == node.Parent;
                      });
}

void ProjectTreeModel::ShowAnew(const ProjectTree& tree)
{
    for (std::size_t node = 0; node < tree.size(); ++node) {
        entries_[node].Node = tree[node];
        const QModelIndex index = IndexOfNode(node);
        Q_EMIT dataChanged(index, index);
    }
}

void ProjectTreeModel::Show(const ProjectTree& tree)
{
    if (HasNodesOf(tree))
        return ShowAnew(tree);
    beginResetModel();
    entries_.clear();
    roots_.clear();
    for (const TreeNode& node : tree) {
        std::vector<std::size_t>& siblings = node.Parent ? entries_.at(*node.Parent).Children : roots_;
        const int row = static_cast<int>(siblings.size());
        siblings.push_back(entries_.size());
        entries_.push_back({.Node = node, .Row = row});
    }
    endResetModel();
}

void ProjectTreeModel::Mark(std::size_t node, bool marked)
{
    Entry& entry = entries_.at(node);
    if (entry.Marked == marked)
        return;
    entry.Marked = marked;
    const QModelIndex index = IndexOfNode(node);
    Q_EMIT dataChanged(index, index, {Qt::BackgroundRole});
}

void ProjectTreeModel::ShowExpanded(const QModelIndex& index, bool expanded)
{
    EntryOf(index).Expanded = expanded;
    Q_EMIT dataChanged(index, index, {Qt::DecorationRole});
}

const TreeNode& ProjectTreeModel::Node(const QModelIndex& index) const
{
    return EntryOf(index).Node;
}

std::size_t ProjectTreeModel::NodeIndex(const QModelIndex& index) const
{
    return index.internalId();
}

QModelIndex ProjectTreeModel::IndexOfNode(std::size_t node) const
{
    return node < entries_.size() ? createIndex(entries_.at(node).Row, 0, static_cast<quintptr>(node)) : QModelIndex();
}

const std::vector<std::size_t>& ProjectTreeModel::ChildrenOf(const QModelIndex& parent) const
{
    return parent.isValid() ? EntryOf(parent).Children : roots_;
}

QModelIndex ProjectTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return IndexOfNode(ChildrenOf(parent).at(static_cast<std::size_t>(row)));
}

QModelIndex ProjectTreeModel::parent(const QModelIndex& child) const
{
    if (!child.isValid())
        return {};
    const std::optional<std::size_t>& above = EntryOf(child).Node.Parent;
    return above ? IndexOfNode(*above) : QModelIndex();
}

int ProjectTreeModel::rowCount(const QModelIndex& parent) const
{
    return static_cast<int>(ChildrenOf(parent).size());
}

int ProjectTreeModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 1;
}

QVariant ProjectTreeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Entry& entry = EntryOf(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return ToQt(entry.Node.Caption);
    case Qt::DecorationRole:
        return icons_.Of(entry.Expanded && !entry.Node.ExpandedIcon.empty() ? entry.Node.ExpandedIcon
                                                                            : entry.Node.Icon);
    case Qt::BackgroundRole:
        return entry.Marked ? QVariant(QBrush(MarkColour())) : QVariant();
    default:
        return {};
    }
}

bool ProjectTreeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || role != Qt::EditRole)
        return false;
    const NodeKey key = Node(index).Id; // the rules may rebuild the tree meanwhile
    return rename_(key, FromQt(value.toString()));
}

Qt::ItemFlags ProjectTreeModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled;
    const Entry& entry = EntryOf(index);
    if (entry.Node.Id.Kind != NodeKind::Fixed)
        flags |= Qt::ItemIsDragEnabled;
    if (CanEditLabel(entry.Node))
        flags |= Qt::ItemIsEditable;
    return flags;
}

} // namespace veldrane
