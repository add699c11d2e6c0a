#include "generator/class_block.h"
#include "generator/writers.h"
#include "preview/active_parse.h"
#include "text/strings.h"

// The wrapper class is the entry point of the generated object: what a client creates first.
namespace veldrane {
namespace {

struct ConnectionScope : ProjectScope
{
    const std::string& NewConnection;
};

} // namespace

template <>
inline constexpr auto
    Vocabulary<ConnectionScope> = JoinVocabularies(std::to_array<Placeholder<ConnectionScope>>({{"NewConnection", [](std::string& line, const ConnectionScope& s) { line += s.NewConnection; }}}),
                                                   InheritedVocabulary<ConnectionScope, ProjectScope>());

namespace {

bool LogsTransactions(const TTCProject& project)
{
    return project.MTSEnabled && project.LogTransactions;
}

template <class Body>
void ForEachExposedClass(const ProjectEmitter& emit, const KZMClasses& classes, Body&& body)
{
    for (const KZMClass& listed : classes) {
        if (!IsTopLevel(listed) || listed.ClassName == "xmlAssist")
            continue;
        const ListedClassScope scope{emit.Scope(), listed};
        body(emit.About(scope));
    }
}

void WriteHeader(const ProjectEmitter& emit)
{
    WriteClassBlock(emit, ModuleKind::Wrapper);
    emit("Attribute VB_Name = `{WrapperClassName}`", LineClass::Hidden);
    emit("Attribute VB_GlobalNameSpace = False", LineClass::Hidden);
    emit("Attribute VB_Creatable = {True}", LineClass::Hidden);
    emit("Attribute VB_PredeclaredId = {False}", LineClass::Hidden);
    emit("Attribute VB_Exposed = {True}", LineClass::Hidden);
    emit("Attribute VB_Ext_KEY = `SavedWithClassBuilder` ,`Yes`", LineClass::Hidden);
    emit("Attribute VB_Ext_KEY = `SavedWithClassBuilder6` ,`Yes`", LineClass::Hidden);
    emit("Attribute VB_Ext_KEY = `GeneratedByVeldraneKit` ,`Yes`", LineClass::Hidden);
    emit("Attribute VB_Ext_KEY = `Top_Level` ,`Yes`", LineClass::Hidden);
    emit("Option Explicit", LineClass::Head);
}

void WriteObjects(const ProjectEmitter& emit, const KZMClasses& classes)
{
    emit("Private mvarIsConnected as Boolean");
    emit("Private mvarDefaultConnectionString as String");
    ForEachExposedClass(emit, classes, [](const ListedClassEmitter& exposed) { exposed("Private {m:Object}{ClassName} as New {ClassName}"); });
    ForEachExposedClass(emit, classes, [](const ListedClassEmitter& exposed) {
        exposed("Public Property Get {ClassName}() as {ClassName}", LineClass::HeadProperty);
        exposed("    Set {ClassName} = {m:Object}{ClassName}");
        exposed("End Property", LineClass::Head);
    });
}

// The path of the database file in a connection string; "" if there is none.
std::string DataSourcePath(const std::string& connectionString)
{
    ActiveParse pairs;
    ActiveParse parts;
    for (const Word& pair : pairs.ParseText(connectionString, ";", DelimiterMode::Whole, CaseRule::Insensitive)) {
        bool isPath = false;
        for (const Word& word : parts.ParseText(pair.Text, "=", DelimiterMode::Whole, CaseRule::Insensitive)) {
            if (isPath)
                return word.Text;
            isPath = word.Text == "Data Source";
        }
    }
    return {};
}

// The path up to its file name. It is cut where the name first occurs, be that a folder's: on purpose.
std::string FolderOf(const std::string& path)
{
    std::string fileName;
    ActiveParse parts;
    for (const Word& word : parts.ParseText(path, "\\", DelimiterMode::Whole, CaseRule::Insensitive))
        fileName = word.Text;
    const std::size_t backslash = path.find("\\" + fileName);
    return backslash == std::string::npos ? std::string() : path.substr(0, backslash + 1);
}

// The connection string with the database file looked for beside the component when that runs; "" if it names no file.
std::string ConnectionBesideComponent(const std::string& connectionString)
{
    const std::string path = DataSourcePath(connectionString);
    if (path.empty())
        return {};
    const std::string newPath = text::ReplaceAll(path, FolderOf(path), "` & App.Path & `\\");
    return text::ReplaceAll(connectionString, path, newPath);
}

void WriteDefaultConnection(const ProjectEmitter& emit)
{
    const TTCProject& project = emit.Scope().Project;
    if (!project.ConnectSameDirectory) {
        emit("    DefaultConnectionString = `{ConnectionString}`");
        return;
    }
    const std::string newConnection = ConnectionBesideComponent(project.ConnectionString());
    const ConnectionScope scope{emit.Scope(), newConnection};
    // Without a closing quote: on purpose.
    emit.About(scope)("    DefaultConnectionString = `{NewConnection}");
}

void WriteInitialize(const ProjectEmitter& emit)
{
    const TTCProject& project = emit.Scope().Project;
    emit("Private Sub Class_Initialize()", LineClass::HeadSub);
    if (LocalConnection(project)) {
        emit("    Set adoCon = Nothing");
        emit("    Set adoCon = New ADODB.Connection");
    }
    WriteDefaultConnection(emit);
    if (LogsTransactions(project)) {
        emit("    gLogToDatabase = `{LogDatabaseConnection}`");
        emit("    gLogToTable = `{LogTableName}`");
    }
    if (project.WriteErrorsToApplicationLog) {
        emit("    'To Overwrite the log everytime your object starts, change");
        emit("    'vbLogAuto to `vbLogAuto Or vbLogOverwrite`");
        emit(R"(    App.StartLogging App.Path & `\Error.log`, vbLogAuto)");
    }
    emit("End Sub", LineClass::Head);
}

void WriteLogUserName(const ProjectEmitter& emit)
{
    emit("Public Property Let TransactionLogUserName(ByVal vData as String)", LineClass::HeadProperty);
    emit("    gCurrentUser = vData");
    emit("End Property", LineClass::Head);
    emit("Public Property Get TransactionLogUserName() as String", LineClass::HeadProperty);
    emit("    TransactionLogUserName = gCurrentUser");
    emit("End Property", LineClass::Head);
}

void WriteLogConnection(const ProjectEmitter& emit)
{
    if (emit.Scope().Project.AllowLogTargetChange) {
        emit("Public Property Let TransactionLogDBConnection(ByVal vData as String)", LineClass::HeadProperty);
        emit("    gLogToDatabase = vData");
        emit("End Property", LineClass::Head);
    }
    emit("Public Property Get TransactionLogDBConnection() as String", LineClass::HeadProperty);
    emit("    TransactionLogDBConnection = gLogToDatabase");
    emit("End Property", LineClass::Head);
}

void WriteLogTable(const ProjectEmitter& emit)
{
    if (emit.Scope().Project.AllowLogTargetChange) {
        emit("Public Property Let TransactionLogTable(ByVal vData as String)", LineClass::HeadProperty);
        emit("    gLogToTable = vData");
        emit("End Property", LineClass::Head);
    }
    emit("Public Property Get TransactionLogTable() as String", LineClass::HeadProperty);
    emit("    TransactionLogTable = gLogToTable");
    emit("End Property", LineClass::Head);
}

void WriteSetConnectionObject(const ProjectEmitter& emit)
{
    emit("Public Property Set ADOConnectionObject(ByRef anADOConnectionObject as ADODB.Connection)", LineClass::HeadProperty);
    emit("    On Error Goto errSetADOCon");
    emit("    Set adoCon = Nothing");
    emit("    Set adoCon = New ADODB.Connection");
    emit("    Set adoCon = anADOConnectionObject");
    emit("    Exit Property");
    emit("errSetADOCon:");
    emit("    nbr = Err.Number");
    emit("    msg = ErrorMessage(`{WrapperClassName}`, `Set ADOConnectionObject`, vbLogEventTypeError)");
    emit("End Property", LineClass::Head);
}

void WriteLastErrorMessage(const ProjectEmitter& emit)
{
    emit("Public Property Get LastErrorMessage() as String", LineClass::HeadProperty);
    emit("    LastErrorMessage = gLastErrorMessage");
    emit("End Property", LineClass::Head);
}

void WriteConnectionState(const ProjectEmitter& emit)
{
    emit("Public Property Get ADOConnectionObject() as ADODB.Connection", LineClass::HeadProperty);
    emit("    Set ADOConnectionObject = adoCon");
    emit("End Property", LineClass::Head);
    emit("Public Property Get IsConnected() as Boolean", LineClass::HeadProperty);
    emit("    IsConnected = mvarIsConnected");
    emit("End Property", LineClass::Head);
}

void WriteDefaultConnectionString(const ProjectEmitter& emit)
{
    emit("Public Property Let DefaultConnectionString(ByVal ConnectionString as String)", LineClass::HeadProperty);
    emit("    mvarDefaultConnectionString = ConnectionString");
    if (emit.Scope().Project.MTSEnabled)
        emit("    gConnectionString = mvarDefaultConnectionString");
    emit("End Property", LineClass::Head);
    emit("Public Property Get DefaultConnectionString() as String", LineClass::HeadProperty);
    emit("    DefaultConnectionString = mvarDefaultConnectionString");
    emit("End Property", LineClass::Head);
}

void WriteConnect(const ProjectEmitter& emit)
{
    const bool isMTSEnabled = emit.Scope().Project.MTSEnabled;
    emit("Public Function Connect(Optional ByVal NewConnectString as String, Optional ByVal CursorLocation as CursorLocationEnum = adUseClient) as Boolean", LineClass::HeadFunction);
    emit("    On Error Goto errConnect");
    emit("");
    emit("    adoCon.CursorLocation = CursorLocation");
    emit("    If NewConnectString = `` then");
    emit("        adoCon.Open DefaultConnectionString");
    if (isMTSEnabled)
        emit("        gConnectionString = DefaultConnectionString");
    emit("    Else");
    emit("        adoCon.Open NewConnectString");
    if (isMTSEnabled)
        emit("        gConnectionString = NewConnectString");
    emit("    End If");
    emit("    mvarIsConnected = {True}");
    emit("    Connect = {True}");
    emit("    Exit Function");
    emit("errConnect:");
    emit("    nbr = Err.Number");
    emit("    msg = ErrorMessage(`{WrapperClassName}`, `Connect`, vbLogEventTypeError)");
    emit("End Function", LineClass::Head);
}

// Sets no result and leaves IsConnected as it is: on purpose.
void WriteDisconnect(const ProjectEmitter& emit)
{
    emit("Public Function Disconnect() as Boolean", LineClass::HeadFunction);
    emit("    On Error Resume Next");
    emit("    adoCon.Close");
    emit("    Set adoCon = Nothing");
    emit("    Set adoCon = New ADODB.Connection");
    emit("End Function", LineClass::Head);
}

void WriteTerminate(const ProjectEmitter& emit)
{
    emit("Private Sub Class_Terminate()", LineClass::HeadSub);
    if (LocalConnection(emit.Scope().Project)) {
        emit("    On Error Resume Next");
        emit("    adoCon.Close");
        emit("    Set adoCon = Nothing");
    }
    emit("End Sub", LineClass::Head);
}

} // namespace

TTCOutputs GenerateWrapperClass(const ProjectScope& scope, const KZMClasses& classes)
{
    const bool isLocal = LocalConnection(scope.Project);
    TTCOutputs lines(scope.Settings.Colors);
    const ProjectEmitter emit(lines, scope);
    WriteHeader(emit);
    WriteObjects(emit, classes);
    WriteInitialize(emit);
    if (LogsTransactions(scope.Project)) {
        WriteLogUserName(emit);
        WriteLogConnection(emit);
        WriteLogTable(emit);
    }
    if (isLocal)
        WriteSetConnectionObject(emit);
    WriteLastErrorMessage(emit);
    if (isLocal)
        WriteConnectionState(emit);
    WriteDefaultConnectionString(emit);
    if (isLocal) {
        WriteConnect(emit);
        WriteDisconnect(emit);
    }
    WriteTerminate(emit);
    return lines;
}

} // namespace veldrane
