#include "generator/class_block.h"
#include "generator/key_text.h"
#include "generator/writers.h"

// A collection module is a typed wrapper of a Visual Basic Collection whose members are objects of the class.
namespace veldrane {
namespace {

struct KeyFunctionScope : ClassScope
{
    const std::string& KeyExpression;
};

} // namespace

template <>
inline constexpr auto
    Vocabulary<KeyFunctionScope> = JoinVocabularies(std::to_array<Placeholder<KeyFunctionScope>>({{"KeyExpression", [](std::string& line, const KeyFunctionScope& s) { line += s.KeyExpression; }}}),
                                                    InheritedVocabulary<KeyFunctionScope, ClassScope>());

namespace {

// The key of a member, as the generated code that fills the collection forms it; "" if the class has none.
std::string KeyExpression(const ClassEmitter& emit)
{
    const auto part = [&](TTCProperty& property, const TemplateLine<PropertyScope>& line) {
        const PropertyScope scope{emit.Scope(), property};
        return emit.About(scope).Text(line);
    };
    std::string key;
    AppendKeyText(
        key, emit.Scope().Class, PropertiesOnColumn::Every, [&](TTCProperty& property) { return part(property, "`:` & a{ClassName}.{PropertyName}"); },
        [&](TTCProperty& property) { return part(property, "`:` & a{ClassName}.{PropertyName} & "); });
    return key;
}

void WriteItem(const ClassEmitter& emit)
{
    emit("Public Property Get Item(vntIndexKey As Variant) As {ClassName}", LineClass::HeadProperty);
    emit("Attribute Item.VB_UserMemId = 0", LineClass::Hidden);
    emit("    On Error Resume Next");
    emit("    Set Item = mCol(vntIndexKey)");
    emit("    If Err.Number <> 0 then");
    emit("        Set Item = Nothing");
    emit("    End If");
    emit("End Property", LineClass::Head);
}

void WriteKeyFunction(const ClassEmitter& emit)
{
    const std::string keyExpression = KeyExpression(emit);
    const KeyFunctionScope scope{emit.Scope(), keyExpression};
    const Emitter<KeyFunctionScope> function = emit.About(scope);
    function("Public Function Key(ByRef a{ClassName} as {ClassName}) as String", LineClass::HeadFunction);
    if (!keyExpression.empty())
        function("    Key = {KeyExpression}", LineClass::Code, Quotes::Convert);
    else if (scope.Class.RetrieveByIdentityCol)
        function("    'This collection is indexed using the identity column, not a key value");
    else
        function("    Msgbox `NO PRIMARY KEY HAS BEEN DEFINED FOR THE {TableName} TABLE IN VELDRANE.`");
    function("End Function", LineClass::Head);
}

void WriteCount(const ClassEmitter& emit)
{
    emit("Public Property Get Count() As Long", LineClass::HeadProperty);
    emit("    Count = mCol.Count");
    emit("End Property", LineClass::Head);
}

void WriteNewEnum(const ClassEmitter& emit)
{
    emit("Public Property Get NewEnum() As IUnknown", LineClass::HeadProperty);
    emit("Attribute NewEnum.VB_UserMemId = -4", LineClass::Hidden);
    emit("Attribute NewEnum.VB_MemberFlags = `40`", LineClass::Hidden);
    emit("    Set NewEnum = mCol.[_NewEnum]");
    emit("End Property", LineClass::Head);
}

void WriteLastNewKey(const ClassEmitter& emit)
{
    emit("Public Property Get LastNewKey() As String", LineClass::HeadProperty);
    emit("    LastNewKey = {m:String}LastNewKey");
    emit("End Property", LineClass::Head);
}

} // namespace

TTCOutputs WriteCollectionHeader(const ClassScope& scope)
{
    TTCOutputs lines(scope.Settings.Colors);
    const ClassEmitter emit(lines, scope);
    WriteClassBlock(emit.About<ProjectScope>(scope), ModuleKind::Class);
    emit("Attribute VB_Name = `{CollectionName}`", LineClass::Hidden);
    emit("Attribute VB_GlobalNameSpace = False", LineClass::Hidden);
    if (IsTopLevel(scope.Class))
        emit("Attribute VB_Creatable = {True}", LineClass::Hidden);
    else
        emit("Attribute VB_Creatable = {False}", LineClass::Hidden);
    emit("Attribute VB_PredeclaredId = {False}", LineClass::Hidden);
    emit("Attribute VB_Exposed = {True}", LineClass::Hidden);
    // A comma and a blank here, a blank and a comma below: on purpose.
    emit("Attribute VB_Ext_KEY = `SavedWithClassBuilder`, `Yes`", LineClass::Hidden);
    emit("Attribute VB_Ext_KEY = `SavedWithClassBuilder6`, `Yes`", LineClass::Hidden);
    emit("Attribute VB_Ext_KEY = `GeneratedByVeldraneKit`, `Yes`", LineClass::Hidden);
    emit("Attribute VB_Ext_KEY = `Collection` ,`{ClassName}`", LineClass::Hidden);
    emit("Attribute VB_Ext_KEY = `Member0` ,`{ClassName}`", LineClass::Hidden);
    if (IsTopLevel(scope.Class))
        emit("Attribute VB_Ext_KEY = `Top_Level`, `Yes`", LineClass::Hidden);
    else
        emit("Attribute VB_Ext_KEY = `Top_Level`, `No`", LineClass::Hidden);
    emit("Option Explicit", LineClass::Head);
    return lines;
}

TTCOutputs WriteCollectionDeclarations(const ClassScope& scope)
{
    TTCOutputs lines(scope.Settings.Colors);
    const ClassEmitter emit(lines, scope);
    // Code below spells it mCol: both on purpose, Visual Basic does not tell them apart.
    emit("Private mcol as Collection");
    if (scope.Class.CollectionAddNewKey)
        emit("Private {m:String}LastNewKey as String");
    if (RaisesRecordAdded(scope))
        emit("Public Event RecordAdded(ByRef a{ClassName} as {ClassName})");
    return lines;
}

TTCOutputs WriteCollectionProperties(const ClassScope& scope)
{
    TTCOutputs lines(scope.Settings.Colors);
    const ClassEmitter emit(lines, scope);
    WriteItem(emit);
    WriteKeyFunction(emit);
    WriteCount(emit);
    WriteNewEnum(emit);
    if (scope.Class.CollectionAddNewKey)
        WriteLastNewKey(emit);
    return lines;
}

} // namespace veldrane
