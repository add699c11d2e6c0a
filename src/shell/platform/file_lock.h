#pragma once

#include "shell/platform/descriptor.h"

#include <optional>
#include <string>
#include <utility>

namespace veldrane {

// Held by one owner at a time, among all processes and within one. The file that stands for the lock is made when
// missing, readable by its user alone, and stays: removing it would let two owners hold two files of one name.
class FileLock
{
  public:
    // Waits until the lock is free. Throws RuntimeError (75) naming the path if it can't be had.
    explicit FileLock(const std::string& path);

    // The lock if it is free, without waiting. Throws as the constructor does.
    [[nodiscard]] static std::optional<FileLock> TryTake(const std::string& path);

    // Writes the process's number into the file, so that a person sees whose it is and nobody who clears away empty
    // files takes it. A failure is passed over: the lock holds without.
    void NameOwner() const;

  private:
    explicit FileLock(Descriptor file) : file_(std::move(file)) {}

    Descriptor file_;
};

} // namespace veldrane
