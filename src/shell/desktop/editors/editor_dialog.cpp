#include "shell/desktop/editors/editor_dialog.h"

#include "shell/desktop/qt_text.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTabWidget>

namespace veldrane {
namespace {

// Brings the pages to the front on which the control lies.
void ShowPagesOf(QWidget& control)
{
    for (QWidget* page = &control; page != nullptr; page = page->parentWidget())
        for (QWidget* above = page->parentWidget(); above != nullptr; above = above->parentWidget())
            if (auto* tabs = qobject_cast<QTabWidget*>(above); tabs != nullptr && tabs->indexOf(page) >= 0)
                tabs->setCurrentWidget(page);
}

} // namespace

void EditorDialog::reject()
{
    if (MayCancel())
        QDialog::reject();
}

void EditorDialog::ConnectButtons(QAbstractButton& ok, QAbstractButton& cancel)
{
    connect(&ok, &QAbstractButton::clicked, this, &EditorDialog::OK);
    connect(&cancel, &QAbstractButton::clicked, this, &EditorDialog::reject);
}

void EditorDialog::Follow(Signal<>& changed)
{
    connections_.push_back(changed.Connect([this] { ShowState(); }));
}

void EditorDialog::Follow(Signal<std::string_view>& focusWanted)
{
    connections_.push_back(focusWanted.Connect([this](std::string_view control) { FocusOn(control); }));
}

void EditorDialog::FocusOn(std::string_view control)
{
    auto* widget = control.empty() ? nullptr : findChild<QWidget*>(NameToQt(control));
    if (widget == nullptr)
        return;
    ShowPagesOf(*widget);
    widget->setFocus(Qt::OtherFocusReason);
    if (auto* line = qobject_cast<QLineEdit*>(widget))
        line->selectAll();
}

void EditorDialog::OK()
{
    const bool isDone = MayAccept();
    ShowState(); // names were cleaned
    if (isDone)
        accept();
}

} // namespace veldrane
