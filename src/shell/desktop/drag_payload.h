#pragma once

#include "shell/main_window/frm_main.h"

#include <QAbstractItemView>
#include <QMimeData>
#include <memory>
#include <optional>

// What is dragged from the lists and the tree of the main window. It means something within this program alone.
namespace veldrane {

[[nodiscard]] std::unique_ptr<QMimeData> PackDragged(const Dragged& dragged);

// Nothing if the data comes from elsewhere.
[[nodiscard]] std::optional<Dragged> UnpackDragged(const QMimeData& data);

// Drags from the view until the mouse is let go, with the cursor kDragIcon and, where the thing can't be dropped,
// kNoDropIcon.
void DragFrom(QAbstractItemView& view, const Dragged& dragged);

} // namespace veldrane
