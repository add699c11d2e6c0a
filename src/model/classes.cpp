#include "model/classes.h"

namespace veldrane {

bool KZMClasses::ChangeClassName(const std::shared_ptr<KZMClass>& item, std::string_view oldKey,
                                 std::string_view newKey)
{
    if (!KeyedCollection::AddExisting(item, newKey))
        return false;
    Remove(oldKey);
    ClassNameChanged.Raise(std::string(oldKey), std::string(newKey));
    return true;
}

bool KZMClasses::AddExisting(const std::shared_ptr<KZMClass>& item, std::string_view key)
{
    if (!KeyedCollection::AddExisting(item, key))
        return false;
    if (!LoadingProject)
        NewClassAdded.Raise(item->ClassName);
    return true;
}

} // namespace veldrane
