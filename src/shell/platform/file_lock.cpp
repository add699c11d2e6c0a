#include "shell/platform/file_lock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace veldrane {
namespace {

constexpr mode_t kUserAlone = 0600;

Descriptor OpenLockFile(const std::string& path)
{
    Descriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, kUserAlone));
    if (!file.IsOpen())
        throw WriteFailure(path, errno);
    return file;
}

// Whether the lock was taken; false where it is held, and `how` says not to wait for it.
bool Lock(const Descriptor& file, int how, const std::string& path)
{
    while (flock(file.Number(), how) != 0) {
        if (errno == EWOULDBLOCK)
            return false;
        if (errno != EINTR)
            throw WriteFailure(path, errno);
    }
    return true;
}

} // namespace

FileLock::FileLock(const std::string& path) : file_(OpenLockFile(path))
{
    Lock(file_, LOCK_EX, path);
}

std::optional<FileLock> FileLock::TryTake(const std::string& path)
{
    Descriptor file = OpenLockFile(path);
    if (!Lock(file, LOCK_EX | LOCK_NB, path))
        return std::nullopt;
    return FileLock(std::move(file));
}

void FileLock::NameOwner() const
{
    const std::string owner = std::to_string(getpid()) + "\n";
    [[maybe_unused]] const bool isNamed =
        ftruncate(file_.Number(), 0) == 0 && pwrite(file_.Number(), owner.data(), owner.size(), 0) > 0;
}

} // namespace veldrane
