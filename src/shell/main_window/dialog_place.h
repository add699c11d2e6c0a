#pragma once

#include "ports/error_report.h"
#include "ports/settings.h"
#include "shell/main_window/window_geometry.h"

#include <optional>
#include <string>
#include <vector>

// Where a dialog was, in the section Window of the settings: "LEFT TOP WIDTH HEIGHT" under the dialog's name, in pixels
// of the desktop.
namespace veldrane {

// Where to show the dialog now: as it was, but no larger than the screen on which a hand could take hold of it, and
// whole on that screen. Nothing if nobody has put it anywhere, the value is broken, or there is no such screen any
// more.
[[nodiscard]] std::optional<ScreenArea> ReadDialogPlace(const RegistryAccess& settings, const std::string& dialog,
                                                        const std::vector<ScreenArea>& screens);

// Settings that can't be written are reported.
void WriteDialogPlace(RegistryAccess& settings, ErrorReport& errors, const std::string& dialog,
                      const ScreenArea& place);

} // namespace veldrane
