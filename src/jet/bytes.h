#pragma once

#include "jet/refusal.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace veldrane::jet {

// Bytes of a file, whose numbers are little-endian. Whatever would be read beyond their end is refused as damage.
class Bytes
{
  public:
    explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

    [[nodiscard]] std::size_t Size() const { return bytes_.size(); }

    [[nodiscard]] std::string_view Slice(std::size_t at, std::size_t size) const
    {
        if (at > bytes_.size() || size > bytes_.size() - at)
            throw Damaged("something ends before its time");
        return bytes_.substr(at, size);
    }

    [[nodiscard]] std::uint8_t U8(std::size_t at) const { return static_cast<std::uint8_t>(Slice(at, 1)[0]); }
    [[nodiscard]] std::uint16_t U16(std::size_t at) const { return static_cast<std::uint16_t>(Number(at, 2)); }
    [[nodiscard]] std::uint32_t U32(std::size_t at) const { return static_cast<std::uint32_t>(Number(at, 4)); }
    [[nodiscard]] std::uint64_t U64(std::size_t at) const { return Number(at, 8); }

  private:
    [[nodiscard]] std::uint64_t Number(std::size_t at, std::size_t size) const
    {
        std::uint64_t number = 0;
        const std::string_view digits = Slice(at, size);
        for (std::size_t i = size; i > 0; --i)
            number = number << 8U | static_cast<std::uint8_t>(digits[i - 1]);
        return number;
    }

    std::string_view bytes_;
};

} // namespace veldrane::jet
