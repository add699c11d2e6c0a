#include "jet/column_types.h"

#include "datasource/ado_types.h"
#include "jet/refusal.h"

#include <utility>

namespace veldrane::jet {
namespace {

constexpr int kText = 10;

// The attribute bits adFldIsNullable and adFldMayBeNull, which go together here.
constexpr int kNullable = 0x20 + 0x40;

constexpr int kLongTextCharacters = 536870910;
constexpr int kLongBinaryBytes = 1073741823;

struct TypeAndSize
{
    int AdoType;
    int DefinedSize;
};

TypeAndSize TextType(const ColumnDefinition& column, Version version)
{
    const auto size = static_cast<int>(column.Size);
    return {(column.Flags & kFixedSize) != 0 ? adWChar : adVarWChar, version == Version::Jet3 ? size : size / 2};
}

TypeAndSize BinaryType(const ColumnDefinition& column)
{
    return {(column.Flags & kFixedSize) != 0 ? adBinary : adVarBinary, static_cast<int>(column.Size)};
}

TypeAndSize DescribeType(const ColumnDefinition& column, Version version)
{
    switch (column.Type) {
    case 1:
        return {adBoolean, 2};
    case 2:
        return {adUnsignedTinyInt, 1};
    case 3:
        return {adSmallInt, 2};
    case 4:
        return {adInteger, 4};
    case 5:
        return {adCurrency, 8};
    case 6:
        return {adSingle, 4};
    case 7:
        return {adDouble, 8};
    case 8:
        return {adDate, 8};
    case kText:
        return TextType(column, version);
    case 11:
        return {adLongVarBinary, kLongBinaryBytes};
    case 12:
        return {adLongVarWChar, kLongTextCharacters};
    case 15:
        return {adGUID, 16};
    case 16:
        return {adNumeric, 19};
    case 9:
    case 17: // of the engine's own tables alone
        return BinaryType(column);
    default:
        throw Damaged("a column is of a type that is none");
    }
}

bool FillsItself(const ColumnDefinition& column, int adoType)
{
    const bool counts = adoType == adInteger && (column.Flags & kAutoNumber) != 0;
    return counts || (adoType == adGUID && (column.Flags & kAutoGuid) != 0);
}

} // namespace

Column DescribeColumn(const ColumnDefinition& definition, Version version, Presence presence)
{
    const TypeAndSize type = DescribeType(definition, version);
    const bool isNullable = presence == Presence::Optional && type.AdoType != adBoolean;
    return {.Name = definition.Name,
            .AdoType = type.AdoType,
            .DefinedSize = type.DefinedSize,
            .Attributes = isNullable ? kNullable : 0,
            .AutoNumber = FillsItself(definition, type.AdoType)};
}

Column DescribeExpression(std::string name)
{
    return {.Name = std::move(name), .AdoType = adVarWChar, .DefinedSize = 255, .Attributes = kNullable};
}

} // namespace veldrane::jet
