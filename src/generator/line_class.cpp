#include "generator/line_class.h"

#include <array>
#include <cstddef>

namespace veldrane {
namespace {

enum class Ink
{
    Code,
    Header,
    Hidden,
    Alert,
    Comment,
    Key,
};

struct LineClassRow
{
    std::string_view Name;
    bool Bold;
    Ink ForeColor;
    std::string_view Icon;
};

// In the order of LineClass.
constexpr auto kRows = std::to_array<LineClassRow>({
    {"code", false, Ink::Code, ""},
    {"hidden", true, Ink::Hidden, ""},
    {"head", true, Ink::Header, ""},
    {"head:Property", true, Ink::Header, "Property"},
    {"head:Sub", true, Ink::Header, "Sub"},
    {"head:Function", true, Ink::Header, "Function"},
    {"head:PlusMethod", true, Ink::Header, "PlusMethod"},
    {"head:SP", true, Ink::Header, "SP"},
    {"mark:MTS", false, Ink::Code, "MTS"},
    {"mark:Globe", false, Ink::Code, "Globe"},
    {"mark:Event", false, Ink::Code, "Event"},
    {"mark:PlusEvent", false, Ink::Code, "PlusEvent"},
    {"alert", true, Ink::Alert, ""},
    {"note", true, Ink::Comment, ""},
    {"key", false, Ink::Key, ""},
});
static_assert(kRows.size() == static_cast<std::size_t>(LineClass::Key) + 1);

Color ColorOf(Ink ink, const LineColors& colors)
{
    switch (ink) {
    case Ink::Header:
        return colors.ColorHeader;
    case Ink::Hidden:
        return colors.ColorHidden;
    case Ink::Alert:
        return kAlertColor;
    case Ink::Comment:
        return colors.ColorComment;
    case Ink::Key:
        return colors.ColorKey;
    case Ink::Code:
        break;
    }
    return kCodeColor;
}

} // namespace

LineLook LookOf(LineClass lineClass, const LineColors& colors)
{
    const LineClassRow& row = kRows.at(static_cast<std::size_t>(lineClass));
    return {.Bold = row.Bold, .ForeColor = ColorOf(row.ForeColor, colors), .Icon = row.Icon};
}

std::string_view NameOf(LineClass lineClass)
{
    return kRows.at(static_cast<std::size_t>(lineClass)).Name;
}

} // namespace veldrane
