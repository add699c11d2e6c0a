#include "generator/methods/deleted_children.h"
#include "generator/methods/directives.h"
#include "generator/writers.h"

// Update, like Add, has two bodies. It saves a changed row, deletes one that is marked, adds one that has vanished, and
// then does the same for the children.
namespace veldrane {
namespace {

void WriteDirectivesHead(const ClassEmitter& emit)
{
    const bool isTopLevel = IsTopLevel(emit.Scope().Class);
    if (isTopLevel)
        emit("Public Function Update() as Boolean", LineClass::HeadPlusMethod);
    else
        emit("Friend Function Update(ByVal ParentModificationKey as String, ByVal ChildModificationKey as String, ByVal FullModificationKey as String) as Boolean", LineClass::HeadPlusMethod);
    emit("    On Error Goto errUpdate");
    emit("");
    emit("    Dim Count as Long");
    WriteChildVariables(emit, "    Dim q{C.ClassName} as {C.ClassName}");
    emit("    Dim KeyCounter as Long");
    emit("");
    if (!isTopLevel)
        return;
    emit("    Set Directives = Nothing");
    emit("    Set Directives = New DOMDocument");
    emit("");
    emit("    Screen.MousePointer = vbHourglass");
    emit("");
}

// Without one of the two properties its branch is left out.
void WriteOperation(const ClassEmitter& emit)
{
    const bool hasDeleted = HasProperty(emit.Scope(), "Deleted");
    const bool hasModified = HasProperty(emit.Scope(), "Modified");
    if (hasDeleted) {
        emit("    If {m:Boolean}Deleted = {True} Then");
        emit("        xmlAssist.AddAttribute `Operation`, `D`, Modification");
    }
    if (hasDeleted && hasModified)
        emit("    Else");
    if (hasModified) {
        emit("        If {m:Boolean}Modified = {True} Then");
        emit("            xmlAssist.AddAttribute `Operation`, `U`, Modification");
        emit("        Else");
        emit("            xmlAssist.AddAttribute `Operation`, `N`, Modification");
        emit("        End If");
    }
    if (hasDeleted)
        emit("    End If");
}

void WriteFields(const ClassEmitter& emit)
{
    if (HasProperty(emit.Scope(), "Modified"))
        WriteFieldElements(
            emit,
            "    If {m:Boolean}Modified Then Set Field = xmlAssist.AddElement(`{FieldName}`, Fields) : xmlAssist.AddAttribute `F`, `{Col}`, Field : xmlAssist.AddAttribute `V`, {m:DataType}{PropertyName}, Field");
    else
        WriteFieldElements(emit,
                           "    Set Field = xmlAssist.AddElement(`{FieldName}`, Fields) : xmlAssist.AddAttribute `F`, `{Col}`, Field : xmlAssist.AddAttribute `V`, {m:DataType}{PropertyName}, Field");
}

void WriteDocument(const ClassEmitter& emit)
{
    WriteDocumentRoot(emit, "    xmlAssist.AddAttribute `OP`, `Update`, Directives.documentElement", OperationAttribute::Once);
    WriteModificationElement(emit);
    emit("    xmlAssist.AddAttribute `Table`, `{TableName}`, Modification");
    WriteTableHasID(emit);
    WriteConditionLine(emit, WhereOfStoredRow(emit.Scope(), WhereEnd::ClosedByTheLine), "    xmlAssist.AddAttribute `Query`, `{Where}`, Modification");
    WriteOperation(emit);
    WriteTimingLine(emit, "    StartTime = Timer");
    WriteFields(emit);
    WritePropogations(emit);
    if (IsTopLevel(emit.Scope().Class))
        WriteNumberedCalls(emit, "        q{C.ClassName}.Update `{ClassName}`, `{C.ClassName}` & KeyCounter, `{ClassName}`");
    else
        WriteNumberedCalls(emit, "        q{C.ClassName}.Update ChildModificationKey , `{C.ClassName}` & KeyCounter, ParentModificationKey & ChildModificationKey");
}

void WriteReply(const ClassEmitter& emit)
{
    emit("    If RetModification.Length > 0 Then");
    emit("        If RetModification(0).ChildNodes.Length > 0 Then");
    WriteReturnedFields(emit, [&] {
        ForEachStoredProperty(emit, [](const PropertyEmitter& property) {
            property("                    Case `{FieldName}`");
            property("                        {m:DataType}{PropertyName} = RetField.Attributes(0).nodeValue");
        });
    });
    emit("        End If");
    emit("    End If");
    WriteReturnedKeys(emit);
}

void WriteCall(const ClassEmitter& emit)
{
    WriteExecution(emit);
    WriteReply(emit);
    DeletedChildren removal;
    ForEachChild(emit, [&](const ChildEmitter& child) {
        removal.Write(child);
        WriteNumberedCall(child, "        q{C.ClassName}.StoreReturnValues `{ClassName}`, `{C.ClassName}` & KeyCounter");
    });
}

void WriteDirectives(const ClassEmitter& emit)
{
    const ClassScope& scope = emit.Scope();
    WriteDirectivesHead(emit);
    WriteDocument(emit);
    if (IsTopLevel(scope.Class))
        WriteCall(emit);
    if (HasProperty(scope, "Modified"))
        emit("    {m:Boolean}Modified = False");
    if (IsTopLevel(scope.Class) && scope.Project.TrackPropertyChanges)
        emit("    ClearPropertyTracking {True}");
    emit("    Screen.MousePointer = vbDefault");
    emit("    Update = {True}");
    emit("    Exit Function");
    emit("");
    emit("errUpdate:");
    emit("    Screen.MousePointer = vbDefault");
    WriteErrorReport(emit, "    msg = ErrorMessage(`{ClassName}`, `Update`, vbLogEventTypeWarning)");
    emit("End Function", LineClass::Head);
}

void WriteOpening(const ClassEmitter& emit)
{
    emit("Public Function Update() as Boolean", LineClass::HeadPlusMethod);
    emit("    On Error Goto errUpdate");
    emit("    Dim adoRS as New ADO{Ado}.Recordset");
    emit("    Dim SQL as String");
    if (HasChildren(emit.Scope()))
        emit("    Dim Count as Long");
    WriteChildVariables(emit, "    Dim z{C.ClassName} as {C.ClassName}");
    if (IsTopLevel(emit.Scope().Class))
        emit("    Screen.MousePointer = vbHourglass");
    WriteTimingLine(emit, "    StartTime = Timer");
    if (RunsTransaction(emit.Scope()))
        emit("    adoCon.BeginTrans");
    if (HasProperty(emit.Scope(), "Modified"))
        emit("    If {m:Boolean}Modified = False Then Goto SkipUpdate");
}

void WriteChangedRow(const ClassEmitter& emit, bool hasDeleted)
{
    if (hasDeleted) {
        emit("        If {m:Boolean}Deleted then");
        emit("            .Delete");
        emit("        Else");
    }
    // A row that has vanished is added, and comes back here for its values.
    emit("UpdateRecord:");
    WriteJetComment(emit);
    WriteAssignments(emit, AssignmentIn::Update);
    emit("            .Update");
    WritePushCopies(emit, "            SET {Push}{PropertyName}={m:DataType}{PropertyName}", "            {Push}{PropertyName}={m:DataType}{PropertyName}");
    ForEachStoredProperty(emit, [](const PropertyEmitter& property) {
        if (property.Scope().Property.FieldIsIdentityCol)
            property("{m:DataType}{PropertyName} = {Ref}", LineClass::Code, Quotes::Convert); // at the left margin: on purpose
    });
    if (hasDeleted)
        emit("        End If");
}

void WriteRow(const ClassEmitter& emit)
{
    const bool hasDeleted = HasProperty(emit.Scope(), "Deleted");
    WriteConditionLine(emit, WhereOfStoredRow(emit.Scope(), WhereEnd::Statement), "    SQL=`SELECT * FROM {Table} a WHERE {Where}");
    emit("    adoRS.Open SQL, adoCon, adOpenKeyset, adLockOptimistic");
    emit("    With adoRS");
    emit("    If Not .EOF Then");
    WriteChangedRow(emit, hasDeleted);
    emit("    Else");
    if (hasDeleted)
        emit("        If Not {m:Boolean}Deleted Then");
    emit("            .AddNew");
    emit("            Goto UpdateRecord");
    if (hasDeleted)
        emit("        End If");
    emit("    End If");
    emit("    .Close");
    emit("    End With");
    emit("");
    if (HasProperty(emit.Scope(), "Modified"))
        emit("SkipUpdate:");
}

void WriteChildren(const ClassEmitter& emit)
{
    if (!HasChildren(emit.Scope()))
        return;
    const ColumnIndex columns(emit.Scope().Class);
    DeletedChildren removal;
    ForEachChild(emit, [&](const ChildEmitter& child) {
        child("    For Each z{C.ClassName} in {m:Collection}{C.CollectionName}");
        WriteHandedDownKeys(child, columns, "        If z{C.ClassName}.Modified Then z{C.ClassName}.{ChildProperty} = {m:DataType}{PropertyName}");
        if (RunsTransaction(child.Scope())) {
            child("        If Not z{C.ClassName}.Update Then");
            child("            Gosub UpdateRollback");
            child("            Exit Function");
            child("        End If");
        } else {
            child("        If Not z{C.ClassName}.Update Then Exit Function");
        }
        child("    Next");
        removal.Write(child);
    });
}

void WriteSuccess(const ClassEmitter& emit)
{
    if (RunsTransaction(emit.Scope()))
        emit("    adoCon.CommitTrans");
    WriteTimingLine(emit, "    EndTime = Timer");
    WriteTimingLine(emit, "    Debug.Print `{ClassName} - Update Execution Time: ` & EndTime - StartTime");
    emit("    Update = {True}");
    if (HasProperty(emit.Scope(), "Modified"))
        emit("    {m:Boolean}Modified = False");
    if (emit.Scope().Project.TrackPropertyChanges)
        emit("    ClearPropertyTracking");
    if (HasEvent(emit.Scope(), "RecordUpdated"))
        emit("    RaiseEvent RecordUpdated(Me)");
    emit("    Exit Function");
    emit("");
}

void WriteFailure(const ClassEmitter& emit)
{
    emit("errUpdate:");
    emit("    Screen.MousePointer = vbDefault");
    if (RunsTransaction(emit.Scope()))
        emit("    Gosub UpdateRollback");
    WriteErrorReport(emit, "    msg = ErrorMessage(`{ClassName}`, `Update`, vbLogEventTypeWarning)");
    if (RunsTransaction(emit.Scope())) {
        emit("    Exit Function");
        emit("UpdateRollback:");
        emit("    adoCon.RollbackTrans");
        emit("    Return");
    }
    emit("End Function", LineClass::Head);
}

void WriteRecordset(const ClassEmitter& emit)
{
    WriteOpening(emit);
    WriteRow(emit);
    WriteChildren(emit);
    WriteSuccess(emit);
    WriteFailure(emit);
}

} // namespace

void WriteUpdateMethod(const ClassEmitter& emit)
{
    // Without Retrieve there is nothing to tell the row by. The line is meant to be met when compiling.
    if (!emit.Scope().Class.TTCMethods.Contains("Retrieve")) {
        emit("You MUST add the Retrieve Function to this class in order to use the Update Method.", LineClass::Alert);
        return;
    }
    TrapDatasourceChange(emit, [&] { emit.Scope().Project.MTSEnabled ? WriteDirectives(emit) : WriteRecordset(emit); });
}

} // namespace veldrane
