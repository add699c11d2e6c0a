#pragma once

#include "collections/keyed_collection.h"
#include "model/class.h"
#include "model/signal.h"

#include <memory>
#include <string>
#include <string_view>

namespace veldrane {

// The classes of a project by their names, in the order in which they were added.
class KZMClasses : public KeyedCollection<KZMClass, CollectionRules{.Item = OnMissing::YieldsNothing,
                                                                    .Remove = OnMissing::Ignored,
                                                                    .Extra = Extras::AddExistingAndClear}>
{
  public:
    // Adds the class under the new key and removes the old entry, so the class is last afterwards; raises
    // ClassNameChanged. False if the new key is in use: nothing is changed then.
    bool ChangeClassName(const std::shared_ptr<KZMClass>& item, std::string_view oldKey, std::string_view newKey);

    // Adds the class and, unless a project is being read, raises NewClassAdded. False if the key is in use.
    bool AddExisting(const std::shared_ptr<KZMClass>& item, std::string_view key);

    // True while a project file is being read.
    bool LoadingProject = false;

    Signal<const std::string&> NewClassAdded;
    Signal<const std::string&, const std::string&> ClassNameChanged; // old and new name
};

} // namespace veldrane
