#include "datasource/odbc/utf16.h"

#include "text/characters.h"

namespace veldrane {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstSupplementary = 0x10000;

bool IsHigh(char16_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLow(char16_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void Append(std::u16string& result, char32_t codePoint)
{
    if (codePoint < kFirstSupplementary) {
        result.push_back(static_cast<char16_t>(codePoint));
        return;
    }
    const char32_t offset = codePoint - kFirstSupplementary;
    result.push_back(static_cast<char16_t>(0xD800 + (offset >> 10)));
    result.push_back(static_cast<char16_t>(0xDC00 + (offset & 0x3FF)));
}

} // namespace

std::u16string ToUtf16(std::string_view text)
{
    const std::string whole = text::WellFormed(text);
    std::u16string result;
    result.reserve(whole.size());
    for (std::size_t at = 0; at < whole.size(); at += text::CharacterSize(whole, at))
        Append(result, text::CodePoint(whole, at));
    return result;
}

std::string FromUtf16(std::u16string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (unit < 0x80) // nearly every letter of a name
            result.push_back(static_cast<char>(unit));
        else if (IsHigh(unit) && at + 1 < text.size() && IsLow(text[at + 1]))
            text::AppendCodePoint(result, kFirstSupplementary + ((unit & 0x3FFU) << 10) + (text[++at] & 0x3FFU));
        else
            text::AppendCodePoint(result, IsHigh(unit) || IsLow(unit) ? kReplacement : unit);
    }
    return result;
}

} // namespace veldrane
