#include "shell/desktop/row_list_view.h"

#include "shell/desktop/drag_payload.h"

#include <QHeaderView>

namespace veldrane {

RowListView::RowListView(QWidget* parent) : QTreeView(parent)
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setDragEnabled(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setContextMenuPolicy(Qt::CustomContextMenu);
    header()->setSectionsClickable(true);
    connect(header(), &QHeaderView::sectionClicked, this, &RowListView::HeaderClicked);
}

void RowListView::ShowOrder(SortOrder order)
{
    header()->setSortIndicatorShown(order != SortOrder::Unsorted);
    header()->setSortIndicator(0, order == SortOrder::Descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void RowListView::startDrag(Qt::DropActions /*supported*/)
{
    if (const auto dragged = WhatIsDragged(currentIndex()))
        DragFrom(*this, *dragged);
}

} // namespace veldrane
