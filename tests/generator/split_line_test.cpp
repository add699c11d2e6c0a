#include "generator/outputs.h"
#include "line_text.h"
#include "support/scripted_messages.h"
#include "text/characters.h"

#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

TTCOutputs Split(const std::string& text, LineClass lineClass = LineClass::Code)
{
    TTCOutputs lines;
    ScriptedMessages messages;
    AddSplitLine(text, lines, lineClass, messages);
    EXPECT_TRUE(messages.Asked().empty());
    return lines;
}

std::string Repeated(std::string_view text, int times)
{
    std::string repeated;
    for (int i = 0; i < times; ++i)
        repeated += text;
    return repeated;
}

TEST(AddSplitLine, CountsCharactersAndNotBytes)
{
    const TTCOutputs lines = Split("\"" + Repeated("ä", 500) + "\"");
    ASSERT_EQ(lines.Count(), 2U);
    EXPECT_EQ(lines.Item(1).LineText, "    \"" + Repeated("ä", 399) + "\" & _");
    EXPECT_EQ(lines.Item(2).LineText, "    \"" + Repeated("ä", 101) + "\"");
}

TEST(AddSplitLine, GivesTheLastPieceTheCodeColourAndNoIconButItsWeight)
{
    const TTCOutputs lines = Split(std::string(400, 'x') + " y", LineClass::HeadSub);
    ASSERT_EQ(lines.Count(), 2U);
    EXPECT_EQ(LineClassOf(lines.Item(1)), "head:Sub");
    EXPECT_TRUE(lines.Item(2).Bold);
    EXPECT_EQ(lines.Item(2).ForeColor, LineColors{}.ColorCode);
    EXPECT_EQ(lines.Item(2).Icon, "");
}

TEST(AddSplitLine, AddsNothingForWhatNeedsMoreThanSixteenLines)
{
    EXPECT_GT(Split(std::string(6199, 'x')).Count(), 0U);
    TTCOutputs lines;
    ScriptedMessages messages;
    AddSplitLine(std::string(6200, 'x'), lines, LineClass::Code, messages);
    EXPECT_EQ(lines.Count(), 0U);
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked().front().Text, "Unable to add lines to code. The splitting of lines is limited to 16.");
    EXPECT_EQ(messages.Asked().front().Offered, Buttons::Ok);
}

TEST(AddSplitLine, LosesATextOfOneCharacter)
{
    EXPECT_EQ(Split("x").Count(), 0U);
    EXPECT_EQ(Lines(Split("")), "\ncode|    |\n");
    EXPECT_EQ(Lines(Split("xy")), "\ncode|    xy|\n");
}

} // namespace
} // namespace veldrane::testing
