#pragma once

#include "model/class.h"

#include <memory>

namespace veldrane {

// An independent copy to change in place of the class: unlike `KZMClass::Clone`, it has everything that the class has,
// all its keys, the flags and formats of its properties and its stored procedures among it, each under the key that it
// has in the class. Objects held as values of enumerations are shared.
[[nodiscard]] std::shared_ptr<KZMClass> WorkingCopy(const KZMClass& item);

} // namespace veldrane
