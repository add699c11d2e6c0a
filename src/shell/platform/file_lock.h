#pragma once

#include "shell/platform/descriptor.h"

#include <string>

namespace veldrane {

// Held by one owner at a time, among all processes and within one. The file that stands for the lock is made when
// missing, readable by its user alone, and stays: removing it would let two owners hold two files of one name.
class FileLock
{
  public:
    // Waits until the lock is free. Throws RuntimeError (75) naming the path if it can't be had.
    explicit FileLock(const std::string& path);

  private:
    Descriptor file_;
};

} // namespace veldrane
