#pragma once

#include <chrono>
#include <string>

namespace veldrane {

// "1 second", "15 seconds".
[[nodiscard]] inline std::string Seconds(std::chrono::seconds time)
{
    return std::to_string(time.count()) + (time.count() == 1 ? " second" : " seconds");
}

} // namespace veldrane
