#include "editors/sample_format.h"
#include "text/characters.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

namespace veldrane {
namespace {

constexpr std::string_view kMarks = "@&<>!";
constexpr std::string_view kPlain = "$()+-/.:, ";

enum class Letters
{
    AsTyped,
    Upper,
    Lower,
};

struct TextPattern
{
    std::string Places; // without the marks that stand for no place
    Letters Case = Letters::AsTyped;
    bool FromLeft = false;
};

std::optional<TextPattern> Parse(std::string_view format)
{
    if (format.find_first_of(kMarks) == std::string_view::npos ||
        format.find_first_not_of(std::string(kMarks).append(kPlain)) != std::string_view::npos)
        return std::nullopt;
    TextPattern pattern;
    for (const char c : format)
        if (c == '>')
            pattern.Case = Letters::Upper;
        else if (c == '<')
            pattern.Case = Letters::Lower;
        else if (c == '!')
            pattern.FromLeft = true;
        else
            pattern.Places += c;
    return pattern;
}

// Plain letters alone change their case.
std::string Cased(std::string_view text, Letters letters)
{
    std::string cased(text);
    for (char& c : cased) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80 && letters != Letters::AsTyped)
            c = static_cast<char>(letters == Letters::Upper ? std::toupper(byte) : std::tolower(byte));
    }
    return cased;
}

std::vector<std::string_view> Characters(std::string_view text)
{
    std::vector<std::string_view> characters;
    for (std::size_t at = 0; at < text.size(); at += characters.back().size())
        characters.push_back(text.substr(at, text::CharacterSize(text, at)));
    return characters;
}

bool IsPlace(char c)
{
    return c == '@' || c == '&';
}

// Characters that find no place stand before the first one, or behind the last where they are filled from the left.
std::string Filled(std::string_view text, const TextPattern& pattern)
{
    const std::vector<std::string_view> characters = Characters(text);
    const auto places = static_cast<std::size_t>(std::count_if(pattern.Places.begin(), pattern.Places.end(), IsPlace));
    if (places == 0)
        return std::string(text) + pattern.Places;
    const std::size_t spare = characters.size() > places ? characters.size() - places : 0;
    const std::size_t gaps = places > characters.size() ? places - characters.size() : 0;
    std::size_t place = 0;
    std::size_t next = 0;
    std::string filled;
    for (const char c : pattern.Places) {
        if (!IsPlace(c)) {
            filled += c;
            continue;
        }
        const bool isGap = pattern.FromLeft ? place >= places - gaps : place < gaps;
        const std::size_t count = 1 + (place == (pattern.FromLeft ? places - 1 : 0) ? spare : 0);
        ++place;
        if (isGap) {
            filled += c == '@' ? " " : "";
            continue;
        }
        for (const std::size_t end = next + count; next < end; ++next)
            filled += characters[next];
    }
    return filled;
}

} // namespace

std::optional<std::string> FormattedText(std::string_view text, std::string_view format)
{
    const std::optional<TextPattern> pattern = Parse(format);
    if (!pattern)
        return std::nullopt;
    return Filled(Cased(text, pattern->Case), *pattern);
}

} // namespace veldrane
