#pragma once

#include "jet/database.h"
#include "jet/definition.h"
#include "jet/header_page.h"

namespace veldrane::jet {

// Whether a column may be left empty.
enum class Presence
{
    Optional,
    Required,
};

// The column as ADO describes it: type and size after the published table of the provider. A Yes/No column is never
// null, whatever its properties say. Throws Refusal(kDamaged) for a type that the engine does not have.
[[nodiscard]] Column DescribeColumn(const ColumnDefinition& definition, Version version, Presence presence);

// The column that an expression of a query gives, which has no type of its own: text that may be null.
[[nodiscard]] Column DescribeExpression(std::string name);

} // namespace veldrane::jet
