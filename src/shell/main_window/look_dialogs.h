#pragma once

#include "shell/main_window/preview_look.h"

#include <optional>

namespace veldrane {

// The dialogs in which a person chooses a colour or a font.
class LookDialogs
{
  public:
    virtual ~LookDialogs() = default;

    // Starts from the colour shown; nothing if the person cancels. Never throws.
    virtual std::optional<Color> AskForColor(Color shown) = 0;

    // The same for a font.
    virtual std::optional<PreviewFont> AskForFont(const PreviewFont& shown) = 0;
};

} // namespace veldrane
