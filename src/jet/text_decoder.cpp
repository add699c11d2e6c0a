#include "jet/text_decoder.h"

#include "jet/bytes.h"
#include "text/characters.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <array>

namespace veldrane::jet {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Of Windows' identifiers of code pages: Japanese, Chinese and Korean, Johab, and those of the Macintosh.
constexpr std::array kTwoByteCodePages{932, 936, 949, 950, 1361, 10001, 10002, 10003, 10008};

bool HasTwoByteCharacters(int codePage)
{
    return std::find(kTwoByteCodePages.begin(), kTwoByteCodePages.end(), codePage) != kTwoByteCodePages.end();
}

text::CodePage CodePageOf(int number)
{
    try {
        return text::CodePage(number);
    } catch (const RuntimeError&) {
        return text::CodePage();
    }
}

constexpr bool IsHighHalf(char32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

constexpr bool IsLowHalf(char32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

std::string Utf16(const Bytes& bytes)
{
    std::string text;
    for (std::size_t at = 0; at < bytes.Size(); at += 2) {
        char32_t character = bytes.U16(at);
        if (IsHighHalf(character) && at + 4 <= bytes.Size() && IsLowHalf(bytes.U16(at + 2))) {
            at += 2;
            character = 0x10000 + ((character - 0xD800) << 10U) + (bytes.U16(at) - 0xDC00U);
        } else if (IsHighHalf(character) || IsLowHalf(character)) {
            character = kReplacement;
        }
        text::AppendCodePoint(text, character);
    }
    return text;
}

// The shorter form begins with FF FE. Then a byte stands for a character of its number, up to a zero byte; from there
// on two bytes stand for a unit of UTF-16, up to the next zero byte; and so on.
constexpr std::string_view kShortened = "\xFF\xFE";

std::string Lengthened(std::string_view bytes)
{
    std::string units;
    std::size_t unitSize = 1;
    for (std::size_t at = kShortened.size(); at < bytes.size();) {
        if (bytes[at] == '\0') {
            unitSize = 3 - unitSize;
            ++at;
            continue;
        }
        units += Bytes(bytes).Slice(at, unitSize);
        units.append(2 - unitSize, '\0');
        at += unitSize;
    }
    return units;
}

} // namespace

TextDecoder::TextDecoder(Version version, int codePage) : version_(version)
{
    if (version == Version::Jet4)
        return;
    if (!HasTwoByteCharacters(codePage)) {
        oneByte_ = CodePageOf(codePage);
        return;
    }
    twoBytes_.emplace(codePage);
    if (!twoBytes_->IsThere())
        throw Refusal(jet_answer::kCodePage, std::to_string(codePage));
}

std::string TextDecoder::TwoByteText(std::string_view bytes) const
{
    std::string text = twoBytes_->Convert(bytes);
    while (!bytes.empty()) {
        text::AppendCodePoint(text, kReplacement);
        bytes.remove_prefix(1);
        text += twoBytes_->Convert(bytes);
    }
    return text;
}

std::string TextDecoder::Name(std::string_view bytes) const
{
    if (version_ == Version::Jet4)
        return Utf16(Bytes(bytes));
    return oneByte_ ? oneByte_->Decode(bytes) : TwoByteText(bytes);
}

std::string TextDecoder::Value(std::string_view bytes) const
{
    if (version_ == Version::Jet4 && bytes.starts_with(kShortened))
        return Utf16(Bytes(Lengthened(bytes)));
    return Name(bytes);
}

} // namespace veldrane::jet
