#pragma once

#include "jet/header_page.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace veldrane::testing {

// What a table's definition is to hold, as the engine writes it.
struct DefinitionSpec
{
    struct Column
    {
        std::string Name;
        int Type = 0;
        int Id = 0;
        int Flags = 0;
        int Size = 0;
    };
    struct Stored
    {
        std::vector<int> ColumnIds;
        int Flags = 0;
    };
    struct Logical
    {
        std::string Name;
        int Number = 0; // which the engine counts on, whatever is dropped
        int Place = 0;  // among the stored ones
        int Type = 0;
        std::uint32_t RelatedPage = 0; // of the other table's definition, for an index of a relationship
    };

    std::uint32_t Rows = 0;
    std::vector<Column> Columns;
    std::vector<Stored> StoredIndexes;
    std::vector<Logical> LogicalIndexes;
};

// Writes bytes over those at a place.
void Put(std::string& bytes, std::size_t at, const std::string& what);

// A number in `size` bytes, the least first.
[[nodiscard]] std::string LittleEndian(std::uint64_t number, std::size_t size);

// ASCII text as names in definitions are stored.
[[nodiscard]] std::string NameBytes(jet::Version version, std::string_view name);

// The definition in one page, of as many bytes as it takes.
[[nodiscard]] std::string DefinitionBytes(jet::Version version, const DefinitionSpec& table);

// The same in a chain: the first page has `size` bytes and names `next`; what is left stands on a second page, which
// names `last`.
[[nodiscard]] std::pair<std::string, std::string> SplitDefinition(const std::string& definition, std::size_t size,
                                                                  std::uint32_t next, std::uint32_t last = 0);

} // namespace veldrane::testing
