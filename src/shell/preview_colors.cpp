#include "shell/preview_colors.h"

#include "shell/stored_options.h"

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
    const StoredOptions options(registry, messages);
    LineColors colors;
    for (const ColorOption& option : kColorOptions)
        colors.*option.Member = options.ColorOf(option.Name, colors.*option.Member);
    return colors;
}

void WritePreviewColors(RegistryAccess& registry, const LineColors& colors)
{
    for (const ColorOption& option : kColorOptions)
        registry.UpdateKey(settings_section::kOptions, option.Name, std::to_string(colors.*option.Member));
}

} // namespace veldrane
