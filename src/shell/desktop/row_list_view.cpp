#include "shell/desktop/row_list_view.h"

#include "shell/desktop/drag_payload.h"

namespace veldrane {

RowListView::RowListView(QWidget* parent) : QTreeView(parent)
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setDragEnabled(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setContextMenuPolicy(Qt::CustomContextMenu);
}

void RowListView::startDrag(Qt::DropActions /*supported*/)
{
    if (const auto dragged = WhatIsDragged(currentIndex()))
        DragFrom(*this, *dragged);
}

} // namespace veldrane
