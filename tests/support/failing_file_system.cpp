#include "support/failing_file_system.h"

namespace veldrane::testing {
namespace {

class FailingBatch : public FileBatch
{
  public:
    FailingBatch(FailingFileSystem& files, std::unique_ptr<FileBatch> batch) : files_(files), batch_(std::move(batch))
    {}

    void Add(const std::string& path, std::string_view bytes) override
    {
        files_.Count(path);
        batch_->Add(path, bytes);
    }

    void Commit() override
    {
        files_.Count("");
        batch_->Commit();
    }

    [[nodiscard]] const std::vector<std::string>& InPlace() const override { return batch_->InPlace(); }

  private:
    FailingFileSystem& files_;
    std::unique_ptr<FileBatch> batch_;
};

} // namespace

void FailingFileSystem::Count(const std::string& path)
{
    ++Calls;
    if (Calls == FailAtCall || FailingPaths.contains(path))
        throw RuntimeError(error_number::kPathAccess, "FailingFileSystem", path + ": " + Reason);
}

void FailingFileSystem::Write(const std::string& path, std::string_view bytes)
{
    Count(path);
    MemoryFileSystem::Write(path, bytes);
}

void FailingFileSystem::Copy(const std::string& from, const std::string& to)
{
    Count(to);
    if (from == to)
        throw RuntimeError(error_number::kPathAccess, "FailingFileSystem", to + ": can't be copied onto itself");
    MemoryFileSystem::Write(to, Read(from));
}

void FailingFileSystem::Remove(const std::string& path)
{
    Count(path);
    MemoryFileSystem::Remove(path);
}

std::string FailingFileSystem::Read(const std::string& path) const
{
    if (UnreadablePaths.contains(path))
        throw RuntimeError(error_number::kPathAccess, "FailingFileSystem", path + ": Permission denied");
    return MemoryFileSystem::Read(path);
}

std::unique_ptr<FileBatch> FailingFileSystem::StartBatch()
{
    return std::make_unique<FailingBatch>(*this, MemoryFileSystem::StartBatch());
}

} // namespace veldrane::testing
