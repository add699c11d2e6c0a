#pragma once

#include "shell/main_window/look_dialogs.h"

namespace veldrane {

// The system's dialogs for a colour (objectName "colorDialog") and a font ("fontDialog"), over the window in front. A
// colour of the system is shown as it looks at the time, and becomes a colour of its own when another is chosen.
class QtLookDialogs : public LookDialogs
{
  public:
    std::optional<Color> AskForColor(Color shown) override;
    std::optional<PreviewFont> AskForFont(const PreviewFont& shown) override;
};

} // namespace veldrane
