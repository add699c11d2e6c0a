#include "projectfile/format.h"
#include "projectfile/line_cursor.h"
#include "projectfile/line_stream.h"

#include "text/runtime_error.h"

#include <gtest/gtest.h>

namespace veldrane {
namespace {

using project_format::SplitValueLine;

TEST(LineStream, EndsLinesWithCarriageReturnAndLineFeed)
{
    LineStream stream("one\r\n\r\nthree\nstill three\rtoo\r\nrest\r\n");
    EXPECT_EQ(stream.ReadLine(), "one");
    EXPECT_EQ(stream.ReadLine(), "");
    EXPECT_EQ(stream.ReadLine(), "three\nstill three\rtoo");
    EXPECT_EQ(stream.ReadAll(), "rest\r\n");
    EXPECT_TRUE(stream.AtEnd());
}

TEST(LineStream, TakesALineFeedForAnEndOnlyWhereNoLineEndsOtherwise)
{
    LineStream stream("one\ntwo\rtoo\nthree");
    EXPECT_EQ(stream.ReadLine(), "one");
    EXPECT_EQ(stream.ReadLine(), "two\rtoo");
    EXPECT_EQ(stream.ReadLine(), "three");
    EXPECT_TRUE(stream.AtEnd());
}

TEST(LineStream, GivesEmptyLinesAtTheEnd)
{
    LineStream stream("");
    EXPECT_TRUE(stream.AtEnd());
    EXPECT_EQ(stream.ReadLine(), "");
    EXPECT_EQ(stream.ReadAll(), "");
}

TEST(LineCursor, LeavesEmptyLinesOut)
{
    LineCursor lines("\r\n\r\none\r\n\r\n two \r\n", "\r\n");
    EXPECT_EQ(lines.Count(), 2U);
    EXPECT_EQ(lines.Current(), "one");
    EXPECT_EQ(lines.Position(), 1U);
    lines.Advance();
    EXPECT_EQ(lines.Current(), " two ");
    EXPECT_EQ(lines.Position(), 2U);
}

TEST(LineCursor, RaisesBehindTheLastLine)
{
    LineCursor lines("one", "\r\n");
    for (int i = 0; i < 3; ++i) {
        lines.Advance();
        EXPECT_EQ(lines.Position(), 2U);
        EXPECT_THROW(static_cast<void>(lines.Current()), RuntimeError);
    }
    EXPECT_EQ(LineCursor("", "\n").Count(), 0U);
}

TEST(SplitValueLine, TakesTheFirstTwoPiecesThatAreNotEmpty)
{
    EXPECT_EQ(SplitValueLine("Key\2Value").Key, "Key");
    EXPECT_EQ(SplitValueLine("Key\2Value").Value, "Value");
    EXPECT_EQ(SplitValueLine("Key\2 a \2 b").Value, " a ");
    EXPECT_EQ(SplitValueLine("\2\2Key\2\2Value\2").Key, "Key");
    EXPECT_EQ(SplitValueLine("\2\2Key\2\2Value\2").Value, "Value");
}

TEST(SplitValueLine, LeavesEmptyWhatIsNotThere)
{
    EXPECT_EQ(SplitValueLine("Key\2").Key, "Key");
    EXPECT_EQ(SplitValueLine("Key\2").Value, "");
    EXPECT_EQ(SplitValueLine("Key").Value, "");
    EXPECT_EQ(SplitValueLine("\2\2\2").Key, "");
    EXPECT_EQ(SplitValueLine("").Key, "");
}

} // namespace
} // namespace veldrane
