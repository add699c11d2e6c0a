#pragma once

#include "ports/clock.h"
#include "ports/recovery_store.h"
#include "shell/platform/file_lock.h"

#include <map>
#include <string>

namespace veldrane {

// The copies as files of one folder, each with a lock beside it, which ends with the process that holds it:
//
//   4711-0123456789abcdef.kzm        the copy; process and random part
//   4711-0123456789abcdef.kzm.lock
//
// A copy that lies elsewhere has its lock in the folder as well.
class RecoveryFiles : public RecoveryStore
{
  public:
    // The folder is made when it is needed, for its user alone. The clock must outlive this object.
    RecoveryFiles(std::string folder, const Clock& clock) : folder_(std::move(folder)), clock_(clock) {}

    [[nodiscard]] std::string GetTempName() override;
    [[nodiscard]] bool Hold(const std::string& path) override;
    void StartDays(const std::string& path) override;
    void RemoveOld(const std::vector<std::string>& kept) override;

  private:
    void Keep(const std::string& name, FileLock lock);
    [[nodiscard]] std::string LockOf(const std::string& name) const;
    [[nodiscard]] bool IsOld(const std::string& path) const;
    void RemoveUnlessHeld(const std::string& name);

    std::string folder_;
    const Clock& clock_;
    std::map<std::string, FileLock> held_; // by the bare names of the copies
};

} // namespace veldrane
