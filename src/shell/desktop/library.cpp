#include "shell/application.h"
#include "shell/desktop/desktop.h"
#include "shell/open_desktop.h"
#include "shell/platform/console_text.h"
#include "shell/platform/temporary_registry.h"

#include <exception>

// The program's signal handler knows the temporary files of the program's own copy of the layers alone.
extern "C" __attribute__((visibility("default"))) int VeldraneOpenDesktop(const veldrane::StartCommand& command,
                                                                          const veldrane::ProgramStreams& streams)
{
    static_assert(std::is_same_v<decltype(&VeldraneOpenDesktop), veldrane::OpenDesktopFunction>);
    try {
        veldrane::RemoveTemporariesOnSignal();
        return veldrane::OpenDesktop(command, streams);
    } catch (const std::exception& error) {
        streams.ErrorOutput << "veldrane: " << veldrane::ConsoleLine(error.what()) << '\n';
    }
    return veldrane::exit_code::kFailed;
}
