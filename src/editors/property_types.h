#pragma once

#include "editors/type_list.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace veldrane {

// The data types that a property may have, "Class" and "Collection" among them. One that the property has and the list
// lacks stands behind them, so that it can be kept; an empty one, too.
[[nodiscard]] std::vector<TypeItem> PropertyTypes(std::string_view present);

// The row of a type, compared exactly; behind the last if it isn't there.
[[nodiscard]] std::size_t RowOfType(const std::vector<TypeItem>& types, std::string_view type);

} // namespace veldrane
