#pragma once

#include "ports/clock.h"

#include <functional>

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
        if (OnWait)
            OnWait(duration);
    }

    std::chrono::milliseconds Waited{0};
    std::function<void(std::chrono::milliseconds)> OnWait; // what the person does meanwhile

  private:
    std::chrono::system_clock::time_point now_;
};

} // namespace veldrane::testing
