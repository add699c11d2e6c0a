#include "support/random_kills.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace veldrane::testing {
namespace {

TEST(RandomKills, LoseNothing)
{
    const unsigned seed = std::random_device()();
    RecordProperty("seed", std::to_string(seed));
    constexpr int kKills = 60;
    const KillFigures figures = KillAtRandom({.Kills = kKills, .Seed = seed});
    EXPECT_THAT(figures.Losses, ::testing::IsEmpty()) << "with the seed " << seed;
    EXPECT_EQ(figures.Kills, kKills);
    EXPECT_GT(figures.Recovered, 0);
}

} // namespace
} // namespace veldrane::testing
