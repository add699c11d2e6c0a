#pragma once

#include "collections/keyed_collection.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace veldrane {

// An argument of a method or an event.
struct TTCParameter
{
    // An independent copy, without ColumnName.
    [[nodiscard]] std::shared_ptr<TTCParameter> Clone() const;

    bool ByValIndicator = false;
    std::string VariableName;
    std::string ParameterDataType;
    bool OptionalIndicator = false;
    std::string DefaultValue;
    bool IsArray = false;
    std::int16_t Index = 0; // 1-based position in the argument list
    std::string ColumnName; // the database column that the argument stands for, where a built-in method binds it

    friend bool operator==(const TTCParameter&, const TTCParameter&) = default;
};

// The arguments of a method.
class KZMArguments : public KeyedCollection<TTCParameter, CollectionRules{.Extra = Extras::AddExistingAndClear}>
{
  public:
    // Throws RuntimeError 457 if the key is in use.
    std::shared_ptr<TTCParameter> Add(std::string_view columnName, std::int16_t index, bool byValIndicator,
                                      std::string_view variableName, std::string_view parameterDataType,
                                      bool optionalIndicator, std::string_view defaultValue, bool isArray,
                                      std::string_view key);
};

// The arguments of an event: these never bind a column.
class TTCEventParameters : public KeyedCollection<TTCParameter, CollectionRules{.Extra = Extras::AddExistingAndClear}>
{
  public:
    // Throws RuntimeError 457 if the key is in use.
    std::shared_ptr<TTCParameter> Add(std::int16_t index, bool byValIndicator, std::string_view variableName,
                                      std::string_view parameterDataType, bool optionalIndicator,
                                      std::string_view defaultValue, bool isArray, std::string_view key);
};

} // namespace veldrane
