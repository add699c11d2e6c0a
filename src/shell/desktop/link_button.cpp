#include "shell/desktop/link_button.h"

#include <QEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace veldrane {
namespace {

constexpr int kMargin = 3;

} // namespace

LinkButton::LinkButton(QWidget* parent) : QPushButton(parent)
{
    setFlat(true);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

bool LinkButton::IsLit() const
{
    return underMouse() || hasFocus();
}

QSize LinkButton::sizeHint() const
{
    return fontMetrics().size(Qt::TextShowMnemonic, text()).grownBy({kMargin, kMargin, kMargin, kMargin});
}

void LinkButton::paintEvent(QPaintEvent* /*event*/)
{
    QStylePainter painter(this);
    QFont letters = font();
    letters.setUnderline(IsLit());
    painter.setFont(letters);
    painter.drawItemText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, palette(), isEnabled(), text(),
                         IsLit() ? QPalette::Link : QPalette::WindowText);
    if (!hasFocus())
        return;
    QStyleOptionFocusRect frame;
    frame.initFrom(this);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, frame);
}

bool LinkButton::event(QEvent* event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave)
        update();
    return QPushButton::event(event);
}

} // namespace veldrane
