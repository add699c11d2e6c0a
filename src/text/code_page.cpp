#include "text/code_page.h"

#include "text/characters.h"
#include "text/converter.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <utility>

namespace veldrane::text {
namespace {

constexpr int kByteCount = 256;
constexpr char32_t kAsciiCount = 128;

RuntimeError UnknownCodePage(int number)
{
    return {error_number::kInvalidCall, "CodePage",
            "The code page " + std::to_string(number) + " is not a single-byte code page that this system knows."};
}

// The character of one byte, or 0 where the code page assigns none. Two-byte code pages answer nothing for a lead
// byte, as an unassigned one does; `CodePage` tells them apart by their number of gaps.
char32_t CharacterOf(const Converter& converter, unsigned char byte)
{
    const char single = static_cast<char>(byte);
    std::string_view left(&single, 1);
    const std::string character = converter.Convert(left);
    return left.empty() && !character.empty() ? CodePoint(character, 0) : 0;
}

} // namespace

CodePage::CodePage(int number) : number_(number), characters_(kByteCount)
{
    const Converter converter(number);
    if (!converter.IsThere())
        throw UnknownCodePage(number);
    int gaps = 0;
    for (int byte = 0; byte < kByteCount; ++byte) {
        const char32_t character = CharacterOf(converter, static_cast<unsigned char>(byte));
        gaps += byte > 0 && character == 0 ? 1 : 0;
        characters_[static_cast<std::size_t>(byte)] = character == 0 ? static_cast<char32_t>(byte) : character;
    }
    // The sparsest Windows single-byte page (1255) leaves some twenty bytes out, the two-byte ones a hundred.
    constexpr int kMostGaps = 48;
    if (gaps > kMostGaps || characters_['A'] != U'A')
        throw UnknownCodePage(number);
    for (int byte = 0; byte < kByteCount; ++byte)
        bytes_.emplace_back(characters_[static_cast<std::size_t>(byte)], static_cast<unsigned char>(byte));
    std::sort(bytes_.begin(), bytes_.end());
    for (char32_t character = 0; character < kAsciiCount; ++character)
        holdsAscii_ = holdsAscii_ && characters_[character] == character;
}

std::string CodePage::Decode(std::string_view bytes) const
{
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::size_t same = SameInBoth(bytes);
        text.append(bytes.substr(0, same));
        bytes.remove_prefix(same);
        if (bytes.empty())
            break;
        AppendCodePoint(text, characters_[static_cast<unsigned char>(bytes.front())]);
        bytes.remove_prefix(1);
    }
    return text;
}

std::string CodePage::DecodeInPlace(std::string bytes) const
{
    return SameInBoth(bytes) == bytes.size() ? std::move(bytes) : Decode(bytes);
}

std::size_t CodePage::SameInBoth(std::string_view text) const
{
    return holdsAscii_ ? AsciiPrefix(text) : 0;
}

int CodePage::ByteOf(char32_t codePoint) const
{
    if (codePoint < 0x80 && characters_[codePoint] == codePoint)
        return static_cast<int>(codePoint);
    const auto found = std::lower_bound(bytes_.begin(), bytes_.end(), codePoint,
                                        [](const auto& entry, char32_t value) { return entry.first < value; });
    return found != bytes_.end() && found->first == codePoint ? found->second : -1;
}

int CodePage::ByteAt(std::string_view text, std::size_t size) const
{
    const bool malformed = size == 1 && static_cast<unsigned char>(text.front()) >= 0x80;
    return malformed ? -1 : ByteOf(CodePoint(text, 0));
}

CodePage::Encoded CodePage::Encode(std::string_view text) const
{
    Encoded encoded;
    encoded.Bytes.reserve(text.size());
    while (!text.empty()) {
        const std::size_t same = SameInBoth(text);
        encoded.Bytes.append(text.substr(0, same));
        text.remove_prefix(same);
        if (text.empty())
            break;
        const std::size_t size = CharacterSize(text, 0);
        const int byte = ByteAt(text, size);
        encoded.Lossy = encoded.Lossy || byte < 0;
        encoded.Bytes.push_back(byte < 0 ? '?' : static_cast<char>(byte));
        text.remove_prefix(size);
    }
    return encoded;
}

CodePage::Encoded CodePage::EncodeInPlace(std::string text) const
{
    return SameInBoth(text) == text.size() ? Encoded{.Bytes = std::move(text)} : Encode(text);
}

bool CodePage::Holds(std::string_view text) const
{
    for (text.remove_prefix(SameInBoth(text)); !text.empty(); text.remove_prefix(SameInBoth(text))) {
        const std::size_t size = CharacterSize(text, 0);
        if (ByteAt(text, size) < 0)
            return false;
        text.remove_prefix(size);
    }
    return true;
}

} // namespace veldrane::text
