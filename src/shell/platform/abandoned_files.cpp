#include "shell/platform/abandoned_files.h"

#include "shell/platform/descriptor.h"
#include "shell/platform/temporary_registry.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <map>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace veldrane {
namespace {

using Folder = std::unique_ptr<DIR, decltype([](DIR* folder) { closedir(folder); })>;
using NamesByOwner = std::map<std::string, std::vector<std::string>>;

bool IsOwnPlainFile(const struct stat& status)
{
    return S_ISREG(status.st_mode) && status.st_uid == geteuid();
}

NamesByOwner PrivateFiles(DIR* folder)
{
    NamesByOwner names;
    while (const dirent* entry = readdir(folder)) {
        const std::string name = entry->d_name;
        if (std::string owner = temporary_name::OwnerOf(name); !owner.empty())
            names[std::move(owner)].push_back(name);
    }
    return names;
}

// Whether the owner is gone; then its lock, where there is one, is ours as long as `lock` is open.
bool TakeLockOf(int folder, const std::string& owner, Descriptor& lock)
{
    const std::string name = temporary_name::Of(owner, temporary_name::kLockNumber);
    lock = Descriptor(openat(folder, name.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!lock.IsOpen())
        return errno == ENOENT; // a writer removes it last
    struct stat status = {};
    return fstat(lock.Number(), &status) == 0 && IsOwnPlainFile(status) && flock(lock.Number(), LOCK_EX | LOCK_NB) == 0;
}

void RemoveOwnPlainFile(int folder, const std::string& name, const std::string& folderPath)
{
    struct stat status = {};
    if (fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0 || !IsOwnPlainFile(status))
        return;
    if (unlinkat(folder, name.c_str(), 0) != 0 && errno != ENOENT)
        throw WriteFailure(folderPath + "/" + name, errno);
}

} // namespace

void RemoveAbandonedFiles(const std::string& folder)
{
    const Folder open(opendir(folder.c_str()));
    if (!open)
        throw ReadFailure(folder, errno);
    const int number = dirfd(open.get());
    for (const auto& [owner, names] : PrivateFiles(open.get())) {
        Descriptor lock;
        if (!TakeLockOf(number, owner, lock))
            continue;
        const std::string lockName = temporary_name::Of(owner, temporary_name::kLockNumber);
        for (const std::string& name : names)
            if (name != lockName)
                RemoveOwnPlainFile(number, name, folder);
        RemoveOwnPlainFile(number, lockName, folder);
    }
}

} // namespace veldrane
