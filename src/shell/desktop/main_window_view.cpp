#include "shell/desktop/main_window.h"
#include "shell/desktop/plain_tool_tip.h"
#include "shell/desktop/preview_view.h"
#include "shell/desktop/qt_text.h"
#include "shell/desktop/row_list_view.h"
#include "ui_frm_main.h"

#include <QLabel>
#include <QProgressBar>
#include <QScopedValueRollback>

// What the window shows of its rules.
namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

constexpr int kPanelIcon = 16; // pixels
constexpr int kWidestAd = 300; // pixels; a panel's text is the least width of the window

} // namespace

void MainWindow::ListenToRules()
{
    // A project that is saved, or new, tells nobody that it is no more modified; but then something is shown anew.
    listening_.push_back(rules_.Changed.Connect([this](WindowPart part) {
        Show(part);
        ShowModified();
    }));
    listening_.push_back(rules_.Status().Changed.Connect([this] {
        ShowStatus();
        ShowModified();
    }));
    listening_.push_back(rules_.Recent().Changed.Connect([this] { tools_->ShowRecent(rules_.Recent().Tools()); }));
    for (const WindowPart part : {WindowPart::Caption, WindowPart::Tree, WindowPart::Lists, WindowPart::Navigator,
                                  WindowPart::PreviewLook, WindowPart::Menus, WindowPart::Panes})
        Show(part);
    tools_->ShowRecent(rules_.Recent().Tools());
    ShowStatus();
}

void MainWindow::Show(WindowPart part)
{
    const QScopedValueRollback showing(showing_, true);
    switch (part) {
    case WindowPart::Caption:
        return ShowCaption();
    case WindowPart::Tree:
        tree_.Show(rules_.treMain().Nodes());
        return ShowTreeState();
    case WindowPart::TreeState:
        return ShowTreeState();
    case WindowPart::Lists:
        return ShowLists();
    case WindowPart::Navigator:
        return ShowNavigator();
    case WindowPart::PreviewLook:
        return preview_->SetLook(rules_.Look());
    case WindowPart::Menus:
        return ShowTools();
    case WindowPart::Panes:
        return ShowPanes();
    }
}

void MainWindow::ShowTools()
{
    tools_->ShowStates(rules_.actBar());
    for (const std::string_view name : {"Undo", "Redo"})
        if (const Tool* tool = FindTool(name))
            tools_->ShowCaption(*tool, rules_.ToolCaption(*tool));
}

// The project may be another one from now on.
void MainWindow::ShowCaption()
{
    setWindowTitle(ToQt(rules_.Caption()).replace(u"[*]"_s, u"[*][*]"_s) + u"[*]"_s);
    ShowModified();
    projectModified_ = rules_.Project().ProjectModified.Connect([this] { ShowModified(); });
}

void MainWindow::ShowModified()
{
    setWindowModified(rules_.Project().Modified());
}

void MainWindow::ShowTreeState()
{
    const TreeState& state = rules_.treMain();
    QTreeView& view = *ui_->treMain;
    for (std::size_t node = 0; node < state.Nodes().size(); ++node) {
        const QModelIndex index = tree_.IndexOfNode(node);
        if (view.isExpanded(index) != state.IsExpanded(node))
            view.setExpanded(index, state.IsExpanded(node));
        tree_.Mark(node, state.IsMarked(node));
    }
    if (state.Selected()) {
        const QModelIndex selected = tree_.IndexOfNode(*state.Selected());
        if (view.currentIndex() != selected)
            view.setCurrentIndex(selected);
    }
}

void MainWindow::ShowLists()
{
    const DataSourcePane& pane = rules_.Datasource();
    for (std::size_t tab = 0; tab < kDataSourceTabs; ++tab) {
        lists_.at(tab).Show(pane.Rows(static_cast<DataSourceTab>(tab)));
        listViews_.at(tab)->ShowOrder(pane.Order(static_cast<DataSourceTab>(tab)));
    }
    const auto shown = static_cast<std::size_t>(pane.Tab());
    ui_->tabDatasource->setCurrentIndex(static_cast<int>(shown));
    if (const auto row = pane.SelectedRow())
        listViews_.at(shown)->setCurrentIndex(lists_.at(shown).index(static_cast<int>(*row)));
}

void MainWindow::ShowNavigator()
{
    ui_->cmbNavigate->clear();
    for (const NavigationRow& row : rules_.cmbNavigate())
        ui_->cmbNavigate->addItem(icons_.Of(row.Icon), ToQt(row.Caption));
    ui_->cmbNavigate->setEnabled(!rules_.cmbNavigate().empty());
}

void MainWindow::ShowStatus()
{
    const StatusBar& status = rules_.Status();
    const StatusProgress& progress = status.Progress();
    iconPanel_->setPixmap(status.Icon().empty() ? QPixmap() : icons_.Of(status.Icon()).pixmap(kPanelIcon));
    statusPanel_->setText(ToQt(status.Status()));
    statusPanel_->setVisible(!progress.Visible);
    progress_->setVisible(progress.Visible);
    progress_->setRange(progress.Minimum, progress.Maximum);
    progress_->setValue(progress.Value);
    const QString ad = ToQt(status.adPanel());
    adPanel_->setText(adPanel_->fontMetrics().elidedText(ad, Qt::ElideRight, kWidestAd));
    adPanel_->setToolTip(adPanel_->text() == ad ? QString() : PlainToolTip(ad.trimmed()));
    ui_->Status->repaint(); // a file is read and written without events in between
}

} // namespace veldrane
