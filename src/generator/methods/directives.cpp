#include "generator/methods/directives.h"

namespace veldrane {
namespace {

// One column of the relationship with the parent, and its number.
struct PropogationScope : ClassScope
{
    const TTCColumn& Column;
    int N;
};

bool HasIdentityColumn(const KZMClass& owner)
{
    for (const TTCProperty& property : owner.TTCProperties)
        if (property.FieldIsIdentityCol)
            return true;
    return false;
}

} // namespace

template <>
inline constexpr auto Vocabulary<PropogationScope> = JoinVocabularies(std::to_array<Placeholder<PropogationScope>>({
                                                                          {"N", [](std::string& line, const PropogationScope& s) { line += std::to_string(s.N); }},
                                                                          {"JoinColumn", [](std::string& line, const PropogationScope& s) { line += s.Column.ColumnName; }},
                                                                          {"ParentColumn", [](std::string& line, const PropogationScope& s) { line += s.Column.JoinColumnName; }},
                                                                      }),
                                                                      InheritedVocabulary<PropogationScope, ClassScope>());

void WriteLogAttributes(const ProjectEmitter& emit)
{
    if (!emit.Scope().Project.LogTransactions)
        return;
    emit("    xmlAssist.AddAttribute `LogToDB`, gLogToDatabase, Directives.documentElement");
    emit("    xmlAssist.AddAttribute `LogToTable`, gLogToTable, Directives.documentElement");
    emit("    xmlAssist.AddAttribute `User`, gCurrentUser, Directives.documentElement");
}

void WriteDocumentRoot(const ClassEmitter& emit, const ClassLine& operation, OperationAttribute stands)
{
    if (!IsTopLevel(emit.Scope().Class))
        return;
    emit("    Set XMLAssist.Document = Directives");
    emit("    Directives.LoadXML `<KZMCP></KZMCP>`");
    emit("    xmlAssist.AddAttribute `CON`, gConnectionString, Directives.documentElement");
    emit(operation);
    WriteLogAttributes(emit);
    if (stands == OperationAttribute::AroundTheLog)
        emit(operation);
    emit("    Set Modifications = xmlAssist.AddElement(`Mods`, Directives.documentElement)");
}

void WriteModificationElement(const ClassEmitter& emit)
{
    if (IsTopLevel(emit.Scope().Class))
        emit("    Set Modification = xmlAssist.AddElement(`{ClassName}`, Modifications)");
    else
        emit("    Set Modification = xmlAssist.AddElement(ParentModificationKey & ChildModificationKey, Modifications)");
}

void WriteTableHasID(const ClassEmitter& emit)
{
    if (HasIdentityColumn(emit.Scope().Class))
        emit("    xmlAssist.AddAttribute `TableHasID`, `1`, Modification");
    else
        emit("    xmlAssist.AddAttribute `TableHasID`, `0`, Modification");
}

void WriteFieldElements(const ClassEmitter& emit, const TemplateLine<PropertyScope>& untracked)
{
    emit("    Set Fields = xmlAssist.AddElement(`Fields`, Modification)");
    ForEachStoredProperty(emit, [&](const PropertyEmitter& property) {
        if (IsTracked(property.Scope()))
            property(
                "    If {m:Boolean}z{PropertyName} Then Set Field = xmlAssist.AddElement(`{FieldName}`, Fields) : xmlAssist.AddAttribute `F`, `{Col}`, Field : xmlAssist.AddAttribute `V`, {m:DataType}{PropertyName}, Field");
        else
            property(untracked);
        if (property.Scope().Property.FieldIsIdentityCol)
            property("    xmlAssist.AddAttribute `IsID`, `1`, Field");
    });
}

void WritePropogations(const ClassEmitter& emit)
{
    const KZMClass& owner = emit.Scope().Class;
    if (IsTopLevel(owner) || owner.TTCRelationships.Count() == 0)
        return;
    emit("    Set Propogations = xmlAssist.AddElement(`Propogations`, Modification)");
    const ColumnIndex columns(owner);
    int number = 0; // counts the columns without a property as well: on purpose
    for (const TTCRelationship& relationship : owner.TTCRelationships)
        for (const TTCColumn& column : relationship.Columns) {
            const PropogationScope scope{emit.Scope(), column, number++};
            if (columns.PropertyOn(column.ColumnName) == nullptr)
                continue;
            const Emitter<PropogationScope> about = emit.About(scope);
            about("    Set Propogation = xmlAssist.AddElement(`P{N}`, Propogations)");
            about("    xmlAssist.AddAttribute `IDParentMod`, FullModificationKey, Propogation");
            about("    xmlAssist.AddAttribute `ChildField`, `{JoinColumn}` ,Propogation");
            about("    xmlAssist.AddAttribute `ParentField`, `{ParentColumn}`,Propogation");
        }
}

void WriteNumberedCall(const ChildEmitter& emit, const TemplateLine<ChildScope>& call)
{
    emit("    KeyCounter = 0");
    emit("    For Each q{C.ClassName} in {m:Collection}{C.CollectionName}");
    emit(call);
    emit("        KeyCounter = KeyCounter + 1");
    emit("    Next");
}

void WriteNumberedCalls(const ClassEmitter& emit, const TemplateLine<ChildScope>& call)
{
    ForEachChild(emit, [&](const ChildEmitter& child) { WriteNumberedCall(child, call); });
}

void WriteExecution(const ClassEmitter& emit)
{
    emit("    Directives.Save App.Path & `\\Directives.xml`");
    emit("    Set ComponentServices = New CSProcess");
    emit("    msg = ComponentServices.ExecuteDirectives(Directives.xml)");
    emit("    Set ComponentServices = Nothing");
    emit("    If Left$(msg, 7) <> `<KZMRET` Then");
    emit("        Err.Raise 1000, `Component Services Error`, msg");
    emit("    End If");
    emit("    Directives.loadXML msg");
    emit("    Set RetModification = Directives.getElementsByTagName(`{ClassName}`)");
}

void WriteReturnedKeys(const ClassEmitter& emit)
{
    WritePushCopies(emit, "    SET {Push}{PropertyName}={m:DataType}{PropertyName}", "    {Push}{PropertyName}={m:DataType}{PropertyName}");
}

} // namespace veldrane
