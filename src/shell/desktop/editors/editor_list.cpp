#include "shell/desktop/editors/editor_list.h"

#include "shell/desktop/qt_color.h"
#include "shell/desktop/qt_text.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>

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
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
        if (column == 0)
            Tick(*item);
    });
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

void EditorList::Show(const std::vector<EditorRow>& rows, const std::vector<std::size_t>& selected)
{
    const QSignalBlocker silence(this);
    const int place = verticalScrollBar()->value();
    QTreeWidgetItem* const current = currentItem();
    const int row = current == nullptr ? 0 : indexOfTopLevelItem(current);
    while (topLevelItemCount() > static_cast<int>(rows.size()))
        delete takeTopLevelItem(topLevelItemCount() - 1);
    while (topLevelItemCount() < static_cast<int>(rows.size()))
        addTopLevelItem(new QTreeWidgetItem);
    for (std::size_t each = 0; each < rows.size(); ++each)
        Fill(*topLevelItem(static_cast<int>(each)), rows[each]);
    setCurrentItem(topLevelItem(std::min(row, topLevelItemCount() - 1)), 0, QItemSelectionModel::NoUpdate);
    clearSelection();
    for (const std::size_t each : selected)
        if (each < rows.size())
            topLevelItem(static_cast<int>(each))->setSelected(true);
    Filter();
    verticalScrollBar()->setValue(place);
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

void EditorList::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && event->modifiers() == Qt::NoModifier && currentItem() != nullptr && currentItem()->isSelected())
        Q_EMIT RowOpened(RowOf(*currentItem()));
    else
        QTreeWidget::keyPressEvent(event);
}

bool EditorList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != filter_ || event->type() != QEvent::KeyPress)
        return QTreeWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key(); // NOLINT(*-static-cast-downcast): the type says so
    if (key == Qt::Key_Down)
        setFocus(Qt::OtherFocusReason);
    else if (key == Qt::Key_Escape && !filter_->text().isEmpty())
        filter_->clear();
    else
        return false;
    return true;
}

void EditorList::Fill(QTreeWidgetItem& item, const EditorRow& row)
{
    for (std::size_t column = 0; column < row.Columns.size(); ++column)
        item.setText(static_cast<int>(column), NameToQt(row.Columns[column]));
    item.setIcon(0, icons_.Of(row.Icon));
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    flags.setFlag(Qt::ItemIsEnabled, row.Enabled);
    flags.setFlag(Qt::ItemIsUserCheckable, row.Ticked.has_value());
    item.setFlags(flags);
    item.setData(0, Qt::CheckStateRole, row.Ticked ? QVariant(StateOf(*row.Ticked)) : QVariant());
    QFont font = this->font();
    font.setBold(row.Bold);
    item.setFont(0, font);
    const QString trouble = ToQt(row.Trouble);
    item.setData(0, Qt::ForegroundRole,
                 trouble.isEmpty() ? QVariant() : QVariant(TroubleColor(QGuiApplication::palette())));
    item.setToolTip(0, trouble);
    item.setData(0, Qt::AccessibleDescriptionRole, trouble);
}

void EditorList::Filter()
{
    const QString text = filter_ == nullptr ? QString() : filter_->text();
    for (int row = 0; row < topLevelItemCount(); ++row)
        topLevelItem(row)->setHidden(!HasText(*topLevelItem(row), text));
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
