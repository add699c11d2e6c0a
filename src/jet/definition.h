#pragma once

#include "jet/jet_file.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace veldrane::jet {

// A column of a table definition.
struct ColumnDefinition
{
    std::string Name;
    int Type = 0;         // the engine's number; column_types.h
    int Id = 0;           // its number among the table's columns, dropped ones included
    int Flags = 0;        // of kFixedSize and its like
    std::size_t Size = 0; // bytes at most; 0 for what is held elsewhere
};

inline constexpr int kFixedSize = 0x01;
inline constexpr int kAutoNumber = 0x04;
inline constexpr int kAutoGuid = 0x40;

// A logical index that people made, or that a primary key is. What a relationship has of its own is left out.
struct IndexDefinition
{
    std::string Name;
    bool Primary = false;
    bool Unique = false;
    std::vector<int> ColumnIds; // in the order of the key
};

struct TableDefinition
{
    std::uint32_t RowCount = 0;
    std::vector<ColumnDefinition> Columns; // in the order of their ids
    std::vector<IndexDefinition> Indexes;
};

// Reads the definition of a table from its pages, which are a chain. Several logical indexes may share what is stored
// of them; the number by which they name it is a place in the definition, whatever was dropped before.
//
// Throws Refusal(kDamaged) for pages that are no definition, and for a chain longer than any that the engine writes.
[[nodiscard]] TableDefinition ReadDefinition(JetFile& file, std::uint32_t firstPage);

} // namespace veldrane::jet
