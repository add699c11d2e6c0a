#pragma once

#include "collections/keyed_collection.h"
#include "ports/messages.h"

#include <any>
#include <memory>
#include <string>
#include <string_view>

namespace veldrane {

// One token of a text.
struct Word
{
    std::string Text;
    long Sequence = 0; // its 1-based place among the tokens
    std::any UserData;
};

// The tokens of a text in their order, some of them keyed.
class Words : public KeyedCollection<Word, CollectionRules{.Extra = Extras::Clear}>
{
  public:
    // Appends a word, under the key unless that is empty. Throws RuntimeError 457 if the key is in use.
    std::shared_ptr<Word> Add(std::string_view text, long sequence, std::any userData = {}, std::string_view key = {});
};

enum class DelimiterMode
{
    Whole,  // the delimiters together are one separator
    ByChar, // each single character is a separator
};

enum class CaseRule
{
    Insensitive,
    Sensitive,
};

// Splits a text into words and replaces text.
class ActiveParse
{
  public:
    std::string Delimiters; // kept from call to call
    veldrane::Words Words;

    // Splits the text at the delimiters; empty pieces are dropped and take no number. An empty `delimiters` uses those
    // of the last call. Returns `Words`, made anew. Throws RuntimeError 1000 (no delimiters) or 1001 (no text), both
    // from the source "ActiveParse"; `Words` is then as it was.
    const veldrane::Words& ParseText(std::string_view text, std::string_view delimiters, DelimiterMode mode, CaseRule caseRule);

    // The text with every occurrence of `find` replaced, compared exactly. An empty `find` is answered with a message
    // and an empty text.
    [[nodiscard]] static std::string ReplaceText(std::string_view text, std::string_view find, std::string_view replaceWith, Messages& messages);
};

} // namespace veldrane
