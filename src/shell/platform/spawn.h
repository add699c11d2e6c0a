#pragma once

#include "shell/platform/descriptor.h"
#include "text/runtime_error.h"

#include <spawn.h>
#include <string>
#include <sys/types.h>
#include <vector>

namespace veldrane {

// Where a program that is started belongs.
enum class SpawnPlace
{
    OwnSession,
    OwnGroup, // of processes, which can be killed as one
};

// How a program is started: none of this program's signal handlers and blocked signals go along, nor any file that is
// closed on exec.
class SpawnSettings
{
  public:
    explicit SpawnSettings(SpawnPlace place);
    ~SpawnSettings();
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    // What the program finds open under the number: a file that it opens itself (`flags` as of open), or one of this
    // program's. Both outlive Spawn.
    void Open(int number, const char* path, int flags);
    void Give(int number, const Descriptor& file);

    // Starts the program that `arguments` begins with, found along PATH when the name has no slash. Returns 0, or the
    // errno of the failure; allocates nothing.
    [[nodiscard]] int Spawn(char* const* arguments, pid_t& process) const;

  private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

// The words as Spawn wants them; they live as long as `words`.
[[nodiscard]] std::vector<char*> ArgumentsOf(std::vector<std::string>& words);

// The failure to start the program: 53 if there is none of that name, else 75.
[[nodiscard]] RuntimeError StartFailure(const std::string& source, const std::string& program, int error);

} // namespace veldrane
