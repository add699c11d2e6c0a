#pragma once

#include "datasource/class_edit.h"

#include <cstdint>
#include <memory>

namespace veldrane {

// Fills the keys of the class from its table: each primary key that the catalog knows under its index's name, and the
// identity column under the text of its key type. After a failure, which is told if the class has no key, the keys are
// as they were, and later calls on the same edit look for the identity column alone.
void RetrieveTableKeys(ClassEdit& edit);

// Gives a class whose first identity column stands in no key one that says so; else nothing happens.
void AddIdentityKey(KZMClass& item);

// The first key of a type (key_type in model/keys.h); nothing if there is none.
[[nodiscard]] std::shared_ptr<TTCKey> FirstKey(const KZMClass& item, std::int32_t keyType);

// The first property that stands on an identity column; nothing if there is none.
[[nodiscard]] const TTCProperty* IdentityProperty(const KZMClass& item);

} // namespace veldrane
