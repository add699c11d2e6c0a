#include "jet/refusal.h"
#include "jet/text_decoder.h"

#include <gtest/gtest.h>

#include <string>

namespace veldrane::jet {
namespace {

using namespace std::string_literals;

TEST(TextDecoder, Jet3TextIsOfTheFilesCodePage)
{
    EXPECT_EQ(TextDecoder(Version::Jet3, 1252).Name("Gr\xF6\xDF\x65"), "Größe");
    EXPECT_EQ(TextDecoder(Version::Jet3, 1251).Name("\xC7"), "З");
    EXPECT_EQ(TextDecoder(Version::Jet3, 1252).Value("\xFF\xFEx"), "ÿþx") << "only Jet 4 has a shorter form";
}

TEST(TextDecoder, ACodePageMayHaveCharactersOfTwoBytes)
{
    EXPECT_EQ(TextDecoder(Version::Jet3, 932).Name("\x93\xFA\x96{\x8C\xEA \x95\\ \xC3"), "日本語 表 ﾃ");
    EXPECT_EQ(TextDecoder(Version::Jet3, 936).Name("\xD6\xD0\xB9\xFA \x80"), "中国 €");
    EXPECT_EQ(TextDecoder(Version::Jet3, 949).Value("\xC7\xD1\xB1\xDB \x8C\x63"), "한글 똠");
    EXPECT_EQ(TextDecoder(Version::Jet3, 950).Value("\xA4\xA4\xA4\xE5 \xA5\\"), "中文 功");
    EXPECT_EQ(TextDecoder(Version::Jet3, 1361).Name("\x88\x61 \xD0\x65"), "가 한");
    EXPECT_EQ(TextDecoder(Version::Jet3, 932).Name("a\\b~"), "a\\b~");
    EXPECT_EQ(TextDecoder(Version::Jet3, 932).Name(""), "");
}

TEST(TextDecoder, TextOfTwoByteCharactersMayBeLong)
{
    std::string bytes;
    std::string text;
    for (int i = 0; i < 5000; ++i) {
        bytes += "x\x93\xFA";
        text += "x日";
    }
    EXPECT_EQ(TextDecoder(Version::Jet3, 932).Value(bytes), text);
}

TEST(TextDecoder, BytesThatMakeNoCharacterOfTwoAreReplacedOneByOne)
{
    const TextDecoder text(Version::Jet3, 932);
    EXPECT_EQ(text.Name("a\x93"), "a\uFFFD");
    EXPECT_EQ(text.Name("\xFF\xFEx"), "\uFFFD\uFFFDx");
    EXPECT_EQ(text.Name("\x93\x20y"), "\uFFFD y");
    EXPECT_EQ(TextDecoder(Version::Jet3, 949).Name("\xC7"), "\uFFFD");
    EXPECT_EQ(text.Name(std::string(1U << 16U, '\xFF')).size(), std::size_t{3} << 16U);
}

TEST(TextDecoder, RefusesACodePageOfTwoBytesThatItHasNoConverterFor)
{
    for (const int codePage : {10001, 10002, 10003, 10008})
        try {
            const TextDecoder text(Version::Jet3, codePage);
            FAIL() << codePage;
        } catch (const Refusal& refusal) {
            EXPECT_EQ(refusal.Reason(), "code-page");
            EXPECT_EQ(refusal.what(), std::to_string(codePage));
        }
    EXPECT_EQ(TextDecoder(Version::Jet4, 10001).Name("a\0"s), "a");
}

TEST(TextDecoder, ACodePageThatNobodyKnowsCountsAs1252)
{
    for (const int codePage : {0, 10000, 10009, 65535})
        EXPECT_EQ(TextDecoder(Version::Jet3, codePage).Name("\xDF"), "ß") << codePage;
}

TEST(TextDecoder, Jet4TextIsUtf16)
{
    const TextDecoder text(Version::Jet4, 1252);
    EXPECT_EQ(text.Name("\xDF\0\x17\x04"s), "ßЗ");
    EXPECT_EQ(text.Name("\x3D\xD8\x00\xDE"s), "😀");
    EXPECT_EQ(text.Value("a\0b\0"s), "ab");
    EXPECT_EQ(text.Name(""), "");
}

TEST(TextDecoder, HalvesOfCharactersAreReplaced)
{
    const TextDecoder text(Version::Jet4, 1252);
    EXPECT_EQ(text.Name("\x3D\xD8"s), "\uFFFD");
    EXPECT_EQ(text.Name("\x3D\xD8x\0"s), "\uFFFDx");
    EXPECT_EQ(text.Name("\x00\xDEx\0"s), "\uFFFDx");
}

TEST(TextDecoder, HalfAUnitIsDamage)
{
    const TextDecoder text(Version::Jet4, 1252);
    EXPECT_THROW(static_cast<void>(text.Name("a\0b"s)), Refusal);
    EXPECT_THROW(static_cast<void>(text.Value("\xFF\xFE\0a"s)), Refusal);
}

TEST(TextDecoder, TheShorterFormChangesBetweenOneAndTwoBytes)
{
    const TextDecoder text(Version::Jet4, 1252);
    EXPECT_EQ(text.Value("\xFF\xFEgr\xFC\xDF"s), "grüß");
    EXPECT_EQ(text.Value("\xFF\xFE"s), "");
    EXPECT_EQ(text.Value("\xFF\xFE\x61\0\x17\x04\0b"s), "aЗb");
    EXPECT_EQ(text.Name("\xFF\xFE"s), "\uFEFF") << "names are never shortened";
}

} // namespace
} // namespace veldrane::jet
