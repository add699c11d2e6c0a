#include "shell/desktop/qt_color.h"

#include "shell/main_window/color_value.h"

#include <array>
#include <cstddef>

namespace veldrane {
namespace {

// By the numbers of the system's colours, from 0.
constexpr auto kRoles = std::to_array<QPalette::ColorRole>({
    QPalette::Button,          // scroll bar
    QPalette::Window,          // desktop
    QPalette::Highlight,       // title bar
    QPalette::Mid,             // title bar of a window behind
    QPalette::Window,          // menu
    QPalette::Base,            // window
    QPalette::Shadow,          // window frame
    QPalette::WindowText,      // menu text
    QPalette::Text,            // window text
    QPalette::HighlightedText, // title bar text
    QPalette::Button,          // window border
    QPalette::Button,          // border of a window behind
    QPalette::Mid,             // application workspace
    QPalette::Highlight,       // selection
    QPalette::HighlightedText, // selected text
    QPalette::Button,          // button face
    QPalette::Dark,            // button shadow
    QPalette::NoRole,          // gray text
    QPalette::ButtonText,      // button text
    QPalette::WindowText,      // title bar text of a window behind
    QPalette::Light,           // button highlight
    QPalette::Shadow,          // dark shadow of buttons
    QPalette::Midlight,        // light edge of buttons
    QPalette::ToolTipText,     // tool tip text
    QPalette::ToolTipBase,     // tool tip
});

constexpr std::int32_t kGrayText = 17;
constexpr int kHalfLight = 128; // of 255

// Half way between the window and its text: legible on any background that either is legible on. The palette's own
// text of disabled controls is too faint to be read in lines.
QColor GrayText(const QPalette& palette)
{
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    return {(text.red() + window.red()) / 2, (text.green() + window.green()) / 2, (text.blue() + window.blue()) / 2};
}

} // namespace

QColor ColorToQt(Color color, const QPalette& palette)
{
    if (!IsSystemColor(color)) {
        const ColorParts parts = PartsOf(color);
        return {parts.Red, parts.Green, parts.Blue};
    }
    const std::int32_t number = SystemColorNumber(color);
    if (number == kGrayText)
        return GrayText(palette);
    const auto place = static_cast<std::size_t>(number);
    return palette.color(QPalette::Active, place < kRoles.size() ? kRoles.at(place) : QPalette::Text);
}

bool IsDark(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < kHalfLight;
}

QColor TroubleColor(const QPalette& palette)
{
    return {IsDark(palette) ? QRgb(0xFFFF7B72) : QRgb(0xFFFF0000)};
}

Color ColorFromQt(const QColor& color)
{
    return ColorOf({.Red = static_cast<std::uint8_t>(color.red()),
                    .Green = static_cast<std::uint8_t>(color.green()),
                    .Blue = static_cast<std::uint8_t>(color.blue())});
}

} // namespace veldrane
