#pragma once

#include "collections/keyed_collection.h"
#include "model/keys.h"

#include <memory>
#include <string>
#include <string_view>

namespace veldrane {

// The columns of a relationship. Unlike TTCColumns, a missing key raises.
class Columns : public KeyedCollection<TTCColumn, CollectionRules{.Extra = Extras::AddExisting}>
{
  public:
    // Throws RuntimeError 457 if the key is in use.
    std::shared_ptr<TTCColumn> Add(std::string_view columnName, std::string_view columnDataType,
                                   std::string_view joinColumnName, std::string_view key);
};

struct TTCRelationship
{
    std::string ParentTableName;
    veldrane::Columns Columns;
    std::string KeyName; // the foreign key's name in the catalog; its key in TTCRelationships
};

class TTCRelationships : public KeyedCollection<TTCRelationship, CollectionRules{.Item = OnMissing::YieldsNothing,
                                                                                 .Extra = Extras::AddExistingAndClear}>
{
  public:
    // Throws RuntimeError 457 if the key is in use.
    std::shared_ptr<TTCRelationship> Add(std::string_view keyName, std::string_view parentTableName, Columns columns,
                                         std::string_view key);
};

} // namespace veldrane
