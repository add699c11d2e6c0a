#include "shell/platform/descriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace veldrane {
namespace {

constexpr const char* kSource = "FileSystem";
constexpr int kMostLinks = 40; // as many as the kernel follows

RuntimeError Failure(long number, const std::string& path, int error)
{
    std::string shown = path;
    std::replace(shown.begin(), shown.end(), '\0', '?'); // a description ends at a NUL
    return {number, kSource, shown + ": " + std::generic_category().message(error)};
}

} // namespace

RuntimeError ReadFailure(const std::string& path, int error)
{
    return Failure(error == ENOENT ? error_number::kFileNotFound : error_number::kPathAccess, path, error);
}

RuntimeError WriteFailure(const std::string& path, int error)
{
    return Failure(error_number::kPathAccess, path, error);
}

Descriptor::Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept
{
    std::swap(number_, other.number_);
    return *this;
}

Descriptor::~Descriptor()
{
    static_cast<void>(Close());
}

int Descriptor::Close()
{
    if (!IsOpen())
        return 0;
    // Interrupted or not, the number is free afterwards: closing again could close somebody else's file.
    const bool failed = close(std::exchange(number_, -1)) != 0 && errno != EINTR;
    return failed ? errno : 0;
}

Descriptor OpenForReading(const std::string& path)
{
    if (path.find('\0') != std::string::npos)
        throw ReadFailure(path, EINVAL);
    int number = -1;
    do
        number = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    while (number < 0 && errno == EINTR);
    if (number < 0)
        throw ReadFailure(path, errno);
    return Descriptor(number);
}

std::string ReadAll(const Descriptor& file, const std::string& path, std::size_t most)
{
    std::string bytes;
    struct stat status = {};
    if (fstat(file.Number(), &status) == 0 && S_ISREG(status.st_mode))
        bytes.reserve(std::min(static_cast<std::size_t>(status.st_size), most));
    std::array<char, 65536> buffer{};
    while (true) {
        const ssize_t count = read(file.Number(), buffer.data(), std::min(buffer.size(), most - bytes.size()));
        if (count == 0)
            return bytes;
        if (count > 0)
            bytes.append(buffer.data(), static_cast<std::size_t>(count));
        else if (errno != EINTR)
            throw ReadFailure(path, errno);
    }
}

void WriteAll(const Descriptor& file, std::string_view bytes, const std::string& path)
{
    while (!bytes.empty()) {
        const ssize_t count = write(file.Number(), bytes.data(), bytes.size());
        if (count >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
        else if (errno != EINTR)
            throw WriteFailure(path, errno);
    }
}

std::string FollowLinks(const std::string& path)
{
    std::string end = path;
    std::array<char, 4096> target{};
    for (int links = 0; links <= kMostLinks; ++links) {
        const ssize_t size = readlink(end.c_str(), target.data(), target.size());
        if (size < 0)
            return end;
        const std::string_view next(target.data(), static_cast<std::size_t>(size));
        // A relative link starts at the folder of the link; without a slash, npos + 1 is 0: the current folder.
        end = next.starts_with('/') ? std::string(next) : end.substr(0, end.rfind('/') + 1).append(next);
    }
    throw WriteFailure(path, ELOOP);
}

} // namespace veldrane
