#include "generator/argument_list.h"
#include "generator/methods/data_routine.h"
#include "generator/methods/field_reads.h"
#include "generator/methods/related_calls.h"
#include "generator/writers.h"

namespace veldrane {
namespace {

constexpr ReadForms<PropertyScope> kProperty{
    "        SET {m:DataType}{PropertyName}=IIF(IsNull({F}),{DataType}, {F})",
    "        {m:DataType}{PropertyName}={F}",
    "        {m:DataType}{PropertyName}=IIF(IsNull({F}),{Empty}, {F})",
};

// The blanks behind the commas are not those of a property's lines: on purpose.
constexpr ReadForms<LookupFieldScope> kLookupField{
    "        SET {m:L.FieldDataType}{L.PropertyName}=IIF(IsNull({L.F}), {L.FieldDataType}, {L.F})",
    "        {m:L.FieldDataType}{L.PropertyName}={L.F}",
    "        {m:L.FieldDataType}{L.PropertyName}=IIF(IsNull({L.F}),{L.Empty},{L.F})",
};

void WriteFirstLine(const MethodEmitter& emit)
{
    std::string arguments = emit.Scope().Arguments;
    if (HasChildren(emit.Scope())) {
        if (!arguments.empty())
            arguments += ", ";
        arguments += emit.Text("Optional ByVal RetrieveChildren as Boolean = {False}");
    }
    const ClassScope& owner = emit.Scope();
    const MethodScope scope{owner, emit.Scope().Method, arguments};
    const MethodEmitter line = emit.About(scope);
    if (scope.Method.ReturnDataType.empty())
        line("{Scope} Sub Retrieve({Arguments})", LineClass::HeadPlusMethod, Quotes::Convert);
    else
        line("{Scope} Function Retrieve({Arguments}) as {ReturnDataType}", LineClass::HeadPlusMethod, Quotes::Convert);
}

void WriteQuery(const MethodEmitter& emit)
{
    WriteSelectStatement(emit, "    SQL = `{Select}`");
    WriteConditionLine(emit, WhereOfRetrieve(emit.Scope().Class, emit.Scope().Method.Arguments), "    SQL = SQL & ` WHERE {Where}");
    emit("");
    if (emit.Scope().Project.MTSEnabled)
        WriteReadThroughComponent(emit, "        Err.Raise ErrorNumber, `Component Services Retrieve Error`, ErrorDescription");
    else
        emit("    adoRS.Open SQL, adoCon, adOpenForwardOnly, adLockReadOnly");
    emit("    ");
}

void WriteRow(const ClassEmitter& emit)
{
    emit("    With adoRS");
    emit("    If Not .EOF Then");
    WriteRetrieveFields(emit, kProperty, kLookupField);
    WritePushCopies(emit, "        SET {Push}{PropertyName}={m:DataType}{PropertyName}", "        {Push}{PropertyName}={m:DataType}{PropertyName}");
    emit("    Else");
    emit("        Retrieve = False");
    WriteTimingLine(emit, "        EndTime = Timer");
    WriteTimingLine(emit, "        Debug.Print `{ClassName} - Retrieve Execution Time: ` & Format(EndTime - StartTime, `Fixed`)");
    emit("        .Close");
    emit("        Exit Function");
    emit("    End If");
    emit("    .Close");
    emit("    End With");
    emit("");
}

void WriteSuccess(const ClassEmitter& emit)
{
    const ClassScope& scope = emit.Scope();
    if (HasProperty(scope, "Modified"))
        emit("    {m:Boolean}Modified = False");
    WriteRelatedCalls(emit, MembersForChild, "    If RetrieveChildren Then {m:Collection}{C.CollectionName}.RetrieveRelated {List}");
    if (IsTopLevel(scope.Class) && scope.Project.TrackPropertyChanges)
        emit("    ClearPropertyTracking {True}");
    emit("    Retrieve = {True}");
    WriteTimingLine(emit, "    EndTime = Timer");
    WriteTimingLine(emit, "    Debug.Print `{ClassName} - Retrieve Execution Time: ` & Format(EndTime - StartTime, `Fixed`)");
    if (HasEvent(scope, "RecordRetrieved"))
        emit("    RaiseEvent RecordRetrieved(Me)");
    emit("    Exit Function");
    emit("");
}

} // namespace

void WriteRetrieveMethod(const MethodEmitter& emit)
{
    WriteFirstLine(emit);
    emit("    On Error Goto errRetrieve");
    emit("");
    emit("    Dim adoRS as New ADO{Ado}.Recordset");
    emit("    Dim SQL as String");
    if (emit.Scope().Project.MTSEnabled)
        WriteErrorVariables(emit);
    WriteTimingLine(emit, "StartTime = Timer"); // at the left margin: on purpose
    emit("");
    emit("    Clear");
    if (emit.Scope().Project.TrackPropertyChanges)
        emit("    ClearPropertyTracking");
    emit("");
    WriteQuery(emit);
    WriteRow(emit);
    WriteSuccess(emit);
    emit("errRetrieve:");
    WriteErrorReport(emit, "    msg = ErrorMessage(`{ClassName}`, `Retrieve`, vbLogEventTypeWarning)");
    // As the rest of the text, for a Function, even where there is nothing to return: on purpose.
    emit("End Function", LineClass::Head);
}

} // namespace veldrane
