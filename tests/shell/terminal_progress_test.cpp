#include "shell/terminal_progress.h"

#include "support/manual_clock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace veldrane {
namespace {

using std::chrono::milliseconds;

struct TerminalProgressLines : ::testing::Test
{
    std::ostringstream Out;
    testing::ManualClock Time;
    TerminalProgress Shown{Out, Time};
};

TEST_F(TerminalProgressLines, ShowsEveryStageAtOnce)
{
    Shown.Stage(0, "Connecting to the data source");
    Shown.Stage(0, "Reading the catalog");
    EXPECT_EQ(Out.str(), "[  0%] Connecting to the data source\n[  0%] Reading the catalog\n");
}

TEST_F(TerminalProgressLines, ShowsAStepOnceAQuarterOfASecondHasPassed)
{
    Shown.Stage(0, "Reading the catalog");
    Out.str("");
    Time.Wait(milliseconds(249));
    Shown.Step(1, "early");
    EXPECT_EQ(Out.str(), "");
    Time.Wait(milliseconds(1));
    Shown.Step(42, "Orders");
    Shown.Step(43, "Customers");
    EXPECT_EQ(Out.str(), "[ 42%] Orders\n");
}

TEST_F(TerminalProgressLines, OfAFastRunOfThousandsIsAFewLines)
{
    Shown.Stage(0, "Reading the catalog");
    for (int table = 0; table < 5000; ++table) {
        Time.Wait(milliseconds(1));
        Shown.Step(table / 50, "Table" + std::to_string(table));
    }
    Shown.Stage(100, "Saved");
    const std::string lines = Out.str();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 5000 / 250 + 2);
}

TEST_F(TerminalProgressLines, GoesOnWhenTheClockIsSetBack)
{
    Time.Wait(std::chrono::hours(5));
    Shown.Stage(0, "Reading the catalog");
    Time.Wait(-std::chrono::hours(1));
    Shown.Step(1, "Orders");
    EXPECT_EQ(Out.str(), "[  0%] Reading the catalog\n[  1%] Orders\n");
}

TEST_F(TerminalProgressLines, PassesNoControlCharacterToTheTerminal)
{
    Shown.Stage(7, "Or\033[2Jders\nx");
    EXPECT_EQ(Out.str(), "[  7%] Or?[2Jders x\n");
}

} // namespace
} // namespace veldrane
