#include "shell/platform/settings_document.h"

#include "text/runtime_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldrane::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

std::string RefusalOf(std::string_view text)
{
    try {
        static_cast<void>(SettingsDocument::Parse(text));
    } catch (const RuntimeError& error) {
        return error.Description();
    }
    return "";
}

TEST(SettingsDocumentText, PlainValuesStandAsTheyAre)
{
    SettingsDocument document;
    document.Set("Options", "Author", "Ann Baker");
    document.Set("Options", "WrapperClassName", " ");
    document.Set("Platform", "VisualBasicCommand", "\"C:\\new\\VB6.EXE\" /make");
    EXPECT_EQ(document.Text(), "[Options]\n"
                               "Author=Ann Baker\n"
                               "WrapperClassName=\" \"\n"
                               "\n"
                               "[Platform]\n"
                               "VisualBasicCommand=\"C:\\new\\VB6.EXE\" /make\n");
}

TEST(SettingsDocumentText, WhatALineCannotCarryStandsBetweenQuotes)
{
    SettingsDocument document;
    document.Set("Options", "a=b", "two\r\nlines, a \"quote\", 5 %");
    document.Set("Options", "Empty", "");
    EXPECT_EQ(document.Text(), "[Options]\n"
                               "\"a%3Db\"=\"two%0D%0Alines, a %22quote%22, 5 %25\"\n"
                               "Empty=\n");
}

TEST(SettingsDocumentText, LinesThatAreNotChangedStayAsTheyWereWritten)
{
    SettingsDocument document = SettingsDocument::Parse("# mine\n"
                                                        "\n"
                                                        "[ Options ]\n"
                                                        "; the author\n"
                                                        "  Author = Ann  \n"
                                                        "Limit=dword:0000000A\n"
                                                        "\n"
                                                        "[MRU]\n"
                                                        "1=/a.kzm\n");
    document.Set("mru", "1", "/b.kzm");
    document.Set("options", "Title", "New");
    EXPECT_EQ(document.Text(), "# mine\n"
                               "\n"
                               "[ Options ]\n"
                               "; the author\n"
                               "  Author = Ann  \n"
                               "Limit=dword:0000000A\n"
                               "Title=New\n"
                               "\n"
                               "[MRU]\n"
                               "1=/b.kzm\n");
}

TEST(SettingsDocumentText, BlankLinesBetweenValuesStayWhereTheyWereWritten)
{
    constexpr std::string_view kWritten = "[Options]\n"
                                          "\n"
                                          "Author=Ann\n"
                                          "\n"
                                          "; limits\n"
                                          "\n"
                                          "MaxTablesToDisplay=500\n";
    SettingsDocument document = SettingsDocument::Parse(kWritten);
    EXPECT_EQ(document.Text(), kWritten);
    document.Set("Options", "Title", "New");
    EXPECT_EQ(document.Text(), std::string(kWritten) + "Title=New\n");
}

TEST(SettingsDocumentText, ANumberIsReadHighByteFirstAsSignedDecimalText)
{
    const SettingsDocument document = SettingsDocument::Parse("[Options]\n"
                                                              "Ten=dword:0000000a\n"
                                                              "Blue=dword:00FF0000\n"
                                                              "GrayText=dword:80000011\n"
                                                              "Short=dword:0a\n"
                                                              "Text=\"dword:0000000a\"\n");
    EXPECT_THAT(document.All("Options"),
                ElementsAre(Pair("Ten", "10"), Pair("Blue", "16711680"), Pair("GrayText", "-2147483631"),
                            Pair("Short", "dword:0a"), Pair("Text", "dword:0000000a")));
}

TEST(SettingsDocumentText, QuotesThatAreNotOursAreTakenAsTheyAre)
{
    const SettingsDocument document = SettingsDocument::Parse("[Platform]\n"
                                                              "A=\"wine\" \"C:\\VB6.EXE\"\n"
                                                              "B=\"C:\\new\\VB6.EXE\"\n"
                                                              "C=\"100%\"\n"
                                                              "D=\"\n");
    EXPECT_THAT(document.All("Platform"),
                ElementsAre(Pair("A", "\"wine\" \"C:\\VB6.EXE\""), Pair("B", "C:\\new\\VB6.EXE"), Pair("C", "\"100%\""),
                            Pair("D", "\"")));
}

TEST(SettingsDocumentText, LinesMayEndInCRLFAndTheFileMayBeginWithAByteOrderMark)
{
    const SettingsDocument document = SettingsDocument::Parse("\xEF\xBB\xBF[Options]\r\nAuthor=Ann\r\n");
    EXPECT_EQ(document.Find("Options", "Author"), "Ann");
}

TEST(SettingsDocumentText, ASectionOrNameThatComesTwiceIsOne)
{
    const SettingsDocument document = SettingsDocument::Parse("[MRU]\n1=/a\n[Help]\nx=1\n[mru]\n2=/b\n1=/c\n");
    EXPECT_THAT(document.All("MRU"), ElementsAre(Pair("1", "/c"), Pair("2", "/b")));
}

TEST(SettingsDocumentText, AnEmptyFileIsEmpty)
{
    EXPECT_EQ(SettingsDocument::Parse("").Text(), "");
    EXPECT_EQ(SettingsDocument::Parse("\n\n").Text(), "\n\n");
}

TEST(SettingsDocumentText, AFileOfOneBlankLineIsOneHoweverTheLineEnds)
{
    EXPECT_EQ(SettingsDocument::Parse("\n").Text(), "\n");
    EXPECT_EQ(SettingsDocument::Parse("\r\n").Text(), "\n");
}

TEST(SettingsDocumentText, ValuesAreFoundWhenOthersAndSectionsBeforeThemAreGone)
{
    SettingsDocument document = SettingsDocument::Parse("[A]\nx=1\n[B]\nx=2\n; note\ny=3\nz=4\n[C]\nx=5\n");
    document.Remove("b", "X");
    document.RemoveSection("a");
    EXPECT_EQ(document.Find("B", "z"), "4");
    document.Set("B", "y", "6");
    document.Set("B", "w", "7");
    document.Set("C", "x", "8");
    EXPECT_EQ(document.Text(), "[B]\n; note\ny=6\nz=4\nw=7\n[C]\nx=8\n");
    EXPECT_EQ(document.Find("A", "x"), std::nullopt);
    EXPECT_EQ(document.Find("B", "x"), std::nullopt);
}

TEST(SettingsDocumentText, MayHoldManySectionsAndNames)
{
    constexpr int kMany = 100'000;
    std::string text;
    for (int i = 0; i < kMany; ++i)
        text += "[Größe" + std::to_string(i) + "]\n";
    for (int i = 0; i < kMany; ++i)
        text += "Größe" + std::to_string(i) + "=\n";
    const SettingsDocument document = SettingsDocument::Parse(text);
    EXPECT_EQ(document.All("größe99999").size(), kMany);
    EXPECT_EQ(document.Text(), text);
}

TEST(SettingsDocumentText, LinesThatCannotBeUnderstoodAreRefusedByNumber)
{
    EXPECT_EQ(RefusalOf("[Options]\nAuthor=Ann\nnonsense\n"), "line 3 is no section and no value");
    EXPECT_EQ(RefusalOf("[Options\nAuthor=Ann\n"), "line 1 is no section and no value");
    EXPECT_EQ(RefusalOf("Author=Ann\n"), "line 1 stands before the first section");
    EXPECT_EQ(RefusalOf("[Options]\nAuthor=\xFF\n"), "line 2 is not UTF-8");
    EXPECT_EQ(RefusalOf(std::string_view("[Options]\nA=\0\n", 14)), "line 2 holds control characters");
}

} // namespace
} // namespace veldrane::testing
