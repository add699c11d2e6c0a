#include "shell/open_desktop.h"

#include "shell/platform/desktop_library.h"

namespace veldrane {

int OpenDesktopLibrary(const StartCommand& command, const ProgramStreams& streams)
{
    const auto open = reinterpret_cast<OpenDesktopFunction>(DesktopFunction(streams.Folder, kOpenDesktopName));
    return open(command, streams);
}

} // namespace veldrane
