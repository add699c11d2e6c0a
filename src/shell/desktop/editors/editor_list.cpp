#include "shell/desktop/editors/editor_list.h"

#include "shell/desktop/plain_tool_tip.h"
#include "shell/desktop/qt_color.h"
#include "shell/desktop/qt_text.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMetaMethod>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include <algorithm>

namespace veldrane {
namespace {

bool HasText(const QTreeWidgetItem& item, const QString& text)
{
    for (int column = 0; column < item.columnCount(); ++column)
        if (item.text(column).contains(text, Qt::CaseInsensitive))
            return true;
    return false;
}

// Has an editor in one column alone; the flags of an item are those of all its columns.
class OneColumnEdited : public QStyledItemDelegate
{
  public:
    OneColumnEdited(int column, QObject* parent) : QStyledItemDelegate(parent), column_(column) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return index.column() == column_ ? QStyledItemDelegate::createEditor(parent, option, index) : nullptr;
    }

  private:
    int column_;
};

// The row that is the current one when these are selected: the one from before, or else the first of them.
std::size_t CurrentAmong(const std::vector<std::size_t>& selected, std::size_t before)
{
    const bool isAmong = std::find(selected.begin(), selected.end(), before) != selected.end();
    return isAmong || selected.empty() ? before : selected.front();
}

bool IsReturn(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

Qt::CheckState StateOf(bool ticked)
{
    return ticked ? Qt::Checked : Qt::Unchecked;
}

} // namespace

EditorList::EditorList(QWidget* parent) : QTreeWidget(parent)
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    connect(this, &QTreeWidget::itemSelectionChanged, this, [this] { Q_EMIT RowsSelected(SelectedRows()); });
    connect(this, &QTreeWidget::itemChanged, this,
            [this](QTreeWidgetItem* item, int column) { TakeChange(*item, column); });
    connect(this, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem* item) { Q_EMIT RowOpened(RowOf(*item)); });
}

void EditorList::FilterBy(QLineEdit& filter)
{
    filter_ = &filter;
    filter.setClearButtonEnabled(true);
    filter.installEventFilter(this);
    connect(&filter, &QLineEdit::textChanged, this, [this] {
        Filter();
        Q_EMIT RowsSelected(SelectedRows());
    });
}

void EditorList::LetEdit(int column)
{
    edited_ = column;
    setItemDelegate(new OneColumnEdited(column, this));
}

std::optional<std::size_t> EditorList::CurrentRow() const
{
    QTreeWidgetItem* const current = currentItem();
    return current == nullptr || current->isHidden() ? std::nullopt : std::optional(RowOf(*current));
}

void EditorList::SelectRow(std::size_t row)
{
    QTreeWidgetItem* const item = topLevelItem(static_cast<int>(row));
    if (item == nullptr)
        return;
    setCurrentItem(item, std::max(edited_, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollToItem(item);
}

void EditorList::Show(const std::vector<EditorRow>& rows, const std::vector<std::size_t>& selected)
{
    const QSignalBlocker silence(this);
    const int place = verticalScrollBar()->value();
    QTreeWidgetItem* const current = currentItem();
    const int before = current == nullptr ? 0 : indexOfTopLevelItem(current);
    const int row = static_cast<int>(CurrentAmong(selected, static_cast<std::size_t>(before)));
    const int column = std::max(currentColumn(), 0);
    while (topLevelItemCount() > static_cast<int>(rows.size()))
        delete takeTopLevelItem(topLevelItemCount() - 1);
    while (topLevelItemCount() < static_cast<int>(rows.size()))
        addTopLevelItem(new QTreeWidgetItem);
    for (std::size_t each = 0; each < rows.size(); ++each)
        Fill(*topLevelItem(static_cast<int>(each)), rows[each]);
    setCurrentItem(topLevelItem(std::min(row, topLevelItemCount() - 1)), column, QItemSelectionModel::NoUpdate);
    clearSelection();
    for (const std::size_t each : selected)
        if (each < rows.size())
            topLevelItem(static_cast<int>(each))->setSelected(true);
    Filter();
    if (filter_ != nullptr && HidesOneOf(selected))
        filter_->clear();
    verticalScrollBar()->setValue(place);
    if (row != before)
        scrollToItem(currentItem());
}

bool EditorList::HidesOneOf(const std::vector<std::size_t>& rows) const
{
    return std::any_of(rows.begin(), rows.end(), [this](std::size_t row) {
        const QTreeWidgetItem* const item = topLevelItem(static_cast<int>(row));
        return item != nullptr && item->isHidden();
    });
}

std::vector<std::size_t> EditorList::SelectedRows() const
{
    std::vector<std::size_t> rows;
    for (QTreeWidgetItem* item : selectedItems())
        if (!item->isHidden())
            rows.push_back(RowOf(*item));
    std::sort(rows.begin(), rows.end());
    return rows;
}

// The tools of a list act on what is selected, and keys that go to the current row don't select it anew.
void EditorList::focusInEvent(QFocusEvent* event)
{
    QTreeWidget::focusInEvent(event);
    const bool isPassing = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (event->reason() == Qt::ShortcutFocusReason || (isPassing && !selectionIsChoice_))
        SelectCurrentRow();
}

void EditorList::SelectCurrentRow()
{
    if (CurrentRow() && SelectedRows().empty())
        currentItem()->setSelected(true);
}

void EditorList::keyPressEvent(QKeyEvent* event)
{
    const bool isBare = event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier;
    const bool isOnRow = currentItem() != nullptr && state() != EditingState;
    if (!IsReturn(*event) || !isBare || !isOnRow || !OpensRows())
        QTreeWidget::keyPressEvent(event);
    else if (edited_ >= 0)
        edit(currentIndex(), EditKeyPressed, event);
    else
        Q_EMIT RowOpened(RowOf(*currentItem()));
}

// Where nothing opens, Return is that of the dialog.
bool EditorList::OpensRows() const
{
    return edited_ >= 0 || isSignalConnected(QMetaMethod::fromSignal(&EditorList::RowOpened));
}

void EditorList::changeEvent(QEvent* event)
{
    QTreeWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    const QSignalBlocker silence(this);
    for (int row = 0; row < topLevelItemCount(); ++row)
        for (int column = 0; column < columnCount(); ++column)
            if (topLevelItem(row)->foreground(column).style() != Qt::NoBrush)
                topLevelItem(row)->setForeground(column, TroubleColor(QGuiApplication::palette()));
}

// A key means the row, whichever of its columns was clicked last.
bool EditorList::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    if (trigger == EditKeyPressed)
        return QTreeWidget::edit(index.siblingAtColumn(edited_), trigger, event);
    if (trigger == AnyKeyPressed)
        return QTreeWidget::edit(index.siblingAtColumn(0), trigger, event);
    return QTreeWidget::edit(index, trigger, event);
}

bool EditorList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != filter_ || event->type() != QEvent::KeyPress)
        return QTreeWidget::eventFilter(watched, event);
    const auto* keys = static_cast<QKeyEvent*>(event); // NOLINT(*-static-cast-downcast): the type says so
    const int key = keys->key();
    if (key == Qt::Key_Down || IsReturn(*keys))
        GoToRows();
    else if (key == Qt::Key_Escape && !filter_->text().isEmpty())
        filter_->clear();
    else
        return false;
    return true;
}

// Where no row has the text there is none to go to, and Return behind it would be that of the dialog.
void EditorList::GoToRows()
{
    if (!CurrentRow())
        return;
    setFocus(Qt::OtherFocusReason);
    SelectCurrentRow();
}

void EditorList::Fill(QTreeWidgetItem& item, const EditorRow& row)
{
    for (std::size_t column = 0; column < row.Columns.size(); ++column)
        item.setText(static_cast<int>(column), NameToQt(row.Columns[column]));
    item.setIcon(0, icons_.Of(row.Icon));
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    flags.setFlag(Qt::ItemIsEnabled, row.Enabled);
    flags.setFlag(Qt::ItemIsUserCheckable, row.Ticked.has_value());
    flags.setFlag(Qt::ItemIsEditable, edited_ >= 0);
    item.setFlags(flags);
    item.setData(0, Qt::CheckStateRole, row.Ticked ? QVariant(StateOf(*row.Ticked)) : QVariant());
    QFont font = this->font();
    font.setBold(row.Bold);
    item.setFont(0, font);
    const QString trouble = ToQt(row.Trouble);
    const QString tip = trouble.isEmpty() ? QString() : PlainToolTip(trouble);
    const QBrush color = trouble.isEmpty() ? QBrush() : TroubleColor(QGuiApplication::palette());
    for (int column = 0; column < static_cast<int>(row.Columns.size()); ++column) {
        item.setForeground(column, color);
        item.setToolTip(column, tip);
    }
    item.setData(0, Qt::AccessibleDescriptionRole, trouble);
}

void EditorList::Filter()
{
    const QString text = filter_ == nullptr ? QString() : filter_->text();
    for (int row = 0; row < topLevelItemCount(); ++row)
        topLevelItem(row)->setHidden(!HasText(*topLevelItem(row), text));
    LeaveHiddenRow();
}

// A key would be for a row that nobody sees.
void EditorList::LeaveHiddenRow()
{
    if (CurrentRow())
        return;
    QTreeWidgetItem* seen = nullptr;
    for (int row = topLevelItemCount() - 1; row >= 0; --row)
        if (!topLevelItem(row)->isHidden())
            seen = topLevelItem(row);
    setCurrentItem(seen, std::max(currentColumn(), 0), QItemSelectionModel::NoUpdate);
}

void EditorList::TakeChange(QTreeWidgetItem& item, int column)
{
    if (column == edited_)
        Q_EMIT RowEdited(RowOf(item), item.text(column));
    else if (column == 0)
        Tick(item);
}

void EditorList::Tick(QTreeWidgetItem& item)
{
    const std::vector<std::size_t> selected = SelectedRows();
    const bool isAmong = std::find(selected.begin(), selected.end(), RowOf(item)) != selected.end();
    Q_EMIT RowsTicked(isAmong ? selected : std::vector{RowOf(item)}, item.checkState(0) == Qt::Checked);
}

std::size_t EditorList::RowOf(QTreeWidgetItem& item) const
{
    return static_cast<std::size_t>(indexOfTopLevelItem(&item));
}

} // namespace veldrane
