#include "shell/main_window/dialog_place.h"

#include <algorithm>
#include <sstream>

namespace veldrane {
namespace {

constexpr int kFarthest = 100'000; // beyond any desktop

bool IsNear(int number)
{
    return number >= -kFarthest && number <= kFarthest;
}

std::optional<ScreenArea> Parse(const std::string& text)
{
    std::istringstream numbers(text);
    ScreenArea area;
    if (!(numbers >> area.Left >> area.Top >> area.Width >> area.Height) || !(numbers >> std::ws).eof())
        return std::nullopt;
    const bool isNear = IsNear(area.Left) && IsNear(area.Top) && IsNear(area.Width) && IsNear(area.Height);
    return isNear && area.Width > 0 && area.Height > 0 ? std::optional(area) : std::nullopt;
}

// The length is no longer than the other one.
int Inside(int start, int length, int otherStart, int otherLength)
{
    return std::clamp(start, otherStart, otherStart + otherLength - length);
}

ScreenArea WholeOn(const ScreenArea& screen, const ScreenArea& area)
{
    const int width = std::min(area.Width, screen.Width);
    const int height = std::min(area.Height, screen.Height);
    return {.Left = Inside(area.Left, width, screen.Left, screen.Width),
            .Top = Inside(area.Top, height, screen.Top, screen.Height),
            .Width = width,
            .Height = height};
}

} // namespace

std::optional<ScreenArea> ReadDialogPlace(const RegistryAccess& settings, const std::string& dialog,
                                          const std::vector<ScreenArea>& screens)
{
    const std::optional<ScreenArea> area = Parse(settings.GetKeyValue(settings_section::kWindow, dialog));
    if (!area)
        return std::nullopt;
    const auto screen = std::find_if(screens.begin(), screens.end(),
                                     [&](const ScreenArea& candidate) { return CanBeHeldOn(candidate, *area); });
    return screen == screens.end() ? std::nullopt : std::optional(WholeOn(*screen, *area));
}

void WriteDialogPlace(RegistryAccess& settings, ErrorReport& errors, const std::string& dialog, const ScreenArea& place)
{
    Guarded(errors, dialog, "Form_Unload", [&] {
        std::ostringstream numbers;
        numbers << place.Left << ' ' << place.Top << ' ' << place.Width << ' ' << place.Height;
        settings.UpdateKey(settings_section::kWindow, dialog, numbers.str());
    });
}

} // namespace veldrane
