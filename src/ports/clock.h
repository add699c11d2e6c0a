#pragma once

#include <chrono>

namespace veldrane {

// Time, handed in so that tests can make it pass.
class Clock
{
  public:
    virtual ~Clock() = default;

    [[nodiscard]] virtual std::chrono::system_clock::time_point Now() const = 0;

    // Waits, serving events where there is something to serve.
    virtual void Wait(std::chrono::milliseconds duration) = 0;
};

} // namespace veldrane
