#pragma once

#include "datasource/connection_policy.h"
#include "ports/messages.h"

#include <string>

namespace veldrane {

// The filter of the dialog in which a database file of the driver is chosen, read out of its name: the file type and
// the pattern in brackets. Says so if the name has none.
[[nodiscard]] std::string BrowseFilter(const std::string& driver, const InstalledDrivers& installed,
                                       Messages& messages);

} // namespace veldrane
