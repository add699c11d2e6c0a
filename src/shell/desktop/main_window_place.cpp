#include "shell/desktop/main_window.h"
#include "shell/desktop/screen_areas.h"
#include "ui_frm_main.h"

// Where the window and its panes are, and were.
namespace veldrane {
namespace {

// The usual parts of the window that the panes have: a fifth and a half.
constexpr int kUsualDatasource = 5;
constexpr int kUsualPreview = 2;

constexpr qsizetype kSealSize = sizeof(quint16);
constexpr auto kLetters = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

WindowState StateOf(const QWidget& window)
{
    if (window.isMinimized())
        return WindowState::Minimized;
    return window.isMaximized() ? WindowState::Maximized : WindowState::Normal;
}

PanePlace PlaceOf(const QDockWidget& dock, const PanePlace& before)
{
    return dock.isFloating() ? before : PanePlace{.Width = dock.width(), .Left = dock.x()};
}

QByteArray SealOf(const QByteArray& state)
{
    const quint16 sum = qChecksum(state);
    return QByteArray(reinterpret_cast<const char*>(&sum), kSealSize);
}

// The window's state as letters. It is sealed, for Qt takes numbers that no window has as it finds them.
std::string LayoutOf(const QMainWindow& window)
{
    const QByteArray state = window.saveState();
    return (SealOf(state) + state).toBase64(kLetters).toStdString();
}

bool RestoreLayout(QMainWindow& window, const std::string& layout)
{
    const QByteArray bytes = QByteArray::fromBase64(QByteArray::fromStdString(layout), kLetters);
    const QByteArray state = bytes.mid(kSealSize);
    return !state.isEmpty() && bytes.startsWith(SealOf(state)) && window.restoreState(state);
}

} // namespace

void MainWindow::FollowDock(Pane& pane)
{
    connect(pane.Dock->toggleViewAction(), &QAction::triggered, this,
            [this, &pane](bool shown) { rules_.SetPane(pane.Shown, shown); });
    pane.Dock->installEventFilter(this);
}

// The own button of a dock closes it without its action. Hidden it is on other occasions, too: when it begins to float.
bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Close && isVisible())
        for (const Pane* pane : {&datasourcePane_, &previewPane_})
            if (watched == pane->Dock)
                rules_.SetPane(pane->Shown, false);
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::ShowPane(Pane& pane)
{
    const bool shown = rules_.Panes().*pane.Shown;
    pane.Tool->setChecked(shown);
    if (pane.Dock->isHidden() != shown)
        return;
    if (!shown && isVisible())
        pane.Place = PlaceOf(*pane.Dock, pane.Place);
    pane.Dock->setVisible(shown);
    if (shown && pane.Place.Width && !pane.Dock->isFloating())
        resizeDocks({pane.Dock}, {*pane.Place.Width}, Qt::Horizontal);
}

void MainWindow::ShowPanes()
{
    ShowPane(datasourcePane_);
    ShowPane(previewPane_);
    if (isVisible())
        WritePanePlaces(application_.UserSettings, application_.Errors, previewPane_.Place, datasourcePane_.Place);
    ui_->cmbNavigate->setVisible(rules_.Panes().pmNavigatorVisible);
    tools_->Action("ViewNavigator")->setChecked(rules_.Panes().pmNavigatorVisible);
}

void MainWindow::RestorePlace()
{
    const WindowGeometry geometry = ReadWindowGeometry(application_.UserSettings, ScreenAreas());
    if (geometry.Window)
        setGeometry(geometry.Window->Left, geometry.Window->Top, geometry.Window->Width, geometry.Window->Height);
    if (geometry.State == WindowState::Maximized)
        setWindowState(Qt::WindowMaximized);
    datasourcePane_.Place = geometry.Datasource;
    previewPane_.Place = geometry.Preview;
    if (!RestoreLayout(*this, geometry.PaneLayout))
        ArrangePanes();
}

// By what is known without the whole layout: sides and widths.
void MainWindow::ArrangePanes()
{
    const auto place = [this](const Pane& pane, const Pane& other) {
        // A pane that was dragged to the other side stood beyond the other one.
        if (pane.Place.Left && other.Place.Left && *pane.Place.Left != *other.Place.Left)
            addDockWidget(*pane.Place.Left < *other.Place.Left ? Qt::LeftDockWidgetArea : Qt::RightDockWidgetArea,
                          pane.Dock);
    };
    place(datasourcePane_, previewPane_);
    place(previewPane_, datasourcePane_);
    resizeDocks({datasourcePane_.Dock, previewPane_.Dock},
                {datasourcePane_.Place.Width.value_or(width() / kUsualDatasource),
                 previewPane_.Place.Width.value_or(width() / kUsualPreview)},
                Qt::Horizontal);
}

void MainWindow::StorePlace()
{
    for (Pane* pane : {&datasourcePane_, &previewPane_})
        if (!pane->Dock->isHidden())
            pane->Place = PlaceOf(*pane->Dock, pane->Place);
    const QRect normal = isMaximized() || isMinimized() ? normalGeometry() : geometry();
    WriteWindowGeometry(
        application_.UserSettings, application_.Errors,
        {.Window =
             ScreenArea{.Left = normal.left(), .Top = normal.top(), .Width = normal.width(), .Height = normal.height()},
         .State = StateOf(*this),
         .Preview = previewPane_.Place,
         .Datasource = datasourcePane_.Place,
         .PaneLayout = LayoutOf(*this),
         .Shown = rules_.Panes()});
}

} // namespace veldrane
