#include "generator/methods/deleted_children.h"

namespace veldrane {
namespace {

struct RemovalScope : ChildScope
{
    int K;
};

} // namespace

template <>
inline constexpr auto Vocabulary<RemovalScope> = JoinVocabularies(std::to_array<Placeholder<RemovalScope>>({{"K", [](std::string& line, const RemovalScope& s) { line += std::to_string(s.K); }}}),
                                                                  InheritedVocabulary<RemovalScope, ChildScope>());

void DeletedChildren::Write(const ChildEmitter& emit)
{
    if (!emit.Scope().C.TTCProperties.Contains("Deleted"))
        return;
    const RemovalScope scope{emit.Scope(), ++k_};
    const Emitter<RemovalScope> about = emit.About(scope);
    about("BeginAgain{K}:");
    about("    For Count = 1 to {m:Collection}{C.CollectionName}.Count");
    about("        If {m:Collection}{C.CollectionName}(Count).Deleted = {True} Then");
    about("            {m:Collection}{C.CollectionName}.Remove Count");
    about("            Goto BeginAgain{K}");
    about("        End If");
    about("    Next");
}

} // namespace veldrane
