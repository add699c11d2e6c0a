#include "keyboard_way.h"

#include <QAccessible>
#include <QDockWidget>
#include <QTabBar>

#include <algorithm>

namespace veldrane::testing {
namespace {

std::string NameOf(const QWidget& control)
{
    return std::string(control.metaObject()->className()) + " " + control.objectName().toStdString();
}

// What Qt has made for a control's own use, such as the line of a spin box, is no control of the window.
bool IsInner(const QWidget& control)
{
    return control.focusProxy() != nullptr || control.objectName().startsWith(QStringLiteral("qt_"));
}

bool TakesTab(const QWidget& control, const QWidget& window)
{
    return (control.focusPolicy() & Qt::TabFocus) != 0 && control.window() == &window && &control != &window &&
           control.isEnabled() && control.isVisibleTo(&window) && !IsInner(control);
}

std::vector<QWidget*> TabOrder(QWidget& window)
{
    std::vector<QWidget*> order;
    for (QWidget* next = window.nextInFocusChain(); next != &window; next = next->nextInFocusChain())
        if (TakesTab(*next, window))
            order.push_back(next);
    return order;
}

bool HasName(QWidget& control)
{
    if (const auto* tabs = qobject_cast<const QTabBar*>(&control))
        return !tabs->tabText(tabs->currentIndex()).isEmpty();
    const QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&control);
    return face != nullptr && !face->text(QAccessible::Name).trimmed().isEmpty();
}

QRect PlaceIn(const QWidget& window, const QWidget& control)
{
    return {control.mapTo(&window, QPoint(0, 0)), control.size()};
}

bool GoesBack(const QRect& from, const QRect& to)
{
    const bool isAbove = to.bottom() <= from.top();
    const bool isBelow = to.top() >= from.bottom();
    const bool isLeft = to.right() <= from.left();
    const bool isRight = to.left() >= from.right();
    return isAbove ? !isRight : !isBelow && isLeft;
}

// Panes lie where the person has put them.
const QDockWidget* PaneOf(const QWidget& control)
{
    const QWidget* above = &control;
    while (above != nullptr && qobject_cast<const QDockWidget*>(above) == nullptr)
        above = above->parentWidget();
    return qobject_cast<const QDockWidget*>(above);
}

} // namespace

std::vector<std::string> NamelessControls(QWidget& window)
{
    std::vector<std::string> nameless;
    for (QWidget* control : TabOrder(window))
        if (!HasName(*control))
            nameless.push_back(NameOf(*control));
    return nameless;
}

std::vector<std::string> StepsAgainstReading(QWidget& window)
{
    std::vector<std::string> steps;
    const std::vector<QWidget*> order = TabOrder(window);
    for (std::size_t i = 1; i < order.size(); ++i) {
        const QWidget& from = *order[i - 1];
        const QWidget& to = *order[i];
        if (PaneOf(from) == PaneOf(to) && GoesBack(PlaceIn(window, from), PlaceIn(window, to)))
            steps.push_back(NameOf(from) + " -> " + NameOf(to));
    }
    return steps;
}

} // namespace veldrane::testing
