#pragma once

#include "generator/code_generation.h"

#include <string>
#include <vector>

namespace veldrane::testing {

// The events of a run in their order, a line each.
class RunRecorder
{
  public:
    explicit RunRecorder(CodeGeneration& generation)
    {
        connections_.push_back(generation.Progress.Connect([this](int percent) { Events.push_back(std::to_string(percent) + "%"); }));
        connections_.push_back(generation.StatusChanged.Connect([this](int stage, const std::string& message) { Events.push_back(std::to_string(stage) + " " + message); }));
        connections_.push_back(generation.OperationComplete.Connect([this](const std::string& message) { Events.push_back("complete: " + message); }));
        connections_.push_back(generation.OperationAborted.Connect([this](const std::string& message) { Events.push_back("aborted: " + message); }));
    }

    std::vector<std::string> Events;

  private:
    std::vector<Connection> connections_;
};

} // namespace veldrane::testing
