#include "shell/platform/disk_file_system.h"

#include "shell/platform/abandoned_files.h"
#include "shell/platform/descriptor.h"
#include "shell/platform/staging_folder.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace veldrane {
namespace {

class DiskBatch : public FileBatch
{
  public:
    void Add(const std::string& path, std::string_view bytes) override { Stage(WriteTarget::Find(path), bytes); }

    void Stage(const WriteTarget& target, std::string_view bytes) { FolderOf(target).Stage(target, bytes); }

    void Commit() override
    {
        // Ends with this call, however it ends: what was not renamed is dropped.
        const auto folders = std::exchange(folders_, {});
        inPlace_.clear();
        for (const auto& [path, folder] : folders)
            folder->Sync();
        for (const auto& [path, folder] : folders)
            folder->Rename(inPlace_);
        for (const auto& [path, folder] : folders)
            folder->SyncNames();
    }

    [[nodiscard]] const std::vector<std::string>& InPlace() const override { return inPlace_; }

  private:
    StagingFolder& FolderOf(const WriteTarget& target)
    {
        for (const auto& [path, folder] : folders_)
            if (path == target.Folder)
                return *folder;
        folders_.emplace_back(target.Folder, std::make_unique<StagingFolder>(target.Folder, target.Path));
        return *folders_.back().second;
    }

    std::vector<std::pair<std::string, std::unique_ptr<StagingFolder>>> folders_; // few
    std::vector<std::string> inPlace_;
};

void WriteOne(const WriteTarget& target, std::string_view bytes)
{
    DiskBatch batch;
    batch.Stage(target, bytes);
    batch.Commit();
}

struct stat StatusOf(const Descriptor& file, const std::string& path)
{
    struct stat status = {};
    if (fstat(file.Number(), &status) != 0)
        throw ReadFailure(path, errno);
    return status;
}

bool IsSameFile(const struct stat& file, const std::string& path)
{
    struct stat other = {};
    return stat(path.c_str(), &other) == 0 && file.st_dev == other.st_dev && file.st_ino == other.st_ino;
}

} // namespace

FileKind DiskFileSystem::Kind(const std::string& path) const
{
    struct stat status = {};
    if (path.find('\0') != std::string::npos || stat(path.c_str(), &status) != 0)
        return FileKind::Missing;
    if (S_ISREG(status.st_mode))
        return FileKind::File;
    return S_ISDIR(status.st_mode) ? FileKind::Folder : FileKind::Other;
}

bool DiskFileSystem::IsLink(const std::string& path) const
{
    struct stat status = {};
    return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

std::string DiskFileSystem::Read(const std::string& path) const
{
    return ReadAll(OpenForReading(path), path);
}

std::string DiskFileSystem::ReadBeginning(const std::string& path, std::size_t most) const
{
    return ReadAll(OpenForReading(path), path, most);
}

void DiskFileSystem::Write(const std::string& path, std::string_view bytes)
{
    WriteOne(WriteTarget::Find(path), bytes);
}

void DiskFileSystem::Copy(const std::string& from, const std::string& to)
{
    // A pipe would be waited for without an end.
    if (Kind(from) == FileKind::Other)
        throw RuntimeError(error_number::kPathAccess, "FileSystem", from + ": It is no plain file");
    const Descriptor source = OpenForReading(from);
    const struct stat status = StatusOf(source, from);
    if (IsSameFile(status, to))
        throw RuntimeError(error_number::kPathAccess, "FileSystem", to + ": The file can't be copied onto itself");
    const std::string bytes = ReadAll(source, from);
    WriteOne(WriteTarget::Find(to, status.st_mode), bytes);
}

void DiskFileSystem::Remove(const std::string& path)
{
    if (path.find('\0') != std::string::npos)
        throw ReadFailure(path, EINVAL);
    if (unlink(path.c_str()) != 0)
        throw ReadFailure(path, errno);
}

std::vector<std::string> DiskFileSystem::List(const std::string& folder) const
{
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error))
        names.push_back(entry->path().filename().string());
    if (error)
        throw ReadFailure(folder, error.value());
    std::sort(names.begin(), names.end());
    return names;
}

std::unique_ptr<FileBatch> DiskFileSystem::StartBatch()
{
    return std::make_unique<DiskBatch>();
}

void DiskFileSystem::RemoveAbandoned(const std::string& folder)
{
    RemoveAbandonedFiles(folder);
}

} // namespace veldrane
