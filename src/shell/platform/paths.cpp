#include "shell/platform/paths.h"

#include "shell/platform/descriptor.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldrane {
namespace {

constexpr mode_t kUserAlone = 0700;

std::string FullPathFrom(const char* variable)
{
    const char* value = std::getenv(variable);
    std::string path = value != nullptr && value[0] == '/' ? value : "";
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

std::string HomeFolder()
{
    if (std::string home = FullPathFrom("HOME"); !home.empty())
        return home;
    std::array<char, 16384> buffer{};
    passwd entry = {};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr &&
        found->pw_dir[0] == '/')
        return found->pw_dir;
    throw RuntimeError(error_number::kPathAccess, "Paths",
                       "HOME names no folder, and the user has none: set HOME to the full path of a folder");
}

std::string OwnFolder(const char* variable, const char* belowHome)
{
    const std::string base = FullPathFrom(variable);
    return (base.empty() ? HomeFolder() + belowHome : base) + "/veldrane";
}

} // namespace

std::string ConfigFolder()
{
    return OwnFolder("XDG_CONFIG_HOME", "/.config");
}

std::string SettingsPath()
{
    const char* named = std::getenv("VELDRANE_SETTINGS");
    return named != nullptr && named[0] != '\0' ? named : ConfigFolder() + "/settings.ini";
}

std::string StateFolder()
{
    return OwnFolder("XDG_STATE_HOME", "/.local/state");
}

std::string RecoveryFolder()
{
    return StateFolder() + "/recovery";
}

std::string ProgramFolder()
{
    std::error_code failure;
    return std::filesystem::read_symlink("/proc/self/exe", failure).parent_path().string();
}

bool IsSameFolder(const std::string& first, const std::string& second)
{
    struct stat one = {};
    struct stat other = {};
    return stat(first.c_str(), &one) == 0 && stat(second.c_str(), &other) == 0 && one.st_dev == other.st_dev &&
           one.st_ino == other.st_ino;
}

// ".." behind a symbolic link leads out of the link's target, which the text of the path can't tell.
std::string PathFromRoot(const std::string& path)
{
    const std::filesystem::path given = std::filesystem::absolute(path);
    const std::filesystem::path readable = given.lexically_normal();
    const std::filesystem::path last = given.filename();
    const bool isFolder = last.empty() || last == "." || last == "..";
    const bool same =
        isFolder ? IsSameFolder(given, readable) : IsSameFolder(given.parent_path(), readable.parent_path());
    return same ? readable : given;
}

bool IsRootOrHomeFolder(const std::string& path)
{
    const std::string home = FullPathFrom("HOME");
    bool found = IsSameFolder(path, "/") || (!home.empty() && IsSameFolder(path, home));
    setpwent();
    while (const passwd* user = found ? nullptr : getpwent()) // NOLINT(concurrency-mt-unsafe): there is one thread
        found = IsSameFolder(path, user->pw_dir);
    endpwent();
    return found;
}

void MakeFolder(const std::string& path)
{
    for (std::size_t end = path.find('/', 1); end != std::string::npos; end = path.find('/', end + 1))
        mkdir(path.substr(0, end).c_str(), kUserAlone); // whatever hinders it hinders the last one, too
    struct stat status = {};
    if (mkdir(path.c_str(), kUserAlone) == 0)
        return;
    const int error = errno;
    if (stat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
        throw WriteFailure(path, error);
}

} // namespace veldrane
