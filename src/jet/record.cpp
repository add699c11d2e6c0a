#include "jet/record.h"

#include "jet/bytes.h"

#include <algorithm>

// The place of a long value: its length and where it stands (4), the place of its piece or its first one (4), four
// bytes of no use here; then the value itself if it stands here. Of several pieces each begins with the place of the
// next, 0 for none.
namespace veldrane::jet {
namespace {

constexpr std::uint32_t kStandsHere = 0x80000000;
constexpr std::uint32_t kIsOnePiece = 0x40000000;
constexpr std::uint32_t kLengthBits = 0x3FFFFFFF;
constexpr std::size_t kPlaceSize = 12;
constexpr std::size_t kNextSize = 4;

std::string JoinPieces(JetFile& file, std::uint32_t first, std::size_t length)
{
    std::string joined;
    for (std::uint32_t place = first; place != 0 && joined.size() < length;) {
        const std::string piece = file.StoredPiece(place);
        if (piece.size() <= kNextSize)
            throw Damaged("a long value has an empty piece");
        place = Bytes(piece).U32(0);
        joined += std::string_view(piece).substr(kNextSize);
    }
    return joined;
}

std::string ReadLongValue(JetFile& file, std::string_view cell)
{
    const Bytes place(cell);
    const std::uint32_t header = place.U32(0);
    const std::size_t length = header & kLengthBits;
    if ((header & kStandsHere) != 0)
        return std::string(place.Slice(kPlaceSize, length));
    const std::uint32_t first = place.U32(4);
    const std::string stored = (header & kIsOnePiece) != 0 ? file.StoredPiece(first) : JoinPieces(file, first, length);
    return std::string(Bytes(stored).Slice(0, length));
}

} // namespace

std::string_view Record::Cell(std::string_view column) const
{
    const auto found = std::find_if(table_.Columns.begin(), table_.Columns.end(),
                                    [&](const ColumnDefinition& definition) { return definition.Name == column; });
    const auto place = static_cast<std::size_t>(found - table_.Columns.begin());
    if (place >= cells_.size())
        throw Damaged("a system table lacks the column " + std::string(column));
    return cells_[place].value_or("");
}

std::int32_t Record::Number(std::string_view column) const
{
    const Bytes cell(Cell(column));
    switch (cell.Size()) {
    case 0:
        return 0;
    case 1:
        return cell.U8(0);
    case 2:
        return static_cast<std::int16_t>(cell.U16(0));
    default:
        return static_cast<std::int32_t>(cell.U32(0));
    }
}

std::string Record::Text(std::string_view column) const
{
    return file_.Text().Value(Cell(column));
}

std::string Record::Binary(std::string_view column) const
{
    return std::string(Cell(column));
}

std::string Record::Memo(std::string_view column) const
{
    return file_.Text().Value(LongBinary(column));
}

std::string Record::LongBinary(std::string_view column) const
{
    const std::string_view cell = Cell(column);
    return cell.empty() ? "" : ReadLongValue(file_, cell);
}

void ForEachRecord(JetFile& file, std::uint32_t definitionPage, const std::function<void(const Record&)>& take)
{
    const TableDefinition table = ReadDefinition(file, definitionPage);
    std::uint32_t count = 0;
    file.ForEachRow(definitionPage, [&](const Cells& cells) {
        ++count;
        take(Record(file, table, cells));
    });
    if (count < table.RowCount)
        throw Damaged("a system table has lost rows");
}

} // namespace veldrane::jet
