#include "shell/wizard/file_differences.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Each line with its mark, as a unified view shows it.
std::vector<std::string> Shown(std::string_view oldText, std::string_view newText)
{
    std::vector<std::string> lines;
    for (const DifferenceLine& line : DifferencesOf(oldText, newText))
        lines.push_back((line.Kind == DifferenceKind::Same      ? " "
                         : line.Kind == DifferenceKind::Removed ? "-"
                                                                : "+") +
                        line.Text);
    return lines;
}

TEST(FileDifferences, OfTheSameTextAreNone)
{
    EXPECT_THAT(Shown("a\r\nb\r\n", "a\r\nb\r\n"), ElementsAre(" a", " b"));
    EXPECT_THAT(Shown("", ""), IsEmpty());
}

TEST(FileDifferences, TellWhatCameInWhosePlace)
{
    EXPECT_THAT(Shown("a\r\nb\r\nc\r\n", "a\r\nx\r\nc\r\n"), ElementsAre(" a", "-b", "+x", " c"));
}

TEST(FileDifferences, FindTheLinesThatStayInTheMiddle)
{
    EXPECT_THAT(Shown("a\nb\nc\nd\n", "x\nb\nc\ny\n"), ElementsAre("-a", "+x", " b", " c", "-d", "+y"));
}

TEST(FileDifferences, WhatWasRemovedStandsFirst)
{
    EXPECT_THAT(Shown("a\nb\n", "x\nb\ny\nz\n"), ElementsAre("-a", "+x", " b", "+y", "+z"));
    EXPECT_THAT(Shown("a\nb\nc\nd\n", "x\nb\nc\ny\nz\n"), ElementsAre("-a", "+x", " b", " c", "-d", "+y", "+z"));
}

TEST(FileDifferences, OfAnEmptyFileAreAllLines)
{
    EXPECT_THAT(Shown("", "a\nb\n"), ElementsAre("+a", "+b"));
    EXPECT_THAT(Shown("a\nb\n", ""), ElementsAre("-a", "-b"));
}

TEST(FileDifferences, ALastLineWithoutAnEndIsALine)
{
    EXPECT_THAT(Shown("a\r\nb", "a\r\nb"), ElementsAre(" a", " b"));
    EXPECT_THAT(Shown("a\r\nb", "a\r\nb\r\n"), ElementsAre(" a", "-b [no line end]", "+b"));
    EXPECT_THAT(Shown("a\r\n\r\n", "a\r\n"), ElementsAre(" a", "-"));
}

TEST(FileDifferences, OfTheEndsOfLinesAreToldInWords)
{
    EXPECT_THAT(Shown("a\nb\n", "a\r\nb\r\n"), ElementsAre("-a [LF]", "-b [LF]", "+a", "+b"));
    EXPECT_THAT(Shown("a\r\nb\nc\r\n", "a\r\nb\r\nx\r\n"), ElementsAre(" a", "-b [LF]", "-c", "+b", "+x"));
}

TEST(FileDifferences, NumberTheLinesOfBothTexts)
{
    EXPECT_THAT(DifferencesOf("a\nb\nc\n", "a\nc\nd\n"), ElementsAre(DifferenceLine{DifferenceKind::Same, 1, 1, "a"},
                                                                     DifferenceLine{DifferenceKind::Removed, 2, 0, "b"},
                                                                     DifferenceLine{DifferenceKind::Same, 3, 2, "c"},
                                                                     DifferenceLine{DifferenceKind::Added, 0, 3, "d"}));
}

std::string ManyLines(const std::string& prefix, int count)
{
    std::string text;
    for (int line = 0; line < count; ++line)
        text += prefix + std::to_string(line) + "\r\n";
    return text;
}

int CountOfChanges(const std::string& before, const std::string& after)
{
    int changed = 0;
    for (const DifferenceLine& line : DifferencesOf(before, after))
        changed += line.Kind == DifferenceKind::Same ? 0 : 1;
    return changed;
}

TEST(FileDifferences, OfHugeTextsWithNothingInCommonComeToAnEnd)
{
    constexpr int kLines = 100000;
    const auto lines = DifferencesOf(ManyLines("a", kLines), ManyLines("b", kLines));
    ASSERT_EQ(lines.size(), 2U * kLines);
    EXPECT_EQ(lines.front().Kind, DifferenceKind::Removed);
    EXPECT_EQ(lines.back().Kind, DifferenceKind::Added);
}

TEST(FileDifferences, OfAHugeTextInWhichALineChangedAreThatLine)
{
    constexpr int kLines = 100000;
    const std::string before = ManyLines("a", kLines);
    std::string after = before;
    after.replace(after.find("a5000\r\n"), 1, "b");
    EXPECT_EQ(CountOfChanges(before, after), 2);
}

TEST(FileDifferences, OfALongTextThatChangedNearBothEndsAreThoseLines)
{
    constexpr int kLines = 20000;
    const std::string before = ManyLines("a", kLines);
    std::string after = before;
    after.replace(after.find("a100\r\n"), 1, "b");
    after.replace(after.find("a19900\r\n"), 1, "b");
    EXPECT_EQ(CountOfChanges(before, after), 4);
}

TEST(FileDifferences, OfALongTextWithLinesThatRepeatAreThoseThatChanged)
{
    std::string before;
    for (int routine = 0; routine < 2000; ++routine)
        before += "Sub " + std::to_string(routine) + "\r\n    Beep\r\nEnd Sub\r\n\r\n";
    std::string after = before;
    after.replace(after.find("Sub 1\r\n"), 3, "Get");
    after.insert(after.find("Sub 1998\r\n"), "Sub x\r\n    Beep\r\nEnd Sub\r\n\r\n");
    EXPECT_EQ(CountOfChanges(before, after), 6);
}

TEST(FileDifferences, OfALongTextInAnotherOrderComeToAnEnd)
{
    std::string before;
    std::string after;
    for (int line = 0; line < 50000; ++line) {
        before += std::to_string(line) + "\r\n";
        after += std::to_string(line * 7919LL % 50000) + "\r\n";
    }
    EXPECT_GT(CountOfChanges(before, after), 0);
}

TEST(FileDifferences, SideBySideStandWhatWasRemovedAndWhatCameForIt)
{
    const auto lines = DifferencesOf("a\nb\nc\nd\n", "a\nx\nd\ne\n");
    EXPECT_THAT(SideBySide(lines), ElementsAre(DifferenceRow{0, 0}, DifferenceRow{1, 3}, DifferenceRow{2, std::nullopt},
                                               DifferenceRow{4, 4}, DifferenceRow{std::nullopt, 5}));
}

} // namespace
} // namespace veldrane
