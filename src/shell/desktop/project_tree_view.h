#pragma once

#include "shell/main_window/frm_main.h"

#include <QTreeView>
#include <functional>

namespace veldrane {

// The project tree. Its model is a ProjectTreeModel. What may be dropped where is up to the rules that it is handed.
class ProjectTreeView : public QTreeView
{
    Q_OBJECT

  public:
    explicit ProjectTreeView(QWidget* parent = nullptr);

    std::function<bool(const Dragged&, const QModelIndex& target)> MayDrop = [](const Dragged&, const QModelIndex&) {
        return false;
    };
    std::function<void(const Dragged&, const QModelIndex& target)> Dropped = [](const Dragged&, const QModelIndex&) {};
    std::function<std::optional<Dragged>(const QModelIndex&)> WhatIsDragged = [](const QModelIndex&) {
        return std::nullopt;
    };

    // Takes the label that is being typed, if one is.
    void CommitLabel();

  protected:
    void startDrag(Qt::DropActions supported) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
};

} // namespace veldrane
