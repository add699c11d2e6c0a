#include "shell/desktop/visible_boxes_style.h"

#include <QPainter>
#include <QStyleOption>

namespace veldrane {
namespace {

constexpr float kFrameStrength = 0.6F;
constexpr float kDisabledFrameStrength = 0.3F;
constexpr double kCorner = 2;

bool IsDark(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

QColor FrameColor(const QStyleOption& option)
{
    QColor color = option.palette.color(QPalette::Active, QPalette::Text);
    color.setAlphaF(option.state.testFlag(QStyle::State_Enabled) ? kFrameStrength : kDisabledFrameStrength);
    return color;
}

} // namespace

void VisibleBoxesStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                      const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if ((element != PE_IndicatorCheckBox && element != PE_IndicatorRadioButton) || !IsDark(option->palette))
        return;
    const QRectF frame = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(FrameColor(*option));
    painter->setBrush(Qt::NoBrush);
    if (element == PE_IndicatorRadioButton)
        painter->drawEllipse(frame);
    else
        painter->drawRoundedRect(frame, kCorner, kCorner);
    painter->restore();
}

} // namespace veldrane
