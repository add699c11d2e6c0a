#include "preview/active_parse.h"

#include "support/scripted_messages.h"
#include "text/runtime_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veldrane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using veldrane::testing::ScriptedMessages;

std::vector<std::string> Texts(const Words& words)
{
    std::vector<std::string> texts;
    for (const Word& word : words)
        texts.push_back(word.Text);
    return texts;
}

std::vector<std::string> Parsed(std::string_view text, std::string_view delimiters, DelimiterMode mode, CaseRule caseRule = CaseRule::Sensitive)
{
    ActiveParse parse;
    return Texts(parse.ParseText(text, delimiters, mode, caseRule));
}

TEST(ParseText, DropsEmptyPiecesAndNumbersTheOthersWithoutGaps)
{
    for (const DelimiterMode mode : {DelimiterMode::Whole, DelimiterMode::ByChar}) {
        ActiveParse parse;
        const Words& words = parse.ParseText(";;a;;b;c;", ";", mode, CaseRule::Sensitive);
        EXPECT_THAT(Texts(words), ElementsAre("a", "b", "c"));
        for (std::size_t i = 1; i <= words.Count(); ++i)
            EXPECT_EQ(words.Item(i)->Sequence, static_cast<long>(i));
    }
}

TEST(ParseText, TakesATextWithoutDelimiterForOneWord)
{
    EXPECT_THAT(Parsed("whole text", ";", DelimiterMode::Whole), ElementsAre("whole text"));
    EXPECT_THAT(Parsed("whole text", ";,", DelimiterMode::ByChar), ElementsAre("whole text"));
}

TEST(ParseText, GivesNoWordForDelimitersAlone)
{
    EXPECT_THAT(Parsed(";;", ";", DelimiterMode::Whole), IsEmpty());
    EXPECT_THAT(Parsed(";,", ",;", DelimiterMode::ByChar), IsEmpty());
}

TEST(ParseText, TakesTheDelimitersTogetherForOneSeparator)
{
    EXPECT_THAT(Parsed("a\r\nb\nc\r\n\r\nd", "\r\n", DelimiterMode::Whole), ElementsAre("a", "b\nc", "d"));
    EXPECT_THAT(Parsed("a---b", "--", DelimiterMode::Whole), ElementsAre("a", "-b"));
}

TEST(ParseText, TakesEachCharacterForASeparator)
{
    EXPECT_THAT(Parsed("a=b;c d", "=; ", DelimiterMode::ByChar), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(Parsed("aébèc", "éè", DelimiterMode::ByChar), ElementsAre("a", "b", "c"));
    EXPECT_THAT(Parsed("aêb", "éè", DelimiterMode::ByChar), ElementsAre("aêb"));
}

TEST(ParseText, ComparesCaseAsItIsTold)
{
    EXPECT_THAT(Parsed("1AND2and3", "and", DelimiterMode::Whole), ElementsAre("1AND2", "3"));
    EXPECT_THAT(Parsed("1AND2and3", "aNd", DelimiterMode::Whole, CaseRule::Insensitive), ElementsAre("1", "2", "3"));
    EXPECT_THAT(Parsed("1x2X3", "x", DelimiterMode::ByChar), ElementsAre("1", "2X3"));
    EXPECT_THAT(Parsed("1x2X3", "X", DelimiterMode::ByChar, CaseRule::Insensitive), ElementsAre("1", "2", "3"));
    EXPECT_THAT(Parsed("1ä2Ä3", "Ä", DelimiterMode::ByChar, CaseRule::Insensitive), ElementsAre("1", "2", "3"));
}

TEST(ParseText, StepsOverADelimiterOfAnotherSize)
{
    EXPECT_THAT(Parsed("a\xE2\xB1\xA5"
                       "b",
                       "Ⱥ", DelimiterMode::Whole, CaseRule::Insensitive),
                ElementsAre("a", "b"));
}

TEST(ParseText, DoesNotCutWithinACharacter)
{
    EXPECT_THAT(Parsed("a\xA9"
                       "b",
                       "é", DelimiterMode::ByChar),
                ElementsAre("a\xA9"
                            "b"));
}

TEST(ParseText, UsesTheDelimitersOfTheLastCallIfItIsGivenNone)
{
    ActiveParse parse;
    parse.ParseText("a;b", ";", DelimiterMode::Whole, CaseRule::Sensitive);
    EXPECT_THAT(Texts(parse.ParseText("c;d,e", "", DelimiterMode::Whole, CaseRule::Sensitive)), ElementsAre("c", "d,e"));
    EXPECT_EQ(parse.Delimiters, ";");
}

TEST(ParseText, UsesTheDelimitersThatWereSetIfItIsGivenNone)
{
    ActiveParse parse;
    parse.Delimiters = ";,";
    EXPECT_THAT(Texts(parse.ParseText("a;b,c", "", DelimiterMode::ByChar, CaseRule::Sensitive)), ElementsAre("a", "b", "c"));
    EXPECT_THAT(Texts(parse.ParseText("a;b,c", "", DelimiterMode::ByChar, CaseRule::Sensitive)), ElementsAre("a", "b", "c"));
}

TEST(ParseText, RaisesWithoutDelimitersAndLeavesTheWords)
{
    ActiveParse parse;
    parse.Words.Add("kept", 1);
    try {
        parse.ParseText("", "", DelimiterMode::Whole, CaseRule::Sensitive);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, 1000);
        EXPECT_EQ(error.Source, "ActiveParse");
        EXPECT_EQ(error.Description(), "No Delimiters Set. Unable to parse text.");
    }
    EXPECT_THAT(Texts(parse.Words), ElementsAre("kept"));
}

TEST(ParseText, RaisesWithoutTextAndLeavesTheWords)
{
    ActiveParse parse;
    parse.ParseText("a;b", ";", DelimiterMode::Whole, CaseRule::Sensitive);
    try {
        parse.ParseText("", ",", DelimiterMode::Whole, CaseRule::Sensitive);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, 1001);
        EXPECT_EQ(error.Source, "ActiveParse");
        EXPECT_EQ(error.Description(), "No text to parse.");
    }
    EXPECT_THAT(Texts(parse.Words), ElementsAre("a", "b"));
    EXPECT_EQ(parse.Delimiters, ",");
}

TEST(ParseText, MayTakeAWordOfTheLastCallApart)
{
    ActiveParse parse;
    parse.ParseText("DSN=a long name of a source;UID=b", ";", DelimiterMode::Whole, CaseRule::Sensitive);
    EXPECT_THAT(Texts(parse.ParseText(parse.Words.begin()->Text, "=", DelimiterMode::Whole, CaseRule::Sensitive)), ElementsAre("DSN", "a long name of a source"));
}

TEST(Words, KeysAWordOnlyIfItIsGivenAKey)
{
    Words words;
    words.Add("one", 1, {}, "first");
    words.Add("two", 2, std::string("data"));
    EXPECT_EQ(words.Item("FIRST")->Text, "one");
    EXPECT_FALSE(words.Item(1)->UserData.has_value());
    EXPECT_EQ(std::any_cast<std::string>(words.Item(2)->UserData), "data");
    words.Remove(1);
    EXPECT_EQ(words.Count(), 1U);
    words.Clear();
    EXPECT_EQ(words.Count(), 0U);
}

TEST(ReplaceText, ReplacesEveryOccurrenceComparedExactly)
{
    ScriptedMessages messages;
    EXPECT_EQ(ActiveParse::ReplaceText("a b A b", "b", "cc", messages), "a cc A cc");
    EXPECT_EQ(ActiveParse::ReplaceText("a b", "B", "c", messages), "a b");
    EXPECT_EQ(ActiveParse::ReplaceText("a b", " ", "", messages), "ab");
    EXPECT_THAT(messages.Asked(), IsEmpty());
}

TEST(ReplaceText, AnswersAnEmptyFindWithAMessageAndAnEmptyText)
{
    ScriptedMessages messages;
    const std::string source = "unchanged";
    EXPECT_EQ(ActiveParse::ReplaceText(source, "", "x", messages), "");
    EXPECT_EQ(source, "unchanged");
    ASSERT_EQ(messages.Asked().size(), 1U);
    EXPECT_EQ(messages.Asked()[0].Text, "You must provide text to find.");
    EXPECT_EQ(messages.Asked()[0].Offered, Buttons::Ok);
}

} // namespace
} // namespace veldrane
