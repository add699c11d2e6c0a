#pragma once

#include "model/class.h"
#include "model/project.h"
#include "projectfile/value_line.h"

#include <array>

// The value lines of each block, in the order of the file. A new key is one row here.
namespace veldrane::project_format {

// The interval and the path are written and never read: an opened project is saved every five minutes and lives where
// it was opened. The connection string comes last, because setting it opens the database.
inline constexpr auto kProjectLines = std::to_array<ValueLine<TTCProject>>({
    {"ProjectName", TextProperty<TTCProject>{&TTCProject::ProjectName, &TTCProject::SetProjectName}},
    {"ProjectDescription", &TTCProject::ProjectDescription},
    {"Author", &TTCProject::Author},
    {"AutosaveProject", &TTCProject::AutosaveProject, Written::IfSet},
    {"AutosaveProjectInterval", &TTCProject::AutosaveProjectInterval, Written::Always, Reading::Ignored},
    {"UseTransactions", &TTCProject::UseTransactions, Written::IfSet},
    {"WriteErrorsToApplicationLog", &TTCProject::WriteErrorsToApplicationLog},
    {"MakeWebCompatible", &TTCProject::MakeWebCompatible},
    {"ConnectionString", TextProperty<TTCProject>{&TTCProject::ConnectionString, &TTCProject::SetConnectionString},
     Written::Always, Reading::TakenLast},
    {"DataSourceDatabaseName", &TTCProject::DataSourceDatabaseName},
    {"DataSourceDriver", &TTCProject::DataSourceDriver},
    {"DataSourceLogin", &TTCProject::DataSourceLogin},
    {"DataSourceName", &TTCProject::DataSourceName},
    {"DataSourceServerName", &TTCProject::DataSourceServerName},
    {"VBProjectName", &TTCProject::VBProjectName},
    {"VBProjectDescription", &TTCProject::VBProjectDescription},
    {"WrapClasses", &TTCProject::WrapClasses, Written::IfSet},
    {"WrapperClassName", &TTCProject::WrapperClassName},
    {"UseGlobalADOObject", &TTCProject::UseGlobalADOObject, Written::IfSet},
    {"IncludeGlobalsBas", &TTCProject::IncludeGlobalsBas, Written::IfSet},
    {"MTSEnabled", &TTCProject::MTSEnabled},
    {"FormsEnabled", &TTCProject::FormsEnabled},
    {"MTSDontRetrieve", &TTCProject::MTSDontRetrieve, Written::IfSet},
    {"LogTransactions", &TTCProject::LogTransactions, Written::IfSet},
    {"AllowLogTargetChange", &TTCProject::AllowLogTargetChange, Written::IfSet},
    {"LogDatabaseConnection", &TTCProject::LogDatabaseConnection},
    {"LogTableName", &TTCProject::LogTableName},
    {"LoggingLevel", &TTCProject::LoggingLevel},
    {"FullPath", &TTCProject::FullPath, Written::Always, Reading::Ignored},
    {"FileName", &TTCProject::FileName},
    {"OutputPath", &TTCProject::OutputPath},
    {"ClassPrefix", &TTCProject::ClassPrefix},
    {"ModulePrefix", &TTCProject::ModulePrefix},
    {"FormPrefix", &TTCProject::FormPrefix},
    {"VBVersion", &TTCProject::VBVersion},
    {"PrefixBoolean", &TTCProject::PrefixBoolean},
    {"PrefixByte", &TTCProject::PrefixByte},
    {"PrefixCollection", &TTCProject::PrefixCollection},
    {"PrefixCurrency", &TTCProject::PrefixCurrency},
    {"PrefixDate", &TTCProject::PrefixDate},
    {"PrefixDouble", &TTCProject::PrefixDouble},
    {"PrefixInteger", &TTCProject::PrefixInteger},
    {"PrefixLong", &TTCProject::PrefixLong},
    {"PrefixObject", &TTCProject::PrefixObject},
    {"PrefixOther", &TTCProject::PrefixOther},
    {"PrefixSingle", &TTCProject::PrefixSingle},
    {"PrefixString", &TTCProject::PrefixString},
    {"PrefixVariant", &TTCProject::PrefixVariant},
    {"DoNotExposeChildrenMethods", &TTCProject::DoNotExposeChildrenMethods, Written::IfSet},
    {"TrackPropertyChanges", &TTCProject::TrackPropertyChanges, Written::IfSet},
    {"ConnectSameDirectory", &TTCProject::ConnectSameDirectory, Written::IfSet},
    {"UseADOR", &TTCProject::UseADOR, Written::IfSet},
});

inline constexpr auto kClassLines = std::to_array<ValueLine<KZMClass>>({
    {"TableName", &KZMClass::TableName},
    {"IsDomainTable", &KZMClass::IsDomainTable, Written::IfSet},
    {"ParentClassName", &KZMClass::ParentClassName},
    {"CreateCollection", &KZMClass::CreateCollection, Written::IfSet},
    {"CollectionName", &KZMClass::CollectionName},
    {"IncludeAddExisting", &KZMClass::IncludeAddExisting, Written::IfSet},
    {"CollectionAddNewKey", &KZMClass::CollectionAddNewKey},
    {"ReadOnly", &KZMClass::ReadOnly, Written::IfSet},
    {"RetrieveByIdentityCol", &KZMClass::RetrieveByIdentityCol, Written::IfSet},
    {"RetrieveByPrimaryKey", &KZMClass::RetrieveByPrimaryKey, Written::IfSet},
    {"DeleteByIdentityColumn", &KZMClass::DeleteByIdentityColumn, Written::IfSet},
    {"DeleteByPrimaryKey", &KZMClass::DeleteByPrimaryKey, Written::IfSet},
    {"IsMTSRequiredClass", &KZMClass::IsMTSRequiredClass, Written::IfSet},
});

inline constexpr auto kKeyLines = std::to_array<ValueLine<TTCKey>>({
    {"KeyType", &TTCKey::KeyType},
});

inline constexpr auto kKeyColumnLines = std::to_array<ValueLine<TTCColumn>>({
    {"ColumnName", &TTCColumn::ColumnName},
    {"ColumnDataType", &TTCColumn::ColumnDataType},
});

inline constexpr auto kRelationshipLines = std::to_array<ValueLine<TTCRelationship>>({
    {"KeyName", &TTCRelationship::KeyName},
    {"ParentTableName", &TTCRelationship::ParentTableName},
});

inline constexpr auto kRelationshipColumnLines = std::to_array<ValueLine<TTCColumn>>({
    {"ColumnName", &TTCColumn::ColumnName},
    {"ColumnDataType", &TTCColumn::ColumnDataType},
    {"JoinColumnName", &TTCColumn::JoinColumnName, Written::IfSet},
});

inline constexpr auto kPropertyLines = std::to_array<ValueLine<TTCProperty>>({
    {"ReadOnly", &TTCProperty::ReadOnly, Written::IfSet},
    {"AddToClass", &TTCProperty::AddToClass, Written::IfSet},
    {"AttributeDescription", &TTCProperty::AttributeDescription, Written::IfSet},
    {"DataType", &TTCProperty::DataType},
    {"DefaultProperty", &TTCProperty::DefaultProperty, Written::IfSet},
    {"DisplayTruncationMessage", &TTCProperty::DisplayTruncationMessage, Written::IfSet},
    {"EnforceMaxLength", &TTCProperty::EnforceMaxLength, Written::IfSet},
    {"FieldDataType", &TTCProperty::FieldDataType},
    {"FieldIsIdentityCol", &TTCProperty::FieldIsIdentityCol, Written::IfSet},
    {"FieldAllowsNull", &TTCProperty::FieldAllowsNull, Written::IfSet},
    {"FieldName", &TTCProperty::FieldName},
    {"MaxLength", &TTCProperty::MaxLength, Written::IfSet},
    {"PropertyGet", &TTCProperty::PropertyGet, Written::IfSet},
    {"PropertyLetSet", &TTCProperty::PropertyLetSet, Written::IfSet},
    {"Scope", &TTCProperty::Scope},
    {"AllowPropertyToBeNull", &TTCProperty::AllowPropertyToBeNull},
    {"LookupTable", &TTCProperty::LookupTable, Written::IfSet},
    {"LookupJoinField", &TTCProperty::LookupJoinField, Written::IfSet},
    {"LookupUseOuterJoin", &TTCProperty::LookupUseOuterJoin, Written::IfSet},
    {"PlusProperty", &TTCProperty::PlusProperty, Written::IfSet},
    {"FormatOnGet", &TTCProperty::FormatOnGet, Written::IfSet},
    {"FormatOnLet", &TTCProperty::FormatOnLet, Written::IfSet},
    {"FormatStringOnGet", &TTCProperty::FormatStringOnGet, Written::IfSet, Reading::Taken, &TTCProperty::FormatOnGet},
    {"FormatStringOnLet", &TTCProperty::FormatStringOnLet, Written::IfSet, Reading::Taken, &TTCProperty::FormatOnLet},
});

inline constexpr auto kLookupFieldLines = std::to_array<ValueLine<TTCLookupField>>({
    {"PropertyName", &TTCLookupField::PropertyName},
    {"FieldName", &TTCLookupField::FieldName},
    {"FieldDataType", &TTCLookupField::FieldDataType},
});

inline constexpr auto kMethodLines = std::to_array<ValueLine<TTCMethod>>({
    {"Scope", &TTCMethod::Scope},
    {"DefaultMethod", &TTCMethod::DefaultMethod, Written::IfSet},
    {"MethodName", &TTCMethod::MethodName},
    {"ReturnDataType", &TTCMethod::ReturnDataType},
    {"PlusMethod", &TTCMethod::PlusMethod, Written::IfSet},
    {"MethodIsSP", &TTCMethod::MethodIsSP, Written::IfSet},
});

inline constexpr auto kStoredProcedureLines = std::to_array<ValueLine<SP>>({
    {"SPMethodName", &SP::SPMethodName},
    {"SPName", &SP::SPName},
});

inline constexpr auto kSPParameterLines = std::to_array<ValueLine<SPParameter>>({
    {"CharacterMaximumLength", &SPParameter::CharacterMaximumLength},
    {"DataType", &SPParameter::DataType},
    {"DataTypeNumber", &SPParameter::DataTypeNumber},
    {"Direction", &SPParameter::Direction},
    {"DefaultValue", &SPParameter::DefaultValue},
    {"Description", &SPParameter::Description},
    {"IsNullable", &SPParameter::IsNullable},
    {"LocalDataTypeName", &SPParameter::LocalDataTypeName},
    {"NumericPrecision", &SPParameter::NumericPrecision},
    {"NumericScale", &SPParameter::NumericScale},
    {"OrdianalPosition", &SPParameter::OrdianalPosition},
    {"ParameterHasDefault", &SPParameter::ParameterHasDefault},
    {"ParameterName", &SPParameter::ParameterName},
});

inline constexpr auto kArgumentLines = std::to_array<ValueLine<TTCParameter>>({
    {"VariableName", &TTCParameter::VariableName},
    {"ParameterDataType", &TTCParameter::ParameterDataType},
    {"OptionalIndicator", &TTCParameter::OptionalIndicator, Written::IfSet},
    {"DefaultValue", &TTCParameter::DefaultValue, Written::IfSet},
    {"ByValIndicator", &TTCParameter::ByValIndicator, Written::IfSet},
    {"IsArray", &TTCParameter::IsArray, Written::IfSet},
    {"Index", &TTCParameter::Index},
    {"ColumnName", &TTCParameter::ColumnName},
});

// The name is taken from the opening line; a line of its own is read all the same.
inline constexpr auto kEventLines = std::to_array<ValueLine<ttcEvent>>({
    {"EventName", &ttcEvent::EventName, Written::Never},
    {"PlusEvent", &ttcEvent::PlusEvent, Written::IfSet},
});

} // namespace veldrane::project_format
