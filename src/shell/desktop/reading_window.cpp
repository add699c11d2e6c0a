#include "shell/desktop/reading_window.h"

namespace veldrane {

ReadingWindow::ReadingWindow(CatalogReading& reading, QWidget* parent)
    : reading_(reading), window_(Cancelling::Offered, parent), changed_(reading.Changed.Connect([this] { Refresh(); }))
{
    QObject::connect(&window_, &LoadingWindow::Cancelled, &window_, [this] { reading_.Cancel(); });
}

void ReadingWindow::Refresh()
{
    if (reading_.Visible() == window_.isVisible()) {
        window_.SetStatus(reading_.Text());
        window_.ServeEvents();
        return;
    }
    if (reading_.Visible()) {
        window_.Begin(Cancelling::Offered);
        window_.SetStatus(reading_.Text());
        window_.ShowBusy();
    }
    window_.Show(reading_.Visible() ? Visibility::Shown : Visibility::Hidden);
}

} // namespace veldrane
