#pragma once

#include "generator/line_class.h"
#include "ports/messages.h"
#include "ports/settings.h"

#include <cstdint>
#include <string>

// How the preview pane looks, but for the colours of its lines.
namespace veldrane {

inline constexpr Color kDefaultPreviewBackground = 0xFEF8F3;

struct PreviewFont
{
    std::string Name = "Tahoma";
    std::int32_t Size = 8; // points
    bool Bold = false;
    bool Italic = false;

    friend bool operator==(const PreviewFont&, const PreviewFont&) = default;
};

struct PreviewLook
{
    Color Background = kDefaultPreviewBackground;
    PreviewFont Font;
};

// Read from the options. An absent or blank value gives the default, and so does one that is not of its kind, which is
// told: a colour, a size from 1 to 400, True or False.
[[nodiscard]] PreviewFont ReadPreviewFont(const RegistryAccess& registry, Messages& messages);
[[nodiscard]] PreviewLook ReadPreviewLook(const RegistryAccess& registry, Messages& messages);

// Stored where they are read from. Throw as UpdateKey does.
void WritePreviewBackground(RegistryAccess& registry, Color background);
void WritePreviewFont(RegistryAccess& registry, const PreviewFont& font);

} // namespace veldrane
