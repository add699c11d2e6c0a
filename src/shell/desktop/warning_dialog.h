#pragma once

#include "shell/main_window/frm_warning.h"

namespace veldrane {

// `frmWarning` as a window over the one in front. Returns when it is left.
void ShowWarning(frmWarning& warning);

} // namespace veldrane
