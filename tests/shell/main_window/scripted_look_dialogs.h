#pragma once

#include "shell/main_window/look_dialogs.h"

#include <vector>

namespace veldrane::testing {

// Chooses what it is told to, or cancels. Keeps what was shown.
class ScriptedLookDialogs : public LookDialogs
{
  public:
    std::optional<Color> AskForColor(Color shown) override
    {
        ShownColors.push_back(shown);
        return ColorChosen;
    }

    std::optional<PreviewFont> AskForFont(const PreviewFont& shown) override
    {
        ShownFonts.push_back(shown);
        return FontChosen;
    }

    std::optional<Color> ColorChosen;
    std::optional<PreviewFont> FontChosen;
    std::vector<Color> ShownColors;
    std::vector<PreviewFont> ShownFonts;
};

} // namespace veldrane::testing
