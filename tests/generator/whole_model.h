#pragma once

#include "model/classes.h"
#include "model/project.h"

#include <string>

namespace veldrane::testing {

// Every value of the model, a line each: those that a file carries, and those that live for the session alone. Left out
// are FieldReference and FieldAlias, which are the generator's to change.
[[nodiscard]] std::string WholeModelText(const TTCProject& project, const KZMClasses& classes);

} // namespace veldrane::testing
