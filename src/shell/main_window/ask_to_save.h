#pragma once

#include "shell/application.h"
#include "shell/project_session.h"

namespace veldrane {

// Before a command that gives the document up: asks whether a modified one is to be saved first, and saves it after a
// Yes. Whether the command may go on: not after Cancel, nor when the document was to be saved and was not. Afterwards
// the settings hold no record of an unsaved copy of this document (section TempFiles); a failure to remove that is
// reported and holds nothing up.
[[nodiscard]] bool AskToSave(const Application& application, ProjectSession& session);

} // namespace veldrane
