#pragma once

#include <cstdint>

// The numbers of data types as ADO publishes them (DataTypeEnum), under its own names.
namespace veldrane {

inline constexpr std::int32_t adEmpty = 0;
inline constexpr std::int32_t adSmallInt = 2;
inline constexpr std::int32_t adInteger = 3;
inline constexpr std::int32_t adSingle = 4;
inline constexpr std::int32_t adDouble = 5;
inline constexpr std::int32_t adCurrency = 6;
inline constexpr std::int32_t adDate = 7;
inline constexpr std::int32_t adBSTR = 8;
inline constexpr std::int32_t adIDispatch = 9;
inline constexpr std::int32_t adError = 10;
inline constexpr std::int32_t adBoolean = 11;
inline constexpr std::int32_t adVariant = 12;
inline constexpr std::int32_t adIUnknown = 13;
inline constexpr std::int32_t adDecimal = 14;
inline constexpr std::int32_t adTinyInt = 16;
inline constexpr std::int32_t adUnsignedTinyInt = 17;
inline constexpr std::int32_t adUnsignedSmallInt = 18;
inline constexpr std::int32_t adUnsignedInt = 19;
inline constexpr std::int32_t adBigInt = 20;
inline constexpr std::int32_t adUnsignedBigInt = 21;
inline constexpr std::int32_t adGUID = 72;
inline constexpr std::int32_t adBinary = 128;
inline constexpr std::int32_t adChar = 129;
inline constexpr std::int32_t adWChar = 130;
inline constexpr std::int32_t adNumeric = 131;
inline constexpr std::int32_t adUserDefined = 132;
inline constexpr std::int32_t adDBDate = 133;
inline constexpr std::int32_t adDBTime = 134;
inline constexpr std::int32_t adDBTimeStamp = 135;
inline constexpr std::int32_t adVarChar = 200;
inline constexpr std::int32_t adLongVarChar = 201;
inline constexpr std::int32_t adVarWChar = 202;
inline constexpr std::int32_t adLongVarWChar = 203;
inline constexpr std::int32_t adVarBinary = 204;
inline constexpr std::int32_t adLongVarBinary = 205;

} // namespace veldrane
