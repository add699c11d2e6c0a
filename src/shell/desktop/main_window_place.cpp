#include "shell/desktop/main_window.h"
#include "shell/main_window/window_geometry.h"
#include "ui_frm_main.h"

#include <QGuiApplication>
#include <QScreen>

// Where the window and its panes were.
namespace veldrane {
namespace {

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
    const auto place = [this](QDockWidget& dock, const PanePlace& pane, const PanePlace& other) {
        if (!pane.Width)
            return;
        // A pane that was dragged to the other side stood beyond the other one.
        if (pane.Left && other.Left)
            addDockWidget(*pane.Left < *other.Left ? Qt::LeftDockWidgetArea : Qt::RightDockWidgetArea, &dock);
        resizeDocks({&dock}, {*pane.Width}, Qt::Horizontal);
    };
    place(*ui_->panDatasource, geometry.Datasource, geometry.Preview);
    place(*ui_->panPreview, geometry.Preview, geometry.Datasource);
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
