#pragma once

#include "ports/messages.h"

#include <string>

namespace veldrane {

// Tells that a word of the command line is meant as a path and leads nowhere.
inline void TellInvalidPath(Messages& messages, const std::string& path)
{
    messages.Tell("Invalid Command Line Parameter",
                  "Invalid Auto Compile Path in command line. \r\n" + path + " is not a valid path.",
                  MessageIcon::Critical);
}

} // namespace veldrane
