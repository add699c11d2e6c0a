#include "shell/desktop/main_window.h"
#include "shell/main_window/window_geometry.h"
#include "ui_frm_main.h"

#include <QGuiApplication>
#include <QScreen>

// Where the window and its panes were.
namespace veldrane {
namespace {

// The usual parts of the window that the panes have: a fifth and a half.
constexpr int kUsualDatasource = 5;
constexpr int kUsualPreview = 2;

std::vector<ScreenArea> Screens()
{
    std::vector<ScreenArea> areas;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect area = screen->availableGeometry();
        areas.push_back({.Left = area.left(), .Top = area.top(), .Width = area.width(), .Height = area.height()});
    }
    return areas;
}

WindowState StateOf(const QWidget& window)
{
    if (window.isMinimized())
        return WindowState::Minimized;
    return window.isMaximized() ? WindowState::Maximized : WindowState::Normal;
}

PanePlace PlaceOf(const QDockWidget& dock)
{
    return dock.isHidden() ? PanePlace{} : PanePlace{.Width = dock.width(), .Left = dock.x()};
}

} // namespace

void MainWindow::RestorePlace()
{
    const WindowGeometry geometry = ReadWindowGeometry(application_.UserSettings, Screens());
    if (geometry.Window)
        setGeometry(geometry.Window->Left, geometry.Window->Top, geometry.Window->Width, geometry.Window->Height);
    QList<int> widths;
    const auto place = [&](QDockWidget& dock, const PanePlace& pane, const PanePlace& other, int usualWidth) {
        // A pane that was dragged to the other side stood beyond the other one.
        if (pane.Left && other.Left)
            addDockWidget(*pane.Left < *other.Left ? Qt::LeftDockWidgetArea : Qt::RightDockWidgetArea, &dock);
        widths.push_back(pane.Width.value_or(usualWidth));
    };
    place(*ui_->panDatasource, geometry.Datasource, geometry.Preview, width() / kUsualDatasource);
    place(*ui_->panPreview, geometry.Preview, geometry.Datasource, width() / kUsualPreview);
    resizeDocks({ui_->panDatasource, ui_->panPreview}, widths, Qt::Horizontal);
    if (geometry.State == WindowState::Maximized)
        setWindowState(Qt::WindowMaximized);
}

void MainWindow::StorePlace()
{
    const QRect normal = isMaximized() || isMinimized() ? normalGeometry() : geometry();
    WriteWindowGeometry(
        application_.UserSettings, application_.Errors,
        {.Window =
             ScreenArea{.Left = normal.left(), .Top = normal.top(), .Width = normal.width(), .Height = normal.height()},
         .State = StateOf(*this),
         .Preview = PlaceOf(*ui_->panPreview),
         .Datasource = PlaceOf(*ui_->panDatasource)});
}

} // namespace veldrane
