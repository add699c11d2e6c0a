#pragma once

#include "collections/keyed_collection.h"

#include <memory>
#include <string>
#include <string_view>

namespace veldrane {

struct TTCClassCollectionName
{
    std::string ClassCollectionName;
};

// The one namespace of a project's class names and collection-class names.
class TTCClassCollectionNames
    : public KeyedCollection<TTCClassCollectionName, CollectionRules{.Remove = OnMissing::Ignored}>
{
  public:
    // Throws RuntimeError 457 if the key is in use.
    std::shared_ptr<TTCClassCollectionName> Add(std::string_view classCollectionName, std::string_view key);

    [[nodiscard]] bool ClassNameExists(std::string_view name) const { return Contains(name); }
};

} // namespace veldrane
