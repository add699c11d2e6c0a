#include "preview/preview_emitter.h"
#include "preview/views.h"

#include <array>
#include <string>
#include <type_traits>

namespace veldrane {
namespace {

// A line about the project that only its summary has.
struct SummaryScope : ProjectScope
{};

template <auto Member>
void AppendMember(std::string& line, const SummaryScope& scope)
{
    const auto& value = scope.Project.*Member;
    using Value = std::remove_cvref_t<decltype(value)>;
    if constexpr (std::is_same_v<Value, std::string>)
        line += value;
    else if constexpr (std::is_same_v<Value, bool>)
        line += text::TextOf(value);
    else
        line += std::to_string(value);
}

constexpr auto kSummaryWords = std::to_array<Placeholder<SummaryScope>>({
    {"Modified", [](std::string& line, const SummaryScope& s) { line += text::TextOf(s.Project.Modified()); }},
    {"ProjectDescription", AppendMember<&TTCProject::ProjectDescription>},
    {"Author", AppendMember<&TTCProject::Author>},
    {"FileName", AppendMember<&TTCProject::FileName>},
    {"TempFileName", AppendMember<&TTCProject::TempFileName>},
    {"FullPath", AppendMember<&TTCProject::FullPath>},
    {"OutputPath", AppendMember<&TTCProject::OutputPath>},
    {"FormPrefix", AppendMember<&TTCProject::FormPrefix>},
    {"PrefixBoolean", AppendMember<&TTCProject::PrefixBoolean>},
    {"PrefixByte", AppendMember<&TTCProject::PrefixByte>},
    {"PrefixCollection", AppendMember<&TTCProject::PrefixCollection>},
    {"PrefixCurrency", AppendMember<&TTCProject::PrefixCurrency>},
    {"PrefixDate", AppendMember<&TTCProject::PrefixDate>},
    {"PrefixDouble", AppendMember<&TTCProject::PrefixDouble>},
    {"PrefixInteger", AppendMember<&TTCProject::PrefixInteger>},
    {"PrefixLong", AppendMember<&TTCProject::PrefixLong>},
    {"PrefixObject", AppendMember<&TTCProject::PrefixObject>},
    {"PrefixOther", AppendMember<&TTCProject::PrefixOther>},
    {"PrefixSingle", AppendMember<&TTCProject::PrefixSingle>},
    {"PrefixString", AppendMember<&TTCProject::PrefixString>},
    {"PrefixVariant", AppendMember<&TTCProject::PrefixVariant>},
    {"DataSourceName", AppendMember<&TTCProject::DataSourceName>},
    {"DataSourceServerName", AppendMember<&TTCProject::DataSourceServerName>},
    {"DataSourceDriver", AppendMember<&TTCProject::DataSourceDriver>},
    {"DataSourceDatabaseName", AppendMember<&TTCProject::DataSourceDatabaseName>},
    {"DataSourceLogin", AppendMember<&TTCProject::DataSourceLogin>},
    {"UseTransactions", AppendMember<&TTCProject::UseTransactions>},
    {"WriteErrorsToApplicationLog", AppendMember<&TTCProject::WriteErrorsToApplicationLog>},
    {"MakeWebCompatible", AppendMember<&TTCProject::MakeWebCompatible>},
    {"MTSEnabled", AppendMember<&TTCProject::MTSEnabled>},
    {"MTSDontRetrieve", AppendMember<&TTCProject::MTSDontRetrieve>},
    {"FormsEnabled", AppendMember<&TTCProject::FormsEnabled>},
    {"AutosaveProject", AppendMember<&TTCProject::AutosaveProject>},
    {"Recovered", AppendMember<&TTCProject::Recovered>},
    {"AutosaveProjectInterval", AppendMember<&TTCProject::AutosaveProjectInterval>},
});

} // namespace

template <>
inline constexpr auto Vocabulary<SummaryScope> = JoinVocabularies(kSummaryWords, InheritedVocabulary<SummaryScope, ProjectScope>());

namespace {

using SummaryEmitter = PreviewEmitter<SummaryScope>;

void SummarizeProject(const SummaryEmitter& emit)
{
    const TTCProject& project = emit.Scope().Project;
    emit("Project Summary", LineClass::Head, preview_icon::kRoot);
    emit("Project Name:  {ProjectName}");
    emit("Project Description:  {ProjectDescription}");
    emit("Project Author:  {Author}");
    emit("Project File Name: {FileName}");
    emit("Project Temp File Name (for AutoSave): {TempFileName}");
    emit("Project Full Path: {FullPath}");
    emit("Project Generated Code Output Path: {OutputPath}");
    if (project.VBVersion == visual_basic_version::kVisualBasic5)
        emit("Project Generated Code Format: Visual Basic 5.0 SP3 (or greater)");
    else
        emit("Project Generated Code Format: Visual Basic 6.0 (or greater)");
    if (project.Modified())
        emit("Project Has Been Modified: {Modified}", preview_icon::kSave);
    if (project.Recovered)
        emit("Project Has Been Recovered: {Recovered}", preview_icon::kFile);
}

// By LoggingLevel; a level beyond them has no line.
constexpr auto kLoggingNotes = std::to_array<TemplateLine<SummaryScope>>({
    "    Logging will not be performed at either the client(s) or the Component Services Server(s).",
    "    Logging will only be performed at the Component Services Server(s).",
    "    Logging will only be performed at the client(s).",
    "    Logging will be performed at both the client(s) and the Component Services Server(s).",
});

void NoteLogging(const SummaryEmitter& emit)
{
    const TTCProject& project = emit.Scope().Project;
    const auto level = static_cast<std::size_t>(project.LoggingLevel);
    if (project.WriteErrorsToApplicationLog && level < kLoggingNotes.size())
        emit(kLoggingNotes.at(level), LineClass::Note);
}

void SummarizeCodeGeneration(const SummaryEmitter& emit)
{
    emit("Code Generation Settings", LineClass::Head, preview_icon::kProject);
    emit("VB Project Name: {VBProjectName}");
    emit("VB Project Description: {VBProjectDescription}");
    emit("Wrapper Class Name: {WrapperClassName}");
    emit("Use Database Transactions: {UseTransactions}");
    emit("Write Application Errors To Application Log: {WriteErrorsToApplicationLog}");
    NoteLogging(emit);
    emit("Make Code WEB Compatible: {MakeWebCompatible}");
    emit("");
}

void SummarizePrefixes(const SummaryEmitter& emit)
{
    emit("File Prefixes", LineClass::Head, preview_icon::kFile);
    emit("Class Module File Prefix: {ClassPrefix}");
    emit("Basic Module File Prefix: {ModulePrefix}");
    emit("");
    emit("Variable Prefixes", LineClass::Head, preview_icon::kVariables);
    emit("Boolean: {PrefixBoolean}");
    emit("Byte: {PrefixByte}");
    emit("Collection: {PrefixCollection}");
    emit("Currency: {PrefixCurrency}");
    emit("Date: {PrefixDate}");
    emit("Double: {PrefixDouble}");
    emit("Integer: {PrefixInteger}");
    emit("Long: {PrefixLong}");
    emit("Object: {PrefixObject}");
    emit("Other: {PrefixOther}");
    emit("Single: {PrefixSingle}");
    emit("String: {PrefixString}");
    emit("Variant: {PrefixVariant}");
    emit("Form Filename Prefix: {FormPrefix}");
    emit("");
}

void SummarizeComponentServices(const SummaryEmitter& emit)
{
    emit("Microsoft Component Services Settings (MTS Settings)", LineClass::Head, preview_icon::kMTS);
    emit("Make Component Services Compatible: {MTSEnabled}");
    emit("Don't retrieve records using Component Services:{MTSDontRetrieve}"); // no blank after the colon: on purpose
    if (emit.Scope().Project.MTSDontRetrieve) {
        emit("    Note: If you do not use Component Services to retrieve records", LineClass::Note);
        emit("    each instance of your COM Object will make a connection to your", LineClass::Note);
        emit("    database.", LineClass::Note);
    } else {
        emit("    Note: You may experience slight performance degradation when", LineClass::Note);
        emit("    you retrieve records through Component Services as opposed to", LineClass::Note);
        emit("    a direct connection.", LineClass::Note);
    }
    emit("");
    emit("Form Generation Settings", LineClass::Head, preview_icon::kForm);
    emit("Generate Forms that interface to Object: {FormsEnabled}");
    emit("");
}

void SummarizeConnection(const SummaryEmitter& emit)
{
    emit("DataSource Connection Information:", LineClass::Head, preview_icon::kDSN);
    emit("DataSource Connection String:  {ConnectionString}");
    emit("DataSource Name:  {DataSourceName}");
    emit("DataSource Server Name:  {DataSourceServerName}");
    emit("DataSource Driver:  {DataSourceDriver}");
    emit("DataSource Database Name:  {DataSourceDatabaseName}");
    emit("DataSource Login:  {DataSourceLogin}");
    emit("");
    emit("AutoSave Information", LineClass::Head, preview_icon::kSave);
    emit("AutoSave Project: {AutosaveProject}");
    emit("AutoSave Interval: {AutosaveProjectInterval} minutes");
    emit("");
}

std::string_view IconOf(const KZMClass& item)
{
    if (item.IsMTSRequiredClass)
        return preview_icon::kMTS;
    return item.TableName.empty() ? preview_icon::kClass : preview_icon::kTableClass;
}

void ListMembers(const SummaryEmitter& emit, const KZMClasses& classes)
{
    emit("Class Members", LineClass::Head, preview_icon::kClass);
    emit("Wrapper Class: {WrapperClassName} ({ClassPrefix}{WrapperClassName}.cls)", preview_icon::kProject);
    for (const KZMClass& item : classes) {
        const ListedClassScope scope{emit.Scope(), item};
        const PreviewEmitter<ListedClassScope> emitMember = emit.About(scope);
        if (item.CreateCollection) {
            emitMember("Collection Name (File Name): {CollectionName} ({ClassPrefix}{CollectionName}.cls)", preview_icon::kCollection);
            emitMember("    Class Name (File Name): {ClassName} ({ClassPrefix}{ClassName}.cls)", IconOf(item));
        } else {
            emitMember("Class Name (File Name): {ClassName} ({ClassPrefix}{ClassName}.cls)", IconOf(item));
        }
    }
}

} // namespace

void ShowProjectSummary(const View& view)
{
    const SummaryScope scope{view.Scope()};
    const SummaryEmitter emit(view.AddBlock(), scope);
    SummarizeProject(emit);
    SummarizeCodeGeneration(emit);
    SummarizePrefixes(emit);
    SummarizeComponentServices(emit);
    SummarizeConnection(emit);
    ListMembers(emit, view.Source.Classes);
}

} // namespace veldrane
