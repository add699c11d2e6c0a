#include "jet/header_page.h"

#include "jet/bytes.h"
#include "jet/text_decoder.h"
#include "text/characters.h"

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>
#include <utility>

// What stands in the page, the places as they are in both versions:
//
//   0x04  signature        15 bytes
//   0x14  version          0 Jet 3, 1 Jet 4
//   0x18  what follows is enciphered, 126 bytes in Jet 3, 128 in Jet 4, with a key that all files share
//   0x3C  code page        2 bytes
//   0x42  password         20 bytes of Latin-1 in Jet 3; 40 of UTF-16 in Jet 4, each four mixed with the whole days of
//   0x72  date of creation 8 bytes, a double
namespace veldrane::jet {
namespace {

constexpr std::size_t kSignature = 0x04;
constexpr std::string_view kJetSignature = "Standard Jet DB";
constexpr std::string_view kAceSignature = "Standard ACE DB";
constexpr std::size_t kVersion = 0x14;
constexpr std::size_t kEnciphered = 0x18;
constexpr std::size_t kCodePage = 0x3C;
constexpr std::size_t kPassword = 0x42;
constexpr std::size_t kCreated = 0x72;

constexpr std::string_view kKey = "\xC7\xDA\x39\x6B";

// RC4: enciphers and deciphers alike.
std::string Deciphered(std::string_view bytes, std::string_view key)
{
    std::array<std::uint8_t, 256> state{};
    std::iota(state.begin(), state.end(), std::uint8_t{0});
    std::uint8_t j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = static_cast<std::uint8_t>(j + state[i] + static_cast<std::uint8_t>(key[i % key.size()]));
        std::swap(state[i], state[j]);
    }
    std::string plain;
    std::uint8_t i = 0;
    j = 0;
    for (const char byte : bytes) {
        j = static_cast<std::uint8_t>(j + state[++i]);
        std::swap(state[i], state[j]);
        const std::uint8_t mask = state[static_cast<std::uint8_t>(state[i] + state[j])];
        plain += static_cast<char>(static_cast<std::uint8_t>(byte) ^ mask);
    }
    return plain;
}

Version VersionOf(const Bytes& page)
{
    const bool holdsSignature = page.Size() > kVersion;
    const std::string_view signature = holdsSignature ? page.Slice(kSignature, kJetSignature.size()) : "";
    if (signature == kAceSignature)
        throw Refusal(jet_answer::kAce);
    if (signature != kJetSignature || page.U8(kVersion) > 1)
        throw Refusal(jet_answer::kNotJet);
    return page.U8(kVersion) == 0 ? Version::Jet3 : Version::Jet4;
}

std::string UpToNul(const std::string& text)
{
    return text.substr(0, text.find('\0'));
}

std::uint32_t PasswordMask(const Bytes& header)
{
    const double created = std::bit_cast<double>(header.U64(kCreated));
    if (!(std::abs(created) < std::numeric_limits<std::int32_t>::max()))
        throw Damaged("the date of its creation is none");
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(created));
}

std::string Jet3Password(const Bytes& header)
{
    std::string password;
    for (const char byte : header.Slice(kPassword, 20))
        text::AppendCodePoint(password, static_cast<unsigned char>(byte));
    return password;
}

std::string Jet4Password(const Bytes& header)
{
    const std::uint32_t mask = PasswordMask(header);
    std::string password(header.Slice(kPassword, 40));
    for (std::size_t i = 0; i < password.size(); ++i)
        password[i] = static_cast<char>(static_cast<std::uint8_t>(password[i]) ^ (mask >> (8 * (i % 4)) & 0xFFU));
    return TextDecoder(Version::Jet4, 0).Name(password);
}

} // namespace

std::size_t PageSize(Version version)
{
    return version == Version::Jet3 ? 2048 : 4096;
}

HeaderPage ReadHeaderPage(std::string_view beginning)
{
    HeaderPage header{.FileVersion = VersionOf(Bytes(beginning))};
    const bool isJet3 = header.FileVersion == Version::Jet3;
    std::string page(Bytes(beginning).Slice(0, PageSize(header.FileVersion)));
    const std::size_t size = isJet3 ? 126 : 128;
    page.replace(kEnciphered, size, Deciphered(std::string_view(page).substr(kEnciphered, size), kKey));

    const Bytes plain(page);
    header.CodePage = plain.U16(kCodePage);
    header.Password = UpToNul(isJet3 ? Jet3Password(plain) : Jet4Password(plain));
    return header;
}

void CheckPassword(const HeaderPage& header, std::string_view given)
{
    if (!header.Password.empty() && header.Password != given)
        throw Refusal(jet_answer::kPassword);
}

} // namespace veldrane::jet
