#pragma once

#include "ports/messages.h"

namespace veldrane {

// Message boxes over the window in front (objectName "msgBox"; buttons "cmdOK", "cmdCancel", "cmdYes", "cmdNo"). The
// text is shown as it stands, never as rich text; one that is taller than MostHeightOfWords is scrolled (label
// "lblText"). Escape and closing the box mean the answer that loses nothing: Cancel, else No, else OK.
class QtMessages : public Messages
{
  public:
    Answer Ask(const Question& question) override;
};

} // namespace veldrane
