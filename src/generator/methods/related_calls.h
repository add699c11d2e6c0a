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

// A call for each child class, its arguments the members of this object.
void WriteRelatedCalls(const ClassEmitter& emit, const TemplateLine<RelatedCallScope>& call);

// The argument that says whether the child collections are to be read too.
inline constexpr std::string_view kRetrieveChildren = "RetrieveChildren";

} // namespace veldrane
