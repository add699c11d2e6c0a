#pragma once

#include "model/class.h"
#include "random_names.h"

#include <string_view>

namespace veldrane::testing {

// The types of a column: that of its property and the display name of its own.
struct ColumnTypes
{
    std::string_view DataType;
    std::string_view FieldDataType;
};

[[nodiscard]] const ColumnTypes& RandomColumnTypes(RandomNumbers& random);

// Adds a property on a new column of the class's table.
TTCProperty& AddRandomColumn(RandomNumbers& random, RandomNames& names, KZMClass& owner, const ColumnTypes& types);

// Gives a class with a table its keys, its columns, the relationships to its parent and its lookups.
void AddRandomTable(RandomNumbers& random, RandomNames& names, KZMClass& owner, const KZMClass* parent);

} // namespace veldrane::testing
