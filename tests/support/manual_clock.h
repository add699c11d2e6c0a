#pragma once

#include "ports/clock.h"

namespace veldrane::testing {

// Time that passes only when it is told to, or when somebody waits.
class ManualClock : public Clock
{
  public:
    [[nodiscard]] std::chrono::system_clock::time_point Now() const override { return now_; }
    void Wait(std::chrono::milliseconds duration) override
    {
        Waited += duration;
        now_ += duration;
    }

    std::chrono::milliseconds Waited{0};

  private:
    std::chrono::system_clock::time_point now_;
};

} // namespace veldrane::testing
