#pragma once

#include "model/project.h"

#include <string>

namespace veldrane {

// Appends the section of the project, from "Begin Project" to "End Project".
void WriteProjectInfo(std::string& text, const TTCProject& project);

} // namespace veldrane
