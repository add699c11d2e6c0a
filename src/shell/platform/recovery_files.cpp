#include "shell/platform/recovery_files.h"

#include "shell/platform/abandoned_files.h"
#include "shell/platform/descriptor.h"
#include "shell/platform/paths.h"
#include "shell/platform/temporary_registry.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <set>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace veldrane {
namespace {

constexpr std::string_view kCopySuffix = ".kzm";
constexpr std::string_view kLockSuffix = ".lock";
constexpr mode_t kUserAlone = 0600;
constexpr auto kKeptFor = std::chrono::days(30);

std::string BareName(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

// A failure names the folder: each try has another file.
void MakeEmptyFile(const std::string& folder, const std::string& name)
{
    const std::string path = folder + "/" + name;
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kUserAlone));
    if (!file.IsOpen())
        throw WriteFailure(folder, errno);
}

// "4711-0123456789abcdef.kzm": what a person has put there is not ours.
bool IsCopyName(std::string_view name)
{
    if (!name.ends_with(kCopySuffix))
        return false;
    name.remove_suffix(kCopySuffix.size());
    const std::size_t hyphen = name.find_first_not_of("0123456789");
    return hyphen != 0 && hyphen != std::string_view::npos && name[hyphen] == '-' && hyphen + 1 < name.size() &&
           name.find_first_not_of("0123456789abcdef", hyphen + 1) == std::string_view::npos;
}

// The bare names of the copies of which there is a file or a lock.
std::set<std::string> CopiesIn(const std::string& folder)
{
    std::set<std::string> copies;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error);
         !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::string name = entry->path().filename().string();
        if (name.ends_with(kLockSuffix))
            name.erase(name.size() - kLockSuffix.size());
        if (IsCopyName(name))
            copies.insert(std::move(name));
    }
    return copies;
}

} // namespace

std::string RecoveryFiles::LockOf(const std::string& name) const
{
    return folder_ + "/" + name + std::string(kLockSuffix);
}

std::string RecoveryFiles::GetTempName()
{
    MakeFolder(folder_);
    const std::string name = temporary_name::ProcessAndRandom() + std::string(kCopySuffix);
    std::string path = folder_ + "/" + name;
    MakeEmptyFile(folder_, name); // before its lock, which RemoveOld would take for one that was left behind
    try {
        Keep(name, FileLock(LockOf(name)));
    } catch (...) {
        unlink(path.c_str());
        throw;
    }
    return path;
}

bool RecoveryFiles::Hold(const std::string& path)
{
    const std::string name = BareName(path);
    if (held_.contains(name))
        return true;
    MakeFolder(folder_);
    std::optional<FileLock> lock = FileLock::TryTake(LockOf(name));
    if (lock)
        Keep(name, std::move(*lock));
    return held_.contains(name);
}

void RecoveryFiles::Keep(const std::string& name, FileLock lock)
{
    lock.NameOwner();
    held_.emplace(name, std::move(lock));
}

void RecoveryFiles::StartDays(const std::string& path)
{
    const std::string name = BareName(path);
    if (IsCopyName(name))
        utimensat(AT_FDCWD, (folder_ + "/" + name).c_str(), nullptr, AT_SYMLINK_NOFOLLOW);
}

void RecoveryFiles::RemoveOld(const std::vector<std::string>& kept)
{
    try {
        for (const std::string& name : CopiesIn(folder_)) {
            const bool isKept =
                std::any_of(kept.begin(), kept.end(), [&](const std::string& path) { return BareName(path) == name; });
            if (!isKept && !held_.contains(name) && IsOld(folder_ + "/" + name))
                RemoveUnlessHeld(name);
        }
        RemoveAbandonedFiles(folder_);
    } catch (const RuntimeError&) { // nobody waits for it
    }
}

// A lock whose copy is gone is old as well.
bool RecoveryFiles::IsOld(const std::string& path) const
{
    struct stat status = {};
    return stat(path.c_str(), &status) != 0 ||
           clock_.Now() - std::chrono::system_clock::from_time_t(status.st_mtime) > kKeptFor;
}

void RecoveryFiles::RemoveUnlessHeld(const std::string& name)
{
    const std::optional<FileLock> lock = FileLock::TryTake(LockOf(name));
    if (!lock)
        return;
    unlink((folder_ + "/" + name).c_str());
    unlink(LockOf(name).c_str());
}

} // namespace veldrane
