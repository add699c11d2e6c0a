#pragma once

#include "model/classes.h"
#include "model/project.h"

namespace veldrane::testing {

// Fills the project and the classes with what the seed gives, and always the same for the same seed: a project as the
// editors would let a person make it, with every setting and every kind of class among the projects of some hundred
// seeds. Generating it reports no error.
void MakeRandomProject(TTCProject& project, KZMClasses& classes, unsigned seed);

} // namespace veldrane::testing
