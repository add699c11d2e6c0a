#pragma once

#include "ports/clock.h"

namespace veldrane {

// The machine's time. Waiting serves no events: there are none without a window.
class SystemClock : public Clock
{
  public:
    [[nodiscard]] std::chrono::system_clock::time_point Now() const override;
    void Wait(std::chrono::milliseconds duration) override;
};

} // namespace veldrane
