#pragma once

#include "generator/scopes.h"

#include <string>

// The condition that finds one row, as a piece of a string expression in generated code. It stands behind the opening
// of the string, `a.OrderID = ` & anOrderID for one: the line that takes it converts its quotes.
namespace veldrane {

// A line with such a condition.
struct WhereScope : ClassScope
{
    const std::string& Where;
};

template <>
inline constexpr auto Vocabulary<WhereScope> = JoinVocabularies(std::to_array<Placeholder<WhereScope>>({{"Where", [](std::string& line, const WhereScope& s) { line += s.Where; }}}),
                                                                InheritedVocabulary<WhereScope, ClassScope>());

// The condition on those arguments of Retrieve or of Delete that stand for columns of the key by which the method finds
// its row; with none of these, on the argument named after the identity property. It ends its statement.
[[nodiscard]] std::string WhereOfRetrieve(const KZMClass& owner, const KZMArguments& arguments);
[[nodiscard]] std::string WhereOfDelete(const KZMClass& owner, const KZMArguments& arguments);

enum class WhereEnd
{
    Statement,
    ClosedByTheLine, // the line's own quote closes the string
};

// The condition on the row as it was last read: by the identity property of a class that is found by it, else by the
// values of the primary key that the class keeps, else by whatever identity property there is.
[[nodiscard]] std::string WhereOfStoredRow(const ClassScope& scope, WhereEnd end);

// The condition on the arguments of RetrieveIdentity. It ends its statement.
[[nodiscard]] std::string WhereOfRetrieveIdentity(const KZMClass& owner);

// The condition on the arguments of RetrieveRelated, in the order of the relationships. It ends its statement; "" if no
// column of a relationship has a property.
[[nodiscard]] std::string WhereOfRelationships(const KZMClass& owner);

} // namespace veldrane
