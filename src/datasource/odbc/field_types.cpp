#include "datasource/odbc/field_types.h"

#include "datasource/ado_types.h"
#include "text/case_folding.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace veldrane {
namespace {

constexpr std::int32_t kNone = 0;

struct TypeRow
{
    SQLSMALLINT SqlType = SQL_UNKNOWN_TYPE;
    std::int32_t AdoType = adEmpty;
    std::int32_t Unsigned = kNone; // where an unsigned column has a type of its own
};

// The published mapping of ODBC types to those of ADO.
constexpr std::array kTypes{
    TypeRow{SQL_CHAR, adChar},
    TypeRow{SQL_VARCHAR, adVarChar},
    TypeRow{SQL_LONGVARCHAR, adLongVarChar},
    TypeRow{SQL_WCHAR, adWChar},
    TypeRow{SQL_WVARCHAR, adVarWChar},
    TypeRow{SQL_WLONGVARCHAR, adLongVarWChar},
    TypeRow{SQL_NUMERIC, adNumeric},
    TypeRow{SQL_DECIMAL, adNumeric},
    TypeRow{SQL_BIT, adBoolean},
    TypeRow{SQL_TINYINT, adTinyInt, adUnsignedTinyInt},
    TypeRow{SQL_SMALLINT, adSmallInt, adUnsignedSmallInt},
    TypeRow{SQL_INTEGER, adInteger, adUnsignedInt},
    TypeRow{SQL_BIGINT, adBigInt, adUnsignedBigInt},
    TypeRow{SQL_REAL, adSingle},
    TypeRow{SQL_FLOAT, adDouble},
    TypeRow{SQL_DOUBLE, adDouble},
    TypeRow{SQL_BINARY, adBinary},
    TypeRow{SQL_VARBINARY, adVarBinary},
    TypeRow{SQL_LONGVARBINARY, adLongVarBinary},
    TypeRow{SQL_GUID, adGUID},
    TypeRow{SQL_TYPE_DATE, adDBDate},
    TypeRow{SQL_TYPE_TIME, adDBTime},
    TypeRow{SQL_TYPE_TIMESTAMP, adDBTimeStamp},
};

struct NamedType
{
    std::string_view Name;
    std::int32_t AdoType;
};

// Types that only their names tell from others.
constexpr std::array kTypesByName{NamedType{"money", adCurrency}, NamedType{"smallmoney", adCurrency}};

// What SQLite columns are declared as and the driver does not know.
constexpr std::array kSqliteTypesByName{
    NamedType{"numeric", adNumeric},
    NamedType{"decimal", adNumeric},
    NamedType{"money", adCurrency},
    NamedType{"smallmoney", adCurrency},
    NamedType{"currency", adCurrency},
    NamedType{"blob", adLongVarBinary},
    NamedType{"image", adLongVarBinary},
    NamedType{"binary", adBinary},
    NamedType{"varbinary", adVarBinary},
    NamedType{"ntext", adLongVarWChar},
    NamedType{"clob", adLongVarChar},
    NamedType{"longtext", adLongVarChar},
    NamedType{"guid", adGUID},
    NamedType{"uuid", adGUID},
    NamedType{"uniqueidentifier", adGUID},
    NamedType{"smalldatetime", adDBTimeStamp},
    NamedType{"logical", adBoolean},
    NamedType{"counter", adInteger},
    NamedType{"unsigned", adInteger},
    NamedType{"any", adVariant},
};

// The published types of SQL Server's provider.
constexpr std::array kSqlServerTypesByName{
    NamedType{"bit", adBoolean},
    NamedType{"tinyint", adUnsignedTinyInt},
    NamedType{"smallint", adSmallInt},
    NamedType{"int", adInteger},
    NamedType{"bigint", adBigInt},
    NamedType{"real", adSingle},
    NamedType{"float", adDouble},
    NamedType{"decimal", adNumeric},
    NamedType{"numeric", adNumeric},
    NamedType{"money", adCurrency},
    NamedType{"smallmoney", adCurrency},
    NamedType{"datetime", adDBTimeStamp},
    NamedType{"smalldatetime", adDBTimeStamp},
    NamedType{"char", adChar},
    NamedType{"varchar", adVarChar},
    NamedType{"text", adLongVarChar},
    NamedType{"nchar", adWChar},
    NamedType{"nvarchar", adVarWChar},
    NamedType{"sysname", adVarWChar},
    NamedType{"ntext", adLongVarWChar},
    NamedType{"binary", adBinary},
    NamedType{"timestamp", adBinary},
    NamedType{"varbinary", adVarBinary},
    NamedType{"image", adLongVarBinary},
    NamedType{"uniqueidentifier", adGUID},
    NamedType{"sql_variant", adVariant},
};

// What the provider makes of types without a length ("max"), which are younger than it: the long ones of old.
struct LongType
{
    std::int32_t Type;
    std::int32_t InItsPlace;
    std::int32_t Size;
};

constexpr std::array kLongTypes{
    LongType{adVarChar, adLongVarChar, std::numeric_limits<std::int32_t>::max()},
    LongType{adVarWChar, adLongVarWChar, std::numeric_limits<std::int32_t>::max() / 2},
    LongType{adVarBinary, adLongVarBinary, std::numeric_limits<std::int32_t>::max()},
};

// The driver's own sizes for TEXT and for what is declared without a length.
constexpr std::uint64_t kSqliteLongText = 65536;
constexpr std::uint64_t kSqliteNoLength = 255;

struct FixedSize
{
    std::int32_t AdoType;
    std::int32_t Bytes;
};

constexpr std::array kFixedSizes{
    FixedSize{adTinyInt, 1},          FixedSize{adUnsignedTinyInt, 1}, FixedSize{adSmallInt, 2},
    FixedSize{adUnsignedSmallInt, 2}, FixedSize{adInteger, 4},         FixedSize{adUnsignedInt, 4},
    FixedSize{adBigInt, 8},           FixedSize{adUnsignedBigInt, 8},  FixedSize{adSingle, 4},
    FixedSize{adDouble, 8},           FixedSize{adCurrency, 8},        FixedSize{adBoolean, 2},
    FixedSize{adNumeric, 19},         FixedSize{adGUID, 16},           FixedSize{adDBDate, 6},
    FixedSize{adDBTime, 6},           FixedSize{adDBTimeStamp, 16},
};

std::optional<std::int32_t> TypeByName(std::span<const NamedType> types, std::string_view name)
{
    const auto found = std::find_if(types.begin(), types.end(),
                                    [&](const NamedType& type) { return text::EqualFolded(type.Name, name); });
    return found == types.end() ? std::nullopt : std::optional(found->AdoType);
}

std::int32_t AdoTypeOf(const OdbcColumn& column, CallWidth width)
{
    if (const auto named = TypeByName(kTypesByName, column.TypeName))
        return *named;
    const auto found =
        std::find_if(kTypes.begin(), kTypes.end(), [&](const TypeRow& row) { return row.SqlType == column.SqlType; });
    if (found == kTypes.end())
        return width == CallWidth::Wide ? adVarWChar : adVarChar;
    return column.IsUnsigned && found->Unsigned != kNone ? found->Unsigned : found->AdoType;
}

std::int32_t AttributesOf(SQLSMALLINT nullable)
{
    if (nullable == SQL_NO_NULLS)
        return 0;
    return nullable == SQL_NULLABLE ? field_attribute::kIsNullable | field_attribute::kMayBeNull
                                    : field_attribute::kMayBeNull;
}

// "NUMERIC(10,2)" as "NUMERIC", "UNSIGNED BIG INT" as "UNSIGNED".
std::string_view FirstWord(std::string_view declared)
{
    return declared.substr(0, declared.find_first_of(" ("));
}

} // namespace

std::int32_t DefinedSizeOf(std::int32_t adoType, std::uint64_t columnSize)
{
    const auto found = std::find_if(kFixedSizes.begin(), kFixedSizes.end(),
                                    [&](const FixedSize& fixed) { return fixed.AdoType == adoType; });
    if (found != kFixedSizes.end())
        return found->Bytes;
    constexpr std::uint64_t most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(columnSize, most));
}

CatalogField FieldOf(const OdbcColumn& column, CallWidth width)
{
    const std::int32_t type = AdoTypeOf(column, width);
    return {.Name = column.Name,
            .Type = type,
            .DefinedSize = DefinedSizeOf(type, column.Size),
            .Attributes = AttributesOf(column.Nullable),
            .IsAutoIncrement = column.IsAutoIncrement};
}

CatalogField SqliteFieldOf(const OdbcColumn& column)
{
    CatalogField field = FieldOf(column, CallWidth::Narrow);
    const auto declared = TypeByName(kSqliteTypesByName, FirstWord(column.TypeName));
    if (!declared)
        return field;
    const bool isLongText = *declared == adLongVarChar || *declared == adLongVarWChar;
    field.Type = *declared;
    field.DefinedSize =
        DefinedSizeOf(field.Type, isLongText && column.Size == kSqliteNoLength ? kSqliteLongText : column.Size);
    return field;
}

CatalogField SqlServerFieldOf(const OdbcColumn& column)
{
    CatalogField field = FieldOf(column, CallWidth::Wide);
    if (const auto named = TypeByName(kSqlServerTypesByName, FirstWord(column.TypeName))) {
        field.Type = *named;
        field.DefinedSize = DefinedSizeOf(field.Type, column.Size);
    }
    const auto isLong = [&](const LongType& type) { return type.Type == field.Type; };
    if (const auto found = std::find_if(kLongTypes.begin(), kLongTypes.end(), isLong);
        column.Size == 0 && found != kLongTypes.end()) {
        field.Type = found->InItsPlace;
        field.DefinedSize = found->Size;
    }
    return field;
}

} // namespace veldrane
