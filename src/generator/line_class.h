#pragma once

#include <cstdint>
#include <string_view>

namespace veldrane {

// What kind of line a generated line is. One class stands for one combination of bold, colour and icon.
enum class LineClass
{
    Code,         // the body of a routine
    Hidden,       // file preamble that the Visual Basic editor does not show
    Head,         // closing and sectioning lines
    HeadProperty, // first lines of routines, by kind
    HeadSub,
    HeadFunction,
    HeadPlusMethod, // first line of a built-in method that the class carries
    HeadSP,         // first line of a function that calls a stored procedure
    MarkMTS,        // lines that exist for transaction-server support,
    MarkGlobe,      // for web compatibility,
    MarkEvent,      // and declarations of the user's
    MarkPlusEvent,  // and of built-in events
    Alert,          // a warning in the text itself
    Note,           // an explanation, in the preview alone
    Key,            // a key of a table, in the preview alone
};

// 32-bit colours with red in the low byte; the top bit marks a colour of the system.
using Color = std::int32_t;

// Stands for the code colour wherever a colour is asked for.
inline constexpr Color kCodeColor = -1;

inline constexpr Color kAlertColor = 255;

// The six colours of the preview, with the values that stand when the user has set none.
struct LineColors
{
    Color ColorCode = 0;
    Color ColorHeader = 0xFF0000;
    Color ColorHidden = static_cast<Color>(0x80000011U);
    Color ColorComment = 0x8000;
    Color ColorKey = 0x8080;
    Color ColorError = 0xFF;
};

struct LineLook
{
    bool Bold = false;
    Color ForeColor = kCodeColor;
    std::string_view Icon; // "" for none
};

// The look of a line of this class.
[[nodiscard]] LineLook LookOf(LineClass lineClass, const LineColors& colors);

// The class's name, such as "head:Property".
[[nodiscard]] std::string_view NameOf(LineClass lineClass);

} // namespace veldrane
