#pragma once

#include "model/classes.h"
#include "shell/main_window/tree_state.h"

#include <string>

namespace veldrane {

// What follows when a class gets another name: its subclasses name it as their parent, letter case of the old name
// apart, and its nodes show it. The nodes keep their places.
void FollowRenamedClass(const std::string& oldName, const std::string& newName, KZMClasses& classes, TreeState& tree);

} // namespace veldrane
