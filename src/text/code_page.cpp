#include "text/code_page.h"

#include "text/characters.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <iconv.h>

namespace veldrane::text {
namespace {

constexpr int kByteCount = 256;

// POSIX says that iconv_open answers this value on failure.
const iconv_t kNoConverter = reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr)

RuntimeError UnknownCodePage(int number)
{
    return {error_number::kInvalidCall, "CodePage",
            "The code page " + std::to_string(number) + " is not a single-byte code page that this system knows."};
}

// The character of one byte, or 0 where the code page assigns none. Two-byte code pages answer nothing for a lead
// byte, as an unassigned one does; `CodePage` tells them apart by their number of gaps.
char32_t CharacterOf(iconv_t converter, unsigned char byte)
{
    char in = static_cast<char>(byte);
    std::string out(8, '\0');
    char* source = &in;
    char* target = out.data();
    std::size_t sourceLeft = 1;
    std::size_t targetLeft = out.size();
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    if (iconv(converter, &source, &sourceLeft, &target, &targetLeft) == static_cast<std::size_t>(-1))
        return 0;
    // Some code pages hold a letter back, because a mark may follow that joins it.
    iconv(converter, nullptr, nullptr, &target, &targetLeft);
    return targetLeft == out.size() ? 0 : CodePoint(out, 0);
}

} // namespace

CodePage::CodePage(int number) : number_(number), characters_(kByteCount)
{
    const iconv_t converter = iconv_open("UTF-8", ("CP" + std::to_string(number)).c_str());
    if (converter == kNoConverter)
        throw UnknownCodePage(number);
    int gaps = 0;
    for (int byte = 0; byte < kByteCount; ++byte) {
        const char32_t character = CharacterOf(converter, static_cast<unsigned char>(byte));
        gaps += byte > 0 && character == 0 ? 1 : 0;
        characters_[static_cast<std::size_t>(byte)] = character == 0 ? static_cast<char32_t>(byte) : character;
    }
    iconv_close(converter);
    // The sparsest Windows single-byte page (1255) leaves some twenty bytes out, the two-byte ones a hundred.
    constexpr int kMostGaps = 48;
    if (gaps > kMostGaps || characters_['A'] != U'A')
        throw UnknownCodePage(number);
    for (int byte = 0; byte < kByteCount; ++byte)
        bytes_.emplace_back(characters_[static_cast<std::size_t>(byte)], static_cast<unsigned char>(byte));
    std::sort(bytes_.begin(), bytes_.end());
}

std::string CodePage::Decode(std::string_view bytes) const
{
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes)
        AppendCodePoint(text, characters_[static_cast<unsigned char>(byte)]);
    return text;
}

int CodePage::ByteOf(char32_t codePoint) const
{
    if (codePoint < 0x80 && characters_[codePoint] == codePoint)
        return static_cast<int>(codePoint);
    const auto found = std::lower_bound(bytes_.begin(), bytes_.end(), codePoint,
                                        [](const auto& entry, char32_t value) { return entry.first < value; });
    return found != bytes_.end() && found->first == codePoint ? found->second : -1;
}

CodePage::Encoded CodePage::Encode(std::string_view text) const
{
    Encoded encoded;
    encoded.Bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); i += CharacterSize(text, i)) {
        const bool malformed = CharacterSize(text, i) == 1 && static_cast<unsigned char>(text[i]) >= 0x80;
        const int byte = malformed ? -1 : ByteOf(CodePoint(text, i));
        encoded.Lossy = encoded.Lossy || byte < 0;
        encoded.Bytes.push_back(byte < 0 ? '?' : static_cast<char>(byte));
    }
    return encoded;
}

bool CodePage::Holds(std::string_view text) const
{
    return !Encode(text).Lossy;
}

} // namespace veldrane::text
