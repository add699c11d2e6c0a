#include "generator/key_text.h"
#include "generator/methods/data_routine.h"
#include "generator/methods/field_reads.h"
#include "generator/methods/related_calls.h"
#include "generator/writers.h"

namespace veldrane {
namespace {

struct RelatedScope : ClassScope
{
    const std::string& Arguments;
    const std::string& Tail; // the arguments that are not columns
};

// A line that puts a read object into the collection.
struct RelatedMemberScope : ClassScope
{
    const std::string& Key;
};

// A property of the class that is handed on to a child.
struct HandedOnScope : ClassScope
{
    std::string_view ParentProperty;
};

} // namespace

template <>
inline constexpr auto
    Vocabulary<RelatedScope> = JoinVocabularies(std::to_array<Placeholder<RelatedScope>>({
                                                    {"Arguments", [](std::string& line, const RelatedScope& s) { line += s.Arguments; }},
                                                    {"Tail", [](std::string& line, const RelatedScope& s) { line += s.Tail; }},
                                                    {"RecordsetLibrary", [](std::string& line, const RelatedScope& s) { line += s.Project.UseADOR && s.Project.MTSEnabled ? "ADOR" : "ADODB"; }},
                                                }),
                                                InheritedVocabulary<RelatedScope, ClassScope>());

template <>
inline constexpr auto
    Vocabulary<RelatedMemberScope> = JoinVocabularies(std::to_array<Placeholder<RelatedMemberScope>>({{"Key", [](std::string& line, const RelatedMemberScope& s) { line += s.Key; }}}),
                                                      InheritedVocabulary<RelatedMemberScope, ClassScope>());

template <>
inline constexpr auto
    Vocabulary<HandedOnScope> = JoinVocabularies(std::to_array<Placeholder<HandedOnScope>>({{"ParentProperty", [](std::string& line, const HandedOnScope& s) { line += s.ParentProperty; }}}),
                                                 InheritedVocabulary<HandedOnScope, ClassScope>());

namespace {

using RelatedEmitter = Emitter<RelatedScope>;

constexpr ReadForms<PropertyScope> kProperty{
    "        SET r{ClassName}.{PropertyName}=IIF(IsNull({F}),{DataType}, {F})",
    "        r{ClassName}.{PropertyName}={F}",
    "        r{ClassName}.{PropertyName}=IIF(IsNull({F}), {NullValue}, {F})",
};

// The type that stands for an empty object is the property's: on purpose.
constexpr ReadForms<LookupFieldScope> kLookupField{
    "        SET r{ClassName}.{L.PropertyName}=IIF(IsNull({L.F}),{DataType}, {L.F})",
    "        r{ClassName}.{L.PropertyName}={L.F}",
    "        r{ClassName}.{L.PropertyName}=IIF(IsNull({L.F}), {L.Empty}, {L.F})",
};

std::string Tail(const ClassEmitter& emit, const std::string& arguments)
{
    std::string tail;
    if (HasChildren(emit.Scope()))
        tail = arguments.empty() ? emit.Text("Optional ByVal RetrieveChildren as Boolean = {True}") : emit.Text(", Optional ByVal RetrieveChildren as Boolean = {True}");
    // The comma stands even where nothing comes before it: on purpose.
    return tail + emit.Text(", Optional ByVal SQLWhereClause as String = ``");
}

std::string KeyText(const ClassEmitter& emit)
{
    std::string key;
    AppendKeyText(
        key, emit.Scope().Class, PropertiesOnColumn::Every,
        [&](TTCProperty& property) {
            const PropertyScope scope{emit.Scope(), property};
            return NeedsBrackets(property.FieldName) ? emit.About(scope).Text("`:` & (adoRS(`{FieldAlias}`))") : emit.About(scope).Text("`:` & (!{FieldAlias})");
        },
        [&](TTCProperty& property) {
            const PropertyScope scope{emit.Scope(), property};
            return emit.About(scope).Text("`:` & r{ClassName}.{PropertyName} & ");
        });
    return key;
}

// A caller's clause goes on where the condition ends.
void WriteCallersClause(const ClassEmitter& emit)
{
    emit("    If SQLWhereClause <> `` Then");
    emit("        If UCase(Trim(Left$(SQLWhereClause, 5))) = `WHERE` Then");
    emit("            SQLWhereClause = Replace(UCase(SQLWhereClause), `WHERE `, `AND `)");
    emit("        Else");
    emit("            If UCase(Trim(Left$(SQLWhereClause, 3))) <> `AND` Then");
    emit("                SQLWhereClause = `AND ` & SQLWhereClause");
    emit("            End If");
    emit("        End If");
    emit("    End If");
    emit("    SQL = SQL & ` ` & SQLWhereClause");
    emit("");
}

void WriteQuery(const ClassEmitter& emit)
{
    WriteSelectStatement(emit, "    SQL = `{Select}`");
    WriteConditionLine(emit, WhereOfRelationships(emit.Scope().Class), "    SQL = SQL & ` WHERE {Where}");
    WriteCallersClause(emit);
    if (RetrievesThroughComponent(emit.Scope().Project)) {
        WriteReadThroughComponent(emit, "        Err.Raise ErrorNumber, `Component Services RetrieveRelated Error`, ErrorDescription");
    } else {
        emit("    adoRS.CacheSize = 250");
        emit("    adoRS.Open SQL, adoCon, adOpenForwardOnly, adLockReadOnly");
    }
}

void WriteFields(const ClassEmitter& emit)
{
    WriteRetrieveFields(emit, kProperty, kLookupField);
    WritePushCopies(emit, "        SET r{ClassName}.{Save}{PropertyName}= r{ClassName}.{PropertyName}", "        r{ClassName}.{Save}{PropertyName}= r{ClassName}.{PropertyName}");
    if (HasProperty(emit.Scope(), "Modified"))
        emit("        r{ClassName}.Modified = False");
}

// The properties that the child's relationships join, then the flag, whether or not the child takes it.
std::string PropertiesForChild(const ChildEmitter& emit, const ColumnIndex& columns)
{
    const ClassScope& owner = emit.Scope();
    std::string arguments;
    for (const ColumnProperty& found : PropertiesBehindRelationships(emit.Scope().C, PropertiesOnColumn::First)) {
        const HandedOnScope scope{owner, columns.ColumnToProperty(found.Column->JoinColumnName)};
        arguments += emit.About(scope).Text("r{ClassName}.{ParentProperty}, ");
    }
    return arguments + std::string(kRetrieveChildren);
}

void WriteHead(const RelatedEmitter& emit)
{
    emit("Public Function RetrieveRelated({Arguments}{Tail}) as Boolean", LineClass::HeadPlusMethod);
    emit("    Dim adoRS as New {RecordsetLibrary}.Recordset");
    emit("    Dim SQL as String");
    if (RetrievesThroughComponent(emit.Scope().Project))
        WriteErrorVariables(emit);
    emit("    Dim r{ClassName} as New {ClassName}");
    emit("    On Error Goto errRetrieveRelated");
    emit("    Screen.MousePointer = vbHourglass");
    WriteTimingLine(emit, "    StartTime = Timer");
    emit("");
    emit("    Clear");
    emit("");
}

void WriteLoop(const ClassEmitter& emit)
{
    emit("    With adoRS");
    emit("    Do While Not .EOF");
    emit("        Set r{ClassName} = Nothing");
    emit("        Set r{ClassName} = New {ClassName}");
    WriteFields(emit);
    const std::string key = KeyText(emit);
    const RelatedMemberScope member{emit.Scope(), key};
    emit.About(member)("        mcol.Add r{ClassName}, {Key}");
    WriteRelatedCalls(emit, PropertiesForChild, "        If RetrieveChildren then r{ClassName}.{C.CollectionName}.RetrieveRelated {List}");
    emit("        .MoveNext");
    emit("    Loop");
    emit("    .Close");
    emit("    End With");
    emit("    ");
}

void WriteTail(const ClassEmitter& emit)
{
    emit("    Screen.MousePointer = vbDefault");
    WriteTimingLine(emit, "    EndTime = Timer");
    WriteTimingLine(emit, "    Debug.Print `{CollectionName} - RetrieveRelated Execution Time: ` & Format(EndTime - StartTime, `Fixed`)");
    emit("    RetrieveRelated = {True}");
    emit("    Exit Function");
    emit("");
    emit("errRetrieveRelated:");
    emit("    Screen.MousePointer = vbDefault");
    emit("    nbr = Err.Number");
    emit("    msg = ErrorMessage(`{CollectionName}`, `RetrieveRelated`, vbLogEventTypeWarning)");
    emit("End Function", LineClass::Head);
}

} // namespace

std::string GetRelationshipArguments(const ClassEmitter& emit)
{
    std::string arguments;
    for (const ColumnProperty& found : PropertiesBehindRelationships(emit.Scope().Class, PropertiesOnColumn::First)) {
        const PropertyScope scope{emit.Scope(), *found.Property};
        arguments += emit.About(scope).Text("ByVal {PropertyName} as {DataType}, ");
    }
    constexpr std::size_t kSeparator = 2;
    if (arguments.size() > kSeparator)
        arguments.resize(arguments.size() - kSeparator);
    return arguments;
}

void GenerateRetrieveRelatedMethod(const ClassEmitter& emit)
{
    if (IsTopLevel(emit.Scope().Class) || emit.Scope().Class.TableName.empty())
        return;
    const std::string arguments = GetRelationshipArguments(emit);
    const std::string tail = Tail(emit, arguments);
    const RelatedScope scope{emit.Scope(), arguments, tail};
    WriteHead(emit.About(scope));
    WriteQuery(emit);
    WriteLoop(emit);
    WriteTail(emit);
}

} // namespace veldrane
