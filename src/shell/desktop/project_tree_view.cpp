#include "shell/desktop/project_tree_view.h"

#include "shell/desktop/drag_payload.h"

#include <QDragMoveEvent>

namespace veldrane {

ProjectTreeView::ProjectTreeView(QWidget* parent) : QTreeView(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false); // a node takes what is dropped on it; nothing goes between two
    setEditTriggers(QAbstractItemView::EditKeyPressed);
    setExpandsOnDoubleClick(false); // a double click opens the editor of the node
    setContextMenuPolicy(Qt::CustomContextMenu);
}

void ProjectTreeView::CommitLabel()
{
    QWidget* editor = state() == EditingState ? indexWidget(currentIndex()) : nullptr;
    if (editor == nullptr)
        return;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void ProjectTreeView::startDrag(Qt::DropActions /*supported*/)
{
    if (const auto dragged = WhatIsDragged(currentIndex()))
        DragFrom(*this, *dragged);
}

void ProjectTreeView::dragEnterEvent(QDragEnterEvent* event)
{
    if (UnpackDragged(*event->mimeData()))
        event->accept(); // whether this or that node takes it is asked on the way
    else
        event->ignore();
}

void ProjectTreeView::dragMoveEvent(QDragMoveEvent* event)
{
    QTreeView::dragMoveEvent(event); // scrolls at the edges
    const auto dragged = UnpackDragged(*event->mimeData());
    const QModelIndex target = indexAt(event->position().toPoint());
    if (dragged && target.isValid() && MayDrop(*dragged, target)) {
        event->setDropAction(Qt::MoveAction);
        event->accept();
    } else {
        event->ignore();
    }
}

void ProjectTreeView::dropEvent(QDropEvent* event)
{
    const auto dragged = UnpackDragged(*event->mimeData());
    const QModelIndex target = indexAt(event->position().toPoint());
    stopAutoScroll();
    setState(NoState);
    if (!dragged || !target.isValid() || !MayDrop(*dragged, target)) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::MoveAction);
    event->accept();
    // The drag has to be over before a message can be answered.
    QMetaObject::invokeMethod(
        this, [this, thing = *dragged, where = QPersistentModelIndex(target)] { Dropped(thing, where); },
        Qt::QueuedConnection);
}

} // namespace veldrane
