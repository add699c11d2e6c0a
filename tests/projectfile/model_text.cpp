#include "model_text.h"

#include "projectfile/value_tables.h"

namespace veldrane::testing {
namespace {

using namespace project_format;

// Lengths stand before the values, so that no value can look like several.
void AppendValue(std::string& text, std::string_view name, const std::string& value)
{
    text.append(name).append(" ").append(std::to_string(value.size())).append(":").append(value).append("\n");
}

template <class Record, class Table>
void AppendRecord(std::string& text, const Record& record, const Table& table)
{
    for (const ValueLine<Record>& line : table)
        if (line.WhenRead != Reading::Ignored) {
            std::string value;
            AppendMember(value, record, line);
            AppendValue(text, line.Key, value);
        }
}

template <class Collection, class Append>
void AppendEach(std::string& text, std::string_view name, const Collection& collection, const Append& append)
{
    AppendValue(text, name, std::to_string(collection.Count()));
    for (const auto& item : collection)
        append(item);
}

template <class Collection, class Table>
void AppendRecords(std::string& text, std::string_view name, const Collection& collection, const Table& table)
{
    AppendEach(text, name, collection, [&](const auto& item) { AppendRecord(text, item, table); });
}

void AppendProperty(std::string& text, const TTCProperty& property)
{
    AppendValue(text, "Property", property.PropertyName);
    AppendRecord(text, property, kPropertyLines);
    AppendRecords(text, "Lookup fields", property.TTCLookupFields, kLookupFieldLines);
}

void AppendMethod(std::string& text, const TTCMethod& method)
{
    AppendRecord(text, method, kMethodLines);
    AppendRecords(text, "Arguments", method.Arguments, kArgumentLines);
    if (method.StoredProcedure == nullptr)
        return;
    AppendRecord(text, *method.StoredProcedure, kStoredProcedureLines);
    AppendRecords(text, "Parameters", method.StoredProcedure->SPParameters, kSPParameterLines);
}

void AppendClass(std::string& text, const KZMClass& item)
{
    AppendValue(text, "Class", item.ClassName);
    AppendRecord(text, item, kClassLines);
    AppendEach(text, "Keys", item.TTCKeys, [&](const TTCKey& key) {
        AppendRecord(text, key, kKeyLines);
        AppendRecords(text, "Columns", key.TTCColumns, kKeyColumnLines);
    });
    AppendEach(text, "Relationships", item.TTCRelationships, [&](const TTCRelationship& relationship) {
        AppendRecord(text, relationship, kRelationshipLines);
        AppendRecords(text, "Columns", relationship.Columns, kRelationshipColumnLines);
    });
    AppendEach(text, "Properties", item.TTCProperties, [&](const TTCProperty& it) { AppendProperty(text, it); });
    AppendEach(text, "Methods", item.TTCMethods, [&](const TTCMethod& it) { AppendMethod(text, it); });
    AppendEach(text, "Events", item.TTCEvents, [&](const ttcEvent& event) {
        AppendRecord(text, event, kEventLines);
        AppendRecords(text, "Arguments", event.TTCEventParameters, kArgumentLines);
    });
}

} // namespace

std::string ModelText(const TTCProject& project, const KZMClasses& classes)
{
    std::string text;
    AppendRecord(text, project, kProjectLines);
    AppendValue(text, "DataSource", std::to_string(project.DataSource()));
    AppendEach(text, "Attached tables", project.AttachedTables,
               [&](const KZMTable& table) { AppendValue(text, "Table", table.TableName); });
    AppendEach(text, "Classes", classes, [&](const KZMClass& item) { AppendClass(text, item); });
    return text;
}

} // namespace veldrane::testing
