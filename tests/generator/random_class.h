#pragma once

#include "model/class.h"
#include "random_names.h"

#include <memory>

namespace veldrane::testing {

// A class as the editors would leave it: names that clash with none, keys and relationships whose columns have
// properties, built-in members by the rules of their lists. All else is left to chance. `parent` is nothing for a class
// at the top.
[[nodiscard]] std::shared_ptr<KZMClass> MakeRandomClass(RandomNumbers& random, RandomNames& names, const KZMClass* parent);

} // namespace veldrane::testing
