#include "shell/main_window/window_geometry.h"

#include "text/conversion.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace veldrane {
namespace {

// What is left of a smaller window can't be used, and what of a window's upper edge a hand can take hold of.
constexpr int kSmallestWindow = 200;
constexpr int kGripWidth = 100;
constexpr int kGripHeight = 20;
constexpr int kFarthest = 100'000; // beyond any desktop

constexpr std::string_view kPaneLayout = "PaneLayout";
constexpr std::size_t kReadAtMost = 1024; // bytes of a value

std::string Read(const RegistryAccess& settings, std::string_view name)
{
    return settings.GetKeyValue(settings_section::kWindow, name);
}

std::optional<int> ReadNumber(const RegistryAccess& settings, std::string_view name)
{
    try {
        const std::int32_t number = text::ToLong(Read(settings, name));
        return number >= -kFarthest && number <= kFarthest ? std::optional<int>(number) : std::nullopt;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

int Overlap(int start, int length, int otherStart, int otherLength)
{
    return std::min(start + length, otherStart + otherLength) - std::max(start, otherStart);
}

bool CanBeHeld(const ScreenArea& window, const std::vector<ScreenArea>& screens)
{
    return std::any_of(screens.begin(), screens.end(),
                       [&](const ScreenArea& screen) { return CanBeHeldOn(screen, window); });
}

std::optional<ScreenArea> ReadWindow(const RegistryAccess& settings, const std::vector<ScreenArea>& screens)
{
    const auto left = ReadNumber(settings, "Left");
    const auto top = ReadNumber(settings, "Top");
    const auto width = ReadNumber(settings, "Width");
    const auto height = ReadNumber(settings, "Height");
    if (!left || !top || !width || !height || *width < kSmallestWindow || *height < kSmallestWindow)
        return std::nullopt;
    const ScreenArea window{.Left = *left, .Top = *top, .Width = *width, .Height = *height};
    return CanBeHeld(window, screens) ? std::optional(window) : std::nullopt;
}

// How wide the window is that the panes share.
int SharedWidth(const WindowGeometry& geometry, const std::vector<ScreenArea>& screens)
{
    if (geometry.State == WindowState::Normal)
        return geometry.Window ? geometry.Window->Width : kFarthest;
    const auto widest = std::max_element(screens.begin(), screens.end(), [](const auto& screen, const auto& other) {
        return screen.Width < other.Width;
    });
    return widest == screens.end() ? kFarthest : widest->Width;
}

PanePlace ReadPane(const RegistryAccess& settings, const std::string& pane, int windowWidth)
{
    const auto inWindow = [&](std::optional<int> number, int least) {
        return number && *number >= least && *number <= windowWidth ? number : std::nullopt;
    };
    return {.Width = inWindow(ReadNumber(settings, pane + "Width"), 1),
            .Left = inWindow(ReadNumber(settings, pane + "Left"), 0)};
}

void Write(RegistryAccess& settings, std::string_view name, std::optional<int> number)
{
    if (number)
        settings.UpdateKey(settings_section::kWindow, name, std::to_string(*number));
}

void WritePane(RegistryAccess& settings, const std::string& pane, const PanePlace& place)
{
    Write(settings, pane + "Width", place.Width);
    Write(settings, pane + "Left", place.Left);
}

void WriteShown(RegistryAccess& settings, const PaneManagement& panes)
{
    settings.UpdateKey(settings_section::kWindow, "DisplayDatasource", text::TextOf(panes.pmDatasourceVisible));
    settings.UpdateKey(settings_section::kWindow, "DisplayPreview", text::TextOf(panes.pmPreviewVisible));
}

// Whatever is not plainly a No shows the pane.
bool IsDisplayed(const RegistryAccess& settings, std::string_view name)
{
    try {
        return text::ToBoolean(Read(settings, name));
    } catch (const RuntimeError&) {
        return true;
    }
}

} // namespace

bool CanBeHeldOn(const ScreenArea& screen, const ScreenArea& window)
{
    return Overlap(window.Left, window.Width, screen.Left, screen.Width) >= kGripWidth &&
           Overlap(window.Top, kGripHeight, screen.Top, screen.Height) >= kGripHeight;
}

WindowGeometry ReadWindowGeometry(const RegistryAccess& settings, const std::vector<ScreenArea>& screens)
{
    WindowGeometry geometry{.Window = ReadWindow(settings, screens)};
    if (ReadNumber(settings, "WindowState") == static_cast<int>(WindowState::Maximized))
        geometry.State = WindowState::Maximized;
    const int width = SharedWidth(geometry, screens);
    geometry.Preview = ReadPane(settings, "Preview", width);
    geometry.Datasource = ReadPane(settings, "Datasource", width);
    geometry.PaneLayout = Read(settings, kPaneLayout);
    return geometry;
}

void WriteWindowGeometry(RegistryAccess& settings, ErrorReport& errors, const WindowGeometry& geometry)
{
    Guarded(errors, "frmMain", "Form_Unload", [&] {
        if (geometry.Window) {
            Write(settings, "Top", geometry.Window->Top);
            Write(settings, "Left", geometry.Window->Left);
            Write(settings, "Height", geometry.Window->Height);
            Write(settings, "Width", geometry.Window->Width);
        }
        Write(settings, "WindowState", static_cast<int>(geometry.State));
        WritePane(settings, "Preview", geometry.Preview);
        WritePane(settings, "Datasource", geometry.Datasource);
        if (!geometry.PaneLayout.empty())
            settings.UpdateKey(settings_section::kWindow, kPaneLayout,
                               geometry.PaneLayout.size() < kReadAtMost ? geometry.PaneLayout : "");
        if (geometry.Shown)
            WriteShown(settings, *geometry.Shown);
    });
}

void WritePanePlaces(RegistryAccess& settings, ErrorReport& errors, const PanePlace& preview,
                     const PanePlace& datasource)
{
    Guarded(errors, "frmMain", "PaneManagement", [&] {
        WritePane(settings, "Preview", preview);
        WritePane(settings, "Datasource", datasource);
    });
}

PaneManagement ReadPanes(const RegistryAccess& settings)
{
    return {.pmDatasourceVisible = IsDisplayed(settings, "DisplayDatasource"),
            .pmPreviewVisible = IsDisplayed(settings, "DisplayPreview")};
}

void WritePanes(RegistryAccess& settings, ErrorReport& errors, const PaneManagement& panes)
{
    Guarded(errors, "frmMain", "PaneManagement", [&] { WriteShown(settings, panes); });
}

} // namespace veldrane
