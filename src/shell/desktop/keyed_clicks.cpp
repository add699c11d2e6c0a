#include "shell/desktop/keyed_clicks.h"

#include <QAbstractButton>
#include <QShortcutEvent>

namespace veldrane {

bool KeyedClicks::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous())
        return false;
    auto* button = qobject_cast<QAbstractButton*>(watched);
    if (button == nullptr)
        return false;
    if ((button->focusPolicy() & Qt::ClickFocus) != 0)
        button->setFocus(Qt::ShortcutFocusReason);
    button->click();
    return true;
}

} // namespace veldrane
