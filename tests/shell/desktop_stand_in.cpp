#include "shell/open_desktop.h"

// Answers the exit code 7 for a project that the command names, else 0.
extern "C" __attribute__((visibility("default"))) int VeldraneOpenDesktop(const veldrane::StartCommand& command,
                                                                          const veldrane::ProgramStreams& streams)
{
    streams.Output << command.File;
    return command.File.empty() ? 0 : 7;
}
