#include "shell/desktop/visible_boxes_style.h"

#include "screenshots.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QStyleOption>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace veldrane::testing {
namespace {

constexpr int kSize = 16;

// The picture of an empty box on the colour of a list.
QImage Draw(const QStyle& style, QStyle::PrimitiveElement element)
{
    QStyleOptionButton option;
    option.palette = QGuiApplication::palette();
    option.rect = QRect(0, 0, kSize, kSize);
    option.state = QStyle::State_Enabled | QStyle::State_Off;
    QImage picture(kSize, kSize, QImage::Format_ARGB32);
    picture.fill(option.palette.color(QPalette::Base));
    QPainter painter(&picture);
    style.drawPrimitive(element, &option, &painter);
    return picture;
}

// How far the lightest or darkest point of the picture is from what lies around the box, of 255.
int Contrast(const QImage& picture)
{
    const int around = QGuiApplication::palette().color(QPalette::Base).lightness();
    int most = 0;
    for (int row = 0; row < picture.height(); ++row)
        for (int column = 0; column < picture.width(); ++column)
            most = std::max(most, std::abs(picture.pixelColor(column, row).lightness() - around));
    return most;
}

TEST(VisibleBoxes, AreSeenOnDarkWhetherTheyAreTickedOrNot)
{
    const ShadesWhile dark(Shades::Dark);
    const VisibleBoxesStyle style;
    for (const auto element : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton})
        EXPECT_GT(Contrast(Draw(style, element)), 80) << element;
}

TEST(VisibleBoxes, AreTheDesktopsOwnOnLight)
{
    const ShadesWhile light(Shades::Light);
    const VisibleBoxesStyle style;
    const QProxyStyle own;
    for (const auto element : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton})
        EXPECT_EQ(Draw(style, element), Draw(own, element)) << element;
}

} // namespace
} // namespace veldrane::testing
