#pragma once

#include "model/class.h"
#include "ports/messages.h"

// Classes that the program itself adds to a project and takes out again.
namespace veldrane {

// False, which is told, for a class that the project requires.
[[nodiscard]] bool MayDelete(const KZMClass& item, Messages& messages);

// The same for editing it.
[[nodiscard]] bool MayEdit(const KZMClass& item, Messages& messages);

} // namespace veldrane
