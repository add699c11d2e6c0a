#include "generator/writers.h"

// The start-up form of the test project, in the format of Visual Basic's form files; sizes are in twips.
namespace veldrane {
namespace {

template <class Body>
void ForEachTestableClass(const ProjectEmitter& emit, const KZMClasses& classes, Body&& body)
{
    for (const KZMClass& listed : classes) {
        if (listed.TableName.empty() || !IsTopLevel(listed))
            continue;
        const ListedClassScope scope{emit.Scope(), listed};
        body(emit.About(scope));
    }
}

void WriteFont(const ProjectEmitter& emit)
{
    emit("   BeginProperty Font ");
    emit("      Name            =   `Tahoma`");
    emit("      Size            =   8.25");
    emit("      Charset         =   0");
    emit("      Weight          =   400");
    emit("      Underline       =   0   'False");
    emit("      Italic          =   0   'False");
    emit("      Strikethrough   =   0   'False");
    emit("   EndProperty");
}

void WriteSize(const ProjectEmitter& emit)
{
    if (LocalConnection(emit.Scope().Project)) {
        emit("   Width           =   6300");
        emit("   ScaleWidth      =   6210");
        emit("   Height          =   4185");
        emit("   ScaleHeight     =   3810");
    } else {
        emit("   Width           =   6735");
        emit("   ScaleWidth      =   6645");
        emit("   Height          =   1680");
        emit("   ScaleHeight     =   1305");
    }
}

void WriteConnectButton(const ProjectEmitter& emit)
{
    emit("   Begin VB.CommandButton cmdConnect ");
    emit("      Caption         =   `Connect To Datasource`");
    emit("      Height          =   315");
    emit("      Left            =   240");
    emit("      TabIndex        =   0");
    emit("      Top             =   225");
    emit("      Width           =   2205");
    // Nine blanks and a longer gap than its neighbours': on purpose.
    if (!LocalConnection(emit.Scope().Project))
        emit("         Enabled           =   0");
    emit("   End");
}

// The same TabIndex as the other button's: on purpose.
void WriteTestButton(const ProjectEmitter& emit)
{
    emit("   Begin VB.CommandButton cmdTest ");
    emit("      Caption         =   `Test Code`");
    emit("      Height          =   315");
    emit("      Left            =   240");
    emit("      TabIndex        =   0");
    emit("      Top             =   625");
    emit("      Width           =   2205");
    emit("   End");
}

void WriteStatusLabel(const ProjectEmitter& emit)
{
    const bool isLocal = LocalConnection(emit.Scope().Project);
    emit("   Begin VB.Label lblStatus ");
    emit("      AutoSize        =   -1  'True");
    emit("      BackStyle       =   0  'Transparent");
    if (isLocal)
        emit("      Caption         =   `Current Status: Not Connected`");
    else
        emit("      Caption         =   `Current Status: No connection required from client`");
    emit("      Height          =   195");
    emit("      Left            =   2685");
    emit("      TabIndex        =   1");
    emit("      Top             =   240");
    if (isLocal)
        emit("      Width           =   2250");
    else
        emit("      Width           =   3630");
    emit("   End");
}

void WriteForm(const ProjectEmitter& emit)
{
    emit("VERSION 5.00");
    emit(Verbatim("Object = `{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0`; `MSCOMCTL.OCX`"));
    emit("Begin VB.Form frmTest ");
    emit("   AutoRedraw      =   -1  'True");
    emit("   BorderStyle     =   3  'Fixed Dialog");
    emit("   Caption         =   `Test {VBProjectName}`");
    WriteFont(emit);
    emit("   LinkTopic       =   `Form1`");
    emit("   MaxButton       =   0   'False");
    emit("   MinButton       =   0   'False");
    WriteSize(emit);
    emit("   ShowInTaskbar   =   0   'False");
    emit("   StartUpPosition =   2  'CenterScreen");
    WriteConnectButton(emit);
    WriteTestButton(emit);
    WriteStatusLabel(emit);
    emit("End");
    emit("Attribute VB_Name = `frmTest`");
    emit("Attribute VB_GlobalNameSpace = {False}");
    emit("Attribute VB_Creatable = False");
    emit("Attribute VB_PredeclaredId = {True}");
    emit("Attribute VB_Exposed = {False}");
    emit("Option Explicit");
}

bool HasEvents(const KZMClass& owner)
{
    return owner.TTCEvents.Count() > 0;
}

// A variable has its class's name and hides the class inside the form: that is how the form is written.
void WriteVariables(const ProjectEmitter& emit, const KZMClasses& classes)
{
    emit("Private {WrapperClassName} As New {WrapperClassName}");
    ForEachTestableClass(emit, classes, [](const ListedClassEmitter& testable) {
        if (HasEvents(testable.Scope().Class))
            testable("Private WithEvents Evt{ClassName} As {ClassName}");
        testable("Private {ClassName} As {ClassName}");
        if (testable.Scope().Class.CreateCollection)
            testable("Private {CollectionName} As New {CollectionName}");
    });
}

void WriteLoad(const ProjectEmitter& emit, const KZMClasses& classes)
{
    emit("Private Sub Form_Load");
    ForEachTestableClass(emit, classes, [](const ListedClassEmitter& testable) {
        if (HasEvents(testable.Scope().Class))
            testable("    Set Evt{ClassName} = {WrapperClassName}.{ClassName}");
        testable("    Set {ClassName} = {WrapperClassName}.{ClassName}");
    });
    emit("End Sub");
}

void WriteConnectClick(const ProjectEmitter& emit)
{
    emit("Private Sub cmdConnect_Click()");
    emit("    If {WrapperClassName}.IsConnected = False Then");
    emit("        If {WrapperClassName}.Connect = False Then");
    emit("            lblStatus = `Current Status: Not Connected`");
    emit("        Else");
    emit("            lblStatus = `Current Status: Connected to DataSource`");
    emit("        End If");
    emit("    End If");
    emit("End Sub");
}

void WriteTestClick(const ProjectEmitter& emit)
{
    emit("Private Sub cmdTest_Click()");
    emit("    msgbox `Place some test code here`");
    emit("End Sub");
}

} // namespace

TTCOutputs GenerateTestForm(const ProjectScope& scope, const KZMClasses& classes)
{
    TTCOutputs lines(scope.Settings.Colors);
    const ProjectEmitter emit(lines, scope, Quotes::Convert);
    WriteForm(emit);
    WriteVariables(emit, classes);
    emit("");
    WriteLoad(emit, classes);
    emit("");
    if (LocalConnection(scope.Project)) {
        WriteConnectClick(emit);
        emit("");
    }
    WriteTestClick(emit);
    return lines;
}

} // namespace veldrane
