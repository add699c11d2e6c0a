#pragma once

#include "model/classes.h"

namespace veldrane::testing {

// Whether saving the classes and reading them again gives the same classes. Files of the program's own making always
// lead to such classes, others may not:
// - a separator in a name is written, and read as the end of the name;
// - a format without its flag, lookup fields without a table and the procedure of a method that is none are not
// written;
// - members change their order, properties first and then methods and events, so that another one of two members with
//   one name may come first, and the second is dropped.
[[nodiscard]] bool IsFaithful(const KZMClasses& classes);

} // namespace veldrane::testing
