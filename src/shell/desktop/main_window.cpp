#include "shell/desktop/main_window.h"

#include "shell/desktop/dropped_file.h"
#include "shell/desktop/opening.h"
#include "shell/desktop/preview_view.h"
#include "shell/desktop/project_tree_view.h"
#include "shell/desktop/qt_font.h"
#include "shell/desktop/qt_text.h"
#include "shell/desktop/row_list_view.h"
#include "ui_frm_main.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QShortcut>
#include <QWindow>

#include <utility>

namespace veldrane {
namespace {

// A dialog works on the project that is open, and so does what the hourglass is shown for: nothing takes its place
// meanwhile.
bool IsBusy()
{
    return QApplication::activeModalWidget() != nullptr || QApplication::overrideCursor() != nullptr;
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
        *this, [this](std::string_view tool) { RunTool(tool); },
        [this](std::string_view tool) { return preview_->Action(tool); });
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

// A tool finds the project as the person sees it.
void MainWindow::RunTool(std::string_view tool)
{
    ui_->treMain->CommitLabel();
    rules_.actbar_Click(tool);
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
    statusPanel_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // its text asks for no wider window
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
    OnOpening(view, [this](const QModelIndex& index) { rules_.treMain_DblClick(tree_.NodeIndex(index)); });
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
        OnOpening(view,
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
    datasourcePane_ = {.Dock = ui_->panDatasource,
                       .Shown = &PaneManagement::pmDatasourceVisible,
                       .Tool = tools_->Action("ViewDataSourceTables"),
                       .Place = {}};
    previewPane_ = {.Dock = ui_->panPreview,
                    .Shown = &PaneManagement::pmPreviewVisible,
                    .Tool = tools_->Action("ViewPreviewPane"),
                    .Place = {}};
    FollowDock(datasourcePane_);
    FollowDock(previewPane_);
    connect(ui_->cmbNavigate, &QComboBox::activated, this,
            [this](int entry) { rules_.cmbNavigate_Click(static_cast<std::size_t>(entry)); });
    connect(preview_, &PreviewView::MonospacedFontWanted, this, [this] { rules_.UseFontNamed(MonospacedFontName()); });
    for (const std::string_view tool : {"AddClassTo", "MoveClassTo"})
        connect(tools_->Choices(tool), &QMenu::aboutToShow, this,
                [this, tool] { ListChoices(*tools_->Choices(tool), tool); });
}

QListView& MainWindow::PreviewList() const
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
    if (IsBusy()) // a window manager closes what is blocked, too
        return event->ignore();
    ui_->treMain->CommitLabel();
    if (rules_.QueryUnload()) {
        StorePlace();
        event->accept();
    } else {
        event->ignore();
    }
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!IsBusy() && !DroppedFile(event->mimeData()).empty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    // The other program waits for the end of its drag, and what follows may ask something.
    QMetaObject::invokeMethod(
        this,
        [this, path = DroppedFile(event->mimeData())] {
            if (IsBusy())
                return;
            ui_->treMain->CommitLabel();
            rules_.FileDropped(path);
        },
        Qt::QueuedConnection);
}

} // namespace veldrane
