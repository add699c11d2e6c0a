#include "shell/desktop/preview_view.h"

#include "shell/desktop/dress_action.h"
#include "shell/desktop/preview_printing.h"
#include "shell/desktop/qt_color.h"
#include "shell/desktop/qt_font.h"
#include "shell/desktop/qt_text.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>

#include <utility>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

std::vector<std::size_t> SelectedRows(const QListView& list)
{
    std::vector<std::size_t> rows;
    for (const QModelIndex& index : list.selectionModel()->selectedRows())
        rows.push_back(static_cast<std::size_t>(index.row()));
    return rows;
}

void ToClipboard(const std::string& text)
{
    QGuiApplication::clipboard()->setText(NameToQt(text));
}

} // namespace

PreviewView::PreviewView(PreviewPane& pane, const PreviewSaving& saving, QWidget* parent)
    : QWidget(parent), pane_(pane), saving_(saving), find_(pane), model_(pane), delegate_(pane, find_, nullptr),
      findBar_(find_, nullptr)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(&lstPreview_, 1);
    layout->addWidget(&findBar_);
    findBar_.hide();
    lstPreview_.setObjectName(u"lstPreview"_s);
    lstPreview_.setAccessibleName(u"Preview"_s);
    lstPreview_.setUniformItemSizes(true);
    lstPreview_.setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstPreview_.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    lstPreview_.setItemDelegate(&delegate_);
    lstPreview_.setModel(&model_);
    lstPreview_.setContextMenuPolicy(Qt::ActionsContextMenu);
    setFocusProxy(&lstPreview_);
    AddActions();
    ListenToPane();
    SetLook(look_);
}

void PreviewView::SetLook(const PreviewLook& look)
{
    look_ = look;
    lstPreview_.setFont(FontToQt(look.Font));
    QPalette ground; // the rest stays that of the application
    ground.setColor(QPalette::Base, ColorToQt(look.Background, palette()));
    lstPreview_.setPalette(ground);
    Relayout();
}

QAction* PreviewView::Action(std::string_view name) const
{
    return findChild<QAction*>(NameToQt(name), Qt::FindDirectChildrenOnly);
}

void PreviewView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        SetLook(look_);
}

QAction& PreviewView::AddAction(std::function<void()> run)
{
    auto* action = new QAction(this);
    connect(action, &QAction::triggered, this, std::move(run));
    addAction(action);
    lstPreview_.addAction(action);
    return *action;
}

QAction& PreviewView::AddTool(std::string_view tool, std::function<void()> run)
{
    QAction& action = AddAction(std::move(run));
    DressAction(action, *FindTool(tool));
    return action;
}

// Ctrl+C and Ctrl+A belong to whatever has the focus.
void PreviewView::AddActions()
{
    AddTool("CopyLines", [this] { Copy(); }).setShortcutContext(Qt::WidgetWithChildrenShortcut);
    AddTool("CopyAll", [this] { CopyAll(); });
    QAction& all = AddAction([this] { lstPreview_.selectAll(); });
    all.setObjectName(u"SelectAllPreview"_s);
    all.setText(u"&Select All"_s);
    all.setShortcut(QKeySequence::SelectAll);
    all.setShortcutContext(Qt::WidgetWithChildrenShortcut);
    AddTool("Find", [this] { findBar_.Open(); });
    AddTool("FindNext", [this] { FindFurther(&PreviewFind::Next); });
    AddTool("FindPrevious", [this] { FindFurther(&PreviewFind::Previous); });
    AddTool("SavePreview", [this] { SavePreview(pane_, saving_); });
    AddTool("PrintPreview", [this] { Print(); });
    QAction& monospaced = AddAction([this] { Q_EMIT MonospacedFontWanted(); });
    monospaced.setObjectName(u"MonospacedPreview"_s);
    monospaced.setText(u"&Monospaced Font"_s);
}

void PreviewView::ListenToPane()
{
    connections_.push_back(pane_.Replaced.Connect([this] { Relayout(); }));
    connections_.push_back(pane_.SelectionChanged.Connect([this](std::size_t row) { GoTo(static_cast<int>(row)); }));
    connections_.push_back(find_.Changed.Connect([this] { ShowMatch(); }));
    connect(lstPreview_.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                const auto row = static_cast<std::size_t>(current.row());
                if (!current.isValid() || pane_.Selected() == row)
                    return;
                const QScopedValueRollback<bool> guard(personSelects_, true);
                pane_.Select(row);
            });
    connect(&findBar_, &FindBar::Closed, &lstPreview_, [this] { lstPreview_.setFocus(); });
    if (pane_.Selected())
        GoTo(static_cast<int>(*pane_.Selected()));
}

void PreviewView::GoTo(int row)
{
    if (personSelects_)
        return;
    lstPreview_.selectionModel()->setCurrentIndex(model_.index(row), QItemSelectionModel::ClearAndSelect);
    lstPreview_.scrollTo(model_.index(row));
}

void PreviewView::ShowMatch()
{
    lstPreview_.viewport()->update();
    if (!find_.Current())
        return;
    QScrollBar& bar = *lstPreview_.horizontalScrollBar();
    const auto [left, right] = delegate_.ExtentOf(find_.Matches()[*find_.Current()], lstPreview_.font());
    if (right > bar.value() + lstPreview_.viewport()->width())
        bar.setValue(right - lstPreview_.viewport()->width() / 2);
    else if (left < bar.value())
        bar.setValue(left - lstPreview_.viewport()->width() / 2);
}

// A closed bar has forgotten its places, but not its text.
void PreviewView::FindFurther(void (PreviewFind::*step)())
{
    const bool wasClosed = findBar_.isHidden();
    const std::optional<std::size_t> before = pane_.Selected();
    if (wasClosed)
        findBar_.Open(); // goes to the next place, unless it stands on one
    if (!wasClosed || step == &PreviewFind::Previous || pane_.Selected() == before)
        (find_.*step)();
}

void PreviewView::Copy()
{
    const std::vector<std::size_t> rows = SelectedRows(lstPreview_);
    if (!rows.empty())
        ToClipboard(CopiedText(pane_, rows));
}

void PreviewView::CopyAll()
{
    if (pane_.Count() > 0)
        ToClipboard(CopiedText(pane_));
}

void PreviewView::Print()
{
    AskAndPrint(pane_, lstPreview_.font(), saving_.Asking, *this);
}

void PreviewView::Relayout()
{
    delegate_.Measure(lstPreview_.font());
}

} // namespace veldrane
