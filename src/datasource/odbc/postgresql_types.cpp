#include "datasource/odbc/postgresql_types.h"

#include "datasource/ado_types.h"
#include "datasource/odbc/field_types.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace veldrane {
namespace {

// The server takes 1664 values in a row.
constexpr std::size_t kMostAtOnce = 1000;

// A type that the driver does not know, as it knows none that a user made.
constexpr std::string_view kUnknownType = "pg_catalog.json";

// In a modifier, the length of a text counts the four bytes in which the server once kept it.
constexpr std::int32_t kLengthHeader = 4;

// Types with a length, by whether the modifier holds it as it is.
struct LengthRule
{
    std::string_view Type;
    std::int32_t Header;
};

constexpr std::array kLengths{LengthRule{"varchar", kLengthHeader}, LengthRule{"bpchar", kLengthHeader},
                              LengthRule{"bit", 0}, LengthRule{"varbit", 0}};

// The driver's own MaxVarcharSize: what it describes a text without a length as, unless an option says otherwise.
constexpr std::int32_t kDriversTextSize = 255;

// Rows of a place in the list and the type there.
std::string Rows(const std::vector<PostgreSqlTypeId>& types)
{
    std::string rows;
    for (std::size_t place = 0; place < types.size(); ++place) {
        const std::string oid = std::to_string(types[place].Oid) + "::oid,";
        rows += place == 0 ? "(" : ",(";
        rows += std::to_string(place) + ",";
        rows += oid + oid + std::to_string(types[place].Modifier);
        rows += ",false)";
    }
    return rows;
}

// The driver takes bits for text without a length.
void CorrectBits(PostgreSqlType& type)
{
    if (type.BaseName != "bit" && type.BaseName != "varbit")
        return;
    const std::int32_t length = LengthOf(type);
    if (type.BaseName == "bit" && length == 1)
        type.Field.Type = adBoolean;
    if (length > 0)
        type.Field.DefinedSize = DefinedSizeOf(type.Field.Type, static_cast<std::uint64_t>(length));
}

// The option that keeps long texts with a length from turning into memos is not meant for those without one.
void CorrectSize(PostgreSqlType& type)
{
    if (LengthOf(type) == 0 && std::to_string(type.Field.DefinedSize) == kAddedMaxVarcharSize)
        type.Field.DefinedSize = kDriversTextSize;
}

} // namespace

std::int32_t LengthOf(const PostgreSqlType& type)
{
    const auto* const rule = std::find_if(kLengths.begin(), kLengths.end(),
                                          [&](const LengthRule& each) { return each.Type == type.BaseName; });
    return rule == kLengths.end() ? 0 : std::max(type.Modifier - rule->Header, 0);
}

// The precision in the upper half of the modifier; the scale in the lower eleven bits, which may be below zero.
std::optional<NumericDigits> DigitsOf(const PostgreSqlType& type)
{
    if (type.BaseName != "numeric" || type.Modifier < kLengthHeader)
        return std::nullopt;
    const std::int32_t packed = type.Modifier - kLengthHeader;
    return NumericDigits{.Precision = packed >> 16, .Scale = ((packed & 0x7FF) ^ 0x400) - 0x400};
}

void PostgreSqlTypes::Learn(const std::set<PostgreSqlTypeId>& types)
{
    std::vector<PostgreSqlTypeId> unknown;
    std::copy_if(types.begin(), types.end(), std::back_inserter(unknown),
                 [&](PostgreSqlTypeId type) { return !types_.contains(type); });
    while (!unknown.empty()) {
        const auto first = unknown.end() - static_cast<std::ptrdiff_t>(std::min(unknown.size(), kMostAtOnce));
        std::vector<Described> described = ReadDefinitions({first, unknown.end()});
        Describe(described);
        for (Described& each : described)
            types_.emplace(each.Id, std::move(each.Type));
        unknown.erase(first, unknown.end());
    }
}

// A type that has been dropped meanwhile counts as one that the driver does not know.
std::vector<PostgreSqlTypes::Described>
PostgreSqlTypes::ReadDefinitions(const std::vector<PostgreSqlTypeId>& types) const
{
    OdbcStatement statement(session_);
    statement.Execute(
        "WITH RECURSIVE base(place, id, oid, typmod, required) AS (VALUES " + Rows(types) +
        " UNION ALL SELECT b.place, b.id, t.typbasetype, t.typtypmod, b.required OR t.typnotnull"
        " FROM base b JOIN pg_catalog.pg_type t ON t.oid = b.oid WHERE t.typtype = 'd')"
        " SELECT b.place, own.typname, t.typname, b.typmod, b.required::int,"
        " CASE WHEN n.nspname = 'pg_catalog' AND t.typtype <> 'p' THEN pg_catalog.format_type(b.oid, b.typmod) END"
        " FROM base b JOIN pg_catalog.pg_type own ON own.oid = b.id JOIN pg_catalog.pg_type t ON t.oid = b.oid"
        " JOIN pg_catalog.pg_namespace n ON n.oid = t.typnamespace WHERE t.typtype <> 'd'");
    std::vector<Described> described;
    described.reserve(types.size());
    for (const PostgreSqlTypeId id : types)
        described.push_back({.Id = id, .Stated = std::string(kUnknownType), .Type = {}});
    while (statement.Fetch()) {
        Described& each = described.at(static_cast<std::size_t>(statement.Number(1)));
        each.Type.Name = statement.Text(2).value_or("");
        each.Type.BaseName = statement.Text(3).value_or("");
        each.Type.Modifier = static_cast<std::int32_t>(statement.Number(4));
        each.Type.IsRequired = statement.Number(5) != 0;
        if (std::optional<std::string> stated = statement.Text(6))
            each.Stated = std::move(*stated);
    }
    return described;
}

void PostgreSqlTypes::Describe(std::vector<Described>& types) const
{
    std::string values;
    for (const Described& each : types)
        values.append(values.empty() ? "CAST(NULL AS " : ", CAST(NULL AS ").append(each.Stated).append(")");
    OdbcStatement statement(session_);
    statement.Execute("SELECT " + values + " WHERE false");
    const std::vector<OdbcColumn> columns = statement.Columns();
    for (std::size_t at = 0; at < std::min(columns.size(), types.size()); ++at) {
        PostgreSqlType& type = types[at].Type;
        type.Field = PostgreSqlFieldOf(columns[at], session_.Profile().Width);
        CorrectBits(type);
        CorrectSize(type);
    }
}

CatalogField PostgreSqlFieldOf(const OdbcColumn& column, CallWidth width)
{
    CatalogField field = FieldOf(column, width);
    const bool isWide = field.Type == adLongVarWChar;
    if (!isWide && field.Type != adLongVarChar)
        return field;
    if (column.TypeName == "varchar")
        field.Type = isWide ? adVarWChar : adVarChar;
    else if (column.TypeName == "char")
        field.Type = isWide ? adWChar : adChar;
    return field;
}

} // namespace veldrane
