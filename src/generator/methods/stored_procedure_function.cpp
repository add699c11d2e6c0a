#include "generator/methods/data_routine.h"
#include "generator/methods/directives.h"
#include "generator/writers.h"

// The function that calls a stored procedure: through the component, which is handed a document with the parameters,
// or with a command object.
namespace veldrane {
namespace {

struct ProcedureScope : ClassScope
{
    const SP& Procedure;
    const std::string& Args;
};

struct ParameterScope : ProcedureScope
{
    const SPParameter& Parameter;
};

} // namespace

template <>
inline constexpr auto Vocabulary<ProcedureScope> = JoinVocabularies(std::to_array<Placeholder<ProcedureScope>>({
                                                                        {"Method", [](std::string& line, const ProcedureScope& s) { line += s.Procedure.SPMethodName; }},
                                                                        {"Name", [](std::string& line, const ProcedureScope& s) { line += s.Procedure.SPName; }},
                                                                        {"Class", [](std::string& line, const ProcedureScope& s) { line += s.Class.ClassName; }},
                                                                        {"Args", [](std::string& line, const ProcedureScope& s) { line += s.Args; }},
                                                                        {"Lib", [](std::string& line, const ProcedureScope& s) { line += s.Project.UseADOR ? "R" : "DB"; }},
                                                                    }),
                                                                    InheritedVocabulary<ProcedureScope, ClassScope>());

template <>
inline constexpr auto Vocabulary<ParameterScope> = JoinVocabularies(std::to_array<Placeholder<ParameterScope>>({
                                                                        {"P", [](std::string& line, const ParameterScope& s) { line += s.Parameter.ParameterCleanName(); }},
                                                                        {"PN", [](std::string& line, const ParameterScope& s) { line += s.Parameter.ParameterName; }},
                                                                        {"PT", [](std::string& line, const ParameterScope& s) { line += s.Parameter.VBDataType(); }},
                                                                        {"Direction", [](std::string& line, const ParameterScope& s) { line += std::to_string(s.Parameter.Direction); }},
                                                                        {"DataTypeNumber", [](std::string& line, const ParameterScope& s) { line += std::to_string(s.Parameter.DataTypeNumber); }},
                                                                        {"CharacterMaximumLength", [](std::string& line, const ParameterScope& s) { line += s.Parameter.CharacterMaximumLength; }},
                                                                        {"NumericScale", [](std::string& line, const ParameterScope& s) { line += s.Parameter.NumericScale; }},
                                                                        {"NumericPrecision", [](std::string& line, const ParameterScope& s) { line += s.Parameter.NumericPrecision; }},
                                                                    }),
                                                                    InheritedVocabulary<ParameterScope, ProcedureScope>());

namespace {

using ProcedureEmitter = Emitter<ProcedureScope>;
using ParameterEmitter = Emitter<ParameterScope>;

template <class Body>
void ForEachParameter(const ProcedureEmitter& emit, Body&& body)
{
    for (const SPParameter& parameter : emit.Scope().Procedure.SPParameters) {
        const ParameterScope scope{emit.Scope(), parameter};
        body(emit.About(scope));
    }
}

std::string Arguments(const ProcedureEmitter& emit)
{
    std::string arguments;
    ForEachParameter(emit, [&](const ParameterEmitter& parameter) {
        if (parameter.Scope().Parameter.Direction == parameter_direction::kInput)
            arguments += parameter.Text("ByVal {P} as {PT}, ");
        else
            arguments += parameter.Text("ByRef {P} as {PT}, ");
    });
    return arguments;
}

void WriteHeader(const ProcedureEmitter& emit)
{
    emit("Public Function {Method}({Args}Optional ByVal Timeout as Integer = 60, Optional ByVal DiscardRecordset as Boolean = False, Optional ByRef RecordsAffected as Long) as ADO{Lib}.Recordset",
         LineClass::HeadSP);
}

void WriteDocument(const ProcedureEmitter& emit)
{
    emit("    Set XMLAssist.Document = Directives");
    emit("    Directives.LoadXML `<KZMSP></KZMSP>`");
    emit("    xmlAssist.AddAttribute `CON`, gConnectionString, Directives.documentElement");
    emit("    xmlAssist.AddAttribute `Timeout`, Timeout, Directives.documentElement");
    WriteLogAttributes(emit);
    emit("    xmlAssist.AddAttribute `SPName`, `{Name}`, Directives.documentElement");
    emit("    xmlAssist.AddAttribute `DiscardRecordset`, DiscardRecordset, Directives.documentElement");
    emit("    xmlAssist.AddAttribute `RecordsAffected`, RecordsAffected, Directives.documentElement");
    emit("    Set Parameters = xmlAssist.AddElement(`Params`, Directives.documentElement)");
    ForEachParameter(emit, [](const ParameterEmitter& parameter) {
        parameter("    Set Parameter = xmlAssist.AddElement(`{P}`, Parameters)");
        parameter("        xmlAssist.AddAttribute `V`, {P}, Parameter");
        parameter("        xmlAssist.AddAttribute `D`, `{Direction}`, Parameter");
        parameter("        xmlAssist.AddAttribute `T`, `{DataTypeNumber}`, Parameter");
        parameter("        xmlAssist.AddAttribute `SZ`, `{CharacterMaximumLength}`, Parameter");
        parameter("        xmlAssist.AddAttribute `NS`, `{NumericScale}`, Parameter");
        parameter("        xmlAssist.AddAttribute `PC`, `{NumericPrecision}`, Parameter");
    });
    // A copy to look at beside the component.
    if (IsTopLevel(emit.Scope().Class)) {
        emit("");
        emit("    Directives.Save App.Path & `\\DirectivesSP.xml`");
        emit("");
    }
}

void WriteReply(const ProcedureEmitter& emit)
{
    emit("    If Left$(MarshalledDefinition, 6) = `<KZMSP` Then");
    emit("        Directives.loadXML MarshalledDefinition");
    emit("        Set tmpParameters = Directives.childNodes(0).childNodes(0).childNodes");
    emit("        For Each Parameter In tmpParameters");
    emit("            Value = Parameter.Attributes.getNamedItem(`V`).nodeValue");
    emit("            Select Case Parameter.baseName");
    ForEachParameter(emit, [](const ParameterEmitter& parameter) { parameter("            Case `{P}` : {P} = Value"); });
    emit("            End Select");
    emit("        Next");
    emit("        Set {Method} = adoRS");
    emit("        Exit Function");
    emit("    Else");
    emit("        Err.Raise 1000, `Component Services`, MarshalledDefinition");
    emit("    End If");
    emit("    Exit Function");
}

void WriteThroughComponent(const ProcedureEmitter& emit)
{
    emit("    On Error goto err{Method}");
    emit("");
    emit("    Set Directives = Nothing");
    emit("    Set Directives = New DOMDocument");
    emit("    Dim adoRS as New ADO{Lib}.Recordset");
    emit("    Dim Parameters as IXMLDOMElement");
    emit("    Dim tmpParameters as IXMLDOMNodeList");
    emit("    Dim Parameter as IXMLDOMElement");
    emit("    Dim MarshalledDefinition as String");
    emit("    Dim Value as Variant");
    emit("");
    WriteDocument(emit);
    emit("    MarshalledDefinition = Directives.xml");
    emit("    Set ComponentServices = New CSProcess");
    emit("    Set adoRS = ComponentServices.ExecuteSP(MarshalledDefinition)");
    emit("    Set ComponentServices = Nothing");
    emit("");
    WriteReply(emit);
}

void WriteCommandText(const ProcedureEmitter& emit)
{
    if (emit.Scope().Project.ConnectionString().find("Microsoft.Jet.OLEDB.4.0") != std::string::npos)
        emit("    cmd.CommandText = `[{Name}]`");
    else
        emit("    cmd.CommandText = `{Name}`");
}

// Values that go in alone are set again behind the call: on purpose.
void WriteParameterAfterCall(const ParameterEmitter& emit)
{
    switch (emit.Scope().Parameter.Direction) {
    case parameter_direction::kInput:
        emit("    cmd.Parameters(`{PN}`).Value = {P}");
        break;
    case parameter_direction::kInputOutput:
    case parameter_direction::kOutput:
    case parameter_direction::kReturnValue:
        emit("    {P}= cmd.Parameters(`{PN}`).Value"); // no blank before the equal sign: on purpose
        break;
    default:
        break;
    }
}

void WriteWithCommand(const ProcedureEmitter& emit)
{
    emit("    Dim cmd as New ADODB.Command");
    emit("    Dim adoRS as New ADO{Lib}.Recordset");
    emit("    Dim SaveCursorLocation as CursorLocationEnum");
    emit("    On Error goto err{Method}");
    emit("");
    emit("    SaveCursorLocation = adoCon.CursorLocation");
    emit("    adoCon.CursorLocation = adUseClient");
    emit("    cmd.ActiveConnection = adoCon");
    WriteCommandText(emit);
    emit("    cmd.CommandTimeout = Timeout");
    emit("    cmd.CommandType = adCmdStoredProc + IIF(DiscardRecordset, adExecuteNoRecords, 0)");
    emit("    cmd.Parameters.Refresh");
    ForEachParameter(emit, [](const ParameterEmitter& parameter) {
        const std::int32_t direction = parameter.Scope().Parameter.Direction;
        if (direction == parameter_direction::kInput || direction == parameter_direction::kInputOutput)
            parameter("    cmd.Parameters(`{PN}`).Value = {P}");
    });
    emit("    Set adoRS = cmd.Execute(RecordsAffected)");
    emit("    If DiscardRecordset then");
    emit("        Set adoRS = Nothing");
    emit("        Set {Method} = Nothing");
    emit("    Else");
    emit("        Set {Method} = adoRS");
    emit("    End If");
    emit("");
    ForEachParameter(emit, WriteParameterAfterCall);
    emit("");
    emit("    'Set the adoCon.CursorLocation value back to its original state");
    emit("    adoCon.CursorLocation = SaveCursorLocation");
    emit("    Exit Function");
}

void WriteTail(const ProcedureEmitter& emit)
{
    emit("");
    emit("err{Method}:");
    emit("    nbr = Err.Number");
    emit("    msg = ErrorMessage(`{Class}`, `{Method}`, vbLogEventTypeWarning)");
    if (HasEvent(emit.Scope(), "ErrorOccurred"))
        emit("    RaiseEvent ErrorOccurred(nbr, msg)");
    emit("End Function", LineClass::Head);
}

} // namespace

void WriteVBSourceCode(const ClassEmitter& emit, const SP& procedure)
{
    std::string arguments;
    const ProcedureScope scope{emit.Scope(), procedure, arguments};
    const ProcedureEmitter about = emit.About(scope);
    arguments = Arguments(about);
    WriteHeader(about);
    if (scope.Project.MTSEnabled)
        WriteThroughComponent(about);
    else
        WriteWithCommand(about);
    WriteTail(about);
}

} // namespace veldrane
