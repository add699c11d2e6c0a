#pragma once

#include "model/class.h"

#include <memory>

namespace veldrane {

// An independent copy to change in place of the class: unlike `KZMClass::Clone`, it has everything that the class has,
// all its keys, the flags and formats of its properties and its stored procedures among it, each under the key that it
// has in the class. Objects held as values of enumerations are shared.
[[nodiscard]] std::shared_ptr<KZMClass> WorkingCopy(const KZMClass& item);

// The same of what a class owns: unlike by its `Clone`, nothing is shared.
[[nodiscard]] std::shared_ptr<TTCMethod> WorkingCopy(const TTCMethod& item);
[[nodiscard]] std::shared_ptr<ttcEvent> WorkingCopy(const ttcEvent& item);
[[nodiscard]] std::shared_ptr<SP> WorkingCopy(const SP& item);

} // namespace veldrane
