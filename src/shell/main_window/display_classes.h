#pragma once

#include "ports/error_report.h"
#include "shell/main_window/tree_state.h"

namespace veldrane {

// Builds the tree anew from the project and its classes. A failure is reported, and the tree stays as it was.
void DisplayClasses(TreeState& tree, const TTCProject& project, const KZMClasses& classes, ErrorReport& errors);

// The same, then shows and selects the class that has just come into the project.
void DisplayNewClass(const std::string& className, TreeState& tree, const TTCProject& project,
                     const KZMClasses& classes, ErrorReport& errors);

} // namespace veldrane
