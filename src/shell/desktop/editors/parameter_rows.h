#pragma once

#include "datasource/procedure_method.h"
#include "shell/desktop/editors/editor_list.h"

#include <vector>

namespace veldrane {

// Shows the parameters of a stored procedure in the list, each with its direction and type.
void ShowParameters(EditorList& list, const std::vector<ParameterRow>& parameters);

} // namespace veldrane
