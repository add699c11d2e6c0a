#include "shell/desktop/main_window.h"

#include "shell/desktop/dropped_file.h"
#include "shell/desktop/preview_view.h"
#include "shell/desktop/project_tree_view.h"
#include "shell/desktop/qt_text.h"
#include "shell/desktop/row_list_view.h"
#include "ui_frm_main.h"

#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QShortcut>
#include <QWindow>

#include <utility>

namespace veldrane {
namespace {

// The tools that the preview's own actions do.
constexpr std::pair<std::string_view, std::string_view> kPreviewTools[] = {
    {"CopyLines", "CopyPreview"},
    {"CopyAll", "CopyAllPreview"},
    {"Find", "FindInPreview"},
    {"FindNext", "FindNextInPreview"},
    {"FindPrevious", "FindPreviousInPreview"},
    {"SavePreview", "SavePreview"},
    {"PrintPreview", "PrintPreview"},
};

QAction* PreviewAction(const PreviewView& preview, std::string_view tool)
{
    for (const auto& [name, action] : kPreviewTools)
        if (name == tool)
            return preview.Action(action);
    return nullptr;
}

} // namespace

MainWindow::MainWindow(frmMain& rules, const Application& application)
    : rules_(rules), application_(application), ui_(std::make_unique<Ui::frmMain>()),
      tree_([this](const NodeKey& node, const std::string& label) { return TakeLabel(node, label); }, icons_),
      lists_{RowListModel(kTableListHeader, icons_), RowListModel(kViewListHeader, icons_),
             RowListModel(kProcedureListHeader, icons_)}
{
    ui_->setupUi(this);
    setCentralWidget(ui_->fraProject);
    preview_ = new PreviewView(rules.lstPreview(),
                               {.Dialogs = application.Windows.Dialogs,
                                .Files = application.Files,
                                .Asking = application.Asking,
                                .CodePage = application.State.Generation.CodePage},
                               ui_->fraPreview);
    ui_->layPreview->addWidget(preview_);
    tools_ = new ToolActions(
        *this, [this](std::string_view tool) { rules_.actbar_Click(tool); },
        [this](std::string_view tool) { return PreviewAction(*preview_, tool); });
    tools_->KeepTreeKeysIn(*ui_->treMain);
    const auto* menuKey = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F10), this);
    connect(menuKey, &QShortcut::activated, this, [this] { OpenMenuOfFocus(); });
    BuildStatusBar();
    ConnectTree();
    ConnectLists();
    ConnectPanes();
    ListenToRules();
    RestorePlace();
}

// The widgets go later than what their signals reach here, and still tell that they hide.
MainWindow::~MainWindow()
{
    for (const QObject* child : findChildren<QObject*>())
        child->disconnect(this);
}

bool MainWindow::TakeLabel(const NodeKey& node, const std::string& label)
{
    const auto index = IndexOf(rules_.treMain().Nodes(), node);
    return index && rules_.treMain_AfterLabelEdit(*index, label);
}

void MainWindow::BuildStatusBar()
{
    iconPanel_ = new QLabel(this);
    iconPanel_->setObjectName(QStringLiteral("Icon"));
    statusPanel_ = new QLabel(this);
    statusPanel_->setObjectName(QStringLiteral("pnlStatus"));
    progress_ = new QProgressBar(this);
    progress_->setObjectName(QStringLiteral("Progress"));
    adPanel_ = new QLabel(this);
    adPanel_->setObjectName(QStringLiteral("adPanel"));
    adPanel_->setTextFormat(Qt::PlainText);
    statusPanel_->setTextFormat(Qt::PlainText);
    ui_->Status->addWidget(iconPanel_);
    ui_->Status->addWidget(statusPanel_, 1);
    ui_->Status->addWidget(progress_, 1);
    ui_->Status->addPermanentWidget(adPanel_);
}

void MainWindow::ConnectTree()
{
    ProjectTreeView& view = *ui_->treMain;
    view.setModel(&tree_);
    connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& current) {
        if (!showing_ && current.isValid())
            rules_.treMain_NodeClick(tree_.NodeIndex(current));
    });
    connect(&view, &QTreeView::expanded, this, [this](const QModelIndex& index) {
        tree_.ShowExpanded(index, true);
        if (!showing_)
            rules_.treMain_Expand(tree_.NodeIndex(index));
    });
    connect(&view, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
        tree_.ShowExpanded(index, false);
        if (!showing_)
            rules_.treMain_Collapse(tree_.NodeIndex(index));
    });
    connect(&view, &QTreeView::activated, this,
            [this](const QModelIndex& index) { rules_.treMain_DblClick(tree_.NodeIndex(index)); });
    connect(&view, &QWidget::customContextMenuRequested, this, [this](const QPoint& where) { OpenTreeMenu(where); });
    view.WhatIsDragged = [this](const QModelIndex& index) {
        return index.isValid() ? rules_.DraggedFromNode(tree_.NodeIndex(index)) : std::nullopt;
    };
    view.MayDrop = [this](const Dragged& dragged, const QModelIndex& target) {
        return rules_.MayDrop(dragged, tree_.NodeIndex(target));
    };
    view.Dropped = [this](const Dragged& dragged, const QModelIndex& target) {
        rules_.DropOn(dragged, tree_.NodeIndex(target));
    };
}

void MainWindow::ConnectLists()
{
    listViews_ = {ui_->lstTables, ui_->lstViews, ui_->lstSPs};
    for (std::size_t tab = 0; tab < kDataSourceTabs; ++tab) {
        RowListView& view = *listViews_.at(tab);
        view.setModel(&lists_.at(tab));
        connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& current) {
            if (!showing_ && current.isValid())
                rules_.lst_ItemClick(static_cast<std::size_t>(current.row()));
        });
        // The current row is not selected anew by a click, but it is clicked.
        connect(&view, &QTreeView::clicked, this,
                [this](const QModelIndex& index) { rules_.lst_ItemClick(static_cast<std::size_t>(index.row())); });
        connect(&view, &QTreeView::activated, this,
                [this](const QModelIndex& index) { rules_.lst_DblClick(static_cast<std::size_t>(index.row())); });
        connect(&view, &QWidget::customContextMenuRequested, this,
                [this, &view](const QPoint& where) { OpenListMenu(view, where); });
        connect(&view, &RowListView::HeaderClicked, this, [this] { rules_.lst_ColumnClick(); });
        view.WhatIsDragged = [this](const QModelIndex& index) {
            return index.isValid() ? rules_.DraggedFromRow(static_cast<std::size_t>(index.row())) : std::nullopt;
        };
    }
    connect(ui_->tabDatasource, &QTabWidget::currentChanged, this, [this](int tab) {
        if (!showing_)
            rules_.tabDatasource_Click(static_cast<DataSourceTab>(tab));
    });
}

void MainWindow::ConnectPanes()
{
    const auto follow = [this](QDockWidget* dock, bool PaneManagement::*pane) {
        connect(dock->toggleViewAction(), &QAction::triggered, this,
                [this, pane](bool shown) { rules_.SetPane(pane, shown); });
        // Its own button closes a dock without that action.
        connect(dock, &QDockWidget::visibilityChanged, this, [this, dock, pane](bool) {
            if (!showing_ && isVisible() && dock->isHidden())
                rules_.SetPane(pane, false);
        });
    };
    follow(ui_->panDatasource, &PaneManagement::pmDatasourceVisible);
    follow(ui_->panPreview, &PaneManagement::pmPreviewVisible);
    connect(ui_->cmbNavigate, &QComboBox::activated, this,
            [this](int entry) { rules_.cmbNavigate_Click(static_cast<std::size_t>(entry)); });
    connect(preview_, &PreviewView::MonospacedFontWanted, this,
            [this] { rules_.UseFontNamed(FromQt(QFontDatabase::systemFont(QFontDatabase::FixedFont).family())); });
    for (const std::string_view tool : {"AddClassTo", "MoveClassTo"})
        connect(tools_->Choices(tool), &QMenu::aboutToShow, this,
                [this, tool] { ListChoices(*tools_->Choices(tool), tool); });
}

// A drop without a mouse: the same thing, and the places that take it.
void MainWindow::ListChoices(QMenu& menu, std::string_view tool)
{
    menu.clear();
    const auto dragged = rules_.DraggedFromSelection(tool);
    const std::vector<DropTarget> targets = dragged ? rules_.Targets(*dragged) : std::vector<DropTarget>{};
    for (const DropTarget& target : targets)
        menu.addAction(icons_.Of(rules_.treMain().Nodes().at(target.Node).Icon),
                       ToQt(target.Caption).replace(u'&', QStringLiteral("&&")), this,
                       [this, target] { rules_.DropOn(target); });
    if (targets.empty())
        menu.addAction(tr("(nothing to choose)"))->setEnabled(false);
}

void MainWindow::OpenTreeMenu(const QPoint& where)
{
    const QModelIndex index = ui_->treMain->indexAt(where);
    if (!index.isValid())
        return;
    const TreeNode& node = tree_.Node(index);
    const auto name = ContextMenuOf(node);
    if (!name)
        return;
    QMenu menu(this);
    menu.setObjectName(ToQt(*name));
    tools_->AddTo(menu, *name, [&](std::string_view tool) { return rules_.actBar().IsEnabledOn(node, tool); });
    menu.exec(ui_->treMain->viewport()->mapToGlobal(where));
}

void MainWindow::OpenListMenu(RowListView& list, const QPoint& where)
{
    const QModelIndex index = list.indexAt(where);
    if (!index.isValid() || !rules_.HasMenu(static_cast<std::size_t>(index.row())))
        return;
    QMenu menu(this);
    menu.setObjectName(ToQt(context_menu::kData));
    tools_->AddTo(menu, context_menu::kData, [this](std::string_view tool) { return rules_.actBar().IsEnabled(tool); });
    menu.exec(list.viewport()->mapToGlobal(where));
}

// Qt knows the menu key alone, which many keyboards lack.
void MainWindow::OpenMenuOfFocus()
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, mapToGlobal(QPoint()));
    QApplication::sendEvent(windowHandle(), &event);
}

const QListView& MainWindow::PreviewList() const
{
    return preview_->List();
}

void MainWindow::StartLabelEdit()
{
    ui_->treMain->setFocus();
    ui_->treMain->edit(ui_->treMain->currentIndex());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (rules_.QueryUnload()) {
        StorePlace();
        event->accept();
    } else {
        event->ignore();
    }
}

// A dialog works on the project that is open, so nothing takes its place meanwhile.
void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (QApplication::activeModalWidget() == nullptr && !DroppedFile(event->mimeData()).empty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    // The other program waits for the end of its drag, and what follows may ask something.
    QMetaObject::invokeMethod(
        this,
        [this, path = DroppedFile(event->mimeData())] {
            if (QApplication::activeModalWidget() == nullptr)
                rules_.FileDropped(path);
        },
        Qt::QueuedConnection);
}

} // namespace veldrane
