#include "generator/writers.h"

namespace veldrane {
namespace {

// A line of the messages that the generated object shows: web pages have labels in tags, message boxes do not.
struct MessageScope : ProjectScope
{
    [[nodiscard]] bool ForTheWeb() const { return Project.MakeWebCompatible; }
};

} // namespace

template <>
inline constexpr auto Vocabulary<MessageScope> = std::to_array<Placeholder<MessageScope>>({
    {"Strong", [](std::string& line, const MessageScope& s) { line += s.ForTheWeb() ? "<STRONG>" : ""; }},
    {"EndStrong", [](std::string& line, const MessageScope& s) { line += s.ForTheWeb() ? "</STRONG>" : ""; }},
});

namespace {

using MessageEmitter = Emitter<MessageScope>;

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

void WriteDefaultMessage(const MessageEmitter& emit)
{
    emit("    If anErrorMessage = `` Then");
    emit("        anErrorMessage = `{Strong}Last Error Number: {EndStrong}` & Err.Number & `.` & vbCrLf & _");
    emit("                         `{Strong}Error Description: {EndStrong}` & Err.Description & vbCrLf & _");
    emit("                         `{Strong}Error Source: {EndStrong}` & Err.Source & vbCrLf & _");
    emit("                         `{Strong}Last DLL Error: {EndStrong}` & Err.LastDllError & vbCrLf & _");
    emit("                         `{Strong}Error Help File: {EndStrong}` & Err.HelpFile & vbCrLf & _");
    emit("                         `{Strong}Error Help Context: {EndStrong}` & Err.HelpContext & vbCrLf");
    // Eight blanks although its If has four: on purpose.
    emit("        End If");
}

void WritePlaceOfError(const MessageEmitter& emit)
{
    emit("    If ClassModule <> `` Then");
    emit("        anErrorMessage = `{Strong}Class Module Name: {EndStrong}` & ClassModule & vbCrLf & `{Strong}Sub/Function: {EndStrong}` & FunctionName & vbCrLf & anErrorMessage");
    emit("    End If");
}

void WriteConnectionErrors(const MessageEmitter& emit)
{
    emit("    On Error Resume Next");
    emit("    If adoCon.Errors.Count > 0 Then");
    emit("        anErrorMessage = anErrorMessage & vbCrLf & `ADO Errors Follow:` & vbCrLf & `-------------------------------------------` & vbCrLf");
    emit("        For Each adoErr In adoCon.Errors");
    emit("            anErrorMessage = anErrorMessage & `{Strong}ADO Error #: {EndStrong}` & adoErr.Number & vbCrLf");
    emit("            anErrorMessage = anErrorMessage & `{Strong}ADO Description: {EndStrong}` & adoErr.Description & vbCrLf");
    emit("            anErrorMessage = anErrorMessage & `{Strong}ADO Native Error #: {EndStrong}` & adoErr.NativeError & vbCrLf");
    emit("            anErrorMessage = anErrorMessage & `{Strong}ADO Source: {EndStrong}` & adoErr.Source & vbCrLf");
    emit("            anErrorMessage = anErrorMessage & `{Strong}ADO SQL State: {EndStrong}` & adoErr.SQLState & vbCrLf");
    emit("        Next");
    emit("        adoCon.Errors.Clear");
    emit("    End If");
}

void WriteLogEvent(const MessageEmitter& emit)
{
    if (!emit.Scope().ForTheWeb()) {
        emit("    App.LogEvent anErrorMessage, anEventType");
        return;
    }
    emit("    tmpString = Replace(anErrorMessage, `<STRONG>`, ``)");
    emit("    tmpString = Replace(tmpString, `</STRONG>`, ``)");
    emit("    App.LogEvent tmpString, anEventType");
}

void WriteMessageBox(const MessageEmitter& emit)
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
void WriteKeptMessage(const MessageEmitter& emit)
{
    emit("");
    emit("    gLastErrorMessage = `<FONT face=Tahoma size=2>` & Replace(anErrorMessage, vbcrlf, `<br>`) & `</FONT>`");
}

void WriteErrorMessage(const MessageEmitter& emit)
{
    const TTCProject& project = emit.Scope().Project;
    emit("Public Function ErrorMessage(ByVal ClassModule As String, ByVal FunctionName As String, ByVal anEventType As LogEventTypeConstants, Optional ByVal anErrorMessage As String = ``) as String",
         LineClass::HeadFunction);
    if (LocalConnection(project))
        emit("    Dim adoErr As ADODB.Error");
    if (emit.Scope().ForTheWeb())
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
    if (emit.Scope().ForTheWeb())
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
    const MessageScope message{scope};
    WriteErrorMessage(emit.About(message));
    if (scope.Project.VBVersion == visual_basic_version::kVisualBasic5)
        WriteReplace(emit);
    return lines;
}

} // namespace veldrane
