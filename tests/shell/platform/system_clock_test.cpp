#include "shell/platform/system_clock.h"

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

TEST(MachineTime, NowLiesBetweenBeforeAndAfter)
{
    const auto before = std::chrono::system_clock::now();
    const auto now = SystemClock().Now();
    EXPECT_LE(before, now);
    EXPECT_LE(now, std::chrono::system_clock::now());
}

TEST(MachineTime, WaitingTakesAtLeastAsLongAsItIsTold)
{
    const auto start = std::chrono::steady_clock::now();
    SystemClock().Wait(std::chrono::milliseconds(2));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(2));
}

} // namespace
} // namespace veldrane::testing
