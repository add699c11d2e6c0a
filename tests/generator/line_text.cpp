#include "line_text.h"

namespace veldrane::testing {

std::string LineClassOf(const TTCOutput& line)
{
    for (int number = 0; number <= static_cast<int>(LineClass::Key); ++number) {
        const auto lineClass = static_cast<LineClass>(number);
        const LineColors colors;
        const LineLook look = LookOf(lineClass, colors);
        const Color color = look.ForeColor == kCodeColor ? colors.ColorCode : look.ForeColor;
        if (line.Bold == look.Bold && line.ForeColor == color && line.Icon == look.Icon)
            return std::string(NameOf(lineClass));
    }
    return "?";
}

std::string Lines(const TTCOutputs& lines)
{
    std::string text = "\n";
    for (const TTCOutput& line : lines)
        text += LineClassOf(line) + "|" + line.LineText + "|\n";
    return text;
}

} // namespace veldrane::testing
