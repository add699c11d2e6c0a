#include "support/memory_file_system.h"

#include <utility>

namespace veldrane::testing {
namespace {

std::string FolderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

class MemoryBatch : public FileBatch
{
  public:
    explicit MemoryBatch(MemoryFileSystem& files) : files_(files) {}

    void Add(const std::string& path, std::string_view bytes) override
    {
        files_.CheckWritable(path);
        staged_.emplace_back(path, bytes);
    }

    void Commit() override
    {
        inPlace_.clear();
        for (const auto& [path, bytes] : std::exchange(staged_, {})) {
            files_.MemoryFileSystem::Write(path, bytes);
            inPlace_.push_back(path);
        }
    }

    [[nodiscard]] const std::vector<std::string>& InPlace() const override { return inPlace_; }

  private:
    MemoryFileSystem& files_;
    std::vector<std::pair<std::string, std::string>> staged_;
    std::vector<std::string> inPlace_;
};

} // namespace

FileKind MemoryFileSystem::Kind(const std::string& path) const
{
    if (Files.contains(path))
        return Others.contains(path) ? FileKind::Other : FileKind::File;
    return Folders.contains(path) ? FileKind::Folder : FileKind::Missing;
}

std::string MemoryFileSystem::Read(const std::string& path) const
{
    const auto found = Files.find(path);
    if (found == Files.end())
        throw ReadFailure(path);
    return found->second;
}

void MemoryFileSystem::Write(const std::string& path, std::string_view bytes)
{
    CheckWritable(path);
    Files[path] = bytes;
}

void MemoryFileSystem::Copy(const std::string& from, const std::string& to)
{
    if (from == to)
        throw RuntimeError(error_number::kPathAccess, "MemoryFileSystem", to + ": can't be copied onto itself");
    Write(to, Read(from));
}

void MemoryFileSystem::Remove(const std::string& path)
{
    if (Files.erase(path) == 0)
        throw ReadFailure(path);
}

std::vector<std::string> MemoryFileSystem::List(const std::string& folder) const
{
    if (!Folders.contains(folder))
        throw ReadFailure(folder);
    std::set<std::string> names;
    const std::string prefix = folder == "/" ? folder : folder + "/";
    const auto add = [&](const std::string& path) {
        if (path.size() > prefix.size() && path.starts_with(prefix) &&
            path.find('/', prefix.size()) == std::string::npos)
            names.insert(path.substr(prefix.size()));
    };
    for (const auto& [path, bytes] : Files)
        add(path);
    for (const std::string& path : Folders)
        add(path);
    return {names.begin(), names.end()};
}

RuntimeError MemoryFileSystem::ReadFailure(const std::string& path) const
{
    if (Folders.contains(path))
        return {error_number::kPathAccess, "MemoryFileSystem", path + ": Is a directory"};
    if (Files.contains(path))
        return {error_number::kPathAccess, "MemoryFileSystem", path + ": Not a directory"};
    return {error_number::kFileNotFound, "MemoryFileSystem", path + ": No such file or directory"};
}

std::unique_ptr<FileBatch> MemoryFileSystem::StartBatch()
{
    return std::make_unique<MemoryBatch>(*this);
}

void MemoryFileSystem::CheckWritable(const std::string& path) const
{
    if (Folders.contains(path))
        throw RuntimeError(error_number::kPathAccess, "MemoryFileSystem", path + ": Is a directory");
    if (Others.contains(path))
        throw RuntimeError(error_number::kPathAccess, "MemoryFileSystem", path + ": Invalid argument");
    if (!Folders.contains(FolderOf(path)))
        throw RuntimeError(error_number::kPathAccess, "MemoryFileSystem", path + ": No such file or directory");
}

} // namespace veldrane::testing
