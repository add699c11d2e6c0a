#pragma once

#include "jet/header_page.h"
#include "jet/text_decoder.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane::jet {

// A row's values as they are stored, in the order of the column ids; none where the value is null.
using Cells = std::vector<std::optional<std::string_view>>;

// The access to a file of which everything else is made: pages, and the rows that stand on them. What can't be read,
// or is beyond the end of the file, throws Refusal(kDamaged).
class JetFile
{
  public:
    JetFile() = default;
    JetFile(const JetFile&) = delete;
    JetFile& operator=(const JetFile&) = delete;
    virtual ~JetFile() = default;

    [[nodiscard]] virtual Version FileVersion() const = 0;
    [[nodiscard]] virtual const TextDecoder& Text() const = 0;

    // The bytes of a page, deciphered.
    [[nodiscard]] virtual std::string Page(std::uint32_t number) = 0;

    // Calls `take` with each row of the table that is defined at the page, in the order of the pages. The cells live
    // until `take` returns; in the meantime it may read pages and stored values.
    virtual void ForEachRow(std::uint32_t definitionPage, const std::function<void(const Cells&)>& take) = 0;

    // What is stored apart from its row: the piece at a place, that is a page number times 256 and a number on the
    // page.
    [[nodiscard]] virtual std::string StoredPiece(std::uint32_t place) = 0;
};

} // namespace veldrane::jet
