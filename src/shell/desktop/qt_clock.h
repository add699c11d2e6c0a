#pragma once

#include "ports/clock.h"

namespace veldrane {

// The system's time. Waiting serves the windows' events, the person's among them: who waits says first what may be
// clicked meanwhile.
class QtClock : public Clock
{
  public:
    [[nodiscard]] std::chrono::system_clock::time_point Now() const override;
    void Wait(std::chrono::milliseconds duration) override;
};

} // namespace veldrane
