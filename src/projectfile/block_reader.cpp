#include "projectfile/block_reader.h"

#include "projectfile/value_tables.h"
#include "text/characters.h"
#include "text/conversion.h"
#include "text/strings.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace veldrane::project_format {
namespace {

using text::LineStartsWith;

// Where the name stands in an opening line, counted in characters from 1.
namespace name_position {
constexpr std::size_t kRelationship = 20;
constexpr std::size_t kKey = 10;
constexpr std::size_t kMethod = 14;
constexpr std::size_t kEvent = 13;
constexpr std::size_t kProperty = 16;
} // namespace name_position

// Gives each line to `take` up to the one that starts with `end`, where the cursor stands afterwards.
template <class Take>
void ReadUntil(LineCursor& lines, std::string_view end, const Take& take)
{
    for (lines.Advance(); !LineStartsWith(lines.Current(), end); lines.Advance())
        take(lines.Current());
}

template <class Record, class Table>
void ReadValues(LineCursor& lines, std::string_view end, Record& record, const Table& table)
{
    ReadUntil(lines, end, [&](std::string_view line) { ReadValueLine(line, record, table); });
}

struct ColumnWords
{
    std::string_view BeginOne;
    std::string_view EndOne;
    std::string_view EndAll;
};

template <class Collection, class Table>
void ReadColumns(LineCursor& lines, const ColumnWords& words, Collection& columns, const Table& table)
{
    ReadUntil(lines, words.EndAll, [&](std::string_view line) {
        if (!LineStartsWith(line, words.BeginOne))
            return;
        auto column = std::make_shared<TTCColumn>();
        ReadValues(lines, words.EndOne, *column, table);
        columns.AddExisting(column, column->ColumnName);
    });
}

template <class Add>
void ReadArguments(LineCursor& lines, const Add& add)
{
    ReadUntil(lines, "End Arguments", [&](std::string_view line) {
        if (!LineStartsWith(line, "Begin Argument "))
            return;
        TTCParameter argument;
        ReadValues(lines, "End Argument ", argument, kArgumentLines);
        add(argument);
    });
}

std::shared_ptr<SP> ReadStoredProcedure(LineCursor& lines)
{
    auto procedure = std::make_shared<SP>();
    ReadUntil(lines, "End StoredProcedure", [&](std::string_view line) {
        if (!LineStartsWith(line, "Begin SPParameter ")) {
            ReadValueLine(line, *procedure, kStoredProcedureLines);
            return;
        }
        auto parameter = std::make_shared<SPParameter>();
        ReadValues(lines, "End SPParameter ", *parameter, kSPParameterLines);
        procedure->SPParameters.AddExisting(parameter, parameter->ParameterName);
    });
    return procedure;
}

void ReadLookupField(LineCursor& lines, TTCProperty& property, TTCMembers& members)
{
    TTCLookupField field;
    ReadValues(lines, "End Lookup Field", field, kLookupFieldLines);
    if (property.LookupTable.empty())
        return;
    // A name that is taken already does not keep the field out: on purpose.
    members.Add(field.PropertyName, field.PropertyName);
    property.TTCLookupFields.Add(field.FieldName, field.FieldDataType, field.PropertyName, field.PropertyName);
}

} // namespace

void ReadRelationship(LineCursor& lines, KZMClass& owner)
{
    auto relationship = std::make_shared<TTCRelationship>();
    relationship->KeyName = text::From(lines.Current(), name_position::kRelationship);
    ReadUntil(lines, "End Relationship ", [&](std::string_view line) {
        if (LineStartsWith(line, "Begin RelationshipColumns"))
            ReadColumns(lines,
                        {.BeginOne = "Begin RelationshipColumn ",
                         .EndOne = "End RelationshipColumn ",
                         .EndAll = "End RelationshipColumns"},
                        relationship->Columns, kRelationshipColumnLines);
        else
            ReadValueLine(line, *relationship, kRelationshipLines);
    });
    owner.TTCRelationships.AddExisting(relationship, relationship->KeyName);
}

void ReadKey(LineCursor& lines, KZMClass& owner)
{
    auto key = std::make_shared<TTCKey>();
    key->KeyType = text::LeadingNumber(text::From(lines.Current(), name_position::kKey));
    ReadUntil(lines, "End Key ", [&](std::string_view line) {
        if (LineStartsWith(line, "Begin KeyColumns"))
            ReadColumns(lines, {.BeginOne = "Begin KeyColumn ", .EndOne = "End KeyColumn ", .EndAll = "End KeyColumns"},
                        key->TTCColumns, kKeyColumnLines);
        else
            ReadValueLine(line, *key, kKeyLines);
    });
    owner.TTCKeys.AddExisting(key, KeyTypeText(key->KeyType));
}

void ReadMethod(LineCursor& lines, KZMClass& owner)
{
    auto method = std::make_shared<TTCMethod>();
    method->MethodName = text::From(lines.Current(), name_position::kMethod);
    ReadUntil(lines, "End Method ", [&](std::string_view line) {
        if (LineStartsWith(line, "Begin StoredProcedure"))
            method->StoredProcedure = ReadStoredProcedure(lines);
        else if (LineStartsWith(line, "Begin Arguments"))
            ReadArguments(lines, [&](const TTCParameter& argument) {
                method->Arguments.Add(argument.ColumnName, argument.Index, argument.ByValIndicator,
                                      argument.VariableName, argument.ParameterDataType, argument.OptionalIndicator,
                                      argument.DefaultValue, argument.IsArray, argument.VariableName);
            });
        else
            ReadValueLine(line, *method, kMethodLines);
    });
    // Whoever meets a method that is a stored procedure relies on there being one.
    if (method->MethodIsSP && method->StoredProcedure == nullptr)
        method->StoredProcedure = std::make_shared<SP>();
    if (owner.TTCMembers.Add(method->MethodName, method->MethodName))
        owner.TTCMethods.AddExisting(method, method->MethodName);
}

void ReadEvent(LineCursor& lines, KZMClass& owner)
{
    auto event = std::make_shared<ttcEvent>();
    event->EventName = text::From(lines.Current(), name_position::kEvent);
    ReadUntil(lines, "End Event ", [&](std::string_view line) {
        if (LineStartsWith(line, "Begin Arguments"))
            ReadArguments(lines, [&](const TTCParameter& argument) {
                event->TTCEventParameters.Add(argument.Index, argument.ByValIndicator, argument.VariableName,
                                              argument.ParameterDataType, argument.OptionalIndicator,
                                              argument.DefaultValue, argument.IsArray, argument.VariableName);
            });
        else
            ReadValueLine(line, *event, kEventLines);
    });
    if (owner.TTCMembers.Add(event->EventName, event->EventName))
        owner.TTCEvents.AddExisting(event, event->EventName);
}

void ReadProperty(LineCursor& lines, KZMClass& owner)
{
    auto property = std::make_shared<TTCProperty>();
    property->PropertyName = text::From(lines.Current(), name_position::kProperty);
    ReadUntil(lines, "End Property", [&](std::string_view line) {
        if (LineStartsWith(line, "Begin Lookup Field"))
            ReadLookupField(lines, *property, owner.TTCMembers);
        else
            ReadValueLine(line, *property, kPropertyLines);
    });
    if (owner.TTCMembers.Add(property->PropertyName, property->PropertyName))
        owner.TTCProperties.AddExisting(property, property->PropertyName);
}

} // namespace veldrane::project_format
