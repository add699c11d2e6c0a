#pragma once

#include "model/classes.h"
#include "model/project.h"

namespace veldrane::testing {

// Fills the project and the classes with what the seed gives, and always the same for the same seed: every member that
// a file carries, with the awkward values among them that a file gives back.
void FillAtRandom(TTCProject& project, KZMClasses& classes, unsigned seed);

} // namespace veldrane::testing
