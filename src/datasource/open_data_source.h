#pragma once

#include "datasource/catalog.h"
#include "datasource/connection_policy.h"

#include <functional>
#include <memory>
#include <string>

namespace veldrane {

// Opens a data source. Throws DataSourceError with the driver's own words.
using OpenDataSource =
    std::function<std::unique_ptr<DataSourceConnection>(const std::string& text, StringOrigin origin)>;

} // namespace veldrane
