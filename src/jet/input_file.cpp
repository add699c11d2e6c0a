#include "jet/input_file.h"

#include "jet/refusal.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace veldrane::jet {
namespace {

std::string_view ReasonOf(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return jet_answer::kMissing;
    case ELOOP:
    case ENAMETOOLONG:
        return jet_answer::kUnreachable;
    case EACCES:
    case EPERM:
        return jet_answer::kUnreadable;
    default:
        return jet_answer::kFailing;
    }
}

Refusal Failure(int error)
{
    return Refusal(ReasonOf(error), std::strerror(error));
}

std::string OwnPath(int descriptor)
{
    return "/proc/self/fd/" + std::to_string(descriptor);
}

// Holds what stands at a path without opening it: a pipe would wait, and a device might do anything.
class Place
{
  public:
    explicit Place(const std::string& path) : descriptor_(open(path.c_str(), O_PATH | O_CLOEXEC))
    {
        if (descriptor_ < 0)
            throw Failure(errno);
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;
    ~Place() { close(descriptor_); }

    // A descriptor for reading the plain file.
    [[nodiscard]] int Open() const
    {
        struct stat facts = {};
        if (fstat(descriptor_, &facts) != 0)
            throw Failure(errno);
        if (!S_ISREG(facts.st_mode))
            throw Refusal(jet_answer::kNotAFile);
        const int opened = open(OwnPath(descriptor_).c_str(), O_RDONLY | O_CLOEXEC);
        if (opened < 0)
            throw Failure(errno);
        return opened;
    }

  private:
    int descriptor_;
};

} // namespace

InputFile::InputFile(const std::string& path) : descriptor_(Place(path).Open()) {}

InputFile::~InputFile()
{
    close(descriptor_);
}

std::string InputFile::Beginning(std::size_t size) const
{
    std::string bytes(size, '\0');
    std::size_t read = 0;
    while (read < size) {
        const ssize_t count = pread(descriptor_, bytes.data() + read, size - read, static_cast<off_t>(read));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            throw Failure(errno);
        if (count == 0)
            break;
        read += static_cast<std::size_t>(count);
    }
    bytes.resize(read);
    return bytes;
}

std::string InputFile::Path() const
{
    return OwnPath(descriptor_);
}

} // namespace veldrane::jet
