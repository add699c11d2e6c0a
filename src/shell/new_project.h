#pragma once

#include "model/project.h"
#include "ports/error_report.h"
#include "ports/settings.h"

namespace veldrane {

// Makes a project that was just created what the New command gives: the fixed first values and the defaults of the
// section Options. An option that is absent or empty takes its own default, a Boolean option whose text is neither
// True nor False counts as False. A store that can't be read is reported; the project then has what was read so far.
void NewProject(TTCProject& project, const Settings& settings, ErrorReport& report);

} // namespace veldrane
