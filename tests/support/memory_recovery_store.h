#pragma once

#include "ports/recovery_store.h"
#include "support/memory_file_system.h"

#include <set>

namespace veldrane::testing {

// Copies in the folder /recovery of a file system in memory.
class MemoryRecoveryStore : public RecoveryStore
{
  public:
    explicit MemoryRecoveryStore(MemoryFileSystem& files) : files_(files) {}

    [[nodiscard]] std::string GetTempName() override
    {
        files_.Folders.insert("/recovery");
        const std::string path = "/recovery/copy" + std::to_string(++Made) + ".kzm";
        files_.Write(path, "");
        return path;
    }

    [[nodiscard]] bool Hold(const std::string& path) override
    {
        if (Fails)
            throw RuntimeError(error_number::kPathAccess, "MemoryRecoveryStore", path + ": No locks available");
        return !HeldByOthers.contains(path);
    }

    void StartDays(const std::string& path) override { Started.push_back(path); }

    void RemoveOld(const std::vector<std::string>& kept) override { Kept = kept; }

    int Made = 0;
    bool Fails = false;                 // to hold a copy
    std::set<std::string> HeldByOthers; // paths
    std::vector<std::string> Started;   // the paths of all StartDays
    std::vector<std::string> Kept;      // of the latest RemoveOld

  private:
    MemoryFileSystem& files_;
};

} // namespace veldrane::testing
