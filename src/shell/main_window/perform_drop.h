#pragma once

#include "editors/class_editor.h"
#include "shell/main_window/drop_rules.h"

namespace veldrane {

// What a drop changes.
struct DropWorld
{
    TTCProject& Project;
    KZMClasses& Classes;
    ClassEditor& Editor;
};

// Does what the drop stands for. True if the project has changed, so that the tree is to be built again.
bool Perform(const Drop& drop, const DropWorld& world);

} // namespace veldrane
