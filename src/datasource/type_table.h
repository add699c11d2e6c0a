#pragma once

#include <cstdint>
#include <string_view>

// What the ADO data types are called, and which types of the generated language stand for them.
namespace veldrane {

// The numbers of the generated language's types. The editors key their type lists by them.
namespace vb_type {
inline constexpr std::int32_t kNone = 0;
inline constexpr std::int32_t kString = 1;
inline constexpr std::int32_t kByte = 2;
inline constexpr std::int32_t kLong = 3;
inline constexpr std::int32_t kCurrency = 4;
inline constexpr std::int32_t kInteger = 5;
inline constexpr std::int32_t kSingle = 6;
inline constexpr std::int32_t kDouble = 7;
inline constexpr std::int32_t kDate = 8;
inline constexpr std::int32_t kBoolean = 9;
inline constexpr std::int32_t kObject = 10;
inline constexpr std::int32_t kVariant = 11;
} // namespace vb_type

// The display name of an ADO data type (ado_types.h); "" for a number that is none.
[[nodiscard]] std::string_view ADOTypeDisplayName(std::int32_t type);

// The number of the type that stands for an ADO data type; 0 if none does.
[[nodiscard]] std::int32_t ADOTypeToVBTypeCode(std::int32_t type);

// The name of the type with this number; "" for a number outside 1 to 11.
[[nodiscard]] std::string_view VBTypeCodeName(std::int32_t code);

// The same two under the names that the editors and the generator know them by.
[[nodiscard]] std::int32_t ADOTypeToVBTypeIndex(std::int32_t type);
[[nodiscard]] std::string_view VBTypeName(std::int32_t index);

// The name of the type that stands for an ADO data type; "" if none does.
[[nodiscard]] std::string_view VBTypeOfADOType(std::int32_t type);

} // namespace veldrane
