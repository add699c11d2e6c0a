#include "generator/writers.h"
#include "text/characters.h"

namespace veldrane {
namespace {

// A line of Visual Basic that is longer is spread over several.
constexpr std::size_t kLongestLine = 1000;

struct AddScope : ClassScope
{
    const std::string& AddArguments;
};

} // namespace

template <>
inline constexpr auto Vocabulary<AddScope> = JoinVocabularies(std::to_array<Placeholder<AddScope>>({{"AddArguments", [](std::string& line, const AddScope& s) { line += s.AddArguments; }}}),
                                                              InheritedVocabulary<AddScope, ClassScope>());

namespace {

void WriteInitialize(const ClassEmitter& emit)
{
    emit("Private Sub Class_Initialize()", LineClass::HeadSub);
    emit("    Set mCol = New Collection");
    emit("End Sub", LineClass::Head);
}

void WriteTerminate(const ClassEmitter& emit)
{
    emit("Private Sub Class_Terminate()", LineClass::HeadSub);
    emit("    Set mCol = Nothing");
    emit("End Sub", LineClass::Head);
}

// Of a top-level class's collection, code outside the generated project can't change the members.
void WriteRemove(const ClassEmitter& emit)
{
    if (IsTopLevel(emit.Scope().Class))
        emit("Friend Sub Remove(vntIndexKey As Variant)", LineClass::HeadSub);
    else
        emit("Public Sub Remove(vntIndexKey As Variant)", LineClass::HeadSub);
    emit("    mCol.Remove vntIndexKey");
    emit("End Sub", LineClass::Head);
}

void WriteClear(const ClassEmitter& emit)
{
    if (IsTopLevel(emit.Scope().Class))
        emit("Friend Sub Clear()", LineClass::HeadSub);
    else
        emit("Public Sub Clear()", LineClass::HeadSub);
    emit("    Set mCol = Nothing");
    emit("    Set mCol = New Collection");
    emit("End Sub", LineClass::Head);
}

void WriteAddExisting(const ClassEmitter& emit)
{
    const bool isTopLevel = IsTopLevel(emit.Scope().Class);
    if (isTopLevel)
        emit("Friend Function AddExisting(a{ClassName} as {ClassName}, Optional sKey as String) as Boolean", LineClass::HeadPlusMethod);
    else
        emit("Public Function AddExisting(a{ClassName} as {ClassName}, Optional sKey as String) as Boolean", LineClass::HeadPlusMethod);
    emit("    On Error Goto errAddExisting");
    emit("    If Len(sKey) = 0 Then");
    emit("        mCol.Add a{ClassName}");
    emit("    Else");
    emit("        mCol.Add a{ClassName}, sKey");
    if (emit.Scope().Class.CollectionAddNewKey)
        emit("        {m:String}LastNewKey = sKey");
    emit("    End If");
    emit("    AddExisting = {True}");
    if (RaisesRecordAdded(emit.Scope()))
        emit("    RaiseEvent RecordAdded(a{ClassName})");
    emit("    Exit Function");
    emit("errAddExisting:");
    emit("    AddExisting = False");
    // A child's line is one of code: on purpose.
    emit("End Function", isTopLevel ? LineClass::Head : LineClass::Code);
}

// Foreign keys belong to the parent: they are neither taken nor set by Add.
bool IsSetByAdd(const TTCProperty& property, const RelationshipProperties& relationships)
{
    return !property.PlusProperty && property.AddToClass && property.PropertyLetSet && !relationships.Contains(property.PropertyName);
}

std::string AddArguments(const ClassEmitter& emit, const RelationshipProperties& relationships)
{
    std::string arguments;
    ForEachProperty(emit, [&](const PropertyEmitter& property) {
        const TTCProperty& about = property.Scope().Property;
        if (IsSetByAdd(about, relationships) && !about.ReadOnly)
            arguments += property.Text("{PropertyName} as {DataType}, ");
    });
    arguments += "Optional sKey as String";
    return arguments;
}

void WriteFirstLineOfAdd(const ClassEmitter& emit, const std::string& addArguments)
{
    const AddScope scope{emit.Scope(), addArguments};
    std::string line = emit.About(scope).Text("Public Function Add({AddArguments}) as {ClassName}");
    if (text::Length(line) > kLongestLine)
        AddSplitLine(line, emit.Lines(), LineClass::HeadFunction, scope.Asking);
    else
        emit.Lines().Add(std::move(line), LineClass::HeadFunction);
}

void WriteAssignment(const PropertyEmitter& emit)
{
    if (!IsObjectType(emit.Scope().Property.DataType)) {
        emit("    objNewMember.{PropertyName} = {PropertyName}");
        return;
    }
    emit("    If IsObject(objNewMember.{PropertyName}) Then");
    emit("        Set objNewMember.{PropertyName} = {PropertyName}");
    emit("    Else");
    emit("        objNewMember.{PropertyName} = {PropertyName}");
    emit("    End If");
}

void WriteAdd(const ClassEmitter& emit)
{
    const RelationshipProperties relationships(emit.Scope().Class);
    WriteFirstLineOfAdd(emit, AddArguments(emit, relationships));
    emit("    Dim objNewMember As {ClassName}");
    emit("    Set objNewMember = New {ClassName}");
    // Read-only properties as well, though Add has no such argument: on purpose.
    ForEachProperty(emit, [&](const PropertyEmitter& property) {
        if (IsSetByAdd(property.Scope().Property, relationships))
            WriteAssignment(property);
    });
    emit("    If Len(sKey) = 0 Then");
    emit("        mCol.Add objNewMember");
    emit("    Else");
    emit("        mCol.Add objNewMember, sKey");
    if (emit.Scope().Class.CollectionAddNewKey)
        emit("        {m:String}LastNewKey = sKey");
    emit("    End If");
    emit("    Set Add = objNewMember");
    if (RaisesRecordAdded(emit.Scope()))
        emit("    RaiseEvent RecordAdded(objNewMember)");
    emit("    Set objNewMember = Nothing");
    emit("End Function", LineClass::Head);
}

} // namespace

TTCOutputs WriteCollectionMethods(const ClassScope& scope)
{
    TTCOutputs lines(scope.Settings.Colors);
    const ClassEmitter emit(lines, scope);
    const bool isTopLevel = IsTopLevel(scope.Class);
    WriteInitialize(emit);
    WriteTerminate(emit);
    WriteRemove(emit);
    WriteClear(emit);
    // The parent's code fills a top-level collection, so that has it always.
    if (isTopLevel || scope.Class.IncludeAddExisting)
        WriteAddExisting(emit);
    if (!isTopLevel) {
        WriteAdd(emit);
        GenerateRetrieveRelatedMethod(emit);
    }
    return lines;
}

} // namespace veldrane
