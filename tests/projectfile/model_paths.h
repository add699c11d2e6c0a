#pragma once

#include "model/classes.h"
#include "model/project.h"

#include <string>
#include <string_view>

namespace veldrane::testing {

// The text of the value that a path such as "Order.TTCMethods(Load).Arguments(1).Index" leads to. The path begins with
// "Project", "ClassCollectionNames", "Classes" or the name of a class; an argument in parentheses is a position if it
// is a number, else a key. Throws std::runtime_error for a path that leads nowhere.
[[nodiscard]] std::string ValueAt(const TTCProject& project, const KZMClasses& classes, std::string_view path);

} // namespace veldrane::testing
