#pragma once

#include <QProxyStyle>

namespace veldrane {

// The desktop's own style, with frames around check boxes and radio buttons that are seen on dark as well: Qt's own
// style draws them darker than what lies around them, whatever that is.
class VisibleBoxesStyle : public QProxyStyle
{
    Q_OBJECT

  public:
    using QProxyStyle::QProxyStyle;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace veldrane
