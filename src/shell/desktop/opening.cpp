#include "shell/desktop/opening.h"

#include <QShortcut>

namespace veldrane {

void OnOpening(QAbstractItemView& view, std::function<void(const QModelIndex&)> open)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(key, &view);
        shortcut->setContext(Qt::WidgetShortcut); // Return in a label that is being typed takes it
        QObject::connect(shortcut, &QShortcut::activated, &view, [&view, open] {
            if (view.currentIndex().isValid())
                open(view.currentIndex());
        });
    }
    QObject::connect(&view, &QAbstractItemView::doubleClicked, &view, std::move(open));
}

} // namespace veldrane
