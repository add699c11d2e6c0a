#pragma once

#include "model/class.h"

#include <string>

// How members leave a class.
namespace veldrane {

// Frees the name; harmless if it is not in use.
inline void RemoveMemberName(KZMClass& item, const std::string& name)
{
    if (item.TTCMembers.Contains(name))
        item.TTCMembers.Remove(name);
}

// Removes the item by its place: one that was renamed may stand under its first name.
template <class Collection, class Item>
void RemoveItem(Collection& items, const Item& item)
{
    for (std::size_t position = items.Count(); position >= 1; --position)
        if (items.Item(position).get() == &item)
            items.Remove(position);
}

} // namespace veldrane
