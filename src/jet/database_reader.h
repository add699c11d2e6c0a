#pragma once

#include "jet/database.h"
#include "jet/jet_file.h"

namespace veldrane::jet {

// All that is told of a file: its tables and links in the order of MSysObjects, the saved queries, the relationships. A
// link has a name alone. Throws Refusal(kDamaged) if any of it can't be read.
[[nodiscard]] Database ReadDatabase(JetFile& file);

} // namespace veldrane::jet
