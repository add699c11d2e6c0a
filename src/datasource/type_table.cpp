#include "datasource/type_table.h"

#include "datasource/ado_types.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace veldrane {
namespace {

struct TypeRow
{
    std::int32_t Type;
    std::string_view DisplayName;
    std::int32_t Code;
};

// Wide integers become Double and unsigned ones the next type that is not too narrow, a GUID and an error code become
// String, and the names of the date types stand one step away from their own: on purpose.
constexpr auto kTypes = std::to_array<TypeRow>({
    {adEmpty, "<unknown>", vb_type::kNone},
    {adSmallInt, "Small Int", vb_type::kInteger},
    {adInteger, "Int", vb_type::kLong},
    {adSingle, "Single", vb_type::kSingle},
    {adDouble, "Double", vb_type::kDouble},
    {adCurrency, "Money/Currency", vb_type::kCurrency},
    {adDate, "Small DateTime", vb_type::kDate},
    {adBSTR, "Unicode String", vb_type::kString},
    {adIDispatch, "<unknown>", vb_type::kNone},
    {adError, "Error Code", vb_type::kString},
    {adBoolean, "Boolean", vb_type::kBoolean},
    {adVariant, "Variant", vb_type::kVariant},
    {adIUnknown, "IUnknown", vb_type::kObject},
    {adDecimal, "Decimal", vb_type::kDouble},
    {adTinyInt, "Tiny Int", vb_type::kByte},
    {adUnsignedTinyInt, "Unsigned Tiny Int", vb_type::kByte},
    {adUnsignedSmallInt, "Unsigned Small Int", vb_type::kInteger},
    {adUnsignedInt, "Unsigned Int", vb_type::kSingle},
    {adBigInt, "Big Integer", vb_type::kDouble},
    {adUnsignedBigInt, "Unsigned Big Int", vb_type::kDouble},
    {adGUID, "GUID", vb_type::kString},
    {adBinary, "Binary", vb_type::kVariant},
    {adChar, "Char", vb_type::kString},
    {adWChar, "WChar", vb_type::kString},
    {adNumeric, "Numeric", vb_type::kDouble},
    {adUserDefined, "User Defined", vb_type::kVariant},
    {adDBDate, "DateTime", vb_type::kDate},
    {adDBTime, "Time", vb_type::kDate},
    {adDBTimeStamp, "Timestamp", vb_type::kDate},
    {adVarChar, "VarChar", vb_type::kString},
    {adLongVarChar, "Long VarChar", vb_type::kString},
    {adVarWChar, "VarWChar", vb_type::kString},
    {adLongVarWChar, "Long VarWChar", vb_type::kString},
    {adVarBinary, "Var Binary", vb_type::kVariant},
    {adLongVarBinary, "Long VarBinary", vb_type::kVariant},
});
static_assert(std::ranges::is_sorted(kTypes, {}, &TypeRow::Type));

// By code; the place of code 0 is empty.
constexpr auto kTypeNames = std::to_array<std::string_view>(
    {"", "String", "Byte", "Long", "Currency", "Integer", "Single", "Double", "Date", "Boolean", "Object", "Variant"});

const TypeRow* FindType(std::int32_t type)
{
    const auto found = std::ranges::lower_bound(kTypes, type, {}, &TypeRow::Type);
    return found != kTypes.end() && found->Type == type ? found : nullptr;
}

} // namespace

std::string_view ADOTypeDisplayName(std::int32_t type)
{
    const TypeRow* row = FindType(type);
    return row ? row->DisplayName : std::string_view{};
}

std::int32_t ADOTypeToVBTypeCode(std::int32_t type)
{
    const TypeRow* row = FindType(type);
    return row ? row->Code : vb_type::kNone;
}

std::string_view VBTypeCodeName(std::int32_t code)
{
    const auto known = static_cast<std::int32_t>(kTypeNames.size());
    return code >= 0 && code < known ? kTypeNames[static_cast<std::size_t>(code)] : std::string_view{};
}

std::int32_t ADOTypeToVBTypeIndex(std::int32_t type)
{
    return ADOTypeToVBTypeCode(type);
}

std::string_view VBTypeName(std::int32_t index)
{
    return VBTypeCodeName(index);
}

std::string_view VBTypeOfADOType(std::int32_t type)
{
    return VBTypeCodeName(ADOTypeToVBTypeCode(type));
}

} // namespace veldrane
