#include "shell/desktop/qt_mouse_pointer.h"

#include <QApplication>

#include <utility>

namespace veldrane {

QtMousePointer::~QtMousePointer()
{
    if (shown_ == PointerShape::Hourglass)
        QApplication::restoreOverrideCursor();
}

PointerShape QtMousePointer::Show(PointerShape shape)
{
    if (shape == shown_)
        return shown_;
    if (shape == PointerShape::Hourglass)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
    return std::exchange(shown_, shape);
}

} // namespace veldrane
