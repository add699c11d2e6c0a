#pragma once

#include "jet/database.h"
#include "jet/refusal.h"

#include <string>

namespace veldrane::jet {

// The whole answer, as answer_format.h draws it, for a file that was read. Throws Refusal(kDamaged) for a name that is
// none.
[[nodiscard]] std::string AnswerOf(const Database& database);

// The same for one that was not.
[[nodiscard]] std::string AnswerOf(const Refusal& refusal);

} // namespace veldrane::jet
