#include "shell/desktop/arrow_over.h"

#include <QApplication>
#include <QEvent>

namespace veldrane {

ArrowOver::ArrowOver(QWidget& widget) : QObject(&widget), widget_(widget)
{
    widget.installEventFilter(this);
}

// Under a dialog the pointer is the dialog's.
void ArrowOver::Refresh()
{
    const QWidget* dialog = QApplication::activeModalWidget();
    const QCursor* shown = QApplication::overrideCursor();
    if (shown == nullptr || (dialog != nullptr && dialog != widget_.window()))
        return;
    const auto shape = widget_.underMouse() && widget_.isEnabled() ? Qt::ArrowCursor : Qt::WaitCursor;
    if (shown->shape() != shape)
        QApplication::changeOverrideCursor(shape);
}

bool ArrowOver::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::Enter || type == QEvent::Leave || type == QEvent::EnabledChange)
        Refresh();
    return QObject::eventFilter(watched, event);
}

} // namespace veldrane
