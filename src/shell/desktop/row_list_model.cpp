#include "shell/desktop/row_list_model.h"

#include "shell/desktop/qt_color.h"
#include "shell/desktop/qt_text.h"
#include "shell/main_window/class_marks.h"

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QPixmap>

namespace veldrane {
namespace {

constexpr int kPictureSize = 16;

// Red and blue that can be read on the palette's background, dark or light. Black stands for the palette's text.
QVariant Foreground(RowColour colour)
{
    switch (colour) {
    case RowColour::Red:
        return TroubleColor(QApplication::palette());
    case RowColour::Blue:
        return QColor(IsDark(QApplication::palette()) ? QRgb(0xFF79B8FF) : QRgb(0xFF0000FF));
    case RowColour::Black:
    case RowColour::Default:
        break;
    }
    return {};
}

// Keeps the place of a picture, so that all rows are of one height and begin at one edge.
QIcon NoPicture()
{
    QPixmap blank(kPictureSize, kPictureSize);
    blank.fill(Qt::transparent);
    return QIcon(blank);
}

} // namespace

RowListModel::RowListModel(std::string_view header, IconSet& icons, QObject* parent)
    : QAbstractListModel(parent), header_(header), icons_(icons), noPicture_(NoPicture())
{}

void RowListModel::Show(std::vector<ListRow> rows)
{
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

const ListRow& RowListModel::Row(const QModelIndex& index) const
{
    return rows_.at(static_cast<std::size_t>(index.row()));
}

int RowListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant RowListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const ListRow& row = Row(index);
    switch (role) {
    case Qt::DisplayRole:
        return ToQt(row.Text);
    case Qt::DecorationRole:
        return row.Icon.empty() ? noPicture_ : icons_.Of(row.Icon);
    case Qt::ForegroundRole:
        return Foreground(row.Colour);
    case Qt::FontRole:
        if (row.Bold) {
            QFont font;
            font.setBold(true);
            return font;
        }
        return {};
    default:
        return {};
    }
}

QVariant RowListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section == 0 && orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return ToQt(header_);
    return {};
}

Qt::ItemFlags RowListModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return IsRealRow(Row(index)) ? flags | Qt::ItemIsDragEnabled : flags;
}

} // namespace veldrane
