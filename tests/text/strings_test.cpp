#include "text/strings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldrane::text {
namespace {

using ::testing::ElementsAre;

TEST(Trim, TakesBlanksAlone)
{
    EXPECT_EQ(TrimLeft("  a "), "a ");
    EXPECT_EQ(Trim("  a b "), "a b");
    EXPECT_EQ(Trim("\t a\t"), "\t a\t");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
}

TEST(ReplaceAll, DoesNotLookAtWhatWasPutIn)
{
    EXPECT_EQ(ReplaceAll("a.kzm.kzm", ".kzm", ".bak"), "a.bak.bak");
    EXPECT_EQ(ReplaceAll("aaa", "aa", "a"), "aa");
    EXPECT_EQ(ReplaceAll("a.KZM", ".kzm", ".bak"), "a.KZM");
    EXPECT_EQ(ReplaceAll("a", "", "x"), "a");
    EXPECT_EQ(ReplaceAll("", "a", "x"), "");
}

TEST(Without, DropsEachOfTheCharacters)
{
    EXPECT_EQ(Without("@Cust-omer;1", "@-;"), "Customer1");
    EXPECT_EQ(Without("größe", ""), "größe");
}

TEST(AppendSentence, EndsWhatStandsBeforeUnlessAMarkDoes)
{
    const auto appended = [](std::string text) {
        AppendSentence(text, "Try again.");
        return text;
    };
    EXPECT_EQ(appended(""), "Try again.");
    EXPECT_EQ(appended("It failed"), "It failed. Try again.");
    for (const std::string marked : {"It failed.", "Does it run?", "No!", "Failed:", "failed;", "failed,"})
        EXPECT_EQ(appended(marked), marked + " Try again.");
}

TEST(Split, KeepsEmptyPieces)
{
    EXPECT_THAT(Split("a,,b,", ","), ElementsAre("a", "", "b", ""));
    EXPECT_THAT(Split("", ","), ElementsAre(""));
    EXPECT_THAT(Split("a--b", "--"), ElementsAre("a", "b"));
}

TEST(LineStartsWith, LeftTrimsBothAndComparesLetterByLetter)
{
    EXPECT_TRUE(LineStartsWith("   Begin Class Order", "Begin Class "));
    EXPECT_TRUE(LineStartsWith("Begin Class ", " Begin Class "));
    EXPECT_FALSE(LineStartsWith("begin Class Order", "Begin Class "));
    EXPECT_FALSE(LineStartsWith("End Classes", "End Class "));
    EXPECT_FALSE(LineStartsWith("Begin KeyColumns ", "Begin Key "));
    EXPECT_FALSE(LineStartsWith("Begin Class", "Begin Class "));
    EXPECT_TRUE(LineStartsWith("anything", ""));
    EXPECT_FALSE(LineStartsWith("", "Begin"));
}

TEST(StartsWithVowel, KnowsTheFiveVowelsInEitherCase)
{
    for (const auto* text : {"Apple", "egg", "Ink", "order", "Unit"})
        EXPECT_TRUE(StartsWithVowel(text)) << text;
    for (const auto* text : {"", "Year", "Ärzte", "1A"})
        EXPECT_FALSE(StartsWithVowel(text)) << text;
}

TEST(StartsWithDigit, KnowsTheTenDigits)
{
    EXPECT_TRUE(StartsWithDigit("0a"));
    EXPECT_TRUE(StartsWithDigit("9"));
    EXPECT_FALSE(StartsWithDigit("a1"));
    EXPECT_FALSE(StartsWithDigit("-1"));
    EXPECT_FALSE(StartsWithDigit(""));
}

} // namespace
} // namespace veldrane::text
