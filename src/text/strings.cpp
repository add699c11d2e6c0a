#include "text/strings.h"

namespace veldrane::text {

std::string_view TrimLeft(std::string_view text)
{
    if (!text.starts_with(' '))
        return text;
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

std::string_view Trim(std::string_view text)
{
    text = TrimLeft(text);
    const std::size_t last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
}

std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement)
{
    if (find.empty())
        return std::string(text);
    std::string result;
    result.reserve(text.size());
    std::size_t from = 0;
    for (std::size_t at = text.find(find); at != std::string_view::npos; at = text.find(find, from)) {
        result.append(text.substr(from, at - from)).append(replacement);
        from = at + find.size();
    }
    return result.append(text.substr(from));
}

std::string Without(std::string_view text, std::string_view unwanted)
{
    std::string result;
    result.reserve(text.size());
    for (const char c : text)
        if (unwanted.find(c) == std::string_view::npos)
            result.push_back(c);
    return result;
}

std::vector<std::string_view> Split(std::string_view text, std::string_view separator)
{
    std::vector<std::string_view> pieces;
    std::size_t from = 0;
    for (std::size_t at = text.find(separator); at != std::string_view::npos; at = text.find(separator, from)) {
        pieces.push_back(text.substr(from, at - from));
        from = at + separator.size();
    }
    pieces.push_back(text.substr(from));
    return pieces;
}

void AppendSentence(std::string& text, std::string_view sentence)
{
    constexpr std::string_view kMarks = ".?!:;,";
    if (!text.empty())
        text += kMarks.find(text.back()) == std::string_view::npos ? ". " : " ";
    text += sentence;
}

bool LineStartsWith(std::string_view text, std::string_view prefix)
{
    const std::string_view line = TrimLeft(text);
    const std::string_view wanted = TrimLeft(prefix);
    // Most lines are told by their first letter.
    return wanted.empty() || (!line.empty() && line.front() == wanted.front() && line.starts_with(wanted));
}

bool StartsWithVowel(std::string_view text)
{
    return !text.empty() && std::string_view("AEIOUaeiou").find(text.front()) != std::string_view::npos;
}

bool StartsWithDigit(std::string_view text)
{
    return !text.empty() && text.front() >= '0' && text.front() <= '9';
}

} // namespace veldrane::text
