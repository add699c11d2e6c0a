#include "generator/writers.h"

namespace veldrane {
namespace {

// The documents that are exchanged with the component. "Propogation" and the capital "As" of three lines: on purpose.
void WriteComponentVariables(const ProjectEmitter& emit)
{
    emit("Public xmlAssist as New XMLAssist", LineClass::MarkMTS);
    emit("Public Directives as New DOMDocument", LineClass::MarkMTS);
    emit("Public Modifications as IXMLDOMElement", LineClass::MarkMTS);
    emit("Public Modification as IXMLDOMElement", LineClass::MarkMTS);
    emit("Public Propogations as IXMLDOMElement", LineClass::MarkMTS);
    emit("Public Propogation as IXMLDOMElement", LineClass::MarkMTS);
    emit("Public Fields as IXMLDOMElement", LineClass::MarkMTS);
    emit("Public Field as IXMLDOMElement", LineClass::MarkMTS);
    emit("Public RetModification As IXMLDOMNodeList", LineClass::MarkMTS);
    emit("Public RetFields As IXMLDOMNodeList", LineClass::MarkMTS);
    emit("Public RetField As IXMLDOMElement", LineClass::MarkMTS);
    emit("Public ComponentServices as New CSProcess", LineClass::MarkMTS);
    emit("Public gConnectionString as String", LineClass::MarkMTS);
    if (!emit.Scope().Project.LogTransactions)
        return;
    emit("Public gLogToDatabase as String", LineClass::MarkMTS);
    emit("Public gLogToTable as String", LineClass::MarkMTS);
    emit("Public gCurrentUser as String", LineClass::MarkMTS);
}

void WriteDeclarations(const ProjectEmitter& emit)
{
    const ProjectScope& scope = emit.Scope();
    emit("Attribute VB_Name = `Globals`", LineClass::Hidden);
    emit("Option Explicit", LineClass::Head);
    if (LocalConnection(scope.Project))
        emit("Public adoCon As New ADODB.Connection", LineClass::MarkGlobe);
    emit("Public msg as String", LineClass::MarkGlobe);
    emit("Public nbr as Long", LineClass::MarkGlobe);
    if (scope.Project.MTSEnabled)
        WriteComponentVariables(emit);
    emit("Public gLastErrorMessage as String", LineClass::MarkGlobe);
    if (scope.Settings.DebugTiming) {
        emit("Public StartTime as Single");
        emit("Public EndTime as Single");
    }
    emit("");
}

// Web pages have the labels of a message in tags, message boxes do not.
void EmitLabel(const ProjectEmitter& emit, const TemplateLine<ProjectScope>& inBoxes, const TemplateLine<ProjectScope>& onPages)
{
    emit(emit.Scope().Project.MakeWebCompatible ? onPages : inBoxes);
}

void WriteDefaultMessage(const ProjectEmitter& emit)
{
    emit("    If anErrorMessage = `` Then");
    EmitLabel(emit, "        anErrorMessage = `Last Error Number: ` & Err.Number & `.` & vbCrLf & _",
              "        anErrorMessage = `<STRONG>Last Error Number: </STRONG>` & Err.Number & `.` & vbCrLf & _");
    EmitLabel(emit, "                         `Error Description: ` & Err.Description & vbCrLf & _", "                         `<STRONG>Error Description: </STRONG>` & Err.Description & vbCrLf & _");
    EmitLabel(emit, "                         `Error Source: ` & Err.Source & vbCrLf & _", "                         `<STRONG>Error Source: </STRONG>` & Err.Source & vbCrLf & _");
    EmitLabel(emit, "                         `Last DLL Error: ` & Err.LastDllError & vbCrLf & _", "                         `<STRONG>Last DLL Error: </STRONG>` & Err.LastDllError & vbCrLf & _");
    EmitLabel(emit, "                         `Error Help File: ` & Err.HelpFile & vbCrLf & _", "                         `<STRONG>Error Help File: </STRONG>` & Err.HelpFile & vbCrLf & _");
    EmitLabel(emit, "                         `Error Help Context: ` & Err.HelpContext & vbCrLf", "                         `<STRONG>Error Help Context: </STRONG>` & Err.HelpContext & vbCrLf");
    // Eight blanks although its If has four: on purpose.
    emit("        End If");
}

void WritePlaceOfError(const ProjectEmitter& emit)
{
    emit("    If ClassModule <> `` Then");
    EmitLabel(emit, "        anErrorMessage = `Class Module Name: ` & ClassModule & vbCrLf & `Sub/Function: ` & FunctionName & vbCrLf & anErrorMessage",
              "        anErrorMessage = `<STRONG>Class Module Name: </STRONG>` & ClassModule & vbCrLf & `<STRONG>Sub/Function: </STRONG>` & FunctionName & vbCrLf & anErrorMessage");
    emit("    End If");
}

void WriteConnectionErrors(const ProjectEmitter& emit)
{
    emit("    On Error Resume Next");
    emit("    If adoCon.Errors.Count > 0 Then");
    emit("        anErrorMessage = anErrorMessage & vbCrLf & `ADO Errors Follow:` & vbCrLf & `-------------------------------------------` & vbCrLf");
    emit("        For Each adoErr In adoCon.Errors");
    EmitLabel(emit, "            anErrorMessage = anErrorMessage & `ADO Error #: ` & adoErr.Number & vbCrLf",
              "            anErrorMessage = anErrorMessage & `<STRONG>ADO Error #: </STRONG>` & adoErr.Number & vbCrLf");
    EmitLabel(emit, "            anErrorMessage = anErrorMessage & `ADO Description: ` & adoErr.Description & vbCrLf",
              "            anErrorMessage = anErrorMessage & `<STRONG>ADO Description: </STRONG>` & adoErr.Description & vbCrLf");
    EmitLabel(emit, "            anErrorMessage = anErrorMessage & `ADO Native Error #: ` & adoErr.NativeError & vbCrLf",
              "            anErrorMessage = anErrorMessage & `<STRONG>ADO Native Error #: </STRONG>` & adoErr.NativeError & vbCrLf");
    EmitLabel(emit, "            anErrorMessage = anErrorMessage & `ADO Source: ` & adoErr.Source & vbCrLf",
              "            anErrorMessage = anErrorMessage & `<STRONG>ADO Source: </STRONG>` & adoErr.Source & vbCrLf");
    EmitLabel(emit, "            anErrorMessage = anErrorMessage & `ADO SQL State: ` & adoErr.SQLState & vbCrLf",
              "            anErrorMessage = anErrorMessage & `<STRONG>ADO SQL State: </STRONG>` & adoErr.SQLState & vbCrLf");
    emit("        Next");
    emit("        adoCon.Errors.Clear");
    emit("    End If");
}

void WriteLogEvent(const ProjectEmitter& emit)
{
    if (!emit.Scope().Project.MakeWebCompatible) {
        emit("    App.LogEvent anErrorMessage, anEventType");
        return;
    }
    emit("    tmpString = Replace(anErrorMessage, `<STRONG>`, ``)");
    emit("    tmpString = Replace(tmpString, `</STRONG>`, ``)");
    emit("    App.LogEvent tmpString, anEventType");
}

void WriteMessageBox(const ProjectEmitter& emit)
{
    emit("    Select Case anEventType");
    emit("    Case vbLogEventTypeError");
    emit("        MsgBox anErrorMessage, vbCritical");
    emit("    Case vbLogEventTypeInformation");
    emit("        MsgBox anErrorMessage, vbInformation");
    emit("    Case vbLogEventTypeWarning");
    emit("        MsgBox anErrorMessage, vbExclamation");
    emit("    End Select");
    emit("");
    emit("    gLastErrorMessage = anErrorMessage");
}

// Inside a web server no box may wait for a user: the message is kept as markup alone.
void WriteKeptMessage(const ProjectEmitter& emit)
{
    emit("");
    emit("    gLastErrorMessage = `<FONT face=Tahoma size=2>` & Replace(anErrorMessage, vbcrlf, `<br>`) & `</FONT>`");
}

void WriteErrorMessage(const ProjectEmitter& emit)
{
    const TTCProject& project = emit.Scope().Project;
    emit("Public Function ErrorMessage(ByVal ClassModule As String, ByVal FunctionName As String, ByVal anEventType As LogEventTypeConstants, Optional ByVal anErrorMessage As String = ``) as String",
         LineClass::HeadFunction);
    if (LocalConnection(project))
        emit("    Dim adoErr As ADODB.Error");
    if (emit.Scope().Project.MakeWebCompatible)
        emit("    Dim tmpString as String");
    emit("");
    WriteDefaultMessage(emit);
    emit("");
    WritePlaceOfError(emit);
    if (LocalConnection(project))
        WriteConnectionErrors(emit);
    emit("");
    if (project.WriteErrorsToApplicationLog)
        WriteLogEvent(emit);
    emit("    Screen.MousePointer = vbDefault");
    if (emit.Scope().Project.MakeWebCompatible)
        WriteKeptMessage(emit);
    else
        WriteMessageBox(emit);
    emit("    ErrorMessage = anErrorMessage");
    emit("End Function", LineClass::Head);
    emit("");
}

// Visual Basic 5 has no such function of its own.
void WriteReplace(const ProjectEmitter& emit)
{
    emit("Public Function Replace(Expression as String, Find as String, ReplaceWith as String) as String", LineClass::HeadFunction);
    emit("    Dim lenSourceText As Long");
    emit("    Dim lenFindText As Long");
    emit("    Dim lenReplaceWith As Long");
    emit("    Dim Counter As Long");
    emit("    Dim FoundTextAt As Long");
    emit("    Dim LeftPart As String");
    emit("    Dim RightPart As String");
    emit("    Dim NewString As String");
    emit("    ");
    emit("    lenSourceText = Len(Expression)");
    emit("    lenFindText = Len(Find)");
    emit("    lenReplaceWith = Len(ReplaceWith)");
    emit("    ");
    emit("    NewString = Expression");
    emit("    ");
    emit("    Counter = 1");
    emit("    ");
    emit("    Do");
    emit("        FoundTextAt = InStr(Counter, NewString, Find)");
    emit("        If FoundTextAt = 0 Then");
    emit("            'Find Text Not Found");
    emit("            Exit Do");
    emit("        Else");
    emit("            LeftPart = Left$(NewString, FoundTextAt - 1)");
    emit("            RightPart = Mid$(NewString, FoundTextAt + lenFindText)");
    emit("            NewString = LeftPart & ReplaceWith & RightPart");
    emit("            Counter = FoundTextAt + lenReplaceWith");
    emit("        End If");
    emit("    Loop");
    emit("    ");
    emit("    Replace = NewString");
    emit("End Function", LineClass::Head);
}

} // namespace

TTCOutputs GenerateGlobalsBasFile(const ProjectScope& scope)
{
    TTCOutputs lines(scope.Settings.Colors);
    const ProjectEmitter emit(lines, scope);
    WriteDeclarations(emit);
    WriteErrorMessage(emit);
    if (scope.Project.VBVersion == visual_basic_version::kVisualBasic5)
        WriteReplace(emit);
    return lines;
}

} // namespace veldrane
