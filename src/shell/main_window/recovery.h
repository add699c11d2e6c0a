#pragma once

#include "shell/application.h"
#include "shell/command_line.h"
#include "shell/project_session.h"

namespace veldrane {

inline constexpr char kRecoveredStatus[] = "File Recovered";

// How the program goes on after it has looked for work that was not saved.
enum class AfterRecovery
{
    CommandLine,       // nothing is recovered
    WithoutItsProject, // nor is the project of the command line wanted
    Recovered,         // a recovered project is open; the command line's own is passed over
    End,               // the person ends the program; what can be recovered stays
};

// Opens the first copy that a program left behind when it came to no orderly end. Where the command line names a
// project, the person is asked which of both is wanted. A copy that was recovered is followed by one of this program's
// own before its entry goes, so the work has a copy at all times; one that can't be opened, which is told, loses its
// entry alone. Further copies wait for the next start.
[[nodiscard]] AfterRecovery RecoverProject(const Application& application, ProjectSession& session,
                                           const StartCommand& start);

} // namespace veldrane
