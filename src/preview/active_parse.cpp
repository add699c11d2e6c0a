#include "preview/active_parse.h"

#include "text/case_folding.h"
#include "text/characters.h"
#include "text/runtime_error.h"
#include "text/strings.h"

#include <utility>

namespace veldrane {
namespace {

constexpr long kNoDelimiters = 1000;
constexpr long kNoText = 1001;

std::size_t FindDelimiter(std::string_view text, std::string_view delimiter, std::size_t from, CaseRule caseRule)
{
    return caseRule == CaseRule::Sensitive ? text.find(delimiter, from) : text::FindFolded(text, delimiter, from);
}

// The size of the stretch of `text` at `at` that equals `delimiter` without regard to case: a letter may take more
// bytes than its counterpart.
std::size_t MatchedSize(std::string_view text, std::string_view delimiter, std::size_t at)
{
    return text::Left(text.substr(at), text::Length(delimiter)).size();
}

bool IsOneOf(std::string_view character, std::string_view delimiters, CaseRule caseRule)
{
    for (std::size_t i = 0; i < delimiters.size(); i += text::CharacterSize(delimiters, i)) {
        const std::string_view delimiter = delimiters.substr(i, text::CharacterSize(delimiters, i));
        if (caseRule == CaseRule::Sensitive ? delimiter == character : text::EqualFolded(delimiter, character))
            return true;
    }
    return false;
}

void AddPiece(Words& words, std::string_view piece)
{
    if (!piece.empty())
        words.Add(piece, static_cast<long>(words.Count()) + 1);
}

void SplitWhole(Words& words, std::string_view text, std::string_view delimiter, CaseRule caseRule)
{
    std::size_t from = 0;
    for (std::size_t at = FindDelimiter(text, delimiter, from, caseRule); at != std::string_view::npos; at = FindDelimiter(text, delimiter, from, caseRule)) {
        AddPiece(words, text.substr(from, at - from));
        from = at + MatchedSize(text, delimiter, at);
    }
    AddPiece(words, text.substr(from));
}

void SplitByChar(Words& words, std::string_view text, std::string_view delimiters, CaseRule caseRule)
{
    std::size_t from = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t size = text::CharacterSize(text, at);
        if (IsOneOf(text.substr(at, size), delimiters, caseRule)) {
            AddPiece(words, text.substr(from, at - from));
            from = at + size;
        }
        at += size;
    }
    AddPiece(words, text.substr(from));
}

} // namespace

std::shared_ptr<Word> Words::Add(std::string_view text, long sequence, std::any userData, std::string_view key)
{
    return Insert(std::make_shared<Word>(Word{.Text = std::string(text), .Sequence = sequence, .UserData = std::move(userData)}), key);
}

const Words& ActiveParse::ParseText(std::string_view text, std::string_view delimiters, DelimiterMode mode, CaseRule caseRule)
{
    if (!delimiters.empty())
        Delimiters = delimiters;
    if (Delimiters.empty())
        throw RuntimeError(kNoDelimiters, "ActiveParse", "No Delimiters Set. Unable to parse text.");
    if (text.empty())
        throw RuntimeError(kNoText, "ActiveParse", "No text to parse.");
    // Apart from the words of the last call: the text may be one of them.
    veldrane::Words words;
    if (mode == DelimiterMode::Whole)
        SplitWhole(words, text, Delimiters, caseRule);
    else
        SplitByChar(words, text, Delimiters, caseRule);
    Words = std::move(words);
    return Words;
}

std::string ActiveParse::ReplaceText(std::string_view text, std::string_view find, std::string_view replaceWith, Messages& messages)
{
    if (find.empty()) {
        messages.Tell("", "You must provide text to find.");
        return {};
    }
    return text::ReplaceAll(text, find, replaceWith);
}

} // namespace veldrane
