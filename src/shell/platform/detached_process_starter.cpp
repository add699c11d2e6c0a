#include "shell/platform/detached_process_starter.h"

#include "shell/platform/spawn.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace veldrane {
namespace {

constexpr const char* kSource = "ProcessStarter";

// A child that starts the program and ends at once: the program is then nobody's child that would have to be waited
// for. It tells by its exit code how the start went; every errno fits.
int StartFromChild(const SpawnSettings& settings, char* const* arguments)
{
    const pid_t child = fork();
    if (child < 0)
        return errno;
    if (child == 0) {
        pid_t process = 0;
        _exit(settings.Spawn(arguments, process));
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR)
            return errno;
    return WIFEXITED(status) ? WEXITSTATUS(status) : EINTR;
}

} // namespace

void DetachedProcessStarter::Start(const std::vector<std::string>& command)
{
    std::vector<std::string> words = command;
    if (words.empty() || words[0].empty())
        throw StartFailure(kSource, "The command names no program", ENOENT);
    SpawnSettings settings(SpawnPlace::OwnSession);
    settings.Open(STDIN_FILENO, "/dev/null", O_RDONLY);
    const std::vector<char*> arguments = ArgumentsOf(words);
    if (const int error = StartFromChild(settings, arguments.data()); error != 0)
        throw StartFailure(kSource, words[0], error);
}

} // namespace veldrane
