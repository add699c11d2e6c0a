#pragma once

#include "model/project.h"

#include <string_view>

namespace veldrane {

// Changes one setting of the project, named as in its file. Throws RuntimeError, whose description says what is wrong,
// for a name that no file has, one that is never read from a file, the connection string (setting it opens the data
// source), a value that does not convert, and a value that a file can't hold.
void SetProjectSetting(TTCProject& project, std::string_view name, std::string_view value);

} // namespace veldrane
