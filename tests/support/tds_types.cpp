#include "support/tds_types.h"

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>

namespace veldrane::testing {
namespace {

// The numbers are those of the published protocol and of the published catalog procedures.
constexpr std::array kTypes{
    TdsType{"bit", TdsLayout::Fixed, 0x32, 0x68, 1, -7, 1},
    TdsType{"tinyint", TdsLayout::Fixed, 0x30, 0x26, 1, -6, 3},
    TdsType{"smallint", TdsLayout::Fixed, 0x34, 0x26, 2, 5, 5},
    TdsType{"int", TdsLayout::Fixed, 0x38, 0x26, 4, 4, 10},
    TdsType{"bigint", TdsLayout::Fixed, 0x7F, 0x26, 8, -5, 19},
    TdsType{"real", TdsLayout::Fixed, 0x3B, 0x6D, 4, 7, 24},
    TdsType{"float", TdsLayout::Fixed, 0x3E, 0x6D, 8, 6, 53},
    TdsType{"money", TdsLayout::Fixed, 0x3C, 0x6E, 8, 3, 19},
    TdsType{"smallmoney", TdsLayout::Fixed, 0x7A, 0x6E, 4, 3, 10},
    TdsType{"datetime", TdsLayout::Fixed, 0x3D, 0x6F, 8, 93, 23},
    TdsType{"smalldatetime", TdsLayout::Fixed, 0x3A, 0x6F, 4, 93, 16},
    TdsType{"uniqueidentifier", TdsLayout::Sized, 0x24, 0, 16, -11, 36},
    TdsType{"decimal", TdsLayout::Exact, 0x6A, 0, 17, 3, 0},
    TdsType{"numeric", TdsLayout::Exact, 0x6C, 0, 17, 2, 0},
    TdsType{"char", TdsLayout::Text, 0xAF, 0, 1, 1, 0},
    TdsType{"varchar", TdsLayout::Text, 0xA7, 0, 1, 12, 0},
    TdsType{"nchar", TdsLayout::Text, 0xEF, 0, 2, -8, 0},
    TdsType{"nvarchar", TdsLayout::Text, 0xE7, 0, 2, -9, 0},
    TdsType{"sysname", TdsLayout::Text, 0xE7, 0, 2, -9, 128, 256},
    TdsType{"binary", TdsLayout::Bytes, 0xAD, 0, 1, -2, 0},
    TdsType{"varbinary", TdsLayout::Bytes, 0xA5, 0, 1, -3, 0},
    TdsType{"timestamp", TdsLayout::Bytes, 0xAD, 0, 1, -2, 8, 80},
    TdsType{"text", TdsLayout::LongText, 0x23, 0, 1, -1, std::numeric_limits<int>::max()},
    TdsType{"ntext", TdsLayout::LongText, 0x63, 0, 2, -10, std::numeric_limits<int>::max() / 2},
    TdsType{"image", TdsLayout::LongBytes, 0x22, 0, 1, -4, std::numeric_limits<int>::max()},
    TdsType{"date", TdsLayout::Bare, 0x28, 0, 3, -9, 10},
    TdsType{"time", TdsLayout::FractionOfS, 0x29, 0, 5, -9, 16},
    TdsType{"datetime2", TdsLayout::FractionOfS, 0x2A, 0, 8, -9, 27},
    TdsType{"datetimeoffset", TdsLayout::FractionOfS, 0x2B, 0, 10, -9, 34},
    TdsType{"xml", TdsLayout::Document, 0xF1, 0, 1, -10, 0},
    TdsType{"sql_variant", TdsLayout::Variant, 0x62, 0, 8009, -150, 8000},
    TdsType{"hierarchyid", TdsLayout::Clr, 0xF0, 0, 1, -151, 892},
    TdsType{"geography", TdsLayout::Clr, 0xF0, 0, 1, -151, 0xFFFF},
    TdsType{"Point", TdsLayout::Clr, 0xF0, 0, 1, -151, 20}, // a user's own
};

std::uint32_t LengthOf(const std::string& text)
{
    return text == "max" ? kTdsMax : static_cast<std::uint32_t>(std::stoul(text));
}

} // namespace

TdsDeclared ParseTdsType(const std::string& declared)
{
    const std::size_t bracket = std::min(declared.find('('), declared.size());
    const std::string name = declared.substr(0, bracket);
    const auto found =
        std::find_if(kTypes.begin(), kTypes.end(), [&](const TdsType& type) { return type.Name == name; });
    if (found == kTypes.end())
        throw std::invalid_argument("There is no type " + declared + ".");
    TdsDeclared parsed{.Type = *found};
    if (found->Precision != 0)
        parsed.Length = static_cast<std::uint32_t>(found->Precision);
    if (bracket == declared.size())
        return parsed;
    const std::string inside = declared.substr(bracket + 1, declared.size() - bracket - 2);
    if (found->Layout != TdsLayout::Exact) {
        parsed.Length = LengthOf(inside);
        return parsed;
    }
    parsed.Precision = std::stoi(inside);
    if (const std::size_t comma = inside.find(','); comma != std::string::npos)
        parsed.Scale = std::stoi(inside.substr(comma + 1));
    return parsed;
}

long TdsPrecision(const TdsDeclared& declared)
{
    if (declared.Length == kTdsMax)
        return 0;
    if (declared.Type.Layout == TdsLayout::Exact)
        return declared.Precision;
    return declared.Type.Precision != 0 ? declared.Type.Precision : static_cast<long>(declared.Length);
}

long TdsLength(const TdsDeclared& declared)
{
    if (declared.Length == kTdsMax)
        return 0;
    const bool hasLength = declared.Type.Layout == TdsLayout::Text || declared.Type.Layout == TdsLayout::Bytes;
    return static_cast<long>(declared.Type.Bytes) * (hasLength ? static_cast<long>(declared.Length) : 1);
}

} // namespace veldrane::testing
