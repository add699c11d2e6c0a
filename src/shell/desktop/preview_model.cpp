#include "shell/desktop/preview_model.h"

#include "shell/desktop/qt_color.h"
#include "shell/desktop/qt_text.h"

#include <QFont>
#include <QGuiApplication>

namespace veldrane {
namespace {

// Nothing but the weight: the view's own font tells the rest.
QVariant Weight(bool bold)
{
    if (!bold)
        return {};
    QFont font;
    font.setBold(true);
    return font;
}

} // namespace

PreviewModel::PreviewModel(PreviewPane& pane, QObject* parent)
    : QAbstractListModel(parent), pane_(pane), replacing_(pane.Replacing.Connect([this] { beginResetModel(); })),
      replaced_(pane.Replaced.Connect([this] { endResetModel(); }))
{}

int PreviewModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(pane_.Count());
}

QVariant PreviewModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const TTCOutput& line = pane_.Row(static_cast<std::size_t>(index.row()));
    switch (role) {
    case Qt::DisplayRole:
        return NameToQt(line.LineText);
    case Qt::DecorationRole:
        return line.Icon.empty() ? QVariant() : QVariant(icons_.Of(line.Icon));
    case Qt::ForegroundRole:
        return ColorToQt(line.ForeColor, QGuiApplication::palette());
    case Qt::FontRole:
        return Weight(line.Bold);
    default:
        return {};
    }
}

} // namespace veldrane
