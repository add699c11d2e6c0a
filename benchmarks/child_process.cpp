#include "child_process.h"

#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <spawn.h>
#include <sstream>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace veldrane::bench {
namespace {

constexpr double kKiBInMiB = 1024;
constexpr mode_t kOutputMode = 0644;

std::runtime_error Failure(const std::vector<std::string>& command, const std::string& reason)
{
    std::string shown;
    for (const std::string& word : command)
        shown.append(word).append(" ");
    return std::runtime_error(shown + "\n" + reason);
}

std::string TextOf(const std::filesystem::path& file)
{
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

pid_t Start(const std::vector<std::string>& command, const ProcessFiles& files)
{
    std::vector<std::string> words = command;
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, files.Input.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, files.Output.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                     kOutputMode);
    posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
    pid_t child = 0;
    const int error = posix_spawnp(&child, arguments.front(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw Failure(command, std::strerror(error));
    return child;
}

} // namespace

ProcessCost RunProcess(const std::vector<std::string>& command, const ProcessFiles& files)
{
    const auto begin = std::chrono::steady_clock::now();
    const pid_t child = Start(command, files);
    int status = 0;
    struct rusage usage = {};
    while (wait4(child, &status, 0, &usage) < 0 && errno == EINTR) {
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw Failure(command, TextOf(files.Output));
    return {.Seconds = taken.count(), .PeakMiB = static_cast<double>(usage.ru_maxrss) / kKiBInMiB};
}

} // namespace veldrane::bench
