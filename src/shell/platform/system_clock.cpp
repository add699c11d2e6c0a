#include "shell/platform/system_clock.h"

#include <thread>

namespace veldrane {

std::chrono::system_clock::time_point SystemClock::Now() const
{
    return std::chrono::system_clock::now();
}

void SystemClock::Wait(std::chrono::milliseconds duration)
{
    std::this_thread::sleep_for(duration);
}

} // namespace veldrane
