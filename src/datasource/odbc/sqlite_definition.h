#pragma once

#include <string>
#include <string_view>

namespace veldrane {

// The name that a CREATE TABLE statement of SQLite gives to the primary key, "" if it gives none: nothing else knows
// it.
[[nodiscard]] std::string PrimaryKeyNameOf(std::string_view createStatement);

} // namespace veldrane
