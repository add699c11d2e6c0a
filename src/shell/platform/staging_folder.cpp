#include "shell/platform/staging_folder.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldrane {
namespace {

constexpr mode_t kPermissions = 0777;
constexpr mode_t kLockMode = 0600;
constexpr int kCreate = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;

// Up to here each file is kept open and synced by itself; beyond, one sync of the file system costs less: each sync of
// a file waits for the file system's journal anew.
constexpr std::size_t kFewFiles = 4;

Descriptor OpenFolder(const std::string& folder)
{
    return Descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

} // namespace

WriteTarget WriteTarget::Find(const std::string& path, mode_t newMode)
{
    if (path.find('\0') != std::string::npos)
        throw WriteFailure(path, EINVAL);
    const std::string end = FollowLinks(path);
    const std::size_t slash = end.rfind('/');
    WriteTarget target{.Path = path,
                       .Folder = slash == std::string::npos ? "." : end.substr(0, slash + 1),
                       .Name = end.substr(slash + 1), // npos + 1 is 0: all of it
                       .Mode = newMode & kPermissions};
    struct stat status = {};
    if (stat(end.c_str(), &status) != 0) {
        if (errno != ENOENT || target.Name.empty())
            throw WriteFailure(path, errno);
        return target;
    }
    if (!S_ISREG(status.st_mode))
        throw WriteFailure(path, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    // A rename asks for the folder's rights alone; the file's own would be passed over.
    if (faccessat(AT_FDCWD, end.c_str(), W_OK, AT_EACCESS) != 0)
        throw WriteFailure(path, errno);
    target.Exists = true;
    target.Mode = status.st_mode & kPermissions;
    target.User = status.st_uid;
    target.Group = status.st_gid;
    return target;
}

StagingFolder::StagingFolder(const std::string& folder, const std::string& path)
    : path_(folder), folder_(OpenFolder(folder))
{
    if (!folder_.IsOpen())
        throw WriteFailure(path, errno);
    TakeLock(path);
}

StagingFolder::~StagingFolder()
{
    for (const StagedFile& file : staged_)
        unlinkat(folder_.Number(), file.PrivateName.c_str(), 0);
    if (lock_.IsOpen())
        unlinkat(folder_.Number(), temporary_name::Of(owner_, temporary_name::kLockNumber).c_str(), 0);
}

// Between making the lock's file and locking it somebody may take it for abandoned and remove it: then a new one.
void StagingFolder::TakeLock(const std::string& path)
{
    struct stat status = {};
    while (status.st_nlink == 0) {
        owner_ = temporary_name::NewOwner();
        registered_ = std::make_unique<RegisteredTemporaries>(folder_.Number(), owner_);
        const std::string name = temporary_name::Of(owner_, temporary_name::kLockNumber);
        lock_ = Descriptor(openat(folder_.Number(), name.c_str(), kCreate, kLockMode));
        if (!lock_.IsOpen() && errno != EEXIST)
            throw WriteFailure(path, errno);
        if (!lock_.IsOpen())
            continue;
        // A file system without locks refuses the others' lock as well, and they leave the files alone.
        while (flock(lock_.Number(), LOCK_EX) != 0 && errno == EINTR) {
        }
        if (fstat(lock_.Number(), &status) != 0)
            throw WriteFailure(path, errno);
    }
}

std::string StagingFolder::NextName()
{
    registered_->Reach(++last_);
    return temporary_name::Of(owner_, last_);
}

void StagingFolder::Stage(const WriteTarget& target, std::string_view bytes)
{
    StagedFile file{.PrivateName = NextName(), .Name = target.Name, .Path = target.Path, .File = {}};
    file.File = Descriptor(openat(folder_.Number(), file.PrivateName.c_str(), kCreate, target.Mode));
    if (!file.File.IsOpen())
        throw WriteFailure(target.Path, errno);
    try {
        Fill(file, target, bytes);
        staged_.push_back(std::move(file));
    } catch (...) {
        unlinkat(folder_.Number(), file.PrivateName.c_str(), 0);
        throw;
    }
}

void StagingFolder::Fill(StagedFile& file, const WriteTarget& target, std::string_view bytes)
{
    WriteAll(file.File, bytes, target.Path);
    if (target.Exists) {
        // The owner can be kept by the superuser alone; for anyone else the file becomes their own.
        if (fchown(file.File.Number(), target.User, target.Group) != 0 && errno != EPERM)
            throw WriteFailure(target.Path, errno);
        if (fchmod(file.File.Number(), target.Mode) != 0)
            throw WriteFailure(target.Path, errno);
    }
    if (staged_.size() < kFewFiles)
        return;
    if (const int error = file.File.Close(); error != 0)
        throw WriteFailure(target.Path, error);
}

void StagingFolder::Sync()
{
    if (staged_.size() > kFewFiles && syncfs(folder_.Number()) != 0)
        throw WriteFailure(path_, errno);
    for (StagedFile& file : staged_) {
        if (staged_.size() <= kFewFiles && fsync(file.File.Number()) != 0)
            throw WriteFailure(file.Path, errno);
        if (const int error = file.File.Close(); error != 0)
            throw WriteFailure(file.Path, error);
    }
}

void StagingFolder::Rename(std::vector<std::string>& inPlace)
{
    for (const StagedFile& file : staged_) {
        if (renameat(folder_.Number(), file.PrivateName.c_str(), folder_.Number(), file.Name.c_str()) != 0)
            throw WriteFailure(file.Path, errno);
        inPlace.push_back(file.Path);
    }
    staged_.clear();
}

void StagingFolder::SyncNames()
{
    // A file system that has no such thing for folders refuses it.
    if (fsync(folder_.Number()) != 0 && errno != EINVAL)
        throw WriteFailure(path_, errno);
}

} // namespace veldrane
