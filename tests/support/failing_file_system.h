#pragma once

#include "support/memory_file_system.h"

#include <set>
#include <string>

namespace veldrane::testing {

// A file system in memory whose n-th changing call fails, or whose calls on certain paths do: a full disk, a folder
// without rights. The calls that count are Write, Copy, Remove, and a batch's Add and Commit.
class FailingFileSystem : public MemoryFileSystem
{
  public:
    void Write(const std::string& path, std::string_view bytes) override;
    void Copy(const std::string& from, const std::string& to) override;
    void Remove(const std::string& path) override;
    [[nodiscard]] std::string Read(const std::string& path) const override;
    [[nodiscard]] std::unique_ptr<FileBatch> StartBatch() override;

    // Counts one changing call and throws if it is the one that fails.
    void Count(const std::string& path);

    int FailAtCall = 0; // 1 for the first; 0 for never
    std::set<std::string> FailingPaths;
    std::set<std::string> UnreadablePaths;
    int Calls = 0;
    std::string Reason = "No space left on device";
};

} // namespace veldrane::testing
