#include "generator/methods/directives.h"
#include "generator/writers.h"

// Add has two bodies: with component services an object makes or fills a document of directives, without it adds its row
// through a recordset and then its children's.
namespace veldrane {
namespace {

// An object that is marked as deleted has nothing to add.
void WriteDeletedGuard(const ClassEmitter& emit)
{
    if (!HasProperty(emit.Scope(), "Deleted"))
        return;
    emit("    If {m:Boolean}Deleted = {True} Then");
    emit("        Add = {True}");
    emit("        Exit Function");
    emit("    End If");
}

void WriteDirectivesHead(const MethodEmitter& emit)
{
    const bool isTopLevel = IsTopLevel(emit.Scope().Class);
    if (isTopLevel)
        emit("Public Function Add() as {ReturnDataType}", LineClass::HeadPlusMethod);
    else
        emit("Friend Function Add(ByVal ParentModificationKey as String, ByVal ChildModificationKey as String, ByVal FullModificationKey as String) as Boolean", LineClass::HeadPlusMethod);
    emit("    On Error Goto errAdd");
    if (isTopLevel) {
        emit("    Set Directives = Nothing");
        emit("    Set Directives = New DOMDocument");
    }
    WriteChildVariables(emit, "    Dim q{C.ClassName} as {C.ClassName}");
    emit("    Dim KeyCounter as Long");
    WriteDeletedGuard(emit);
    if (isTopLevel)
        emit("    Screen.MousePointer = vbHourglass");
}

void WriteDocument(const ClassEmitter& emit)
{
    WriteDocumentRoot(emit, "    xmlAssist.AddAttribute `OP`, `AddNew`, Directives.documentElement", OperationAttribute::AroundTheLog);
    WriteModificationElement(emit);
    WriteTableHasID(emit);
    emit("    xmlAssist.AddAttribute `Table`, `{TableName}`, Modification");
    WriteTimingLine(emit, "    StartTime = Timer");
    WriteFieldElements(emit,
                       "    Set Field = xmlAssist.AddElement(`{FieldName}`, Fields) : xmlAssist.AddAttribute `F`, `{Col}`, Field : xmlAssist.AddAttribute `V`, {m:DataType}{PropertyName}, Field");
    WritePropogations(emit);
    if (IsTopLevel(emit.Scope().Class))
        WriteNumberedCalls(emit, "        q{C.ClassName}.Add `{ClassName}`, `{C.ClassName}` & KeyCounter, `{ClassName}`");
    else
        WriteNumberedCalls(emit, "        q{C.ClassName}.Add ChildModificationKey , `{C.ClassName}` & KeyCounter, ParentModificationKey & ChildModificationKey");
}

void WriteCall(const ClassEmitter& emit)
{
    WriteExecution(emit);
    emit("    Set RetFields = RetModification(0).childNodes(0).childNodes 'Fields");
    emit("    For Each RetField In RetFields");
    emit("        Select Case RetField.baseName");
    ForEachStoredProperty(emit, [](const PropertyEmitter& property) {
        property("            Case `{FieldName}`");
        property("                {m:DataType}{PropertyName} = RetField.Attributes(0).nodeValue");
    });
    emit("        End Select");
    emit("    Next");
    WriteReturnedKeys(emit);
    WriteNumberedCalls(emit, "        q{C.ClassName}.StoreReturnValues `{ClassName}`, `{C.ClassName}` & KeyCounter");
}

void WriteDirectives(const MethodEmitter& emit)
{
    const ClassScope& scope = emit.Scope();
    WriteDirectivesHead(emit);
    WriteDocument(emit);
    if (IsTopLevel(scope.Class)) {
        WriteCall(emit);
        if (scope.Project.TrackPropertyChanges)
            emit("    ClearPropertyTracking {True}");
    }
    if (HasProperty(scope, "Modified"))
        emit("    {m:Boolean}Modified = False");
    emit("    Screen.MousePointer = vbDefault");
    emit("    Add = {True}");
    emit("    Exit Function");
    emit("");
    emit("errAdd:");
    WriteErrorReport(emit, "    msg = ErrorMessage(`{ClassName}`, `Add`, vbLogEventTypeWarning)");
    emit("End Function", LineClass::Head);
}

void WriteFirstLine(const MethodEmitter& emit)
{
    const TTCMethod& method = emit.Scope().Method;
    const bool isFriend = method.Scope.empty() || !IsTopLevel(emit.Scope().Class);
    if (method.ReturnDataType.empty()) {
        if (isFriend)
            emit("Friend Sub Add()", LineClass::HeadPlusMethod);
        else
            emit("{Scope} Sub Add()", LineClass::HeadPlusMethod);
    } else if (isFriend) {
        emit("Friend Function Add() as {ReturnDataType}", LineClass::HeadPlusMethod);
    } else {
        emit("{Scope} Function Add() as {ReturnDataType}", LineClass::HeadPlusMethod);
    }
}

void WriteOpening(const MethodEmitter& emit)
{
    WriteFirstLine(emit);
    emit("    On Error Goto errAdd");
    emit("");
    emit("    Dim adoRS as New ADO{Ado}.Recordset");
    emit("    Dim SQL as String");
    WriteChildVariables(emit, "    Dim q{C.ClassName} as {C.ClassName}");
    WriteDeletedGuard(emit);
    if (IsTopLevel(emit.Scope().Class))
        emit("    Screen.MousePointer = vbHourglass");
    WriteTimingLine(emit, "    StartTime = Timer");
    if (RunsTransaction(emit.Scope()))
        emit("    adoCon.BeginTrans");
}

// The statement fetches no row: it only gives a recordset to add to.
void WriteRow(const ClassEmitter& emit)
{
    emit("    SQL=`SELECT * FROM {Table} WHERE 1=0`");
    emit("    adoRS.Open SQL, adoCon, adOpenKeyset, adLockOptimistic");
    emit("    With adoRS");
    emit("    .AddNew");
    WriteJetComment(emit);
    WriteAssignments(emit, AssignmentIn::Add);
    emit("    .Update");
    ForEachStoredProperty(emit, [](const PropertyEmitter& property) {
        if (property.Scope().Property.FieldIsIdentityCol)
            property("    {m:DataType}{PropertyName} = {Ref}", LineClass::Code, Quotes::Convert);
    });
    emit("    .Close");
    emit("    End With");
}

void WriteChildren(const ClassEmitter& emit)
{
    if (!HasChildren(emit.Scope()))
        return;
    const ColumnIndex columns(emit.Scope().Class);
    ForEachChild(emit, [&](const ChildEmitter& child) {
        child("    For Each q{C.ClassName} in {m:Collection}{C.CollectionName}");
        WriteHandedDownKeys(child, columns, "        q{C.ClassName}.{ChildProperty} = {m:DataType}{PropertyName}");
        if (RunsTransaction(child.Scope())) {
            child("        If q{C.ClassName}.Add = 0 Then");
            child("            Gosub AddRollback");
            child("            Exit Function");
            child("        End If");
        } else {
            child("        If q{C.ClassName}.Add = 0 then Exit Function");
        }
        child("    Next");
    });
}

void WriteSuccess(const ClassEmitter& emit)
{
    const ClassScope& scope = emit.Scope();
    const bool isTopLevel = IsTopLevel(scope.Class);
    emit("    Add = True");
    if (isTopLevel) {
        WriteTimingLine(emit, "    EndTime = Timer");
        WriteTimingLine(emit, "    Debug.Print `{ClassName} - Add Execution Time: ` & EndTime - StartTime");
    }
    if (RunsTransaction(scope))
        emit("    adoCon.CommitTrans");
    emit("");
    if (HasProperty(scope, "Modified"))
        emit("    {m:Boolean}Modified = False");
    if (isTopLevel && scope.Project.TrackPropertyChanges)
        emit("    ClearPropertyTracking {True}");
    if (isTopLevel)
        emit("    Screen.MousePointer = vbDefault");
    if (HasEvent(scope, "RecordAdded"))
        emit("    RaiseEvent RecordAdded(Me)");
    emit("    Exit Function");
    emit("");
}

void WriteFailure(const ClassEmitter& emit)
{
    emit("errAdd:");
    emit("    Screen.MousePointer = vbDefault");
    if (RunsTransaction(emit.Scope()))
        emit("    Gosub AddRollback");
    WriteErrorReport(emit, "    msg = ErrorMessage(`{ClassName}`, `Add`, vbLogEventTypeWarning)");
    if (RunsTransaction(emit.Scope())) {
        emit("    Exit Function");
        emit("AddRollback:");
        emit("    adoCon.RollbackTrans");
        emit("    Return");
    }
    // As the rest of the text, for a Function, even where there is nothing to return: on purpose.
    emit("End Function", LineClass::Head);
}

void WriteRecordset(const MethodEmitter& emit)
{
    WriteOpening(emit);
    WriteRow(emit);
    WriteChildren(emit);
    WriteSuccess(emit);
    WriteFailure(emit);
}

} // namespace

void WriteAddMethod(const MethodEmitter& emit)
{
    TrapDatasourceChange(emit, [&] { emit.Scope().Project.MTSEnabled ? WriteDirectives(emit) : WriteRecordset(emit); });
}

} // namespace veldrane
