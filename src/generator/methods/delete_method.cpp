#include "generator/argument_list.h"
#include "generator/methods/data_routine.h"
#include "generator/writers.h"

namespace veldrane {
namespace {

// The row is removed through a recordset, never by a DELETE statement.
struct DeletedScope : ClassScope
{
    const std::string& Event; // the names of the arguments
};

} // namespace

template <>
inline constexpr auto Vocabulary<DeletedScope> = JoinVocabularies(std::to_array<Placeholder<DeletedScope>>({{"Event", [](std::string& line, const DeletedScope& s) { line += s.Event; }}}),
                                                                  InheritedVocabulary<DeletedScope, ClassScope>());

namespace {

std::string ArgumentNames(const KZMArguments& arguments)
{
    std::string names;
    for (const TTCParameter* argument : ArgumentsInOrder(arguments)) {
        if (!names.empty())
            names += ", ";
        names += argument->VariableName;
    }
    return names;
}

void WriteQuery(const MethodEmitter& emit)
{
    WriteConditionLine(emit, WhereOfDelete(emit.Scope().Class, emit.Scope().Method.Arguments), "    SQL = `SELECT * FROM {Table} a WHERE {Where}");
}

void WriteThroughComponent(const MethodEmitter& emit)
{
    emit("    Dim SQL as String");
    WriteErrorVariables(emit);
    emit("");
    WriteQuery(emit);
    emit("");
    emit("    Set ComponentServices = New CSProcess");
    emit("    If ComponentServices.Delete(gConnectionString, SQL, ErrorNumber, ErrorDescription) = False Then");
    emit("        Set ComponentServices = Nothing");
    emit("        Err.Raise ErrorNumber, `Component Services Delete Error`, ErrorDescription");
    emit("    End If");
    emit("    Set ComponentServices = Nothing");
    emit("");
    emit("    Exit Function");
    emit("errDelete:");
    WriteErrorReport(emit, "    msg = ErrorMessage(`{ClassName}`, `Delete`, vbLogEventTypeWarning)");
}

void WriteRecordset(const MethodEmitter& emit)
{
    emit("    Dim adoRS as New ADO{Ado}.Recordset");
    emit("    Dim SQL as String");
    emit("");
    WriteQuery(emit);
    emit("    adoRS.Open SQL, adoCon, adOpenKeyset, adLockOptimistic");
    emit("    ");
    emit("    With adoRS");
    emit("    If Not .EOF Then");
    emit("        .Delete");
    emit("        Delete = {True}");
    emit("    End If");
    emit("    End With");
    emit("");
    if (HasEvent(emit.Scope(), "RecordDeleted")) {
        const std::string names = ArgumentNames(emit.Scope().Method.Arguments);
        const ClassScope& owner = emit.Scope();
        const DeletedScope scope{owner, names};
        emit.About(scope)("    RaiseEvent RecordDeleted({Event})");
    }
    emit("    Exit Function");
    emit("errDelete:");
    // The name of another routine: on purpose.
    WriteErrorReport(emit, "    msg = ErrorMessage(`{ClassName}`, `Update`, vbLogEventTypeWarning)");
}

} // namespace

void WriteDeleteMethod(const MethodEmitter& emit)
{
    if (emit.Scope().Method.ReturnDataType.empty())
        emit("{Scope} Sub Delete({Arguments})", LineClass::HeadPlusMethod, Quotes::Convert);
    else
        emit("{Scope} Function Delete({Arguments}) as {ReturnDataType}", LineClass::HeadPlusMethod, Quotes::Convert);
    emit("    On Error Goto errDelete");
    if (emit.Scope().Project.MTSEnabled)
        WriteThroughComponent(emit);
    else
        WriteRecordset(emit);
    // As the rest of the text, for a Function, even where there is nothing to return: on purpose.
    emit("End Function", LineClass::Head);
}

} // namespace veldrane
