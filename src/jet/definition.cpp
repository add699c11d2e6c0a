#include "jet/definition.h"

#include "jet/bytes.h"

#include <algorithm>
#include <string_view>
#include <utility>

// A definition is made of these parts, one behind the other. It begins with the whole first page of its chain and goes
// on behind the page header of each other one.
//
//   page header          8 bytes: 2, 1, two of no use here, number of the next page
//   counts               rows, ids given to columns, columns, logical indexes, stored indexes
//   index statistics     an entry a stored index
//   columns              an entry a column
//   names of columns     length, name
//   stored indexes       an entry each: ten times column id (FFFF: none) and direction; flags
//   logical indexes      an entry each: place of the stored index, page of a related table, type
//   names of these       length, name
namespace veldrane::jet {
namespace {

constexpr std::uint8_t kDefinitionPage = 2;
constexpr std::size_t kNextPageAt = 4;
constexpr std::size_t kPageHeader = 8;

// 255 columns and 32 indexes with names of 64 characters each fill 15 pages of Jet 4; logical indexes that
// relationships have add to that.
constexpr int kPagesAtMost = 64;
constexpr std::size_t kColumnsAtMost = 255;

constexpr int kYesNo = 1; // a type whose values stand nowhere but among the marks of nulls

constexpr std::size_t kKeyColumns = 10;
constexpr std::uint16_t kNoColumn = 0xFFFF;
constexpr std::uint8_t kUniqueFlag = 0x01;

constexpr std::uint8_t kPrimaryIndex = 1;
constexpr std::uint8_t kRelationshipIndex = 2;

struct Layout
{
    std::size_t RowsAt, IdsAt, ColumnsAt, LogicalAt, StoredAt, StatisticsAt;
    std::size_t StatisticsEntry;
    std::size_t ColumnEntry, IdAt, NumberAt, FlagsAt, OffsetAt, SizeAt;
    std::size_t NameLength;
    std::size_t StoredEntry, KeyAt, StoredFlagsAt;
    std::size_t LogicalEntry, PlaceAt, RelatedAt, TypeAt;
};

constexpr Layout kJet3Layout{
    .RowsAt = 12,
    .IdsAt = 21,
    .ColumnsAt = 25,
    .LogicalAt = 27,
    .StoredAt = 31,
    .StatisticsAt = 43,
    .StatisticsEntry = 8,
    .ColumnEntry = 18,
    .IdAt = 1,
    .NumberAt = 3,
    .FlagsAt = 13,
    .OffsetAt = 14,
    .SizeAt = 16,
    .NameLength = 1,
    .StoredEntry = 39,
    .KeyAt = 0,
    .StoredFlagsAt = 38,
    .LogicalEntry = 20,
    .PlaceAt = 4,
    .RelatedAt = 13,
    .TypeAt = 19,
};

constexpr Layout kJet4Layout{
    .RowsAt = 16,
    .IdsAt = 41,
    .ColumnsAt = 45,
    .LogicalAt = 47,
    .StoredAt = 51,
    .StatisticsAt = 63,
    .StatisticsEntry = 12,
    .ColumnEntry = 25,
    .IdAt = 5,
    .NumberAt = 7,
    .FlagsAt = 15,
    .OffsetAt = 21,
    .SizeAt = 23,
    .NameLength = 2,
    .StoredEntry = 52,
    .KeyAt = 4,
    .StoredFlagsAt = 46,
    .LogicalEntry = 28,
    .PlaceAt = 8,
    .RelatedAt = 17,
    .TypeAt = 23,
};

std::string ReadChain(JetFile& file, std::uint32_t firstPage)
{
    std::string chain;
    std::uint32_t next = firstPage;
    for (int pages = 0; pages == 0 || next != 0; ++pages) {
        if (pages == kPagesAtMost)
            throw Damaged("a table's definition has no end");
        const std::string page = file.Page(next);
        if (Bytes(page).U8(0) != kDefinitionPage)
            throw Damaged("a table's definition is not where it should be");
        next = Bytes(page).U32(kNextPageAt);
        chain += std::string_view(page).substr(chain.empty() ? 0 : kPageHeader);
    }
    return chain;
}

// Where a column has its values in a row: those of one size at an offset, the others by a number among themselves.
class Places
{
  public:
    void Add(const ColumnDefinition& column, std::size_t offset, std::size_t number)
    {
        if ((column.Flags & kFixedSize) == 0)
            numbers_.emplace_back(number, 1);
        else if (column.Type != kYesNo)
            offsets_.emplace_back(offset, column.Size);
    }

    [[nodiscard]] bool Overlap() const { return Overlap(offsets_) || Overlap(numbers_); }

  private:
    using Extents = std::vector<std::pair<std::size_t, std::size_t>>; // begin and size

    static bool Overlap(Extents extents)
    {
        std::sort(extents.begin(), extents.end());
        return std::adjacent_find(extents.begin(), extents.end(), [](const auto& a, const auto& b) {
                   return a.first + a.second > b.first;
               }) != extents.end();
    }

    Extents offsets_;
    Extents numbers_;
};

// Reads the parts in their order, each from where the last one ended.
class Parts
{
  public:
    Parts(std::string_view definition, const Layout& layout, const TextDecoder& text)
        : bytes_(definition), layout_(layout), text_(text), at_(layout.StatisticsAt)
    {}

    TableDefinition Read()
    {
        TableDefinition table{.RowCount = bytes_.U32(layout_.RowsAt)};
        const std::size_t columns = bytes_.U16(layout_.ColumnsAt);
        const std::size_t stored = bytes_.U32(layout_.StoredAt);
        if (columns > kColumnsAtMost)
            throw Damaged("a table has more columns than any can have");
        static_cast<void>(Take(layout_.StatisticsEntry, stored));
        table.Columns = ReadColumns(columns);
        const Bytes storedIndexes = Take(layout_.StoredEntry, stored);
        table.Indexes = ReadIndexes(bytes_.U32(layout_.LogicalAt), storedIndexes);
        return table;
    }

  private:
    // The next `count` entries of one size.
    Bytes Take(std::size_t entry, std::size_t count = 1)
    {
        const std::string_view taken = bytes_.Slice(at_, entry * count);
        at_ += taken.size();
        return Bytes(taken);
    }

    std::string TakeName()
    {
        const Bytes length = Take(layout_.NameLength);
        const std::size_t size = layout_.NameLength == 1 ? length.U8(0) : length.U16(0);
        return text_.Name(Take(size).Slice(0, size));
    }

    std::vector<ColumnDefinition> ReadColumns(std::size_t count)
    {
        std::vector<ColumnDefinition> columns;
        Places places;
        for (std::size_t i = 0; i < count; ++i) {
            const Bytes entry = Take(layout_.ColumnEntry);
            columns.push_back({.Type = entry.U8(0),
                               .Id = entry.U16(layout_.IdAt),
                               .Flags = entry.U8(layout_.FlagsAt),
                               .Size = entry.U16(layout_.SizeAt)});
            places.Add(columns.back(), entry.U16(layout_.OffsetAt), entry.U16(layout_.NumberAt));
            if (columns.back().Id >= bytes_.U16(layout_.IdsAt))
                throw Damaged("a column of a table has no place in it");
        }
        for (ColumnDefinition& column : columns)
            column.Name = TakeName();
        std::stable_sort(columns.begin(), columns.end(),
                         [](const ColumnDefinition& a, const ColumnDefinition& b) { return a.Id < b.Id; });
        const auto sameId = [](const ColumnDefinition& a, const ColumnDefinition& b) { return a.Id == b.Id; };
        if (std::adjacent_find(columns.begin(), columns.end(), sameId) != columns.end() || places.Overlap())
            throw Damaged("two columns of a table are one");
        return columns;
    }

    [[nodiscard]] std::vector<int> KeyOf(const Bytes& stored) const
    {
        std::vector<int> ids;
        for (std::size_t i = 0; i < kKeyColumns; ++i)
            if (const std::uint16_t id = stored.U16(layout_.KeyAt + 3 * i); id != kNoColumn)
                ids.push_back(id);
        return ids;
    }

    // An index of a relationship alone names another table.
    [[nodiscard]] std::uint8_t TypeOf(const Bytes& logical) const
    {
        const std::uint8_t type = logical.U8(layout_.TypeAt);
        const bool isRelated = logical.U32(layout_.RelatedAt) != 0;
        if (type > kRelationshipIndex || isRelated != (type == kRelationshipIndex))
            throw Damaged("an index is of another type than it seems");
        return type;
    }

    std::vector<IndexDefinition> ReadIndexes(std::size_t count, const Bytes& storedIndexes)
    {
        const Bytes entries = Take(layout_.LogicalEntry, count);
        std::vector<IndexDefinition> indexes;
        for (std::size_t i = 0; i < count; ++i) {
            std::string name = TakeName();
            const Bytes entry(entries.Slice(i * layout_.LogicalEntry, layout_.LogicalEntry));
            const std::uint8_t type = TypeOf(entry);
            if (type == kRelationshipIndex)
                continue;
            const std::size_t place = entry.U32(layout_.PlaceAt);
            const Bytes stored(storedIndexes.Slice(place * layout_.StoredEntry, layout_.StoredEntry));
            indexes.push_back({.Name = std::move(name),
                               .Primary = type == kPrimaryIndex,
                               .Unique = (stored.U8(layout_.StoredFlagsAt) & kUniqueFlag) != 0,
                               .ColumnIds = KeyOf(stored)});
        }
        return indexes;
    }

    Bytes bytes_;
    const Layout& layout_;
    const TextDecoder& text_;
    std::size_t at_;
};

} // namespace

TableDefinition ReadDefinition(JetFile& file, std::uint32_t firstPage)
{
    const std::string chain = ReadChain(file, firstPage);
    const Layout& layout = file.FileVersion() == Version::Jet3 ? kJet3Layout : kJet4Layout;
    return Parts(chain, layout, file.Text()).Read();
}

} // namespace veldrane::jet
