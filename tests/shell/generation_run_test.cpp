#include "shell/generation_run.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

TEST(RunEnd, OfACompleteRunIsASuccessUnlessThereAreMessages)
{
    const RunEnd end = EndOfCompleteRun("");
    EXPECT_EQ(end.Instructions, "Code Generation Complete!");
    EXPECT_EQ(end.Heading, "");
    EXPECT_EQ(end.Text, "The operation completed successfully.");
}

TEST(RunEnd, OfACompleteRunShowsItsMessagesAsTheyStand)
{
    const RunEnd end = EndOfCompleteRun("one\r\ntwo");
    EXPECT_EQ(end.Instructions, "Code Generation Complete!");
    EXPECT_EQ(end.Heading, "The operation completed with the following messages:");
    EXPECT_EQ(end.Text, "one\r\ntwo");
}

TEST(RunEnd, OfAnAbortedRunSaysWhyOrThatItFailed)
{
    const RunEnd end = EndOfAbortedRun("User Cancelled Operation");
    EXPECT_EQ(end.Instructions, "Code Generation Incomplete...");
    EXPECT_EQ(end.Heading, "The operation completed with the following warnings:");
    EXPECT_EQ(end.Text, "User Cancelled Operation");
    const RunEnd unexplained = EndOfAbortedRun("");
    EXPECT_EQ(unexplained.Instructions, "Code Generation Incomplete...");
    EXPECT_EQ(unexplained.Heading, "");
    EXPECT_EQ(unexplained.Text, "The operation did not complete successfully.");
}

} // namespace
} // namespace veldrane
