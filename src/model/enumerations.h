#pragma once

#include "collections/keyed_collection.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace veldrane {

// A number or an object; empty until it is set.
using EnumValueContent = std::variant<std::monostate, std::int64_t, double, std::shared_ptr<void>>;

struct TTCEnumValue
{
    std::string VariableName;
    EnumValueContent Value;
};

class TTCEnumValues : public KeyedCollection<TTCEnumValue, CollectionRules{}>
{
  public:
    // Throws RuntimeError 457 if the key is in use.
    std::shared_ptr<TTCEnumValue> Add(std::string_view variableName, EnumValueContent value, std::string_view key);
};

// An enumeration of a class. It exists for the session only: no file stores it.
struct TTCEnum
{
    TTCEnumValues EnumValues;
    std::string EnumName;
};

class TTCEnumerations : public KeyedCollection<TTCEnum, CollectionRules{}>
{
  public:
    // Throws RuntimeError 457 if the key is in use.
    std::shared_ptr<TTCEnum> Add(std::string_view enumName, std::string_view key);
};

} // namespace veldrane
