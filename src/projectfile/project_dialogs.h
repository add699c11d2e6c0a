#pragma once

#include "model/project.h"
#include "ports/file_dialogs.h"

#include <string>
#include <string_view>

namespace veldrane {

// The part of the path behind its last slash of either kind.
[[nodiscard]] std::string LastPart(std::string_view path);

// Whether the file of a project is the person's own, or a private copy from which it was recovered.
enum class OwnFile
{
    Yes,
    No,
};

// The dialog in which a project file is chosen; starts in the folder of `fullPath` where that is not empty.
[[nodiscard]] FileDialogRequest OpenProjectRequest(const std::string& fullPath);

// The dialog in which a project is given a file. It proposes the file that the project has; of a private copy neither
// name nor folder are proposed.
[[nodiscard]] FileDialogRequest SaveProjectRequest(const TTCProject& project, OwnFile ownFile = OwnFile::Yes);

} // namespace veldrane
