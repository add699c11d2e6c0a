#include "shell/entry.h"
#include "shell/open_desktop.h"
#include "shell/platform/paths.h"
#include "shell/platform/standard_streams.h"
#include "shell/platform/temporary_registry.h"

#include <iostream>
#include <string>
#include <unistd.h>
#include <vector>

int main(int argumentCount, char** arguments)
{
    veldrane::HoldStandardStreams();
    veldrane::RemoveTemporariesOnSignal();
    return veldrane::RunProgram(std::vector<std::string>(arguments + 1, arguments + argumentCount),
                                {.Output = std::cout,
                                 .ErrorOutput = std::cerr,
                                 .ErrorOutputIsTerminal = isatty(STDERR_FILENO) == 1,
                                 .Folder = veldrane::ProgramFolder(),
                                 .OpenDesktop = veldrane::OpenDesktopLibrary});
}
