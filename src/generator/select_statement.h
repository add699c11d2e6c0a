#pragma once

#include "generator/scopes.h"

#include <string>

namespace veldrane {

// The SELECT of the class's columns and of its lookups' fields, with the joins these need, up to and without a WHERE.
// Sets FieldAlias and FieldReference of the properties and the lookup fields: the names by which generated code reads
// the result. So it is built before the lines that read fields are. "", with a message, if the lookups need more than
// 15 joins.
[[nodiscard]] std::string BuildSelectStatement(const ClassScope& scope);

} // namespace veldrane
