#include "header_bytes.h"

#include "definition_bytes.h"

#include <bit>
#include <cstdint>

namespace veldrane::testing {
namespace {

std::string MixedWith(std::string password, double created)
{
    password.resize(40);
    const std::string days = LittleEndian(static_cast<std::uint32_t>(static_cast<std::int32_t>(created)), 4);
    for (std::size_t i = 0; i < password.size(); ++i)
        password[i] = static_cast<char>(password[i] ^ days[i % 4]);
    return password;
}

} // namespace

std::string HeaderBytes(const Header& header)
{
    const bool isJet3 = header.FileVersion == jet::Version::Jet3;
    std::string page(isJet3 ? 2048 : 4096, '\0');
    Put(page, 4, "Standard Jet DB");
    page[0x14] = isJet3 ? '\0' : '\1';
    Put(page, 0x3C, LittleEndian(static_cast<std::uint64_t>(header.CodePage), 2));
    Put(page, 0x42, isJet3 ? header.Password : MixedWith(header.Password, header.Created));
    if (!isJet3)
        Put(page, 0x72, LittleEndian(std::bit_cast<std::uint64_t>(header.Created), 8));
    for (std::size_t i = 0; i < (isJet3 ? 126U : 128U); ++i)
        page[0x18 + i] = static_cast<char>(page[0x18 + i] ^ static_cast<char>(kHeaderMask[i]));
    return page;
}

} // namespace veldrane::testing
