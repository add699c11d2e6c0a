#include "generator/methods/data_routine.h"
#include "generator/writers.h"

namespace veldrane {
namespace {

struct IdentityScope : PropertyScope
{
    const std::string& Args;
    const std::string& Where;
};

} // namespace

template <>
inline constexpr auto Vocabulary<IdentityScope> = JoinVocabularies(std::to_array<Placeholder<IdentityScope>>({
                                                                       {"Args", [](std::string& line, const IdentityScope& s) { line += s.Args; }},
                                                                       {"Where", [](std::string& line, const IdentityScope& s) { line += s.Where; }},
                                                                   }),
                                                                   InheritedVocabulary<IdentityScope, PropertyScope>());

namespace {

std::string Arguments(const ClassEmitter& emit)
{
    std::string arguments;
    ForEachPrimaryKeyProperty(emit, [&](const PropertyEmitter& property) { arguments += property.Text("ByVal a{FieldName} as {DataType},"); });
    if (!arguments.empty())
        arguments.pop_back();
    return arguments;
}

void WriteFoundIdentity(const PropertyEmitter& emit)
{
    if (NeedsFieldByText(emit.Scope().Property.FieldName)) {
        // No closing parenthesis, and not the recordset's name: on purpose.
        emit("        RetrieveIdentity = ado(`{FieldName}`");
        emit("        {m:Long}{PropertyName} = ado(`{FieldName}`");
    } else {
        emit("        RetrieveIdentity = !{FieldName}");
        emit("        {m:Long}{PropertyName} = !{FieldName}");
    }
}

void WriteRow(const PropertyEmitter& emit)
{
    emit("    With adoRS");
    emit("    If Not .EOF Then");
    WriteFoundIdentity(emit);
    emit("    Else");
    emit("        RetrieveIdentity = False");
    emit("        .Close");
    WriteTimingLine(emit, "        EndTime = Timer");
    WriteTimingLine(emit, "        Debug.Print `{ClassName} - RetrieveIdentity Execution Time: ` & Format(EndTime - StartTime, `Fixed`)");
    emit("        Exit Function");
    emit("    End If");
    WriteTimingLine(emit, "    EndTime = Timer");
    WriteTimingLine(emit, "    Debug.Print `{ClassName} - RetrieveIdentity Execution Time: ` & Format(EndTime - StartTime, `Fixed`)");
    emit("    .Close");
    emit("    End With");
    emit("");
}

} // namespace

void WriteRetrieveIdentityMethod(const ClassEmitter& emit)
{
    TTCProperty* identity = FirstIdentityProperty(emit.Scope().Class);
    if (identity == nullptr)
        return;
    const std::string arguments = Arguments(emit);
    const std::string where = WhereOfRetrieveIdentity(emit.Scope().Class);
    const PropertyScope property{emit.Scope(), *identity};
    const IdentityScope scope{property, arguments, where};
    const Emitter<IdentityScope> about = emit.About(scope);
    about("Public Function RetrieveIdentity({Args}) as Long", LineClass::HeadPlusMethod);
    about("    On Error Goto errRetrieveIdentity");
    about("");
    about("    Dim adoRS as New ADO{Ado}.Recordset");
    if (scope.Project.MTSEnabled)
        WriteErrorVariables(emit);
    about("    Dim SQL as String");
    WriteTimingLine(emit, "    StartTime = Timer");
    about("");
    about("    Clear");
    about("");
    about("    SQL = `SELECT {FieldName} FROM {TableName} a WHERE {Where}");
    about("");
    if (scope.Project.MTSEnabled)
        WriteReadThroughComponent(emit, "        Err.Raise ErrorNumber, `Component Services RetrieveIdentity Error`, ErrorDescription");
    else
        about("    adoRS.Open SQL, adoCon, adOpenForwardOnly, adLockReadOnly");
    about("");
    WriteRow(about);
    about("    Exit Function");
    about("");
    about("errRetrieveIdentity:");
    WriteErrorReport(emit, "    msg = ErrorMessage(`{ClassName}`, `RetrieveIdentity`, vbLogEventTypeWarning)");
    about("End Function", LineClass::Head);
}

} // namespace veldrane
