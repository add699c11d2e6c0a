#include "text/case_folding.h"

#include <gtest/gtest.h>

#include <string>

namespace veldrane::text {
namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

TEST(Fold, TakesOneLetterToOneLetter)
{
    EXPECT_EQ(Fold("Order_1"), "order_1");
    EXPECT_EQ(Fold("ÄRZTE"), "ärzte");
    EXPECT_EQ(Fold("ΑΩΣς"), "αωσσ");
    EXPECT_EQ(Fold("ЖУК"), "жук");
    EXPECT_EQ(Fold("ŸŽ"), "ÿž");
    EXPECT_EQ(Fold(""), "");
}

TEST(Fold, KeepsSharpSApartFromDoubleS)
{
    EXPECT_EQ(Fold("Straße"), "straße");
    EXPECT_NE(Fold("STRASSE"), Fold("Straße"));
    EXPECT_EQ(Fold("STRAẞE"), "straße");
}

TEST(Fold, KeepsTheTurkishLettersApart)
{
    EXPECT_EQ(Fold("I"), "i");
    EXPECT_EQ(Fold("ı"), "ı");
    EXPECT_EQ(Fold("İ"), "İ");
}

TEST(Fold, LeavesBytesThatAreNoCharacters)
{
    EXPECT_EQ(Fold("A\xC4Z\xFF"), "a\xC4z\xFF");
    EXPECT_NE(Fold("\xC4"), Fold("Ä"));
}

TEST(Fold, IsTheSameWhenDoneAgain)
{
    for (char32_t letter = 0; letter < 0x20000; ++letter)
        ASSERT_EQ(FoldCodePoint(FoldCodePoint(letter)), FoldCodePoint(letter)) << static_cast<unsigned>(letter);
}

TEST(EqualFolded, ComparesWithoutRegardToCase)
{
    EXPECT_TRUE(EqualFolded("", ""));
    EXPECT_TRUE(EqualFolded("NAME", "name"));
    EXPECT_TRUE(EqualFolded("Größe", "GRÖßE"));
    EXPECT_FALSE(EqualFolded("Größe", "GRÖSSE"));
    EXPECT_FALSE(EqualFolded("name", "names"));
    EXPECT_FALSE(EqualFolded("[", "{"));
}

TEST(FindFolded, GivesTheBytePositionOfTheFirstOccurrence)
{
    EXPECT_EQ(FindFolded("Provider=MSDASQL;", "=msdasql;"), 8U);
    EXPECT_EQ(FindFolded("ÄÖ Größe", "GRÖßE"), 5U);
    EXPECT_EQ(FindFolded("abcabc", "ABC", 1), 3U);
    EXPECT_EQ(FindFolded("abc", "d"), kNowhere);
    EXPECT_EQ(FindFolded("ab", "abc"), kNowhere);
}

TEST(FindFolded, FindsAnEmptyTextWhereItStarts)
{
    EXPECT_EQ(FindFolded("abc", ""), 0U);
    EXPECT_EQ(FindFolded("abc", "", 3), 3U);
    EXPECT_EQ(FindFolded("abc", "", 4), kNowhere);
    EXPECT_EQ(FindFolded("", "a"), kNowhere);
}

TEST(FindFolded, FindsAnOccurrenceThatBeginsWithinAFailedOne)
{
    EXPECT_EQ(FindFolded("aabaabaaab", "AABAAA"), 3U);
    EXPECT_EQ(FindFolded("ÄäÄäö", "ääÖ"), 4U);
}

TEST(FindFolded, MatchesLettersOfDifferentSize)
{
    EXPECT_EQ(FindFolded("x\xE2\xB1\xA5y", "Ⱥ"), 1U);   // the small letter takes three bytes, the capital two
    EXPECT_EQ(FindFolded("300 \xE2\x84\xAA", "k"), 4U); // the sign of the kelvin
}

TEST(FindFolded, DoesNotTakeABareByteForALetter)
{
    EXPECT_EQ(FindFolded("\xE4", "ä"), kNowhere);
    EXPECT_EQ(FindFolded("a\xE4", "\xE4"), 1U);
}

TEST(FindFolded, FindsAnOccurrenceWhereverItStands)
{
    for (std::size_t at = 0; at < 1200; ++at) {
        const std::string before(at, 'n');
        EXPECT_EQ(FindFolded(before + "eNd", "End"), at);
        EXPECT_EQ(FindFolded(before + "eNd" + before + "é", "End"), at);
        EXPECT_EQ(FindFolded("é" + before + "eNd", "End"), at + 2);
        EXPECT_EQ(FindFolded(before + "en", "End"), kNowhere);
    }
    const std::string far(5000, 'n');
    EXPECT_EQ(FindFolded(far + "é" + far + "eND", "End"), 10002U);
    EXPECT_EQ(FindFolded(far + "CLAſSES", "classes"), 5000U);
    EXPECT_EQ(FindFolded(far + "End" + far + "end", "END", 5001), 10003U);
}

TEST(FindFolded, CopesWithLongRepetitions)
{
    const std::string text(1'000'000, 'a');
    EXPECT_EQ(FindFolded(text, std::string(500'000, 'A') + "b"), kNowhere);
    EXPECT_EQ(FindFolded(text + "b", std::string(500'000, 'A') + "B"), 500'000U);
}

} // namespace
} // namespace veldrane::text
