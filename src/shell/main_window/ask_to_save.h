#pragma once

#include "shell/application.h"
#include "shell/project_session.h"

namespace veldrane {

// Before a command that gives the document up: asks whether a modified one is to be saved first, and saves it after a
// Yes. Whether the command may go on: not after Cancel, nor when the document was to be saved and was not. Afterwards
// neither the settings (section TempFiles) nor the document know of an unsaved copy of it; a failure to remove the
// record is reported and holds nothing up.
[[nodiscard]] bool AskToSave(const Application& application, ProjectSession& session);

} // namespace veldrane
