#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace veldrane::jet {

// The two formats that the engine reads: that of versions 3.x and that of 4.0. They differ in the size of a page, in
// how text is stored, and in the places of almost everything.
enum class Version
{
    Jet3,
    Jet4,
};

// The number of bytes of a page; every file is made of whole ones.
[[nodiscard]] std::size_t PageSize(Version version);

// The number of bytes of a file's beginning that ReadHeaderPage wants, fewer if the file has no more.
inline constexpr std::size_t kHeaderBytes = 4096;

struct HeaderPage
{
    Version FileVersion = Version::Jet4;
    int CodePage = 0;     // of the text of a Jet 3 file; a Windows number
    std::string Password; // of the database, UTF-8; "" for a file that has none
};

// Reads the first page of a file. Throws Refusal: kNotJet for anything but a Jet file of the two versions, kAce for one
// of the later engine, kDamaged for a page that is cut off.
[[nodiscard]] HeaderPage ReadHeaderPage(std::string_view beginning);

// Throws Refusal(kPassword) unless the file has no password or the one given, which is compared letter by letter.
void CheckPassword(const HeaderPage& header, std::string_view given);

} // namespace veldrane::jet
