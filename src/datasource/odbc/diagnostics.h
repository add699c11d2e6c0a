#pragma once

#include "datasource/data_source_error.h"
#include "datasource/driver_profile.h"

#include <sql.h>

#include <string>
#include <vector>

namespace veldrane {

// Everything that the driver and the driver manager have to say about the latest call on the handle, in their order.
// Texts are well-formed UTF-8.
[[nodiscard]] std::vector<ADOError> ReadDiagnostics(SQLSMALLINT handleType, SQLHANDLE handle, CallWidth width);

// The failure that these records tell of. Its number is the first that a rule tests, else kFailed; its description
// holds the words of all records in one line, for some drivers put the useful ones last, without the names of the
// components that speak, and the hint behind them.
[[nodiscard]] DataSourceError ErrorFrom(std::vector<ADOError> records, const std::string& hint = "");

} // namespace veldrane
