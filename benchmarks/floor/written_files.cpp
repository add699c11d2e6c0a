#include "written_files.h"

#include <charconv>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldrane::floor_probe {
namespace {

std::string_view MapFile(const char* path)
{
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    struct stat status = {};
    if (file < 0 || fstat(file, &status) != 0)
        throw std::runtime_error(std::string("can't read ") + path);
    const auto size = static_cast<std::size_t>(status.st_size);
    const void* bytes = mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_POPULATE, file, 0);
    close(file);
    if (bytes == MAP_FAILED) // NOLINT(performance-no-int-to-ptr): the system's own constant
        throw std::runtime_error(std::string("can't map ") + path);
    return {static_cast<const char*>(bytes), size};
}

// Cuts the next line from the head of the text, its end included.
std::string_view TakeLine(std::string_view& text)
{
    const std::string_view line = text.substr(0, text.find('\n') + 1); // npos + 1 is 0: see the caller
    text.remove_prefix(line.size());
    return line;
}

std::string Compose(std::string_view bytes)
{
    std::string text;
    std::string line;
    while (!bytes.empty()) {
        const std::string_view next = TakeLine(bytes);
        if (next.empty())
            return text.append(bytes);
        line = next;
        text += line;
    }
    return text;
}

void WriteFile(int folder, const std::string& name, std::string_view text)
{
    const int file = openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (file < 0 || write(file, text.data(), text.size()) != static_cast<ssize_t>(text.size()) || close(file) != 0)
        throw std::runtime_error("can't write " + name);
}

} // namespace

void WriteFilesOfPack(const char* pack, const char* path)
{
    std::string_view rest = MapFile(pack);
    const int folder = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        throw std::runtime_error(std::string("can't open ") + path);
    while (!rest.empty()) {
        const std::string_view name = TakeLine(rest);
        const std::string_view digits = TakeLine(rest);
        std::size_t size = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), size);
        WriteFile(folder, std::string(name.substr(0, name.size() - 1)), Compose(rest.substr(0, size)));
        rest.remove_prefix(size);
    }
    if (syncfs(folder) != 0)
        throw std::runtime_error(std::string("can't sync ") + path);
    close(folder);
}

} // namespace veldrane::floor_probe
