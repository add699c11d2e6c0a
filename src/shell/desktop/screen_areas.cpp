#include "shell/desktop/screen_areas.h"

#include <QGuiApplication>
#include <QScreen>

namespace veldrane {

std::vector<ScreenArea> ScreenAreas()
{
    std::vector<ScreenArea> areas;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect area = screen->availableGeometry();
        areas.push_back({.Left = area.left(), .Top = area.top(), .Width = area.width(), .Height = area.height()});
    }
    return areas;
}

} // namespace veldrane
