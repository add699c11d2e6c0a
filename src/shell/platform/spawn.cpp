#include "shell/platform/spawn.h"

#include <algorithm>
#include <csignal>
#include <unistd.h>

namespace veldrane {

SpawnSettings::SpawnSettings(SpawnPlace place)
{
    posix_spawn_file_actions_init(&actions_);
    posix_spawnattr_init(&attributes_);
    sigset_t signals;
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes_, &signals);
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes_, &signals);
    const int own = place == SpawnPlace::OwnSession ? POSIX_SPAWN_SETSID : POSIX_SPAWN_SETPGROUP;
    posix_spawnattr_setflags(&attributes_, static_cast<short>(POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | own));
}

SpawnSettings::~SpawnSettings()
{
    posix_spawnattr_destroy(&attributes_);
    posix_spawn_file_actions_destroy(&actions_);
}

void SpawnSettings::Open(int number, const char* path, int flags)
{
    posix_spawn_file_actions_addopen(&actions_, number, path, flags, 0);
}

void SpawnSettings::Give(int number, const Descriptor& file)
{
    posix_spawn_file_actions_adddup2(&actions_, file.Number(), number);
}

int SpawnSettings::Spawn(char* const* arguments, pid_t& process) const
{
    return posix_spawnp(&process, arguments[0], &actions_, &attributes_, arguments, environ);
}

std::vector<char*> ArgumentsOf(std::vector<std::string>& words)
{
    std::vector<char*> pointers(words.size() + 1, nullptr);
    std::transform(words.begin(), words.end(), pointers.begin(), [](std::string& word) { return word.data(); });
    return pointers;
}

RuntimeError StartFailure(const std::string& source, const std::string& program, int error)
{
    const RuntimeError reason = ReadFailure(program, error);
    return {reason.Number, source, reason.Description()};
}

} // namespace veldrane
