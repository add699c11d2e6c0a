#include "generator/property_routines.h"
#include "generator/writers.h"

namespace veldrane {
namespace {

// The type that counts is that of the lookup property, not that of the field: on purpose.
void WriteLookupField(const LookupFieldEmitter& emit)
{
    const bool typed = !emit.Scope().Property.DataType.empty();
    if (typed)
        emit("Public Property Get {L.PropertyName}() as {L.FieldDataType}", LineClass::HeadProperty);
    else
        emit("Public Property Get {L.PropertyName}() as Variant", LineClass::HeadProperty);
    emit("    {L.PropertyName}={m:L.FieldDataType}{L.PropertyName}");
    emit("End Property", LineClass::Head);
    if (typed) {
        emit("Friend Property Let {L.PropertyName}(ByVal vData as {L.FieldDataType})", LineClass::HeadProperty);
        emit("    {m:L.FieldDataType}{L.PropertyName} = vData");
    } else {
        emit("Friend Property Let {L.PropertyName}(ByVal vData as Variant)", LineClass::HeadProperty);
        emit("    Set {m:L.FieldDataType}{L.PropertyName} = vData");
    }
    emit("End Property", LineClass::Head);
}

void WriteChildCollection(const ChildEmitter& emit)
{
    emit("Public Property Get {C.CollectionName}() as {C.CollectionName}", LineClass::HeadProperty);
    emit("    If {m:Collection}{C.CollectionName} Is Nothing Then");
    emit("        Set {m:Collection}{C.CollectionName} = New {C.CollectionName}");
    emit("    End If");
    emit("    Set {C.CollectionName} = {m:Collection}{C.CollectionName}");
    emit("End Property", LineClass::Head);
    emit("Public Property Set {C.CollectionName}(vData as {C.CollectionName})", LineClass::HeadProperty);
    emit("    Set {m:Collection}{C.CollectionName} = vData");
    emit("End Property", LineClass::Head);
}

void WriteKeySetter(const PropertyEmitter& emit)
{
    if (emit.Scope().Property.DataType.empty()) {
        // A Let that sets: on purpose.
        emit("Friend Property Let {Save}{PropertyName}(ByVal vData as Variant)", LineClass::HeadProperty);
        emit("    Set {Push}{PropertyName} = vData");
    } else {
        emit("Friend Property Let {Save}{PropertyName}(ByVal vData as {DataType})", LineClass::HeadProperty);
        emit("    {Push}{PropertyName} = vData");
    }
    emit("End Property", LineClass::Head);
}

} // namespace

void WriteProperty(const PropertyEmitter& emit, DefaultMark& mark)
{
    if (emit.Scope().Property.PlusProperty) {
        WriteBuiltInProperty(emit);
        return;
    }
    if (emit.Scope().Property.AddToClass)
        WritePropertyRoutines(emit, mark);
    ForEachLookupField(emit, WriteLookupField);
}

TTCOutputs WriteClassProperties(const ClassScope& scope)
{
    TTCOutputs lines(scope.Settings.Colors);
    const ClassEmitter emit(lines, scope);
    DefaultMark mark;
    ForEachProperty(emit, [&](const PropertyEmitter& property) { WriteProperty(property, mark); });
    ForEachChild(emit, WriteChildCollection);
    if (scope.Class.RetrieveByPrimaryKey)
        ForEachPrimaryKeyProperty(emit, WriteKeySetter);
    return lines;
}

} // namespace veldrane
