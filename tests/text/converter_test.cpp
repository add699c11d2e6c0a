#include "text/converter.h"

#include <gtest/gtest.h>

namespace veldrane::text {
namespace {

TEST(Converter, IsThereForTheCodePagesOfTheSystemAlone)
{
    EXPECT_TRUE(Converter(1252).IsThere());
    EXPECT_TRUE(Converter(932).IsThere());
    EXPECT_FALSE(Converter(0).IsThere());
    EXPECT_FALSE(Converter(-1).IsThere());
    EXPECT_FALSE(Converter(65535).IsThere());
}

TEST(Converter, ConvertsUpToWhatHasNoMeaning)
{
    const Converter japanese(932);
    std::string_view bytes = "a\x93\xFA\xFFz";
    EXPECT_EQ(japanese.Convert(bytes), "a日");
    EXPECT_EQ(bytes, "\xFFz");
    EXPECT_EQ(japanese.Convert(bytes), "");
    EXPECT_EQ(bytes, "\xFFz");
}

TEST(Converter, LeavesACharacterThatEndsTooEarly)
{
    const Converter korean(949);
    std::string_view bytes = "\xC7\xD1\xB1";
    EXPECT_EQ(korean.Convert(bytes), "한");
    EXPECT_EQ(bytes, "\xB1");
    bytes = "\xB1\xDB";
    EXPECT_EQ(korean.Convert(bytes), "글") << "each call begins anew";
}

TEST(Converter, GivesALetterThatIsHeldBackForItsMark)
{
    std::string_view bytes = "A";
    EXPECT_EQ(Converter(1258).Convert(bytes), "A");
    EXPECT_TRUE(bytes.empty());
}

} // namespace
} // namespace veldrane::text
