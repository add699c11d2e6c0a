#include "shell/desktop/preview_delegate.h"

#include "shell/desktop/qt_text.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <vector>

namespace veldrane {
namespace {

constexpr int kIconSize = 16;
constexpr int kMargin = 3;
constexpr int kTextLeft = kMargin + kIconSize + kMargin;

// The widest line is looked for among so many of the longest.
constexpr std::size_t kLongestLines = 64;

constexpr QRgb kMatch = 0xFFFFE066;
constexpr QRgb kCurrentMatch = 0xFFFFA94D;

QFont FontOf(const TTCOutput& line, QFont font)
{
    font.setBold(font.bold() || line.Bold);
    return font;
}

int WidthOf(const TTCOutput& line, std::size_t bytes, const QFontMetrics& metrics)
{
    return metrics.horizontalAdvance(NameToQt(std::string_view(line.LineText).substr(0, bytes)));
}

std::vector<const TTCOutput*> LongestLines(const PreviewPane& pane)
{
    std::vector<const TTCOutput*> lines;
    lines.reserve(pane.Count());
    for (std::size_t row = 0; row < pane.Count(); ++row)
        lines.push_back(&pane.Row(row));
    const std::size_t count = std::min(kLongestLines, lines.size());
    std::partial_sort(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(count), lines.end(),
                      [](const auto* a, const auto* b) { return a->LineText.size() > b->LineText.size(); });
    lines.resize(count);
    return lines;
}

QPalette::ColorGroup GroupOf(const QStyleOptionViewItem& option)
{
    if ((option.state & QStyle::State_Enabled) == 0)
        return QPalette::Disabled;
    return (option.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
}

QColor TextColor(const QStyleOptionViewItem& option)
{
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    return option.palette.color(GroupOf(option), selected ? QPalette::HighlightedText : QPalette::Text);
}

void PaintText(QPainter& painter, const QStyleOptionViewItem& option)
{
    const QFontMetrics metrics(option.font);
    const int baseline = option.rect.top() + (option.rect.height() - metrics.height()) / 2 + metrics.ascent();
    painter.setFont(option.font);
    painter.drawText(option.rect.left() + kTextLeft, baseline, option.text);
}

void PaintFocus(QPainter& painter, const QStyleOptionViewItem& option, const QStyle& style)
{
    if ((option.state & QStyle::State_HasFocus) == 0)
        return;
    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(option);
    focus.backgroundColor = option.palette.color(GroupOf(option), QPalette::Base);
    style.drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, option.widget);
}

} // namespace

PreviewDelegate::PreviewDelegate(const PreviewPane& pane, const PreviewFind& find, QObject* parent)
    : QStyledItemDelegate(parent), pane_(pane), find_(find)
{}

void PreviewDelegate::Measure(const QFont& font)
{
    int widest = 0;
    for (const TTCOutput* line : LongestLines(pane_))
        widest = std::max(widest, WidthOf(*line, line->LineText.size(), QFontMetrics(FontOf(*line, font))));
    lineSize_ = {kTextLeft + widest + kMargin, std::max(QFontMetrics(font).height(), kIconSize) + 2};
    Q_EMIT sizeHintChanged({});
}

std::pair<int, int> PreviewDelegate::ExtentOf(const PreviewMatch& match, const QFont& font) const
{
    const TTCOutput& line = pane_.Row(match.Row);
    const QFontMetrics metrics(FontOf(line, font));
    return {kTextLeft + WidthOf(line, match.Begin, metrics),
            kTextLeft + WidthOf(line, match.Begin + match.Size, metrics)};
}

void PreviewDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem line = option;
    initStyleOption(&line, index);
    const QStyle& style = line.widget != nullptr ? *line.widget->style() : *QApplication::style();
    painter->save();
    painter->setClipRect(line.rect, Qt::IntersectClip);
    style.drawPrimitive(QStyle::PE_PanelItemViewItem, &line, painter, line.widget);
    line.icon.paint(painter, line.rect.left() + kMargin, line.rect.top(), kIconSize, line.rect.height());
    painter->setPen(TextColor(line));
    PaintText(*painter, line);
    PaintMatches(*painter, line, index);
    PaintFocus(*painter, line, style);
    painter->restore();
}

// Over the line's text, on a ground of their own: legible whether or not the line is selected.
void PreviewDelegate::PaintMatches(QPainter& painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const
{
    for (const PreviewMatch& match : find_.MatchesIn(static_cast<std::size_t>(index.row()))) {
        const auto [left, right] = ExtentOf(match, option.font);
        const QRect ground(option.rect.left() + left, option.rect.top(), right - left, option.rect.height());
        const bool isCurrent = find_.Current() && find_.Matches()[*find_.Current()] == match;
        painter.save();
        painter.setClipRect(ground, Qt::IntersectClip);
        painter.fillRect(ground, QColor::fromRgb(isCurrent ? kCurrentMatch : kMatch));
        painter.setPen(Qt::black);
        PaintText(painter, option);
        painter.restore();
    }
}

QSize PreviewDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const
{
    return lineSize_;
}

} // namespace veldrane
