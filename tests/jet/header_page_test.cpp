#include "definition_bytes.h"

#include "jet/header_page.h"
#include "jet/refusal.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <limits>
#include <string>

namespace veldrane::jet {
namespace {

using testing::LittleEndian;

// What the engine mixes into bytes 0x18 to 0x97 of every file.
constexpr std::array<unsigned char, 128> kMask{
    0xB5, 0x6F, 0x03, 0x62, 0x61, 0x08, 0xC2, 0x55, 0xEB, 0xA9, 0x67, 0x72, 0x43, 0x3F, 0x00, 0x9C, 0x7A, 0x9F, 0x90,
    0xFF, 0x80, 0x9A, 0x31, 0xC5, 0x79, 0xBA, 0xED, 0x30, 0xBC, 0xDF, 0xCC, 0x9D, 0x63, 0xD9, 0xE4, 0xC3, 0x7B, 0x42,
    0xFB, 0x8A, 0xBC, 0x4E, 0x86, 0xFB, 0xEC, 0x37, 0x5D, 0x44, 0x9C, 0xFA, 0xC6, 0x5E, 0x28, 0xE6, 0x13, 0xB6, 0x8A,
    0x60, 0x54, 0x94, 0x7B, 0x36, 0xF5, 0x72, 0xDF, 0xB1, 0x77, 0xF4, 0x13, 0x43, 0xCF, 0xAF, 0xB1, 0x33, 0x34, 0x61,
    0x79, 0x5B, 0x92, 0xB5, 0x7C, 0x2A, 0x05, 0xF1, 0x7C, 0x99, 0x01, 0x1B, 0x98, 0xFD, 0x12, 0x4F, 0x4A, 0x94, 0x6C,
    0x3E, 0x60, 0x26, 0x5F, 0x95, 0xF8, 0xD0, 0x89, 0x24, 0x85, 0x67, 0xC6, 0x1F, 0x27, 0x44, 0xD2, 0xEE, 0xCF, 0x65,
    0xED, 0xFF, 0x07, 0xC7, 0x46, 0xA1, 0x78, 0x16, 0x0C, 0xED, 0xE9, 0x2D, 0x62, 0xD4,
};

struct Header
{
    Version FileVersion = Version::Jet4;
    std::string Password; // as it is stored, before it is mixed with the date
    double Created = 0;
    int CodePage = 1252;
};

void Put(std::string& page, std::size_t at, const std::string& bytes)
{
    page.replace(at, bytes.size(), bytes);
}

std::string MixedWith(std::string password, double created)
{
    password.resize(40);
    const std::string days = LittleEndian(static_cast<std::uint32_t>(static_cast<std::int32_t>(created)), 4);
    for (std::size_t i = 0; i < password.size(); ++i)
        password[i] = static_cast<char>(password[i] ^ days[i % 4]);
    return password;
}

std::string PageOf(const Header& header)
{
    const bool isJet3 = header.FileVersion == Version::Jet3;
    std::string page(isJet3 ? 2048 : 4096, '\0');
    Put(page, 4, "Standard Jet DB");
    page[0x14] = isJet3 ? '\0' : '\1';
    Put(page, 0x3C, LittleEndian(static_cast<std::uint64_t>(header.CodePage), 2));
    Put(page, 0x42, isJet3 ? header.Password : MixedWith(header.Password, header.Created));
    if (!isJet3)
        Put(page, 0x72, LittleEndian(std::bit_cast<std::uint64_t>(header.Created), 8));
    for (std::size_t i = 0; i < (isJet3 ? 126U : 128U); ++i)
        page[0x18 + i] = static_cast<char>(page[0x18 + i] ^ static_cast<char>(kMask[i]));
    return page;
}

std::string ReasonOf(const std::string& page)
{
    try {
        static_cast<void>(ReadHeaderPage(page));
    } catch (const Refusal& refusal) {
        return std::string(refusal.Reason());
    }
    return "read";
}

bool IsAccepted(const Header& header, const std::string& given)
{
    try {
        CheckPassword(ReadHeaderPage(PageOf(header)), given);
    } catch (const Refusal& refusal) {
        EXPECT_EQ(refusal.Reason(), "password");
        return false;
    }
    return true;
}

TEST(HeaderPage, TellsTheVersions)
{
    EXPECT_EQ(ReadHeaderPage(PageOf({.FileVersion = Version::Jet3})).FileVersion, Version::Jet3);
    EXPECT_EQ(ReadHeaderPage(PageOf({.FileVersion = Version::Jet4})).FileVersion, Version::Jet4);
    EXPECT_EQ(ReadHeaderPage(PageOf({.FileVersion = Version::Jet3, .CodePage = 1251})).CodePage, 1251);
}

TEST(HeaderPage, AnyPasswordOpensAFileThatHasNone)
{
    for (const Version version : {Version::Jet3, Version::Jet4}) {
        const Header header{.FileVersion = version, .Created = 38927.9};
        EXPECT_EQ(ReadHeaderPage(PageOf(header)).Password, "");
        EXPECT_TRUE(IsAccepted(header, ""));
        EXPECT_TRUE(IsAccepted(header, "anything"));
    }
}

TEST(HeaderPage, APasswordIsComparedLetterByLetter)
{
    using namespace std::string_literals;
    const Header jet3{.FileVersion = Version::Jet3, .Password = "geheim \xDF"};
    const Header jet4{.Password = "g\0e\0h\0e\0i\0m\0 \0\xDF\0"s, .Created = 38927.9};
    for (const Header& header : {jet3, jet4}) {
        EXPECT_EQ(ReadHeaderPage(PageOf(header)).Password, "geheim ß");
        EXPECT_TRUE(IsAccepted(header, "geheim ß"));
        for (const char* wrong : {"", "geheim", "Geheim ß", "geheim ss", "geheim ß ", "geheim \xDF"})
            EXPECT_FALSE(IsAccepted(header, wrong)) << wrong;
    }
}

TEST(HeaderPage, APasswordMayTakeAllOfItsPlace)
{
    using namespace std::string_literals;
    const Header jet3{.FileVersion = Version::Jet3, .Password = std::string(20, 'x')};
    EXPECT_TRUE(IsAccepted(jet3, std::string(20, 'x')));
    std::string units;
    for (int i = 0; i < 20; ++i)
        units += "\x17\x04"s;
    EXPECT_TRUE(IsAccepted({.Password = units, .Created = -3.5}, "ЗЗЗЗЗЗЗЗЗЗЗЗЗЗЗЗЗЗЗЗ"));
}

TEST(HeaderPage, OnlyTheTwoVersionsOfTheEngineAreRead)
{
    std::string page = PageOf({});
    page[0x14] = 2;
    EXPECT_EQ(ReasonOf(page), "not-jet");
    Put(page, 4, "Standard ACE DB");
    EXPECT_EQ(ReasonOf(page), "ace");
    for (const std::string& other : {std::string(), std::string("text"), std::string(20, '\0'), std::string(9000, 'x'),
                                     std::string("Standard Jet DB"), page.substr(0, 0x14)})
        EXPECT_EQ(ReasonOf(other), "not-jet") << other.size();
}

TEST(HeaderPage, APageThatIsCutOffIsDamaged)
{
    for (const Version version : {Version::Jet3, Version::Jet4}) {
        const std::string page = PageOf({.FileVersion = version});
        for (const std::size_t size : {std::size_t{0x15}, std::size_t{0x80}, page.size() - 1})
            EXPECT_EQ(ReasonOf(page.substr(0, size)), "damaged") << size;
        EXPECT_EQ(ReasonOf(page), "read");
    }
}

TEST(HeaderPage, ADateThatIsNoneIsDamage)
{
    // The mix with the password is made for another date, as there are no days of this one.
    std::string page = PageOf({});
    for (const double date :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1e300}) {
        std::string mixed = page;
        const std::string bytes = LittleEndian(std::bit_cast<std::uint64_t>(date), 8);
        for (std::size_t i = 0; i < bytes.size(); ++i)
            mixed[0x72 + i] = static_cast<char>(bytes[i] ^ static_cast<char>(kMask[0x72 - 0x18 + i]));
        EXPECT_EQ(ReasonOf(mixed), "damaged") << date;
    }
}

} // namespace
} // namespace veldrane::jet
