#include "generator/key_text.h"
#include "generator/methods/data_routine.h"
#include "generator/methods/field_reads.h"
#include "generator/methods/related_calls.h"
#include "generator/writers.h"

namespace veldrane {
namespace {

// A line that puts a read object into the list.
struct ListedScope : ClassScope
{
    const std::string& K;
};

// A part of a key that is a column of the row.
struct KeyColumnScope : ClassScope
{
    const TTCColumn& Column;
};

} // namespace

template <>
inline constexpr auto Vocabulary<ListedScope> = JoinVocabularies(std::to_array<Placeholder<ListedScope>>({{"K", [](std::string& line, const ListedScope& s) { line += s.K; }}}),
                                                                 InheritedVocabulary<ListedScope, ClassScope>());

template <>
inline constexpr auto Vocabulary<KeyColumnScope> =
    JoinVocabularies(std::to_array<Placeholder<KeyColumnScope>>({{"Ref", [](std::string& line, const KeyColumnScope& s) { AppendColumnReference(line, s.Column.ColumnName); }}}),
                     InheritedVocabulary<KeyColumnScope, ClassScope>());

namespace {

constexpr ReadForms<PropertyScope> kProperty{
    "        SET a{ClassName}.{PropertyName} = IIF(IsNull({adoRS:F}),{DataType}, {adoRS:F})",
    "        a{ClassName}.{PropertyName} = {adoRS:F}",
    "        a{ClassName}.{PropertyName} = IIF(IsNull({adoRS:F}),{Empty}, {adoRS:F})",
};

constexpr ReadForms<LookupFieldScope> kLookupField{
    "        SET a{ClassName}.{L.PropertyName} = IIF(IsNull({adoRS:L.F}),{L.FieldDataType}, {adoRS:L.F})",
    "        a{ClassName}.{L.PropertyName} = {adoRS:L.F}",
    "        a{ClassName}.{L.PropertyName} = IIF(IsNull({adoRS:L.F}),{L.Empty},{adoRS:L.F})",
};

void WriteFields(const ClassEmitter& emit)
{
    ForEachReadProperty(emit, [](const PropertyEmitter& property) { WriteRead(property, property.Scope().Property.DataType, kProperty); });
    ForEachReadProperty(emit,
                        [](const PropertyEmitter& property) { ForEachLookupField(property, [](const LookupFieldEmitter& field) { WriteRead(field, field.Scope().L.FieldDataType, kLookupField); }); });
}

const TTCColumn* FirstIdentityColumn(const KZMClass& owner)
{
    for (const TTCKey& key : owner.TTCKeys)
        if (key.KeyType == key_type::kIdentityColumn)
            for (const TTCColumn& column : key.TTCColumns)
                return &column;
    return nullptr;
}

std::string KeyText(const ClassEmitter& emit)
{
    std::string key;
    const KZMClass& owner = emit.Scope().Class;
    if (const TTCColumn* column = FirstIdentityColumn(owner); owner.RetrieveByIdentityCol && column != nullptr) {
        const KeyColumnScope scope{emit.Scope(), *column};
        // The first parenthesis stays open: on purpose.
        key += emit.About(scope).Text("`:` & ({Ref}", Quotes::Keep);
    }
    if (owner.RetrieveByPrimaryKey)
        for (const ColumnProperty& found : PropertiesBehindKey(owner, key_type::kPrimaryKey, PropertiesOnColumn::First)) {
            const PropertyScope scope{emit.Scope(), *found.Property};
            key += emit.About(scope).Text("`:` & a{ClassName}.{PropertyName} & ", Quotes::Keep);
        }
    CutKeyJoint(key);
    return key;
}

void WriteLoop(const ClassEmitter& emit)
{
    emit("    With adoRS");
    emit("    Do While Not .EOF");
    emit("        Set a{ClassName} = Nothing");
    emit("        Set a{ClassName} = New {ClassName}");
    WriteFields(emit);
    const std::string key = KeyText(emit);
    const ListedScope scope{emit.Scope(), key};
    emit.About(scope)("        mcol.AddExisting a{ClassName}, {K}", LineClass::Code, Quotes::Convert);
    if (scope.Class.IsDomainTable)
        WriteRelatedCalls(emit, MembersForChild, "        a{ClassName}.{C.CollectionName}.RetrieveRelated {List}");
    else
        WriteRelatedCalls(emit, MembersForChild, "        If RetrieveChildren Then a{ClassName}.{C.CollectionName}.RetrieveRelated {List}");
    emit("        .MoveNext");
    emit("    Loop");
    emit("    .Close");
    emit("    End With");
    emit("");
}

void WriteOpening(const ClassEmitter& emit)
{
    if (emit.Scope().Class.IsDomainTable)
        emit("Public Function RetrieveList(Optional ByVal SQLWhereClause as String = ``) as {CollectionName}", LineClass::HeadPlusMethod);
    else
        emit("Public Function RetrieveList(Optional ByVal SQLWhereClause as String = ``, Optional RetrieveChildren as Boolean = False) as {CollectionName}", LineClass::HeadPlusMethod);
    emit("    On Error Goto errRetrieveList");
    emit("    Dim adoRS as New ADO{Ado}.Recordset");
    if (emit.Scope().Project.MTSEnabled)
        WriteErrorVariables(emit);
    emit("    Dim SQL as String");
    emit("    Dim a{ClassName} as {ClassName}");
    emit("    Dim mCol as New {CollectionName}");
    emit("");
    WriteTimingLine(emit, "    StartTime = Timer");
}

} // namespace

void WriteRetrieveListMethod(const ClassEmitter& emit)
{
    WriteOpening(emit);
    WriteSelectStatement(emit, "    SQL = `{Select}` & SQLWhereClause");
    emit("");
    if (emit.Scope().Project.MTSEnabled) {
        WriteReadThroughComponent(emit, "        Err.Raise ErrorNumber, `Component Services RetrieveList Error`, ErrorDescription");
    } else {
        emit("    adoRS.CacheSize = 500");
        emit("    adoRS.Open SQL, adoCon, adOpenForwardOnly, adLockReadOnly");
    }
    emit("    ");
    WriteLoop(emit);
    WriteTimingLine(emit, "    EndTime = Timer");
    WriteTimingLine(emit, "    Debug.Print `{ClassName} - RetrieveList Execution Time: ` & Format(EndTime - StartTime, `Fixed`)");
    emit("    Set RetrieveList = mCol");
    emit("    Exit Function");
    emit("");
    emit("errRetrieveList:");
    WriteErrorReport(emit, "    msg = ErrorMessage(`{ClassName}`, `RetrieveList`, vbLogEventTypeWarning)");
    emit("End Function", LineClass::Head);
}

} // namespace veldrane
