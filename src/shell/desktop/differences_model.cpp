#include "shell/desktop/differences_model.h"

#include "shell/desktop/plain_tool_tip.h"
#include "shell/desktop/qt_color.h"
#include "shell/desktop/qt_text.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

namespace veldrane {
namespace {

using namespace Qt::StringLiterals;

QString Signed(const DifferenceLine& line)
{
    QString sign = u"  "_s;
    if (line.Kind != DifferenceKind::Same)
        sign = line.Kind == DifferenceKind::Removed ? u"- "_s : u"+ "_s;
    return sign + NameToQt(line.Text).replace(u'\t', u"    "_s);
}

QVariant Number(std::size_t number)
{
    return number == 0 ? QVariant() : QVariant(QString::number(number));
}

// Backgrounds on which the palette's text can be read.
QVariant Ground(DifferenceKind kind)
{
    const bool dark = IsDark(QGuiApplication::palette());
    switch (kind) {
    case DifferenceKind::Removed:
        return QColor(dark ? QRgb(0xFF5C2528) : QRgb(0xFFFFE0DD));
    case DifferenceKind::Added:
        return QColor(dark ? QRgb(0xFF1F4A2A) : QRgb(0xFFDBF6DD));
    case DifferenceKind::Same:
        break;
    }
    return {};
}

} // namespace

void DifferencesModel::Show(std::vector<DifferenceLine> lines)
{
    beginResetModel();
    lines_ = std::move(lines);
    rows_ = SideBySide(lines_);
    longest_ = 0;
    for (const DifferenceLine& line : lines_)
        longest_ = std::max(longest_, Signed(line).size());
    endResetModel();
}

void DifferencesModel::SetLayout(DifferenceLayout layout)
{
    beginResetModel();
    layout_ = layout;
    endResetModel();
}

bool DifferencesModel::HoldsLines(int column) const
{
    return layout_ == DifferenceLayout::Unified ? column == 2 : column % 2 == 1;
}

bool DifferencesModel::IsOfFile(int column) const
{
    return layout_ == DifferenceLayout::Unified ? column == 0 : column < 2;
}

bool DifferencesModel::Differs(int row) const
{
    const auto place = static_cast<std::size_t>(row);
    return layout_ == DifferenceLayout::Unified ? lines_[place].Kind != DifferenceKind::Same
                                                : rows_[place].Old != rows_[place].New;
}

bool DifferencesModel::BeginsDifference(int row) const
{
    return Differs(row) && (row == 0 || !Differs(row - 1));
}

std::optional<int> DifferencesModel::DifferenceBelow(int row) const
{
    for (int below = row + 1; below < rowCount(); ++below)
        if (BeginsDifference(below))
            return below;
    return std::nullopt;
}

std::optional<int> DifferencesModel::DifferenceAbove(int row) const
{
    for (int above = row - 1; above >= 0; --above)
        if (BeginsDifference(above))
            return above;
    return std::nullopt;
}

std::size_t DifferencesModel::Rows() const
{
    return layout_ == DifferenceLayout::Unified ? lines_.size() : rows_.size();
}

QStringList DifferencesModel::Headers() const
{
    if (layout_ == DifferenceLayout::Unified)
        return {u"File"_s, u"New"_s, u"Line"_s};
    return {u"File"_s, u"Line of the File"_s, u"New"_s, u"Line of the New Text"_s};
}

const DifferenceLine* DifferencesModel::LineAt(const QModelIndex& index) const
{
    const auto place = static_cast<std::size_t>(index.row());
    if (layout_ == DifferenceLayout::Unified)
        return &lines_[place];
    const std::optional<std::size_t>& side = IsOfFile(index.column()) ? rows_[place].Old : rows_[place].New;
    return side ? &lines_[*side] : nullptr;
}

QVariant DifferencesModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const DifferenceLine* line = LineAt(index);
    if (line == nullptr)
        return role == Qt::BackgroundRole ? QVariant(QGuiApplication::palette().color(QPalette::Window)) : QVariant();
    const bool holdsLine = HoldsLines(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return holdsLine ? Signed(*line) : Number(IsOfFile(index.column()) ? line->OldNumber : line->NewNumber);
    case Qt::ToolTipRole:
        return holdsLine && layout_ == DifferenceLayout::SideBySide ? PlainToolTip(NameToQt(line->Text)) : QVariant();
    case Qt::BackgroundRole:
        return Ground(line->Kind);
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignVCenter | (holdsLine ? Qt::AlignLeft : Qt::AlignRight));
    default:
        return {};
    }
}

} // namespace veldrane
