#pragma once

#include "jet/definition.h"
#include "jet/jet_file.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace veldrane::jet {

// A row of a system table, its values asked for by the names of the columns. A null value is 0 or "". Throws
// Refusal(kDamaged) for a column that the table does not have, and for a value that is not of the type asked for.
class Record
{
  public:
    Record(JetFile& file, const TableDefinition& table, const Cells& cells) : file_(file), table_(table), cells_(cells)
    {}

    // Of a column of one, two or four bytes.
    [[nodiscard]] std::int32_t Number(std::string_view column) const;

    [[nodiscard]] std::string Text(std::string_view column) const;

    // The bytes themselves, of a column that holds them in its row.
    [[nodiscard]] std::string Binary(std::string_view column) const;

    // Of a memo column, and the bytes of one of long binary values: a place of 12 bytes stands in the row, and the
    // value behind it or elsewhere in the file.
    [[nodiscard]] std::string Memo(std::string_view column) const;
    [[nodiscard]] std::string LongBinary(std::string_view column) const;

  private:
    [[nodiscard]] std::string_view Cell(std::string_view column) const;

    JetFile& file_;
    const TableDefinition& table_;
    const Cells& cells_;
};

// Calls `take` with each row of the table that is defined at the page. Throws Refusal(kDamaged) also if there are fewer
// rows than the definition counts, so that nothing is told from half a table.
void ForEachRecord(JetFile& file, std::uint32_t definitionPage, const std::function<void(const Record&)>& take);

} // namespace veldrane::jet
