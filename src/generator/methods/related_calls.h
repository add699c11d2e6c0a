#pragma once

#include "generator/scopes.h"

// The calls by which a routine that has read rows has the child collections read theirs.
namespace veldrane {

struct RelatedCallScope : ChildScope
{
    const std::string& List; // the arguments of the call
};

template <>
inline constexpr auto Vocabulary<RelatedCallScope> = JoinVocabularies(std::to_array<Placeholder<RelatedCallScope>>({{"List", [](std::string& line, const RelatedCallScope& s) { line += s.List; }}}),
                                                                      InheritedVocabulary<RelatedCallScope, ChildScope>());

// The arguments of the call for a child; `columns` are those of this class.
using RelatedCallList = std::string (*)(const ChildEmitter& child, const ColumnIndex& columns);

// The members of this object that the child's relationships join, then the flag if the child has children of its own to
// hand it to.
std::string MembersForChild(const ChildEmitter& child, const ColumnIndex& columns);

// A call for each child class.
void WriteRelatedCalls(const ClassEmitter& emit, RelatedCallList list, const TemplateLine<RelatedCallScope>& call);

// The argument that says whether the child collections are to be read too.
inline constexpr std::string_view kRetrieveChildren = "RetrieveChildren";

} // namespace veldrane
