#include "editors/property_types.h"

#include <algorithm>

namespace veldrane {

std::vector<TypeItem> PropertyTypes(std::string_view present)
{
    std::vector<TypeItem> types = TypeList({.ClassAndCollection = true, .Present = present});
    if (present.empty())
        types.push_back({.Key = TypeKey(present)});
    return types;
}

std::size_t RowOfType(const std::vector<TypeItem>& types, std::string_view type)
{
    const auto row = std::find_if(types.begin(), types.end(), [&](const TypeItem& each) { return each.Type == type; });
    return static_cast<std::size_t>(row - types.begin());
}

} // namespace veldrane
