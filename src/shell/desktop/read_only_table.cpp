#include "shell/desktop/read_only_table.h"

namespace veldrane {

int ReadOnlyTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(Rows());
}

int ReadOnlyTable::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(Headers().size());
}

QVariant ReadOnlyTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return Headers().value(section);
}

} // namespace veldrane
