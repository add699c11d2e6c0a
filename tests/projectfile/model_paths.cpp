#include "model_paths.h"

#include "text/conversion.h"

#include <charconv>
#include <cstdint>
#include <map>
#include <stdexcept>

namespace veldrane::testing {
namespace {

std::string Shown(const std::string& value)
{
    return value;
}

std::string Shown(bool value)
{
    return std::string(text::TextOf(value));
}

std::string Shown(std::int32_t value)
{
    return std::to_string(value);
}

template <class Record>
using Members = std::map<std::string_view, std::string (*)(const Record&)>;

// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): the name and the member are one word here, so they can't differ.
#define MEMBER(Record, Name)                                                                                           \
    {                                                                                                                  \
#Name, [](const Record& record) { return Shown(record.Name); }                                                 \
    }

template <class Record>
const Members<Record> kMembers;

template <>
const Members<TTCProject> kMembers<TTCProject> = {
    MEMBER(TTCProject, DataSourceName),
    MEMBER(TTCProject, FileName),
    MEMBER(TTCProject, FullPath),
    MEMBER(TTCProject, ProjectDescription),
    MEMBER(TTCProject, DataSourceServerName),
    MEMBER(TTCProject, DataSourceDatabaseName),
    MEMBER(TTCProject, DataSourceLogin),
    MEMBER(TTCProject, DataSourceDriver),
    MEMBER(TTCProject, UseTransactions),
    MEMBER(TTCProject, WriteErrorsToApplicationLog),
    MEMBER(TTCProject, Author),
    MEMBER(TTCProject, AutosaveProject),
    MEMBER(TTCProject, AutosaveProjectInterval),
    MEMBER(TTCProject, TempFileName),
    MEMBER(TTCProject, AutosaveCurrentInterval),
    MEMBER(TTCProject, VBProjectName),
    MEMBER(TTCProject, VBProjectDescription),
    MEMBER(TTCProject, WrapClasses),
    MEMBER(TTCProject, WrapperClassName),
    MEMBER(TTCProject, Recovered),
    MEMBER(TTCProject, OutputPath),
    MEMBER(TTCProject, UseGlobalADOObject),
    MEMBER(TTCProject, IncludeGlobalsBas),
    MEMBER(TTCProject, MakeWebCompatible),
    MEMBER(TTCProject, DataSourcePassword),
    MEMBER(TTCProject, DataSourceDatabasePassword),
    MEMBER(TTCProject, MTSEnabled),
    MEMBER(TTCProject, FormsEnabled),
    MEMBER(TTCProject, MTSDontRetrieve),
    MEMBER(TTCProject, ClassPrefix),
    MEMBER(TTCProject, ModulePrefix),
    MEMBER(TTCProject, FormPrefix),
    MEMBER(TTCProject, VBVersion),
    MEMBER(TTCProject, PrefixBoolean),
    MEMBER(TTCProject, PrefixByte),
    MEMBER(TTCProject, PrefixCollection),
    MEMBER(TTCProject, PrefixCurrency),
    MEMBER(TTCProject, PrefixDate),
    MEMBER(TTCProject, PrefixDouble),
    MEMBER(TTCProject, PrefixInteger),
    MEMBER(TTCProject, PrefixLong),
    MEMBER(TTCProject, PrefixObject),
    MEMBER(TTCProject, PrefixOther),
    MEMBER(TTCProject, PrefixSingle),
    MEMBER(TTCProject, PrefixString),
    MEMBER(TTCProject, PrefixVariant),
    MEMBER(TTCProject, LoggingLevel),
    MEMBER(TTCProject, LogTransactions),
    MEMBER(TTCProject, LogDatabaseConnection),
    MEMBER(TTCProject, LogTableName),
    MEMBER(TTCProject, DoNotExposeChildrenMethods),
    MEMBER(TTCProject, TrackPropertyChanges),
    MEMBER(TTCProject, AllowLogTargetChange),
    MEMBER(TTCProject, ConnectSameDirectory),
    MEMBER(TTCProject, UseADOR),
    {"DataSource", [](const TTCProject& record) { return Shown(record.DataSource()); }},
    {"ConnectionString", [](const TTCProject& record) { return Shown(record.ConnectionString()); }},
    {"ProjectName", [](const TTCProject& record) { return Shown(record.ProjectName()); }},
    {"Modified", [](const TTCProject& record) { return Shown(record.Modified()); }},
};

template <>
const Members<KZMClass> kMembers<KZMClass> = {
    MEMBER(KZMClass, TableName),
    MEMBER(KZMClass, ClassName),
    MEMBER(KZMClass, ParentClassName),
    MEMBER(KZMClass, IsDomainTable),
    MEMBER(KZMClass, CreateCollection),
    MEMBER(KZMClass, CollectionName),
    MEMBER(KZMClass, IncludeAddExisting),
    MEMBER(KZMClass, RetrieveByIdentityCol),
    MEMBER(KZMClass, RetrieveByPrimaryKey),
    MEMBER(KZMClass, ReadOnly),
    MEMBER(KZMClass, CollectionAddNewKey),
    MEMBER(KZMClass, DeleteByIdentityColumn),
    MEMBER(KZMClass, DeleteByPrimaryKey),
    MEMBER(KZMClass, IsMTSRequiredClass),
};

template <>
const Members<TTCKey> kMembers<TTCKey> = {
    MEMBER(TTCKey, KeyType),
};

template <>
const Members<TTCColumn> kMembers<TTCColumn> = {
    MEMBER(TTCColumn, ColumnName),
    MEMBER(TTCColumn, ColumnDataType),
    MEMBER(TTCColumn, JoinColumnName),
};

template <>
const Members<TTCRelationship> kMembers<TTCRelationship> = {
    MEMBER(TTCRelationship, ParentTableName),
    MEMBER(TTCRelationship, KeyName),
};

template <>
const Members<TTCProperty> kMembers<TTCProperty> = {
    MEMBER(TTCProperty, PropertyName),
    MEMBER(TTCProperty, DataType),
    MEMBER(TTCProperty, Scope),
    MEMBER(TTCProperty, DefaultProperty),
    MEMBER(TTCProperty, AttributeDescription),
    MEMBER(TTCProperty, PropertyGet),
    MEMBER(TTCProperty, PropertyLetSet),
    MEMBER(TTCProperty, EnforceMaxLength),
    MEMBER(TTCProperty, MaxLength),
    MEMBER(TTCProperty, DisplayTruncationMessage),
    MEMBER(TTCProperty, FieldName),
    MEMBER(TTCProperty, FieldDataType),
    MEMBER(TTCProperty, FieldIsIdentityCol),
    MEMBER(TTCProperty, AddToClass),
    MEMBER(TTCProperty, LookupTable),
    MEMBER(TTCProperty, LookupJoinField),
    MEMBER(TTCProperty, LookupUseOuterJoin),
    MEMBER(TTCProperty, ReadOnly),
    MEMBER(TTCProperty, PlusProperty),
    MEMBER(TTCProperty, FieldAllowsNull),
    MEMBER(TTCProperty, FormatStringOnLet),
    MEMBER(TTCProperty, FormatStringOnGet),
    MEMBER(TTCProperty, FormatOnLet),
    MEMBER(TTCProperty, FormatOnGet),
    MEMBER(TTCProperty, AllowPropertyToBeNull),
    MEMBER(TTCProperty, FieldReference),
    MEMBER(TTCProperty, FieldAlias),
    MEMBER(TTCProperty, Include),
};

template <>
const Members<TTCLookupField> kMembers<TTCLookupField> = {
    MEMBER(TTCLookupField, FieldName),      MEMBER(TTCLookupField, FieldDataType), MEMBER(TTCLookupField, PropertyName),
    MEMBER(TTCLookupField, FieldReference), MEMBER(TTCLookupField, FieldAlias),
};

template <>
const Members<TTCMethod> kMembers<TTCMethod> = {
    MEMBER(TTCMethod, MethodName),         MEMBER(TTCMethod, ReturnDataType), MEMBER(TTCMethod, Scope),
    MEMBER(TTCMethod, DefaultMethod),      MEMBER(TTCMethod, PlusMethod),     MEMBER(TTCMethod, MethodIsSP),
    MEMBER(TTCMethod, SPReturnValuesOnly),
};

template <>
const Members<SP> kMembers<SP> = {
    MEMBER(SP, SPName),
    MEMBER(SP, SPMethodName),
};

template <>
const Members<SPParameter> kMembers<SPParameter> = {
    MEMBER(SPParameter, ParameterName),       MEMBER(SPParameter, DataType),
    MEMBER(SPParameter, DataTypeNumber),      MEMBER(SPParameter, CharacterMaximumLength),
    MEMBER(SPParameter, Direction),           MEMBER(SPParameter, DefaultValue),
    MEMBER(SPParameter, Description),         MEMBER(SPParameter, IsNullable),
    MEMBER(SPParameter, LocalDataTypeName),   MEMBER(SPParameter, NumericPrecision),
    MEMBER(SPParameter, NumericScale),        MEMBER(SPParameter, OrdianalPosition),
    MEMBER(SPParameter, ParameterHasDefault),
};

template <>
const Members<TTCParameter> kMembers<TTCParameter> = {
    MEMBER(TTCParameter, ByValIndicator),
    MEMBER(TTCParameter, VariableName),
    MEMBER(TTCParameter, ParameterDataType),
    MEMBER(TTCParameter, OptionalIndicator),
    MEMBER(TTCParameter, DefaultValue),
    MEMBER(TTCParameter, IsArray),
    MEMBER(TTCParameter, Index),
    MEMBER(TTCParameter, ColumnName),
};

template <>
const Members<ttcEvent> kMembers<ttcEvent> = {
    MEMBER(ttcEvent, EventName),
    MEMBER(ttcEvent, PlusEvent),
};

template <>
const Members<KZMTable> kMembers<KZMTable> = {
    MEMBER(KZMTable, TableName),
};

template <>
const Members<TTCClassCollectionName> kMembers<TTCClassCollectionName> = {
    MEMBER(TTCClassCollectionName, ClassCollectionName),
};

#undef MEMBER

std::runtime_error NoSuch(std::string_view path)
{
    return std::runtime_error("No such path: " + std::string(path));
}

// One step of a path: a name and perhaps an argument.
struct Step
{
    std::string_view Name;
    std::string_view Argument;
};

// Cuts the first step from the path. A point within parentheses belongs to the argument.
Step TakeStep(std::string_view& path)
{
    const std::size_t nameEnd = path.find_first_of(".(");
    Step step{.Name = path.substr(0, nameEnd), .Argument = {}};
    path.remove_prefix(step.Name.size());
    if (path.starts_with('(')) {
        step.Argument = path.substr(1, path.find(')') - 1);
        path.remove_prefix(step.Argument.size() + 2);
    }
    if (path.starts_with('.'))
        path.remove_prefix(1);
    return step;
}

template <class Collection>
auto ItemAt(const Collection& collection, std::string_view argument)
{
    std::size_t position = 0;
    std::from_chars(argument.data(), argument.data() + argument.size(), position);
    if (position == 0 ? !collection.Contains(argument) : position > collection.Count())
        throw NoSuch(argument);
    return position == 0 ? collection.Item(argument) : collection.Item(position);
}

template <class Record>
std::string At(const Record& record, std::string_view path);

template <class Collection>
std::string AtCollection(const Collection& collection, std::string_view argument, std::string_view path)
{
    if (argument.empty() && path == "Count")
        return std::to_string(collection.Count());
    return At(*ItemAt(collection, argument), path);
}

// What a record owns: each answers whether the step is one of its collections.
template <class Record>
bool AtChild(const Record&, const Step&, std::string_view, std::string&)
{
    return false;
}

template <>
bool AtChild(const TTCProject& record, const Step& step, std::string_view path, std::string& value)
{
    if (step.Name == "AttachedTables")
        return value = AtCollection(record.AttachedTables, step.Argument, path), true;
    if (step.Name == "ClassCollectionNames")
        return value = AtCollection(record.ClassCollectionNames, step.Argument, path), true;
    if (step.Name == "AttachedSPs" && path == "Count")
        return value = std::to_string(record.AttachedSPs.Count()), true;
    return false;
}

template <>
bool AtChild(const KZMClass& record, const Step& step, std::string_view path, std::string& value)
{
    if (step.Name == "TTCKeys")
        return value = AtCollection(record.TTCKeys, step.Argument, path), true;
    if (step.Name == "TTCRelationships")
        return value = AtCollection(record.TTCRelationships, step.Argument, path), true;
    if (step.Name == "TTCProperties")
        return value = AtCollection(record.TTCProperties, step.Argument, path), true;
    if (step.Name == "TTCMethods")
        return value = AtCollection(record.TTCMethods, step.Argument, path), true;
    if (step.Name == "TTCEvents")
        return value = AtCollection(record.TTCEvents, step.Argument, path), true;
    if (step.Name == "TTCMembers" && path == "Count")
        return value = std::to_string(record.TTCMembers.Count()), true;
    if (step.Name == "Enumerations" && path == "Count")
        return value = std::to_string(record.Enumerations.Count()), true;
    return false;
}

template <>
bool AtChild(const TTCKey& record, const Step& step, std::string_view path, std::string& value)
{
    if (step.Name == "TTCColumns")
        return value = AtCollection(record.TTCColumns, step.Argument, path), true;
    return false;
}

template <>
bool AtChild(const TTCRelationship& record, const Step& step, std::string_view path, std::string& value)
{
    if (step.Name == "Columns")
        return value = AtCollection(record.Columns, step.Argument, path), true;
    return false;
}

template <>
bool AtChild(const TTCProperty& record, const Step& step, std::string_view path, std::string& value)
{
    if (step.Name == "TTCLookupFields")
        return value = AtCollection(record.TTCLookupFields, step.Argument, path), true;
    return false;
}

template <>
bool AtChild(const TTCMethod& record, const Step& step, std::string_view path, std::string& value)
{
    if (step.Name == "Arguments")
        return value = AtCollection(record.Arguments, step.Argument, path), true;
    if (step.Name == "StoredProcedure" && record.StoredProcedure != nullptr)
        return value = At(*record.StoredProcedure, path), true;
    return false;
}

template <>
bool AtChild(const SP& record, const Step& step, std::string_view path, std::string& value)
{
    if (step.Name == "SPParameters")
        return value = AtCollection(record.SPParameters, step.Argument, path), true;
    return false;
}

template <>
bool AtChild(const ttcEvent& record, const Step& step, std::string_view path, std::string& value)
{
    if (step.Name == "TTCEventParameters")
        return value = AtCollection(record.TTCEventParameters, step.Argument, path), true;
    return false;
}

template <class Record>
std::string At(const Record& record, std::string_view path)
{
    if (const auto member = kMembers<Record>.find(path); member != kMembers<Record>.end())
        return member->second(record);
    const std::string_view whole = path;
    const Step step = TakeStep(path);
    std::string value;
    if (!AtChild(record, step, path, value))
        throw NoSuch(whole);
    return value;
}

} // namespace

std::string ValueAt(const TTCProject& project, const KZMClasses& classes, std::string_view path)
{
    const std::string_view whole = path;
    const Step step = TakeStep(path);
    if (step.Name == "Project")
        return At(project, path);
    if (step.Name == "ClassCollectionNames")
        return At(project, whole);
    if (step.Name == "Classes")
        return AtCollection(classes, step.Argument, path);
    return At(*ItemAt(classes, step.Name), path);
}

} // namespace veldrane::testing
