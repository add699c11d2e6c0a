#pragma once

#include "shell/main_window/frm_main.h"

#include <QTreeView>

#include <functional>
#include <optional>

namespace veldrane {

// A list of the data source's tables, views or procedures under its one header. Its model is a RowListModel.
class RowListView : public QTreeView
{
    Q_OBJECT

  public:
    explicit RowListView(QWidget* parent = nullptr);

    // What is dragged from a row; nothing for a row that can't be.
    std::function<std::optional<Dragged>(const QModelIndex&)> WhatIsDragged = [](const QModelIndex&) {
        return std::nullopt;
    };

    // Shows by the header's arrow how the rows are sorted; none where they are not.
    void ShowOrder(SortOrder order);

  Q_SIGNALS:
    void HeaderClicked();

  protected:
    void startDrag(Qt::DropActions supported) override;
};

} // namespace veldrane
