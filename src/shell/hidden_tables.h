#pragma once

#include "datasource/catalog.h"

#include <ostream>

namespace veldrane {

// Says in one line how many tables are there that the login may not read; nothing if there are none.
void TellHiddenTables(Catalog& catalog, std::ostream& out);

} // namespace veldrane
