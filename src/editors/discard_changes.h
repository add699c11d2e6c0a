#pragma once

#include "ports/messages.h"

#include <string>
#include <utility>

namespace veldrane {

// Asks the person who cancels a dialog whether the changes may go.
[[nodiscard]] inline bool ConfirmDiscard(Messages& messages, std::string text)
{
    return messages.Ask({.Title = "Discard Changes?",
                         .Text = std::move(text),
                         .Offered = Buttons::YesNo,
                         .Icon = MessageIcon::Question,
                         .Default = Answer::No}) == Answer::Yes;
}

} // namespace veldrane
