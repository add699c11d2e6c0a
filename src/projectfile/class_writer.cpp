#include "projectfile/class_writer.h"

#include "projectfile/format.h"
#include "projectfile/value_tables.h"

namespace veldrane {

using namespace project_format;

namespace {

void WriteKey(std::string& text, const TTCKey& key)
{
    const std::string keyType = std::to_string(key.KeyType);
    AppendLine(text, "Begin Key ", keyType);
    AppendValueLines(text, key, kKeyLines);
    AppendLine(text, "Begin KeyColumns ");
    for (const TTCColumn& column : key.TTCColumns) {
        AppendLine(text, "Begin KeyColumn ", column.ColumnName);
        AppendValueLines(text, column, kKeyColumnLines);
        AppendLine(text, "End KeyColumn ", column.ColumnName);
    }
    AppendLine(text, "End KeyColumns ");
    AppendLine(text, "End Key ", keyType);
}

void WriteRelationship(std::string& text, const TTCRelationship& relationship)
{
    AppendLine(text, "Begin Relationship ", relationship.KeyName);
    AppendValueLines(text, relationship, kRelationshipLines);
    AppendLine(text, "Begin RelationshipColumns");
    for (const TTCColumn& column : relationship.Columns) {
        AppendLine(text, "Begin RelationshipColumn ", column.ColumnName);
        AppendValueLines(text, column, kRelationshipColumnLines);
        AppendLine(text, "End RelationshipColumn ", column.ColumnName);
    }
    AppendLine(text, "End RelationshipColumns");
    AppendLine(text, "End Relationship ", relationship.KeyName);
}

void WriteProperty(std::string& text, const TTCProperty& property)
{
    AppendLine(text, "Begin Property ", property.PropertyName);
    AppendValueLines(text, property, kPropertyLines);
    if (!property.LookupTable.empty())
        for (const TTCLookupField& field : property.TTCLookupFields) {
            AppendLine(text, "Begin Lookup Field ", field.FieldName);
            AppendValueLines(text, field, kLookupFieldLines);
            AppendLine(text, "End Lookup Field ", field.FieldName);
        }
    // The one End line with the separator in it: on purpose.
    AppendLine(text, "End Property ", kSeparator, property.PropertyName);
}

template <class Arguments>
void WriteArguments(std::string& text, const Arguments& arguments)
{
    AppendLine(text, "Begin Arguments");
    for (const TTCParameter& argument : arguments) {
        AppendLine(text, "Begin Argument ", argument.VariableName);
        AppendValueLines(text, argument, kArgumentLines);
        AppendLine(text, "End Argument ", argument.VariableName);
    }
    AppendLine(text, "End Arguments");
}

void WriteStoredProcedure(std::string& text, const SP& procedure)
{
    AppendLine(text, "Begin StoredProcedure");
    AppendValueLines(text, procedure, kStoredProcedureLines);
    AppendLine(text, "Begin SPParameters");
    for (const SPParameter& parameter : procedure.SPParameters) {
        AppendLine(text, "Begin SPParameter ", parameter.ParameterName);
        AppendValueLines(text, parameter, kSPParameterLines);
        AppendLine(text, "End SPParameter ", parameter.ParameterName);
    }
    AppendLine(text, "End SPParameters");
    AppendLine(text, "End StoredProcedure");
}

void WriteMethod(std::string& text, const TTCMethod& method)
{
    AppendLine(text, "Begin Method ", method.MethodName);
    AppendValueLines(text, method, kMethodLines);
    if (method.MethodIsSP && method.StoredProcedure != nullptr)
        WriteStoredProcedure(text, *method.StoredProcedure);
    WriteArguments(text, method.Arguments);
    AppendLine(text, "End Method ", method.MethodName);
}

void WriteEvent(std::string& text, const ttcEvent& event)
{
    AppendLine(text, "Begin Event ", event.EventName);
    AppendValueLines(text, event, kEventLines);
    WriteArguments(text, event.TTCEventParameters);
    AppendLine(text, "End Event ", event.EventName);
}

void WriteClass(std::string& text, const KZMClass& item)
{
    AppendLine(text, "Begin Class ", item.ClassName);
    AppendValueLines(text, item, kClassLines);
    for (const TTCKey& key : item.TTCKeys)
        WriteKey(text, key);
    for (const TTCRelationship& relationship : item.TTCRelationships)
        WriteRelationship(text, relationship);
    AppendLine(text, "Begin Properties");
    for (const TTCProperty& property : item.TTCProperties)
        WriteProperty(text, property);
    AppendLine(text, "End Properties");
    AppendLine(text, "Begin Methods");
    for (const TTCMethod& method : item.TTCMethods)
        WriteMethod(text, method);
    AppendLine(text, "End Methods");
    AppendLine(text, "Begin Events");
    for (const ttcEvent& event : item.TTCEvents)
        WriteEvent(text, event);
    AppendLine(text, "End Events");
    AppendLine(text, "End Class ", item.ClassName);
}

} // namespace

void WriteClassInfo(std::string& text, const KZMClasses& classes)
{
    // From the first classes on the text is given room for all of them: grown step by step, it would be held twice.
    constexpr std::size_t kSample = 50;
    constexpr std::size_t kRoomForLarger = 4;
    const std::size_t start = text.size();
    std::size_t written = 0;
    AppendLine(text, "Begin Classes");
    for (const KZMClass& item : classes) {
        WriteClass(text, item);
        if (++written == kSample) {
            const std::size_t expected = (text.size() - start) / kSample * classes.Count();
            text.reserve(start + expected + expected / kRoomForLarger);
        }
    }
    AppendLine(text, "End Classes");
}

} // namespace veldrane
