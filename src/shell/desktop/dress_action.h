#pragma once

#include "shell/main_window/menu_states.h"

#include <QAction>

namespace veldrane {

// Gives the action what the table of the tools says of its tool: name, caption, status text, picture and key.
void DressAction(QAction& action, const Tool& tool);

} // namespace veldrane
