#pragma once

#include "model/classes.h"
#include "model/project.h"

#include <string>

namespace veldrane::testing {

// Everything that a file can tell of the project and its classes, one value a line: two models that a file carries in
// the same way have the same text. Left out is what no reader takes from a file: paths, the autosave interval, the
// names that classes keep of their members.
[[nodiscard]] std::string ModelText(const TTCProject& project, const KZMClasses& classes);

} // namespace veldrane::testing
