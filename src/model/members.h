#pragma once

#include "collections/keyed_collection.h"

#include <memory>
#include <string>
#include <string_view>

namespace veldrane {

struct TTCMember
{
    std::string MemberName;
};

// The one namespace of a class: the names of its properties, methods, events and lookup fields.
class TTCMembers : public KeyedCollection<TTCMember, CollectionRules{.Item = OnMissing::YieldsNothing}>
{
  public:
    // Returns nothing if the key is in use: that is how a name clash is found everywhere in the program.
    std::shared_ptr<TTCMember> Add(std::string_view memberName, std::string_view key);
};

} // namespace veldrane
