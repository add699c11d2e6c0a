#include "shell/platform/settings_notation.h"

#include "text/characters.h"

#include <charconv>
#include <cstdint>
#include <optional>

namespace veldrane::settings_notation {
namespace {

constexpr std::string_view kNumberMark = "dword:";
constexpr std::size_t kNumberDigits = 8;
constexpr std::string_view kHexadecimalDigits = "0123456789ABCDEF";
constexpr int kHexadecimal = 16;

template <class Number>
std::optional<Number> FromHexadecimal(std::string_view digits)
{
    Number number{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, kHexadecimal);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return number;
}

// The number's signed decimal text: colours and counts are signed 32-bit values everywhere else, too.
std::optional<std::string> ReadNumber(std::string_view notation)
{
    if (!notation.starts_with(kNumberMark) || notation.size() != kNumberMark.size() + kNumberDigits)
        return std::nullopt;
    const auto number = FromHexadecimal<std::uint32_t>(notation.substr(kNumberMark.size()));
    return number ? std::optional(std::to_string(static_cast<std::int32_t>(*number))) : std::nullopt;
}

// Nothing unless quotes stand at both ends and nowhere else, and every % leads two hexadecimal digits: a command line
// typed in by hand, with quotes of its own, is itself.
std::optional<std::string> ReadQuoted(std::string_view notation)
{
    if (notation.size() < 2 || !notation.starts_with('"') || notation.find('"', 1) != notation.size() - 1)
        return std::nullopt;
    const std::string_view inner = notation.substr(1, notation.size() - 2);
    std::string value;
    for (std::size_t at = 0; at < inner.size(); ++at) {
        if (inner[at] != '%') {
            value += inner[at];
            continue;
        }
        const auto code = FromHexadecimal<unsigned char>(inner.substr(at + 1, 2));
        if (!code || at + 2 >= inner.size())
            return std::nullopt;
        value += static_cast<char>(*code);
        at += 2;
    }
    return value;
}

std::string Quoted(std::string_view text, std::string_view escaped)
{
    std::string quoted = "\"";
    for (std::size_t at = 0; at < text.size();) {
        const std::string_view character = text.substr(at, text::CharacterSize(text, at));
        at += character.size();
        if (text::IsWellFormed(character) && !IsControl(character[0]) && escaped.find(character) == escaped.npos) {
            quoted += character;
            continue;
        }
        for (const char byte : character) {
            const auto code = static_cast<unsigned char>(byte);
            quoted += {'%', kHexadecimalDigits[code / 16], kHexadecimalDigits[code % 16]};
        }
    }
    return quoted += '"';
}

bool FitsALine(std::string_view text)
{
    for (const char byte : text)
        if (IsControl(byte))
            return false;
    return text::IsWellFormed(text) && Stripped(text) == text;
}

} // namespace

bool IsControl(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    return code < 0x20 || code == 0x7F;
}

std::string_view Stripped(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

std::string ReadValue(std::string_view notation)
{
    if (auto number = ReadNumber(notation))
        return *number;
    return ReadName(notation);
}

std::string WriteValue(std::string_view value)
{
    return FitsALine(value) && ReadValue(value) == value ? std::string(value) : Quoted(value, "\"%");
}

std::string ReadName(std::string_view notation)
{
    if (auto quoted = ReadQuoted(notation))
        return *quoted;
    return std::string(notation);
}

std::string WriteName(std::string_view name)
{
    const bool plain = !name.empty() && FitsALine(name) && ReadName(name) == name &&
                       name.find('=') == std::string_view::npos &&
                       std::string_view(";#[").find(name[0]) == std::string_view::npos;
    return plain ? std::string(name) : Quoted(name, "\"%=");
}

} // namespace veldrane::settings_notation
