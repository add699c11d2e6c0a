#pragma once

#include "generator/line_class.h"

#include <cstdint>

// What a colour value is made of.
namespace veldrane {

// A colour that is no system colour, by its parts.
struct ColorParts
{
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;

    friend bool operator==(const ColorParts&, const ColorParts&) = default;
};

// Whether the colour is one of the system's, to be looked up where it is shown.
[[nodiscard]] constexpr bool IsSystemColor(Color color)
{
    return color < 0;
}

// The number of a system colour: 5 a window's background, 8 its text, 17 gray text, and so on, as the system of the
// setting's origin counts them.
[[nodiscard]] constexpr std::int32_t SystemColorNumber(Color color)
{
    return color & 0xFF;
}

[[nodiscard]] constexpr ColorParts PartsOf(Color color)
{
    const auto bits = static_cast<std::uint32_t>(color);
    return {.Red = static_cast<std::uint8_t>(bits),
            .Green = static_cast<std::uint8_t>(bits >> 8U),
            .Blue = static_cast<std::uint8_t>(bits >> 16U)};
}

[[nodiscard]] constexpr Color ColorOf(const ColorParts& parts)
{
    return parts.Red | parts.Green << 8 | parts.Blue << 16;
}

} // namespace veldrane
