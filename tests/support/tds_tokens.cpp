#include "support/tds_tokens.h"

#include "datasource/odbc/utf16.h"

#include <algorithm>

namespace veldrane::testing {
namespace {

constexpr std::string_view kCollation("\x09\x04\xD0\x00\x34", 5); // Latin1_General_CI_AS
constexpr std::uint32_t kLongest = 0x7FFFFFFF;

std::uint16_t FlagsOf(TdsNull null)
{
    constexpr std::uint16_t kNullable = 0x01;
    constexpr std::uint16_t kUpdatable = 0x08;
    constexpr std::uint16_t kIdentity = 0x10;
    if (null == TdsNull::Allowed)
        return kNullable | kUpdatable;
    return null == TdsNull::Refused ? kUpdatable : kIdentity;
}

} // namespace

std::string ToTdsText(std::string_view text)
{
    const std::u16string units = ToUtf16(text);
    return {reinterpret_cast<const char*>(units.data()), units.size() * sizeof(char16_t)};
}

std::string FromTdsText(std::string_view bytes)
{
    std::u16string units(bytes.size() / sizeof(char16_t), u'\0');
    bytes.copy(reinterpret_cast<char*>(units.data()), units.size() * sizeof(char16_t));
    return FromUtf16(units);
}

void TdsAnswer::Number(std::uint64_t value, std::size_t bytes)
{
    for (std::size_t at = 0; at < bytes; ++at)
        bytes_.push_back(static_cast<char>(value >> (8 * at) & 0xFFU));
}

void TdsAnswer::Name(std::string_view name, std::size_t sizeOfCount)
{
    const std::string text = ToTdsText(name);
    Number(text.size() / 2, sizeOfCount);
    bytes_ += text;
}

void TdsAnswer::Welcome(const std::string& database)
{
    TdsAnswer body(version_);
    body.Number(1, 1);
    for (int shift = 24; shift >= 0; shift -= 8)
        body.Number(version_ >> static_cast<unsigned>(shift) & 0xFFU, 1);
    body.Name("Microsoft SQL Server", 1);
    body.bytes_ += std::string("\x0A\x00\x00\x00", 4);
    ChangeDatabase(database);
    Number(0xAD, 1);
    Number(body.bytes_.size(), 2);
    bytes_ += body.bytes_;
    End();
}

void TdsAnswer::ChangeDatabase(const std::string& database)
{
    TdsAnswer change(version_);
    change.Number(1, 1);
    change.Name(database, 1);
    change.Name("master", 1);
    Number(0xE3, 1);
    Number(change.bytes_.size(), 2);
    bytes_ += change.bytes_;
}

void TdsAnswer::Type(const TdsColumn& column, const std::string& table)
{
    const TdsDeclared declared = ParseTdsType(column.Type);
    const TdsType& type = declared.Type;
    const bool isFixed = type.Layout == TdsLayout::Fixed;
    const bool isNullable = isFixed && column.Null == TdsNull::Allowed;
    Number(isNullable ? type.NullableCode : type.Code, 1);
    if (isNullable || type.Layout == TdsLayout::Sized || type.Layout == TdsLayout::Exact)
        Number(type.Bytes, 1);
    if (type.Layout == TdsLayout::Exact) {
        Number(static_cast<std::uint64_t>(declared.Precision), 1);
        Number(static_cast<std::uint64_t>(declared.Scale), 1);
    }
    if (type.Layout == TdsLayout::Text || type.Layout == TdsLayout::Bytes)
        Number(declared.Length == kTdsMax ? 0xFFFF : declared.Length * type.Bytes, 2);
    if (type.Layout == TdsLayout::LongText || type.Layout == TdsLayout::LongBytes)
        Number(kLongest, 4);
    if (type.Layout == TdsLayout::Text || type.Layout == TdsLayout::LongText)
        bytes_ += kCollation;
    if (type.Layout == TdsLayout::LongText || type.Layout == TdsLayout::LongBytes) {
        if (HasWideCounts())
            Number(1, 1);
        Name(table, 2);
    }
    if (type.Layout == TdsLayout::FractionOfS)
        Number(7, 1);
    if (type.Layout == TdsLayout::Document)
        Number(0, 1);
    if (type.Layout == TdsLayout::Variant)
        Number(type.Bytes, 4);
    if (type.Layout == TdsLayout::Clr)
        ClrType(declared);
}

void TdsAnswer::ClrType(const TdsDeclared& declared)
{
    Number(declared.Length, 2);
    Name("shop", 1);
    Name("dbo", 1);
    Name(declared.Type.Name, 1);
    Name(std::string(declared.Type.Name) + ", Types, Version=1.0.0.0", 2);
}

void TdsAnswer::Columns(const std::vector<TdsColumn>& columns, const std::string& table)
{
    Number(0x81, 1);
    Number(columns.size(), 2);
    for (const TdsColumn& column : columns) {
        Number(ParseTdsType(column.Type).Type.UserType, HasWideCounts() ? 4 : 2);
        Number(FlagsOf(column.Null), 2);
        Type(column, table);
        Name(column.Name, 1);
    }
}

void TdsAnswer::Value(const TdsColumn& column, const std::optional<std::string>& value)
{
    const TdsDeclared declared = ParseTdsType(column.Type);
    if (declared.Type.Layout == TdsLayout::Fixed) {
        Number(value ? declared.Type.Bytes : 0, 1);
        if (value)
            Number(static_cast<std::uint64_t>(std::stol(*value)), declared.Type.Bytes);
        return;
    }
    if (!value)
        return Number(0xFFFF, 2);
    const std::string bytes = declared.Type.Bytes == 2 ? ToTdsText(*value) : *value;
    Number(bytes.size(), 2);
    bytes_ += bytes;
}

void TdsAnswer::Row(const std::vector<TdsColumn>& columns, const TdsRow& row)
{
    Number(0xD1, 1);
    for (std::size_t at = 0; at < columns.size(); ++at)
        Value(columns[at], row.at(at));
}

void TdsAnswer::BeginLongRow()
{
    constexpr std::uint64_t kUnknownLength = 0xFFFFFFFFFFFFFFFE;
    Number(0xD1, 1);
    Number(kUnknownLength, 8);
}

void TdsAnswer::Piece(const std::string& text)
{
    const std::string bytes = ToTdsText(text);
    Number(bytes.size(), 4);
    bytes_ += bytes;
}

void TdsAnswer::Fail(const TdsFailure& failure)
{
    constexpr std::uint16_t kFailed = 0x02;
    Complain(failure);
    End(kFailed);
}

void TdsAnswer::Complain(const TdsFailure& failure)
{
    TdsAnswer body(version_);
    body.Number(static_cast<std::uint32_t>(failure.Number), 4);
    body.Number(1, 1);
    body.Number(failure.Severity, 1);
    body.Name(failure.Words, 2);
    body.Name("STANDIN", 1);
    body.Name("", 1);
    body.Number(1, HasWideCounts() ? 4 : 2);
    Number(0xAA, 1);
    Number(body.bytes_.size(), 2);
    bytes_ += body.bytes_;
}

void TdsAnswer::Finish(std::uint8_t token, std::uint16_t status)
{
    Number(token, 1);
    Number(status, 2);
    Number(0, 2);
    Number(0, HasWideCounts() ? 8 : 4);
}

void TdsAnswer::End(std::uint16_t status)
{
    Finish(0xFD, status);
}

void TdsAnswer::EndProcedure()
{
    constexpr std::uint16_t kMore = 0x01;
    Finish(0xFF, kMore);
    Number(0x79, 1); // what it returned
    Number(0, 4);
    Finish(0xFE, 0);
}

} // namespace veldrane::testing
