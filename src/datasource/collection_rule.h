#pragma once

#include "model/class.h"
#include "ports/messages.h"

#include <string>

namespace veldrane {

enum class CollectionBox
{
    Cleared,
    Ticked,
};

// Whether the class stands on top level.
[[nodiscard]] bool IsRootClass(const KZMClass& item);

// What happens when the box "generate a collection" of a class is set or cleared: a root class gets the method
// RetrieveList, or, after "Confirm Change" with these buttons, loses it. Returns the state in which the box stays.
CollectionBox ChangeCollectionBox(KZMClass& item, CollectionBox wanted, Buttons confirmation, Messages& messages);

} // namespace veldrane
