#pragma once

#include <cstdint>
#include <string>

namespace veldrane {

// One entry of what a driver says about a failure.
struct ADOError
{
    long Number = 0;
    std::string Description;
    std::int32_t NativeError = 0;
    std::string Source;
    std::string SQLState;
};

} // namespace veldrane
