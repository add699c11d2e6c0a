#include "definition_bytes.h"
#include "header_bytes.h"

#include "jet/header_page.h"
#include "jet/refusal.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <string>

namespace veldrane::jet {
namespace {

using testing::Header;
using testing::HeaderBytes;
using testing::kHeaderMask;
using testing::LittleEndian;
using testing::Put;

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
        CheckPassword(ReadHeaderPage(HeaderBytes(header)), given);
    } catch (const Refusal& refusal) {
        EXPECT_EQ(refusal.Reason(), "password");
        return false;
    }
    return true;
}

TEST(HeaderPage, TellsTheVersions)
{
    EXPECT_EQ(ReadHeaderPage(HeaderBytes({.FileVersion = Version::Jet3})).FileVersion, Version::Jet3);
    EXPECT_EQ(ReadHeaderPage(HeaderBytes({.FileVersion = Version::Jet4})).FileVersion, Version::Jet4);
    EXPECT_EQ(ReadHeaderPage(HeaderBytes({.FileVersion = Version::Jet3, .CodePage = 1251})).CodePage, 1251);
}

TEST(HeaderPage, AnyPasswordOpensAFileThatHasNone)
{
    for (const Version version : {Version::Jet3, Version::Jet4}) {
        const Header header{.FileVersion = version, .Created = 38927.9};
        EXPECT_EQ(ReadHeaderPage(HeaderBytes(header)).Password, "");
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
        EXPECT_EQ(ReadHeaderPage(HeaderBytes(header)).Password, "geheim ß");
        EXPECT_TRUE(IsAccepted(header, "geheim ß"));
        for (const char* wrong : {"", "geheim", "Geheim ß", "geheim ss", "geheim ß ", "geheim \xDF"})
            EXPECT_FALSE(IsAccepted(header, wrong)) << wrong;
    }
}

TEST(HeaderPage, TheCodePageOfAFileIsNotThatOfItsPassword)
{
    for (const int codePage : {1251, 932, 10001})
        EXPECT_TRUE(
            IsAccepted({.FileVersion = Version::Jet3, .Password = "geheim \xDF", .CodePage = codePage}, "geheim ß"))
            << codePage;
    EXPECT_EQ(ReadHeaderPage(HeaderBytes({.FileVersion = Version::Jet3, .Password = "\x80\xFF"})).Password, "\u0080ÿ");
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
    std::string page = HeaderBytes({});
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
        const std::string page = HeaderBytes({.FileVersion = version});
        for (const std::size_t size : {std::size_t{0x15}, std::size_t{0x80}, page.size() - 1})
            EXPECT_EQ(ReasonOf(page.substr(0, size)), "damaged") << size;
        EXPECT_EQ(ReasonOf(page), "read");
    }
}

TEST(HeaderPage, ADateThatIsNoneIsDamage)
{
    // The mix with the password is made for another date, as there are no days of this one.
    std::string page = HeaderBytes({});
    for (const double date :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1e300}) {
        std::string mixed = page;
        const std::string bytes = LittleEndian(std::bit_cast<std::uint64_t>(date), 8);
        for (std::size_t i = 0; i < bytes.size(); ++i)
            mixed[0x72 + i] = static_cast<char>(bytes[i] ^ static_cast<char>(kHeaderMask[0x72 - 0x18 + i]));
        EXPECT_EQ(ReasonOf(mixed), "damaged") << date;
    }
}

} // namespace
} // namespace veldrane::jet
