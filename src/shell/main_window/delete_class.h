#pragma once

#include "model/classes.h"
#include "model/project.h"
#include "ports/messages.h"
#include "shell/main_window/tree_state.h"

#include <cstddef>

namespace veldrane {

// What a deletion works on.
struct ClassDeletion
{
    TTCProject& Project;
    KZMClasses& Classes;
    TreeState& Tree; // shows these classes
    veldrane::Messages& Messages;
};

// Deletes the class of the node, of a collection the class below it, with all its subclasses, after one question; their
// nodes are marked meanwhile. True if it was done: the project is modified, and the tree is to be built again. False if
// the node is no class's, the class is required, which is told, or the answer is Cancel: nothing is changed then.
bool DeleteClass(const ClassDeletion& deletion, std::size_t node);

} // namespace veldrane
