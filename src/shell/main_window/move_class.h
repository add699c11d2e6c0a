#pragma once

#include "model/classes.h"
#include "model/project.h"
#include "shell/main_window/drop_rules.h"

namespace veldrane {

// Moves the class as a working copy, so that it keeps all that the move does not change. The name of a collection that
// it leaves behind is free in the project then. False if there is no such class.
bool MoveClass(const ClassMove& move, TTCProject& project, KZMClasses& classes);

} // namespace veldrane
