#include "shell/platform/standard_streams.h"

#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace veldrane {

void HoldStandardStreams()
{
    // An open call takes the lowest number that is free. A folder can be neither read nor written, and "/" is always
    // there.
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(number, F_GETFD) < 0)
            static_cast<void>(open("/", O_RDONLY | O_DIRECTORY));
}

} // namespace veldrane
