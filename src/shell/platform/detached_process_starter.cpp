#include "shell/platform/detached_process_starter.h"

#include "shell/platform/descriptor.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace veldrane {
namespace {

// How the program is started: nothing of this program's input, signal handlers or terminal goes along.
class SpawnSettings
{
  public:
    SpawnSettings()
    {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawnattr_init(&attributes_);
        sigset_t signals;
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes_, &signals);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSID);
    }
    ~SpawnSettings()
    {
        posix_spawnattr_destroy(&attributes_);
        posix_spawn_file_actions_destroy(&actions_);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    // The errno of the failure, or 0.
    [[nodiscard]] int Spawn(char* const* arguments) const
    {
        pid_t process = 0;
        return posix_spawnp(&process, arguments[0], &actions_, &attributes_, arguments, environ);
    }

  private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

std::vector<char*> Pointers(std::vector<std::string>& words)
{
    std::vector<char*> pointers(words.size() + 1, nullptr);
    std::transform(words.begin(), words.end(), pointers.begin(), [](std::string& word) { return word.data(); });
    return pointers;
}

RuntimeError StartFailure(const std::string& program, int error)
{
    const RuntimeError reason = ReadFailure(program, error);
    return {reason.Number, "ProcessStarter", reason.Description()};
}

// A child that starts the program and ends at once: the program is then nobody's child that would have to be waited
// for. It tells by its exit code how the start went; every errno fits.
int StartFromChild(const SpawnSettings& settings, char* const* arguments)
{
    const pid_t child = fork();
    if (child < 0)
        return errno;
    if (child == 0)
        _exit(settings.Spawn(arguments));
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
        throw StartFailure("The command names no program", ENOENT);
    const SpawnSettings settings;
    const std::vector<char*> arguments = Pointers(words);
    if (const int error = StartFromChild(settings, arguments.data()); error != 0)
        throw StartFailure(words[0], error);
}

} // namespace veldrane
