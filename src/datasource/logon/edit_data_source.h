#pragma once

#include "ports/messages.h"

namespace veldrane {

// Asks whether the data source of a project is really to be changed.
[[nodiscard]] bool ConfirmEditDataSource(Messages& messages);

} // namespace veldrane
