#include "text/code_page.h"

#include "text/runtime_error.h"

#include <gtest/gtest.h>

#include <string>

namespace veldrane::text {
namespace {

std::string AllBytes()
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.push_back(static_cast<char>(byte));
    return bytes;
}

TEST(CodePage, IsThatOfWesternEuropeUnlessToldOtherwise)
{
    EXPECT_EQ(CodePage().Number(), 1252);
    EXPECT_EQ(CodePage().Decode("Gr\xF6\xDF"
                                "e \x80 \x96"),
              "Größe € –");
    EXPECT_EQ(CodePage().Encode("Größe € –").Bytes, "Gr\xF6\xDF"
                                                    "e \x80 \x96");
}

TEST(CodePage, TakesItsFiveUnassignedBytesForControlCharacters)
{
    const CodePage page;
    EXPECT_EQ(page.Decode("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
    EXPECT_EQ(page.Encode("\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D").Bytes, "\x81\x8D\x8F\x90\x9D");
}

TEST(CodePage, GivesEveryByteBack)
{
    for (const int number : {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258}) {
        const CodePage page(number);
        const CodePage::Encoded back = page.Encode(page.Decode(AllBytes()));
        EXPECT_EQ(back.Bytes, AllBytes()) << number;
        EXPECT_FALSE(back.Lossy) << number;
    }
}

TEST(CodePage, KnowsTheOnesOfOtherLanguages)
{
    EXPECT_EQ(CodePage(1250).Decode("\xA3\xF3"
                                    "d\x9F"),
              "Łódź");
    EXPECT_EQ(CodePage(1251).Decode("\xC6\xF3\xEA"), "Жук");
    EXPECT_EQ(CodePage(1253).Encode("Ωμέγα").Bytes, "\xD9\xEC\xDD\xE3\xE1");
    EXPECT_TRUE(CodePage(1251).Holds("Жук"));
    EXPECT_FALSE(CodePage(1252).Holds("Жук"));
}

TEST(CodePage, WritesAQuestionMarkForWhatItLacks)
{
    const CodePage::Encoded encoded = CodePage().Encode("Łódź ?");
    EXPECT_EQ(encoded.Bytes, "?\xF3"
                             "d? ?");
    EXPECT_TRUE(encoded.Lossy);
    EXPECT_FALSE(CodePage().Encode("?").Lossy);
}

TEST(CodePage, WritesAQuestionMarkForEachByteThatIsNoCharacter)
{
    const CodePage::Encoded encoded = CodePage().Encode("a\xF6\xC3z");
    EXPECT_EQ(encoded.Bytes, "a??z");
    EXPECT_TRUE(encoded.Lossy);
}

TEST(CodePage, RefusesWhatIsNoSingleByteCodePage)
{
    for (const int number : {0, -1, 1, 932, 936, 949, 950, 1200, 65001, 99999}) {
        try {
            const CodePage page(number);
            ADD_FAILURE() << number << " was taken";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, error_number::kInvalidCall);
            EXPECT_NE(error.Description().find(std::to_string(number)), std::string::npos);
        }
    }
}

} // namespace
} // namespace veldrane::text
