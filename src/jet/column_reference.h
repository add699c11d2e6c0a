#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace veldrane::jet {

// A column as a query names it: Column, Table.Column or [Table]![Column], or with * for all columns.
struct ColumnReference
{
    std::string Source; // "" if none is named
    std::string Name;   // "" for all columns
    bool AllColumns = false;
};

// Reads an expression that names a column and does nothing else; none if it is any other.
[[nodiscard]] std::optional<ColumnReference> ReadColumnReference(std::string_view expression);

} // namespace veldrane::jet
