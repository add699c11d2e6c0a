#include "text/characters.h"

#include <cstdint>
#include <cstring>

namespace veldrane::text {
namespace {

bool IsContinuation(unsigned char byte)
{
    return (byte & 0xC0U) == 0x80U;
}

// The size of the well-formed sequence at `position`, or 0. Overlong forms, surrogates and values above U+10FFFF are
// not well-formed (RFC 3629).
std::size_t SequenceSize(std::string_view text, std::size_t position)
{
    const auto at = [&](std::size_t offset) { return static_cast<unsigned char>(text[position + offset]); };
    const std::size_t left = text.size() - position;
    const unsigned char lead = at(0);
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return left >= 2 && IsContinuation(at(1)) ? 2 : 0;
    if (lead >= 0xE0 && lead <= 0xEF) {
        if (left < 3 || !IsContinuation(at(1)) || !IsContinuation(at(2)))
            return 0;
        const bool overlong = lead == 0xE0 && at(1) < 0xA0;
        const bool surrogate = lead == 0xED && at(1) > 0x9F;
        return overlong || surrogate ? 0 : 3;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        if (left < 4 || !IsContinuation(at(1)) || !IsContinuation(at(2)) || !IsContinuation(at(3)))
            return 0;
        const bool overlong = lead == 0xF0 && at(1) < 0x90;
        const bool tooLarge = lead == 0xF4 && at(1) > 0x8F;
        return overlong || tooLarge ? 0 : 4;
    }
    return 0;
}

} // namespace

std::size_t CharacterSize(std::string_view text, std::size_t position)
{
    const std::size_t size = SequenceSize(text, position);
    return size == 0 ? 1 : size;
}

std::size_t AsciiPrefix(std::string_view text)
{
    // Eight bytes at once, as long as none of them has its top bit set.
    constexpr std::uint64_t kTopBits = 0x8080808080808080;
    std::size_t end = 0;
    for (std::uint64_t eight = 0; text.size() - end >= sizeof(eight); end += sizeof(eight)) {
        std::memcpy(&eight, text.data() + end, sizeof(eight));
        if ((eight & kTopBits) != 0)
            break;
    }
    while (end < text.size() && static_cast<unsigned char>(text[end]) < 0x80)
        ++end;
    return end;
}

std::size_t Length(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); i += CharacterSize(text, i))
        ++count;
    return count;
}

std::string_view Left(std::string_view text, std::size_t count)
{
    std::size_t end = 0;
    while (count > 0 && end < text.size()) {
        end += CharacterSize(text, end);
        --count;
    }
    return text.substr(0, end);
}

std::string_view From(std::string_view text, std::size_t start)
{
    return text.substr(Left(text, start == 0 ? 0 : start - 1).size());
}

bool IsWellFormed(std::string_view text)
{
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t size = SequenceSize(text, i);
        if (size == 0)
            return false;
        i += size;
    }
    return true;
}

std::string WellFormed(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t size = SequenceSize(text, i);
        if (size == 0) {
            AppendCodePoint(result, 0xFFFD);
            ++i;
        } else {
            result.append(text.substr(i, size));
            i += size;
        }
    }
    return result;
}

char32_t CodePoint(std::string_view text, std::size_t position)
{
    const auto bits = [&](std::size_t offset, unsigned mask) {
        return static_cast<char32_t>(static_cast<unsigned char>(text[position + offset]) & mask);
    };
    switch (SequenceSize(text, position)) {
    case 2:
        return (bits(0, 0x1F) << 6) | bits(1, 0x3F);
    case 3:
        return (bits(0, 0x0F) << 12) | (bits(1, 0x3F) << 6) | bits(2, 0x3F);
    case 4:
        return (bits(0, 0x07) << 18) | (bits(1, 0x3F) << 12) | (bits(2, 0x3F) << 6) | bits(3, 0x3F);
    default:
        return bits(0, 0xFF);
    }
}

void AppendCodePoint(std::string& text, char32_t codePoint)
{
    const auto put = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (codePoint < 0x80) {
        put(codePoint);
    } else if (codePoint < 0x800) {
        put(0xC0 | (codePoint >> 6));
        put(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        put(0xE0 | (codePoint >> 12));
        put(0x80 | ((codePoint >> 6) & 0x3F));
        put(0x80 | (codePoint & 0x3F));
    } else {
        put(0xF0 | (codePoint >> 18));
        put(0x80 | ((codePoint >> 12) & 0x3F));
        put(0x80 | ((codePoint >> 6) & 0x3F));
        put(0x80 | (codePoint & 0x3F));
    }
}

} // namespace veldrane::text
