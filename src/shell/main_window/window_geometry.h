#pragma once

#include "ports/error_report.h"
#include "ports/settings.h"
#include "shell/main_window/pane_management.h"

#include <optional>
#include <string>
#include <vector>

// Where the main window and its panes were, in the section Window of the settings. All lengths are in pixels of the
// desktop.
namespace veldrane {

// A window, or the part of a screen that windows may cover.
struct ScreenArea
{
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    bool operator==(const ScreenArea&) const = default;
};

// Whether the screen shows enough of the window's upper edge to take hold of it.
[[nodiscard]] bool CanBeHeldOn(const ScreenArea& screen, const ScreenArea& window);

enum class WindowState
{
    Normal = 0,
    Minimized = 1,
    Maximized = 2,
};

// A pane's width and left edge in the window, where they are known and can be meant.
struct PanePlace
{
    std::optional<int> Width;
    std::optional<int> Left;

    bool operator==(const PanePlace&) const = default;
};

struct WindowGeometry
{
    std::optional<ScreenArea> Window; // neither maximized nor minimized; nothing for the usual place
    WindowState State = WindowState::Normal;
    PanePlace Preview;
    PanePlace Datasource;
    std::string PaneLayout; // all of how the panes are arranged, in the words of what shows them; "" for none
    std::optional<PaneManagement> Shown; // nothing leaves the settings as they are
};

// The geometry as it was written. The window counts as not set where a number is missing or broken, where it is
// smaller than a window can be used, or where no screen shows enough of its upper edge to take hold of. A window that
// was left minimized opens as a normal one; a width that is none, or wider than the window (maximized, than the widest
// screen), counts as not set. The layout is given as it stands: whoever wrote it has to see whether it can be used.
[[nodiscard]] WindowGeometry ReadWindowGeometry(const RegistryAccess& settings, const std::vector<ScreenArea>& screens);

// Writes the geometry, as when the main window unloads; what is not set stays as it stands in the settings. A layout
// that is too long to be read back is written as none. Settings that can't be written are reported once.
void WriteWindowGeometry(RegistryAccess& settings, ErrorReport& errors, const WindowGeometry& geometry);

// Writes the places of the panes alone, as when one is shown or hidden. Settings that can't be written are reported
// once.
void WritePanePlaces(RegistryAccess& settings, ErrorReport& errors, const PanePlace& preview,
                     const PanePlace& datasource);

// Which panes are shown: `DisplayPreview` and `DisplayDatasource`, which are shown unless the settings say False. Of
// the other two nothing is written; they are always shown at first.
[[nodiscard]] PaneManagement ReadPanes(const RegistryAccess& settings);

// Writes which of the two are shown, as "True" or "False". Settings that can't be written are reported once.
void WritePanes(RegistryAccess& settings, ErrorReport& errors, const PaneManagement& panes);

} // namespace veldrane
