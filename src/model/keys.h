#pragma once

#include "collections/keyed_collection.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace veldrane {

// A column of a key or of a relationship.
struct TTCColumn
{
    std::string ColumnName;
    std::string ColumnDataType; // a Visual Basic type name
    std::string JoinColumnName; // of a relationship: the column of the parent table that is joined to this one
};

// The columns of a key.
class TTCColumns
    : public KeyedCollection<TTCColumn, CollectionRules{.Item = OnMissing::YieldsNothing, .Extra = Extras::AddExisting}>
{
  public:
    // Throws RuntimeError 457 if the key is in use.
    std::shared_ptr<TTCColumn> Add(std::string_view columnName, std::string_view columnDataType,
                                   std::string_view joinColumnName, std::string_view key);
};

namespace key_type {
inline constexpr std::int32_t kPrimaryKey = 0;
inline constexpr std::int32_t kIdentityColumn = 1;
} // namespace key_type

struct TTCKey
{
    veldrane::TTCColumns TTCColumns;
    std::int32_t KeyType = key_type::kPrimaryKey;
};

// The text of a key type: the key under which a TTCKey stands. It has no leading blank, so that a file, a clone and
// a class made from a table reach a key by the same text.
[[nodiscard]] std::string KeyTypeText(std::int32_t keyType);

class TTCKeys : public KeyedCollection<TTCKey, CollectionRules{.Item = OnMissing::YieldsNothing,
                                                               .Extra = Extras::AddExistingAndClear}>
{
  public:
    // Throws RuntimeError 457 if the key is in use.
    std::shared_ptr<TTCKey> Add(std::int32_t keyType, TTCColumns columns, std::string_view key);
};

} // namespace veldrane
