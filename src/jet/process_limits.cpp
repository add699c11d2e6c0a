#include "jet/process_limits.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace veldrane::jet {
namespace {

constexpr rlim_t kAddressSpace = rlim_t{512} << 20U;
constexpr rlim_t kProcessorSeconds = 5;
constexpr rlim_t kFileBytes = rlim_t{64} << 20U;

// The system counts all that a user has running, but only when one more is to be started, which this process never
// does.
constexpr rlim_t kProcesses = 0;

bool Limit(__rlimit_resource_t resource, rlim_t most)
{
    rlimit limit{};
    if (getrlimit(resource, &limit) != 0)
        return false;
    if (limit.rlim_max != RLIM_INFINITY && limit.rlim_max < most)
        most = limit.rlim_max;
    limit = {.rlim_cur = most, .rlim_max = most};
    return setrlimit(resource, &limit) == 0;
}

// A parent that is gone before the signal is ordered sends none: the process has another one then.
bool EndWithParent()
{
    const pid_t parent = getppid();
    return prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 && getppid() == parent;
}

} // namespace

bool LimitProcess()
{
    return Limit(RLIMIT_AS, kAddressSpace) && Limit(RLIMIT_CPU, kProcessorSeconds) && Limit(RLIMIT_FSIZE, kFileBytes) &&
           Limit(RLIMIT_NPROC, kProcesses) && Limit(RLIMIT_CORE, 0) && EndWithParent();
}

int KeepAnswerApart()
{
    const bool isQuiet = std::getenv("VELDRANE_JET_MESSAGES") == nullptr;
    if (clearenv() != 0)
        return -1;
    const int answer = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (answer < 0 || nowhere < 0 || dup2(nowhere, STDOUT_FILENO) < 0)
        return -1;
    if (isQuiet && dup2(nowhere, STDERR_FILENO) < 0)
        return -1;
    return answer;
}

} // namespace veldrane::jet
