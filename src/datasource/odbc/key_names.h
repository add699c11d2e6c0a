#pragma once

#include "datasource/catalog.h"

#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// The name of a primary key that the data source has none for.
inline constexpr std::string_view kUnnamedPrimaryKey = "PrimaryKey";

// Gives every key without a name that of the related table and its own table, one behind the other; the second such
// key has a 2 behind it, and so on, so that no two keys of the table share a name.
void NameUnnamedKeys(std::vector<CatalogKey>& keys, const std::string& table);

} // namespace veldrane
