#include "support/system_calls.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <sys/types.h>
#include <unistd.h>

namespace veldrane::testing {
namespace {

struct Failure
{
    SystemCall Call;
    int Error;
    int Before;
};

std::optional<Failure> failure;
bool halting = false;
bool interrupted = false;
CallLog* log = nullptr;
int callsToKill = 0; // 0 for never
int signalAtCall = SIGKILL;
std::atomic<const char*>* latestCall = nullptr;

struct FailingRange
{
    int Error;
    int First;
    int Last;
    int Made = 0;
    const char* Failed = "";
};

std::optional<FailingRange> failingRange;

void CountToKill(const char* name)
{
    if (latestCall != nullptr)
        *latestCall = name;
    if (callsToKill > 0 && --callsToKill == 0)
        raise(signalAtCall);
}

// Whether the call, one of those of FailingCalls, is to fail.
bool FailsInRange(const char* name)
{
    CountToKill(name);
    if (!failingRange || ++failingRange->Made < failingRange->First || failingRange->Made > failingRange->Last)
        return false;
    if (*failingRange->Failed == '\0')
        failingRange->Failed = name;
    errno = failingRange->Error;
    return true;
}

bool Fails(SystemCall call, const char* name)
{
    if (call == SystemCall::Fork)
        CountToKill(name);
    else if (FailsInRange(name))
        return true;
    if (log != nullptr)
        log->Add(name);
    if (!failure || failure->Call != call || failure->Before-- > 0)
        return false;
    errno = failure->Error;
    return true;
}

} // namespace

FailingCall::FailingCall(SystemCall call, int error, int before)
{
    failure = {call, error, before};
}

FailingCall::~FailingCall()
{
    failure.reset();
}

void KillAtCall(int number, int signal)
{
    callsToKill = number;
    signalAtCall = signal;
}

FailingCalls::FailingCalls(int error, int first, int last)
{
    failingRange = {.Error = error, .First = first, .Last = last};
}

FailingCalls::~FailingCalls()
{
    failingRange.reset();
}

int FailingCalls::Made() const
{
    return failingRange->Made;
}

const char* FailingCalls::Failed() const
{
    return failingRange->Failed;
}

void TellCalls(std::atomic<const char*>& latest)
{
    latestCall = &latest;
}

HaltingWrites::HaltingWrites()
{
    halting = true;
}

HaltingWrites::~HaltingWrites()
{
    halting = false;
}

CallLog::CallLog()
{
    log = this;
}

CallLog::~CallLog()
{
    log = nullptr;
}

// The linker turns a call of `name` into one of `__wrap_name`, and `__real_name` into the system's own.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

pid_t __real_fork();
int __real_fsync(int file);
int __real_mkdir(const char* path, mode_t mode);
int __real_open(const char* path, int flags, mode_t mode);
int __real_openat(int folder, const char* path, int flags, mode_t mode);
int __real_rename(const char* from, const char* to);
int __real_unlink(const char* path);
int __real_unlinkat(int folder, const char* path, int flags);
int __real_renameat(int fromFolder, const char* from, int toFolder, const char* to);
int __real_syncfs(int file);
ssize_t __real_write(int file, const void* bytes, size_t size);

pid_t __wrap_fork()
{
    return Fails(SystemCall::Fork, "fork") ? -1 : __real_fork();
}

int __wrap_fsync(int file)
{
    return Fails(SystemCall::Fsync, "fsync") ? -1 : __real_fsync(file);
}

int __wrap_renameat(int fromFolder, const char* from, int toFolder, const char* to)
{
    return Fails(SystemCall::Renameat, "rename") ? -1 : __real_renameat(fromFolder, from, toFolder, to);
}

int __wrap_syncfs(int file)
{
    return Fails(SystemCall::Syncfs, "syncfs") ? -1 : __real_syncfs(file);
}

// A folder that is there needs no disk.
int __wrap_mkdir(const char* path, mode_t mode)
{
    const bool makes = access(path, F_OK) != 0;
    return makes && FailsInRange("mkdir") ? -1 : __real_mkdir(path, mode);
}

int __wrap_open(const char* path, int flags, mode_t mode)
{
    const bool mayMake = (flags & O_CREAT) != 0;
    return mayMake && FailsInRange("open") ? -1 : __real_open(path, flags, mode);
}

int __wrap_openat(int folder, const char* path, int flags, mode_t mode)
{
    return FailsInRange("openat") ? -1 : __real_openat(folder, path, flags, mode);
}

int __wrap_rename(const char* from, const char* to)
{
    return FailsInRange("rename") ? -1 : __real_rename(from, to);
}

int __wrap_unlink(const char* path)
{
    CountToKill("unlink");
    return __real_unlink(path);
}

int __wrap_unlinkat(int folder, const char* path, int flags)
{
    CountToKill("unlinkat");
    return __real_unlinkat(folder, path, flags);
}

ssize_t __wrap_write(int file, const void* bytes, size_t size)
{
    if (FailsInRange("write"))
        return -1;
    if (!halting || size == 0)
        return __real_write(file, bytes, size);
    interrupted = !interrupted;
    if (!interrupted)
        return __real_write(file, bytes, 1);
    errno = EINTR;
    return -1;
}
}
// NOLINTEND(bugprone-reserved-identifier)

} // namespace veldrane::testing
