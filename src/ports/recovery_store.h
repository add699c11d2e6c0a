#pragma once

#include <string>
#include <vector>

namespace veldrane {

// Where copies of documents that were not saved lie, so that they outlive a crash and a loss of power. A running
// program holds the copies that it makes or takes over, until it ends, however it ends: another one never touches them.
class RecoveryStore
{
  public:
    virtual ~RecoveryStore() = default;

    // The path of a new copy, which this program holds: an empty file that its user alone may read. Throws RuntimeError
    // (75) if it can't be made.
    [[nodiscard]] virtual std::string GetTempName() = 0;

    // Takes over the copy; true as well if this program holds it already. False if another running program holds it.
    // Throws RuntimeError (75) if that can't be found out.
    [[nodiscard]] virtual bool Hold(const std::string& path) = 0;

    // The copy is of no more use to the program: its 30 days begin now. One that can't be reached stays as it is.
    virtual void StartDays(const std::string& path) = 0;

    // Removes the copies that nobody holds and that have not been written for 30 days, but for those that are named
    // here. What can't be removed stays.
    virtual void RemoveOld(const std::vector<std::string>& kept) = 0;
};

} // namespace veldrane
