#pragma once

#include "shell/project_session.h"

#include <string>

namespace veldrane {

// Opens the project file of a command. Where that fails, the reason is told as the session tells it, and a line on
// standard error names the file: a script that runs many has no other means to know which it was. The same where
// classes are missing from what was opened.
[[nodiscard]] bool OpenProjectFile(const Application& application, ProjectSession& session, const std::string& path,
                                   DataSourceOnOpen dataSource);

} // namespace veldrane
