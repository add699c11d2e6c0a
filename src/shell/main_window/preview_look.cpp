#include "shell/main_window/preview_look.h"

#include "shell/stored_options.h"
#include "text/conversion.h"

#include <string_view>

namespace veldrane {
namespace {

constexpr std::string_view kBackground = "PreviewBackgroundColor";
constexpr std::string_view kFontName = "PreviewPaneFontName";
constexpr std::string_view kFontSize = "PreviewPaneFontSize";
constexpr std::string_view kFontBold = "PreviewPaneFontBold";
constexpr std::string_view kFontItalic = "PreviewPaneFontItalic";

constexpr NumberRange kSizes{.What = "font size", .Lowest = 1, .Highest = 400};

} // namespace

PreviewFont ReadPreviewFont(const RegistryAccess& registry, Messages& messages)
{
    const StoredOptions options(registry, messages);
    const PreviewFont unset;
    return {.Name = options.Text(kFontName, unset.Name),
            .Size = options.Number(kFontSize, kSizes, unset.Size),
            .Bold = options.Flag(kFontBold, unset.Bold),
            .Italic = options.Flag(kFontItalic, unset.Italic)};
}

PreviewLook ReadPreviewLook(const RegistryAccess& registry, Messages& messages)
{
    return {.Background = StoredOptions(registry, messages).ColorOf(kBackground, kDefaultPreviewBackground),
            .Font = ReadPreviewFont(registry, messages)};
}

void WritePreviewBackground(RegistryAccess& registry, Color background)
{
    registry.UpdateKey(settings_section::kOptions, kBackground, std::to_string(background));
}

void WritePreviewFont(RegistryAccess& registry, const PreviewFont& font)
{
    registry.UpdateKey(settings_section::kOptions, kFontName, font.Name);
    registry.UpdateKey(settings_section::kOptions, kFontSize, std::to_string(font.Size));
    registry.UpdateKey(settings_section::kOptions, kFontBold, text::TextOf(font.Bold));
    registry.UpdateKey(settings_section::kOptions, kFontItalic, text::TextOf(font.Italic));
}

} // namespace veldrane
