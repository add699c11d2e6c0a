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

TEST(TextDecoder, ACodePageThatNobodyKnowsCountsAs1252)
{
    for (const int codePage : {0, 932, 65535})
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
