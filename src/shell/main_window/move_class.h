#pragma once

#include "model/classes.h"
#include "model/project.h"
#include "shell/main_window/drop_rules.h"

#include <memory>

namespace veldrane {

// Puts a changed working copy in the place of the class of its name, and marks the project as modified. The class is
// the last of the project afterwards; NewClassAdded is raised for it.
void ReplaceClass(const std::shared_ptr<KZMClass>& changed, TTCProject& project, KZMClasses& classes);

// Moves the class as a working copy, so that it keeps all that the move does not change. The name of a collection that
// it leaves behind is free in the project then. False if there is no such class.
bool MoveClass(const ClassMove& move, TTCProject& project, KZMClasses& classes);

} // namespace veldrane
