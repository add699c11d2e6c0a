#include "shell/desktop/room_for_dialog.h"

#include <QApplication>
#include <QScreen>

namespace veldrane {
namespace {

constexpr int kPartOfScreen = 3;

} // namespace

int RoomForDialog::made_ = 0;

RoomForDialog::RoomForDialog() : behind_(WindowInFront()), hasArrow_(QApplication::overrideCursor() != nullptr)
{
    ++made_;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (!window->isVisible() || !window->windowFlags().testFlag(Qt::WindowStaysOnTopHint))
            continue;
        window->hide();
        hidden_.emplace_back(window);
    }
    if (hasArrow_)
        QApplication::setOverrideCursor(Qt::ArrowCursor);
}

RoomForDialog::~RoomForDialog()
{
    --made_;
    if (hasArrow_)
        QApplication::restoreOverrideCursor();
    for (const QPointer<QWidget>& window : hidden_) {
        if (window)
            window->show();
    }
    // Where two dialogs close at once, a window manager may leave the keyboard with nobody.
    if (behind_ && behind_->isVisible())
        behind_->activateWindow();
}

QWidget* WindowInFront()
{
    QWidget* dialog = QApplication::activeModalWidget();
    return dialog != nullptr ? dialog : QApplication::activeWindow();
}

int MostHeightOfWords(const QWidget& dialog)
{
    return dialog.screen()->availableGeometry().height() / kPartOfScreen;
}

} // namespace veldrane
