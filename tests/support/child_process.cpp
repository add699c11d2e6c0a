#include "support/child_process.h"

#include <algorithm>
#include <cerrno>
#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace veldrane::testing {
namespace {

constexpr uid_t kNobody = 65534;

bool DropPrivileges()
{
    return geteuid() != 0 || (setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0);
}

} // namespace

pid_t StartChild(const std::function<int()>& body)
{
    const pid_t child = fork();
    if (child != 0)
        return child;
    try {
        _exit(body());
    } catch (...) {
        _exit(kThrew);
    }
}

int EndOf(pid_t child)
{
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR)
            return -1;
    return WIFSIGNALED(status) ? kKilled + WTERMSIG(status) : WEXITSTATUS(status);
}

int ExitCodeUnprivileged(const std::function<int()>& body)
{
    return ExitCodeOf([&] { return DropPrivileges() ? body() : -1; });
}

bool AllEndWell(int processes, const std::function<void(int)>& body)
{
    std::vector<pid_t> children(static_cast<std::size_t>(processes));
    for (int number = 0; number < processes; ++number)
        children[static_cast<std::size_t>(number)] = StartChild([&] {
            body(number);
            return 0;
        });
    return std::count_if(children.begin(), children.end(), [](pid_t child) { return EndOf(child) == 0; }) == processes;
}

} // namespace veldrane::testing
