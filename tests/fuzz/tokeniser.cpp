#include "fuzz_input.h"
#include "preview/active_parse.h"
#include "support/scripted_messages.h"
#include "text/case_folding.h"
#include "text/characters.h"
#include "text/runtime_error.h"

#include <string>
#include <vector>

// An input is delimiters, what to find, what to put in its place, and the text, with a NUL between them.
namespace veldrane {
namespace {

using veldrane::testing::Require;
using veldrane::testing::ScriptedMessages;
using veldrane::testing::TakeField;

using Texts = std::vector<std::string>;

Texts TextsOf(const Words& words)
{
    Texts texts;
    for (const Word& word : words)
        texts.push_back(word.Text);
    return texts;
}

Texts Parsed(std::string_view text, std::string_view delimiters, DelimiterMode mode, CaseRule caseRule)
{
    ActiveParse parse;
    return TextsOf(parse.ParseText(text, delimiters, mode, caseRule));
}

long RefusalOf(ActiveParse& parse, std::string_view text, std::string_view delimiters, DelimiterMode mode)
{
    try {
        parse.ParseText(text, delimiters, mode, CaseRule::Sensitive);
    } catch (const RuntimeError& error) {
        Require(error.Source == "ActiveParse", "a refusal names ActiveParse");
        return error.Number;
    }
    return 0;
}

void CheckRefusals(std::string_view text, std::string_view delimiters, DelimiterMode mode)
{
    ActiveParse parse;
    parse.ParseText("kept word", " ", mode, CaseRule::Sensitive);
    Require(RefusalOf(parse, "", delimiters, mode) == 1001, "an empty text is refused as 1001");
    parse.Delimiters.clear();
    Require(RefusalOf(parse, text, "", mode) == 1000, "a text without delimiters is refused as 1000");
    Require(TextsOf(parse.Words) == Texts{"kept", "word"}, "a refusal leaves the words of the call before");
}

// Cuts delimiters off the front, however many stand there.
void SkipDelimiters(std::string_view& text, std::string_view delimiters, DelimiterMode mode)
{
    if (mode == DelimiterMode::Whole)
        while (text.starts_with(delimiters))
            text.remove_prefix(delimiters.size());
    else
        while (!text.empty() && delimiters.find(text.substr(0, text::CharacterSize(text, 0))) != delimiters.npos)
            text.remove_prefix(text::CharacterSize(text, 0));
}

// Where nothing but well-formed letters is compared exactly, words and delimiters make up the text.
void CheckWordsMakeUpTheText(std::string_view text, std::string_view delimiters, DelimiterMode mode)
{
    for (const std::string& word : Parsed(text, delimiters, mode, CaseRule::Sensitive)) {
        SkipDelimiters(text, delimiters, mode);
        Require(text.starts_with(word), "a word stands where the delimiters before it end");
        text.remove_prefix(word.size());
    }
    SkipDelimiters(text, delimiters, mode);
    Require(text.empty(), "behind the last word stand delimiters alone");
}

void CheckCaseIsFolded(std::string_view text, std::string_view delimiters, DelimiterMode mode)
{
    Texts folded;
    for (const std::string& word : Parsed(text, delimiters, mode, CaseRule::Insensitive))
        folded.push_back(text::Fold(word));
    Require(folded == Parsed(text::Fold(text), text::Fold(delimiters), mode, CaseRule::Sensitive),
            "without regard to case the folded text is split at the folded delimiters");
}

void CheckNumbers(const Words& words)
{
    long sequence = 0;
    for (const Word& word : words) {
        Require(!word.Text.empty(), "no word is empty");
        Require(word.Sequence == ++sequence, "words are numbered from 1 without gaps");
    }
}

void CheckWholeWordsStay(const Words& words, std::string_view delimiters, DelimiterMode mode, CaseRule caseRule)
{
    for (const Word& word : words)
        Require(Parsed(word.Text, delimiters, mode, caseRule) == Texts{word.Text}, "a word is its own only word");
}

// The text may be a word of the parser itself, and the delimiters may be those of the call before.
void CheckAWordMayBeParsed(ActiveParse& parse, DelimiterMode mode, CaseRule caseRule)
{
    if (parse.Words.Count() == 0)
        return;
    const std::string first = parse.Words.Item(1)->Text;
    parse.ParseText(parse.Words.Item(1)->Text, "", mode, caseRule);
    Require(TextsOf(parse.Words) == Texts{first}, "a word of the parser can be parsed by it");
}

void CheckParseText(std::string_view text, std::string_view delimiters)
{
    const bool wellFormed = text::IsWellFormed(text) && text::IsWellFormed(delimiters);
    for (const DelimiterMode mode : {DelimiterMode::Whole, DelimiterMode::ByChar}) {
        CheckRefusals(text, delimiters, mode);
        for (const CaseRule caseRule : {CaseRule::Sensitive, CaseRule::Insensitive}) {
            ActiveParse parse;
            parse.ParseText(text, delimiters, mode, caseRule);
            CheckNumbers(parse.Words);
            if (parse.Words.Count() < 20) // each costs as much as the text
                CheckWholeWordsStay(parse.Words, delimiters, mode, caseRule);
            CheckAWordMayBeParsed(parse, mode, caseRule);
        }
        if (!wellFormed)
            continue;
        CheckWordsMakeUpTheText(text, delimiters, mode);
        CheckCaseIsFolded(text, delimiters, mode);
    }
}

void CheckKeyedWords(const Words& words)
{
    veldrane::Words keyed;
    for (const Word& word : words) {
        const bool taken = keyed.Contains(word.Text);
        try {
            keyed.Add(word.Text, word.Sequence, {}, word.Text);
            Require(!taken, "a key is taken once");
        } catch (const RuntimeError& error) {
            Require(taken && error.Number == error_number::kDuplicateKey, "a key that is free is taken");
        }
        Require(text::EqualFolded(keyed.Item(word.Text)->Text, word.Text), "a word is found under its key");
    }
}

std::string Replaced(std::string_view text, std::string_view find, std::string_view replacement)
{
    std::string result;
    while (!text.empty()) {
        const bool found = text.starts_with(find);
        result += found ? replacement : text.substr(0, 1);
        text.remove_prefix(found ? find.size() : 1);
    }
    return result;
}

void CheckReplaceText(std::string_view text, std::string_view find, std::string_view replacement)
{
    ScriptedMessages messages;
    const std::string result = ActiveParse::ReplaceText(text, find, replacement, messages);
    if (find.empty()) {
        Require(result.empty() && messages.Asked().size() == 1, "nothing to find is told and gives nothing");
        Require(messages.Asked()[0].Text == "You must provide text to find.", "nothing to find is told in these words");
        return;
    }
    Require(result == Replaced(text, find, replacement), "every occurrence is replaced, from the left");
    Require(messages.Asked().empty(), "replacing says nothing");
}

} // namespace
} // namespace veldrane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace veldrane;
    std::string_view text = testing::TextOf(data, size);
    const std::string_view delimiters = TakeField(text).substr(0, 512); // the program's own are a few letters
    const std::string_view find = TakeField(text);
    const std::string_view replacement = TakeField(text);
    CheckReplaceText(text, find, replacement);
    if (text.empty() || delimiters.empty())
        return 0;
    CheckParseText(text, delimiters);
    ActiveParse parse;
    CheckKeyedWords(parse.ParseText(text, delimiters, DelimiterMode::ByChar, CaseRule::Sensitive));
    return 0;
}
