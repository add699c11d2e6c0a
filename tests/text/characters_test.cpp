#include "text/characters.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veldrane::text {
namespace {

// Each is a text without one well-formed sequence of more than one byte.
const std::vector<std::string> kMalformed = {
    "\x80",             // a continuation without a lead
    "\xC3",             // cut off
    "\xE2\x82",         // cut off
    "\xF0\x9F\x98",     // cut off
    "\xC0\xAF",         // overlong
    "\xE0\x80\xAF",     // overlong
    "\xF0\x80\x80\xAF", // overlong
    "\xED\xA0\x80",     // a surrogate
    "\xF4\x90\x80\x80", // beyond the last character
    "\xFF\xFE",
};

TEST(Length, CountsCharacters)
{
    EXPECT_EQ(Length(""), 0U);
    EXPECT_EQ(Length("Order"), 5U);
    EXPECT_EQ(Length("Größe €"), 7U);
    EXPECT_EQ(Length("\xF0\x9F\x98\x80"), 1U);
}

TEST(Length, CountsEachMalformedByteAsOne)
{
    for (const std::string& text : kMalformed)
        EXPECT_EQ(Length(text), text.size());
    EXPECT_EQ(Length("ä\xC3"
                     "b"),
              3U);
}

TEST(Left, CutsBetweenCharacters)
{
    EXPECT_EQ(Left("Größe", 3), "Grö");
    EXPECT_EQ(Left("Größe", 0), "");
    EXPECT_EQ(Left("Größe", 9), "Größe");
    EXPECT_EQ(Left("\xC3\xC3", 1), "\xC3");
}

TEST(From, CountsFromOne)
{
    EXPECT_EQ(From("Größe", 4), "ße");
    EXPECT_EQ(From("Größe", 1), "Größe");
    EXPECT_EQ(From("Größe", 0), "Größe");
    EXPECT_EQ(From("Größe", 6), "");
    EXPECT_EQ(From("Größe", 60), "");
}

TEST(WellFormed, ReplacesEachMalformedByte)
{
    EXPECT_TRUE(IsWellFormed("Größe \xF0\x9F\x98\x80"));
    for (const std::string& text : kMalformed) {
        EXPECT_FALSE(IsWellFormed(text));
        std::string expected;
        for (std::size_t i = 0; i < text.size(); ++i)
            expected += "\xEF\xBF\xBD";
        EXPECT_EQ(WellFormed(text), expected);
    }
    EXPECT_EQ(WellFormed("a\xFFö"), "a\xEF\xBF\xBDö");
}

TEST(CodePoint, IsTheInverseOfAppendCodePoint)
{
    for (const char32_t codePoint :
         {U'A', U'\x7F', U'\x80', U'ß', U'\x7FF', U'\x800', U'€', U'\xFFFD', U'\x10000', U'\x10FFFF'}) {
        std::string text;
        AppendCodePoint(text, codePoint);
        EXPECT_EQ(CodePoint(text, 0), codePoint);
        EXPECT_EQ(CharacterSize(text, 0), text.size());
        EXPECT_TRUE(IsWellFormed(text));
    }
}

TEST(CodePoint, OfAMalformedByteIsTheByte)
{
    EXPECT_EQ(CodePoint("\xE4", 0), char32_t{0xE4});
}

} // namespace
} // namespace veldrane::text
