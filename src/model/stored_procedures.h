#pragma once

#include "collections/keyed_collection.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace veldrane {

namespace parameter_direction {
inline constexpr std::int32_t kInput = 1;
inline constexpr std::int32_t kInputOutput = 2;
inline constexpr std::int32_t kOutput = 3;
inline constexpr std::int32_t kReturnValue = 4;
} // namespace parameter_direction

// One parameter of a stored procedure, as the catalog gives it. The members that the catalog may leave Null are held
// as text, "" for Null: file and generated code carry nothing but their text.
struct SPParameter
{
    // The name cut before the first ";" and without punctuation: "@CustomerID" gives "CustomerID".
    [[nodiscard]] std::string ParameterCleanName() const;

    // "Variant" for a parameter that allows Null, otherwise the Visual Basic type of `DataType`.
    [[nodiscard]] std::string VBDataType() const;

    std::string ParameterName;
    std::string DataType;
    std::int16_t DataTypeNumber = 0;
    std::string CharacterMaximumLength;
    std::int32_t Direction = 0;
    std::string DefaultValue;
    std::string Description;
    bool IsNullable = false;
    std::string LocalDataTypeName;
    std::string NumericPrecision;
    std::string NumericScale;
    std::int16_t OrdianalPosition = 0; // spelled so in every file
    bool ParameterHasDefault = false;
};

class SPParameters : public KeyedCollection<SPParameter, CollectionRules{.Extra = Extras::AddExisting}>
{
  public:
    // Throws RuntimeError 457 if the key is in use.
    std::shared_ptr<SPParameter> Add(std::string_view parameterName, std::string_view dataType,
                                     std::int16_t dataTypeNumber, std::string_view key);
};

// A stored procedure and the function that calls it.
struct SP
{
    // `SPName` cut before the first ";" and without punctuation: "GetOrders;1" gives "GetOrders".
    [[nodiscard]] std::string SPCleanName() const;

    std::string SPName; // the catalog's name, version tail included
    std::string SPMethodName;
    veldrane::SPParameters SPParameters;
};

class SPs : public KeyedCollection<SP, CollectionRules{.Item = OnMissing::YieldsNothing, .Extra = Extras::AddExisting}>
{
  public:
    // Throws RuntimeError 457 if the key is in use.
    std::shared_ptr<SP> Add(std::string_view spName, std::string_view key);
};

} // namespace veldrane
