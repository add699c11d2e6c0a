#include "definition_bytes.h"

#include "jet/definition.h"

#include <algorithm>

namespace veldrane::testing {
namespace {

using jet::Version;

constexpr std::size_t kPageHeader = 8;
constexpr std::size_t kNextPageAt = 4;

std::string Zeros(std::size_t count)
{
    return {std::string(count, '\0')};
}

std::string Named(Version version, const std::string& name)
{
    const std::string bytes = NameBytes(version, name);
    return LittleEndian(bytes.size(), version == Version::Jet3 ? 1 : 2) + bytes;
}

std::uint64_t IdsGiven(const DefinitionSpec& table)
{
    int given = 0;
    for (const auto& column : table.Columns)
        given = std::max(given, column.Id + 1);
    return static_cast<std::uint64_t>(given);
}

std::string Beginning(Version version, const DefinitionSpec& table)
{
    const bool isJet3 = version == Version::Jet3;
    const std::size_t perStored = isJet3 ? 8 : 12;
    std::string bytes = "\x02\x01" + Zeros((isJet3 ? 41 : 61) + perStored * table.StoredIndexes.size());
    Put(bytes, isJet3 ? 12 : 16, LittleEndian(table.Rows, 4));
    Put(bytes, isJet3 ? 21 : 41, LittleEndian(IdsGiven(table), 2));
    Put(bytes, isJet3 ? 25 : 45, LittleEndian(table.Columns.size(), 2));
    Put(bytes, isJet3 ? 27 : 47, LittleEndian(table.LogicalIndexes.size(), 4));
    Put(bytes, isJet3 ? 31 : 51, LittleEndian(table.StoredIndexes.size(), 4));
    return bytes;
}

// The entries of the columns, which stand in a row one behind the other.
class ColumnEntries
{
  public:
    explicit ColumnEntries(Version version) : isJet3_(version == Version::Jet3) {}

    std::string Next(const DefinitionSpec::Column& column)
    {
        std::string bytes = Zeros(isJet3_ ? 18 : 25);
        Put(bytes, 0, LittleEndian(static_cast<std::uint64_t>(column.Type), 1));
        Put(bytes, isJet3_ ? 1 : 5, LittleEndian(static_cast<std::uint64_t>(column.Id), 2));
        Put(bytes, isJet3_ ? 3 : 7, LittleEndian(number_, 2));
        Put(bytes, isJet3_ ? 13 : 15, LittleEndian(static_cast<std::uint64_t>(column.Flags), 1));
        Put(bytes, isJet3_ ? 14 : 21, LittleEndian(offset_, 2));
        Put(bytes, isJet3_ ? 16 : 23, LittleEndian(static_cast<std::uint64_t>(column.Size), 2));
        if ((column.Flags & jet::kFixedSize) == 0)
            ++number_;
        else
            offset_ += static_cast<std::uint64_t>(column.Size);
        return bytes;
    }

  private:
    bool isJet3_;
    std::uint64_t number_ = 0;
    std::uint64_t offset_ = 0;
};

std::string Entry(Version version, const DefinitionSpec::Stored& index)
{
    const bool isJet3 = version == Version::Jet3;
    std::string bytes = Zeros(isJet3 ? 0 : 4);
    for (std::size_t i = 0; i < 10; ++i)
        bytes += i < index.ColumnIds.size() ? LittleEndian(static_cast<std::uint64_t>(index.ColumnIds[i]), 2) + "\x01"
                                            : "\xFF\xFF" + Zeros(1);
    bytes += Zeros((isJet3 ? 39 : 52) - bytes.size());
    Put(bytes, isJet3 ? 38 : 46, LittleEndian(static_cast<std::uint64_t>(index.Flags), 1));
    return bytes;
}

std::string Entry(Version version, const DefinitionSpec::Logical& index)
{
    const bool isJet3 = version == Version::Jet3;
    std::string bytes = Zeros(isJet3 ? 20 : 28);
    Put(bytes, isJet3 ? 0 : 4, LittleEndian(static_cast<std::uint64_t>(index.Number), 4));
    Put(bytes, isJet3 ? 4 : 8, LittleEndian(static_cast<std::uint64_t>(index.Place), 4));
    Put(bytes, isJet3 ? 13 : 17, LittleEndian(index.RelatedPage, 4));
    Put(bytes, isJet3 ? 19 : 23, LittleEndian(static_cast<std::uint64_t>(index.Type), 1));
    return bytes;
}

} // namespace

void Put(std::string& bytes, std::size_t at, const std::string& what)
{
    bytes.replace(at, what.size(), what);
}

std::string LittleEndian(std::uint64_t number, std::size_t size)
{
    std::string bytes;
    for (; bytes.size() < size; number >>= 8U)
        bytes += static_cast<char>(number & 0xFFU);
    return bytes;
}

std::string NameBytes(Version version, std::string_view name)
{
    std::string bytes;
    for (const char c : name) {
        bytes += c;
        if (version == Version::Jet4)
            bytes += '\0';
    }
    return bytes;
}

std::string DefinitionBytes(Version version, const DefinitionSpec& table)
{
    std::string bytes = Beginning(version, table);
    ColumnEntries entries(version);
    for (const auto& column : table.Columns)
        bytes += entries.Next(column);
    for (const auto& column : table.Columns)
        bytes += Named(version, column.Name);
    for (const auto& index : table.StoredIndexes)
        bytes += Entry(version, index);
    for (const auto& index : table.LogicalIndexes)
        bytes += Entry(version, index);
    for (const auto& index : table.LogicalIndexes)
        bytes += Named(version, index.Name);
    return bytes;
}

std::pair<std::string, std::string> SplitDefinition(const std::string& definition, std::size_t size, std::uint32_t next,
                                                    std::uint32_t last)
{
    std::string first = definition.substr(0, size);
    Put(first, kNextPageAt, LittleEndian(next, 4));
    std::string second = definition.substr(0, kPageHeader) + definition.substr(size);
    Put(second, kNextPageAt, LittleEndian(last, 4));
    return {first, second};
}

} // namespace veldrane::testing
