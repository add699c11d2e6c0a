#include "preview_fixture.h"

#include <initializer_list>

namespace veldrane::testing {
namespace {

std::string_view InkOf(const TTCOutput& line)
{
    const LineColors colors;
    for (const LineClass lineClass : {LineClass::Code, LineClass::Hidden, LineClass::Head, LineClass::Alert, LineClass::Note, LineClass::Key}) {
        const LineLook look = LookOf(lineClass, colors);
        const Color color = look.ForeColor == kCodeColor ? colors.ColorCode : look.ForeColor;
        if (line.Bold == look.Bold && line.ForeColor == color)
            return NameOf(lineClass);
    }
    return "?";
}

} // namespace

std::string PreviewLines(const TTCOutputs& lines)
{
    std::string text = "\n";
    for (const TTCOutput& line : lines) {
        text.append(InkOf(line)).append(line.Icon.empty() ? "" : " ").append(line.Icon);
        text.append("|").append(line.LineText).append("|\n");
    }
    return text;
}

} // namespace veldrane::testing
