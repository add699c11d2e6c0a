#include "shell/desktop/drag_payload.h"

#include "shell/desktop/icons.h"

#include <QDrag>

namespace veldrane {
namespace {

// The thing itself travels along: a drag never leaves the program.
class DraggedData : public QMimeData
{
  public:
    explicit DraggedData(Dragged dragged) : dragged_(std::move(dragged)) {}

    [[nodiscard]] const Dragged& Thing() const { return dragged_; }

  private:
    Dragged dragged_;
};

} // namespace

std::unique_ptr<QMimeData> PackDragged(const Dragged& dragged)
{
    auto data = std::make_unique<DraggedData>(dragged);
    data->setData(QStringLiteral("application/x-veldrane-dragged"), {}); // a drag without a format is none
    return data;
}

std::optional<Dragged> UnpackDragged(const QMimeData& data)
{
    const auto* dragged = dynamic_cast<const DraggedData*>(&data);
    return dragged == nullptr ? std::nullopt : std::optional<Dragged>(dragged->Thing());
}

void DragFrom(QAbstractItemView& view, const Dragged& dragged)
{
    QDrag drag(&view);
    drag.setMimeData(PackDragged(dragged).release());
    drag.setDragCursor(PictureCursor(kDragIcon).pixmap(), Qt::MoveAction);
    drag.setDragCursor(PictureCursor(kNoDropIcon).pixmap(), Qt::IgnoreAction);
    drag.exec(Qt::MoveAction);
}

} // namespace veldrane
