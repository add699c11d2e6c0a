#include "support/tds_requests.h"

#include "support/tds_tokens.h"

#include <stdexcept>

namespace veldrane::testing {
namespace {

class Reader
{
  public:
    explicit Reader(std::string_view bytes) : rest_(bytes) {}

    std::string_view Take(std::size_t size)
    {
        if (size > rest_.size())
            throw std::out_of_range("A request ends too early.");
        const std::string_view taken = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return taken;
    }

    std::uint64_t Number(std::size_t size)
    {
        std::uint64_t number = 0;
        std::size_t shift = 0;
        for (const char c : Take(size)) {
            number |= std::uint64_t{static_cast<unsigned char>(c)} << shift;
            shift += 8;
        }
        return number;
    }

    std::string Name(std::size_t sizeOfCount) { return FromTdsText(Take(Number(sizeOfCount) * 2)); }

    [[nodiscard]] bool AtEnd() const { return rest_.empty(); }

  private:
    std::string_view rest_;
};

// Versions from 7.2 on put facts about the session in front of each request.
Reader BehindHeaders(std::string_view bytes, std::uint32_t version)
{
    Reader reader(bytes);
    if (version >= 0x72000000)
        reader.Take(reader.Number(4) - 4);
    return reader;
}

// A text of the login, whose place and length stand in its fixed part.
std::string FieldAt(std::string_view bytes, std::size_t at)
{
    const std::size_t place = Reader(bytes.substr(at)).Number(2);
    const std::size_t length = Reader(bytes.substr(at + 2)).Number(2);
    return std::string(Reader(bytes.substr(place)).Take(length * 2));
}

std::string Uncovered(std::string bytes)
{
    for (char& c : bytes) {
        const std::uint32_t covered = static_cast<unsigned char>(c) ^ 0xA5U;
        c = static_cast<char>((covered << 4U | covered >> 4U) & 0xFFU);
    }
    return bytes;
}

std::optional<std::string> ReadParameter(Reader& reader)
{
    constexpr std::uint64_t kText = 0xE7;
    constexpr std::uint64_t kNumber = 0x26;
    constexpr std::uint64_t kNoText = 0xFFFF;
    const std::uint64_t type = reader.Number(1);
    if (type == kNumber) {
        reader.Number(1);
        const std::size_t size = reader.Number(1);
        return size == 0 ? std::nullopt : std::optional(std::to_string(reader.Number(size)));
    }
    if (type != kText)
        throw std::invalid_argument("A parameter is of a type that the stand-in does not know.");
    reader.Take(7); // its greatest size and its collation
    const std::uint64_t size = reader.Number(2);
    return size == kNoText ? std::nullopt : std::optional(FromTdsText(reader.Take(size)));
}

} // namespace

std::optional<std::string> TdsCall::Find(const std::string& parameter) const
{
    const auto found = Parameters.find(parameter);
    return found == Parameters.end() ? std::nullopt : std::optional(found->second);
}

TdsLogin ReadTdsLogin(std::string_view bytes)
{
    return {.Version = static_cast<std::uint32_t>(Reader(bytes.substr(4)).Number(4)),
            .User = FromTdsText(FieldAt(bytes, 40)),
            .Password = FromTdsText(Uncovered(FieldAt(bytes, 44))),
            .Database = FromTdsText(FieldAt(bytes, 68))};
}

TdsCall ReadTdsCall(std::string_view bytes, std::uint32_t version)
{
    Reader reader = BehindHeaders(bytes, version);
    TdsCall call{.Procedure = reader.Name(2), .Parameters = {}};
    call.Procedure.erase(0, call.Procedure.rfind('.') + 1);
    reader.Number(2);
    while (!reader.AtEnd()) {
        const std::string name = reader.Name(1);
        reader.Number(1);
        if (std::optional<std::string> value = ReadParameter(reader))
            call.Parameters.emplace(name, std::move(*value));
    }
    return call;
}

std::string ReadTdsBatch(std::string_view bytes, std::uint32_t version)
{
    Reader reader = BehindHeaders(bytes, version);
    std::string units;
    while (!reader.AtEnd())
        units += reader.Take(1);
    return FromTdsText(units);
}

} // namespace veldrane::testing
