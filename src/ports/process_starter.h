#pragma once

#include <string>
#include <vector>

namespace veldrane {

// Starts other programs.
class ProcessStarter
{
  public:
    virtual ~ProcessStarter() = default;

    // Starts the program `command[0]` with the other elements as its arguments, without a shell, and does not wait for
    // its end. Throws RuntimeError (53 if there is no such program, 75 if it can't be started), naming it.
    virtual void Start(const std::vector<std::string>& command) = 0;
};

} // namespace veldrane
