#include "generator/class_block.h"
#include "generator/writers.h"

namespace veldrane {
namespace {

// Whether code outside the generated project may create objects of the class.
bool IsCreatable(const KZMClass& owner)
{
    if (!owner.ParentClassName.empty() && !owner.CreateCollection)
        return true;
    return owner.TTCMethods.Contains("Clone");
}

struct MemberKeyScope : ChildScope
{
    int N;
};

} // namespace

template <>
inline constexpr auto
    Vocabulary<MemberKeyScope> = JoinVocabularies(std::to_array<Placeholder<MemberKeyScope>>({{"N", [](std::string& line, const MemberKeyScope& s) { line += std::to_string(s.N); }}}),
                                                  InheritedVocabulary<MemberKeyScope, ChildScope>());

namespace {

void WriteMemberKeys(const ClassEmitter& emit)
{
    int number = 0;
    ForEachChild(emit, [&](const ChildEmitter& child) {
        const MemberKeyScope scope{child.Scope(), number++};
        child.About(scope)("Attribute VB_Ext_KEY = `Member{N}` ,`{C.CollectionName}`", LineClass::Hidden);
    });
}

} // namespace

TTCOutputs WriteClassHeader(const ClassScope& scope)
{
    TTCOutputs lines(scope.Settings.Colors);
    const ClassEmitter emit(lines, scope);
    WriteClassBlock(emit.About<ProjectScope>(scope), ModuleKind::Class);
    emit("Attribute VB_Name = `{ClassName}`", LineClass::Hidden);
    emit("Attribute VB_GlobalNameSpace = False", LineClass::Hidden);
    if (IsCreatable(scope.Class))
        emit("Attribute VB_Creatable = {True}", LineClass::Hidden);
    else
        emit("Attribute VB_Creatable = {False}", LineClass::Hidden);
    emit("Attribute VB_PredeclaredId = False", LineClass::Hidden);
    emit("Attribute VB_Exposed = {True}", LineClass::Hidden);
    emit("Attribute VB_Ext_KEY = `SavedWithClassBuilder`, `Yes`", LineClass::Hidden);
    emit("Attribute VB_Ext_KEY = `SavedWithClassBuilder6`, `Yes`", LineClass::Hidden);
    // The blank before the comma, unlike the two above: on purpose.
    emit("Attribute VB_Ext_KEY = `GeneratedByVeldraneKit` ,`Yes`", LineClass::Hidden);
    if (scope.Class.ParentClassName.empty())
        emit("Attribute VB_Ext_KEY = `Top_Level`, `Yes`", LineClass::Hidden);
    else
        emit("Attribute VB_Ext_KEY = `Top_Level`, `No`", LineClass::Hidden);
    WriteMemberKeys(emit);
    emit("Option Explicit", LineClass::Head);
    return lines;
}

} // namespace veldrane
