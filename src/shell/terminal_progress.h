#pragma once

#include "ports/clock.h"
#include "shell/progress.h"

#include <chrono>
#include <ostream>
#include <string>

namespace veldrane {

// Lines on a terminal, such as "[ 42%] Orders": every stage, and of the steps a few each second, so that a run of
// thousands of tables does not scroll its messages away.
class TerminalProgress : public Progress
{
  public:
    static constexpr std::chrono::milliseconds kInterval{250}; // from a line to the next step that is shown

    // Both outlive the object.
    TerminalProgress(std::ostream& out, const Clock& time) : out_(out), time_(time) {}

    void Stage(int percent, const std::string& line) override;
    void Step(int percent, const std::string& line) override;

  private:
    std::ostream& out_;
    const Clock& time_;
    std::chrono::system_clock::time_point shown_;
};

} // namespace veldrane
