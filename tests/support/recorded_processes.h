#pragma once

#include "ports/process_starter.h"

#include <functional>
#include <string>
#include <vector>

namespace veldrane::testing {

// Keeps the commands that were to be started; `OnStart` may do what the program would have done, or throw.
class RecordedProcesses : public ProcessStarter
{
  public:
    void Start(const std::vector<std::string>& command) override
    {
        Started.push_back(command);
        if (OnStart)
            OnStart(command);
    }

    std::vector<std::vector<std::string>> Started;
    std::function<void(const std::vector<std::string>&)> OnStart;
};

} // namespace veldrane::testing
