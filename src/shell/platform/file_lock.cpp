#include "shell/platform/file_lock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

namespace veldrane {
namespace {

constexpr mode_t kUserAlone = 0600;

} // namespace

FileLock::FileLock(const std::string& path)
    : file_(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, kUserAlone))
{
    if (!file_.IsOpen())
        throw WriteFailure(path, errno);
    while (flock(file_.Number(), LOCK_EX) != 0)
        if (errno != EINTR)
            throw WriteFailure(path, errno);
}

} // namespace veldrane
