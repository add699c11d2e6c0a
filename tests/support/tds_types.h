#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace veldrane::testing {

// How the values of a type are laid out on the wire.
enum class TdsLayout
{
    Fixed,       // a code of its own where NULL is refused; else one for all sizes, and the size in a byte
    Sized,       // a size in a byte
    Exact,       // a size, a precision and a scale in a byte each
    Text,        // a size of two bytes and a collation
    Bytes,       // a size of two bytes
    LongText,    // a size of four bytes, a collation and the table's name
    LongBytes,   // a size of four bytes and the table's name
    Bare,        // nothing
    FractionOfS, // the digits of a second in a byte
    Document,    // a byte that says whether there is a schema
    Variant,     // a size of four bytes
    Clr,         // a size of two bytes, and the names of its database, its schema, itself and its assembly
};

// A type of SQL Server with the numbers by which the protocol and the catalog know it.
struct TdsType
{
    std::string_view Name;
    TdsLayout Layout = TdsLayout::Fixed;
    std::uint8_t Code = 0;
    std::uint8_t NullableCode = 0; // for Fixed
    std::uint32_t Bytes = 0;       // of a value, or of a character
    int OdbcType = 0;
    int Precision = 0; // where the type fixes it
    std::uint16_t UserType = 0;
};

// A type with what stands in its brackets.
struct TdsDeclared
{
    TdsType Type;
    std::uint32_t Length = 1; // characters or bytes; `kTdsMax` for "max"
    int Precision = 18;
    int Scale = 0;
};

inline constexpr std::uint32_t kTdsMax = 0xFFFFFFFF;

// Throws std::invalid_argument for a type that is not known.
[[nodiscard]] TdsDeclared ParseTdsType(const std::string& declared);

// Columns of the catalog for a value of the type.
[[nodiscard]] long TdsPrecision(const TdsDeclared& declared);
[[nodiscard]] long TdsLength(const TdsDeclared& declared);

} // namespace veldrane::testing
