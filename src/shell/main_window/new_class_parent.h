#pragma once

#include "shell/main_window/tree_state.h"

#include <string>

namespace veldrane {

// The class under which a new one is offered: that under which the selected class stands, so that both become children
// of one parent. "n/a" where there is none, as on the groups and on what stands right below them.
[[nodiscard]] std::string NewClassParent(const TreeState& tree);

} // namespace veldrane
