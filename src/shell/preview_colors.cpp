#include "shell/preview_colors.h"

#include "text/conversion.h"
#include "text/runtime_error.h"
#include "text/strings.h"

#include <array>
#include <string>
#include <string_view>

namespace veldrane {
namespace {

struct ColorOption
{
    std::string_view Name;
    Color LineColors::*Member;
};

constexpr auto kColorOptions = std::to_array<ColorOption>({
    {"PreviewPaneCodeTextColor", &LineColors::ColorCode},
    {"PreviewPaneHeaderTextColor", &LineColors::ColorHeader},
    {"PreviewPaneHiddenTextColor", &LineColors::ColorHidden},
    {"PreviewPaneCommentTextColor", &LineColors::ColorComment},
    {"PreviewPaneKeyTextColor", &LineColors::ColorKey},
    {"PreviewPaneErrorTextColor", &LineColors::ColorError},
});

} // namespace

LineColors ReadPreviewColors(const RegistryAccess& registry, Messages& messages)
{
    LineColors colors;
    for (const ColorOption& option : kColorOptions) {
        const std::string value = registry.GetKeyValue(settings_section::kOptions, option.Name);
        if (text::Trim(value).empty())
            continue;
        try {
            colors.*option.Member = text::ToLong(value);
        } catch (const RuntimeError&) {
            messages.Tell("Settings",
                          "The setting " + std::string(option.Name) + " in the section Options is '" + value +
                              "', which is no colour: a 32-bit number, red in the low byte. The default is used.",
                          MessageIcon::Warning);
        }
    }
    return colors;
}

} // namespace veldrane
