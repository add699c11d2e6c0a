#include "generator/writers.h"

namespace veldrane {
namespace {

void ClearLookupField(const LookupFieldEmitter& emit)
{
    if (DefaultValueForType(emit.Scope().L.FieldDataType, false) == kObjectMark) {
        emit("    Set {m:L.FieldDataType}{L.PropertyName} = Nothing");
        emit("    Set {m:L.FieldDataType}{L.PropertyName} = New {L.FieldDataType}");
    } else {
        emit("    {m:L.FieldDataType}{L.PropertyName} = {L.Empty}");
    }
}

void ClearProperty(const PropertyEmitter& emit)
{
    const TTCProperty& property = emit.Scope().Property;
    if (!property.AddToClass)
        return;
    if (DefaultValueForType(property.DataType, false) == kObjectMark) {
        emit("    Set {m:DataType}{PropertyName} = Nothing");
        emit("    Set {m:DataType}{PropertyName} = New {DataType}");
    } else {
        emit("    {m:DataType}{PropertyName} = {Empty}");
    }
    ForEachLookupField(emit, ClearLookupField);
}

// An object's key gets the word Object as its value: on purpose.
void ClearPushedKey(const PropertyEmitter& emit)
{
    if (IsObjectType(emit.Scope().Property.DataType))
        emit("    SET {Push}{PropertyName}={Empty}");
    else
        emit("    {Push}{PropertyName}={Empty}");
}

void WriteClearPropertyTracking(const ClassEmitter& emit)
{
    emit("Friend Sub ClearPropertyTracking(Optional ByVal IncludeChildren as Boolean = {False})", LineClass::HeadSub);
    ForEachChild(emit, [](const ChildEmitter& child) { child("    Dim q{C.ClassName} as {C.ClassName}"); });
    ForEachProperty(emit, [](const PropertyEmitter& property) {
        if (property.Scope().Property.PropertyLetSet)
            property("    {m:Boolean}z{PropertyName} = False");
    });
    if (HasChildren(emit.Scope())) {
        emit("    If IncludeChildren then");
        ForEachChild(emit, [](const ChildEmitter& child) {
            child("        For Each q{C.ClassName} in {m:Collection}{C.CollectionName}");
            child("            q{C.ClassName}.ClearPropertyTracking IncludeChildren");
            child("        Next");
        });
        emit("    End If");
    }
    if (HasProperty(emit.Scope(), "Modified"))
        emit("    {m:Boolean}Modified = False");
    emit("End Sub", LineClass::Head);
}

} // namespace

void WriteClearMethod(const ClassEmitter& emit)
{
    emit("Public Sub Clear()", LineClass::HeadPlusMethod);
    ForEachProperty(emit, ClearProperty);
    ForEachChild(emit, [](const ChildEmitter& child) {
        child("    Set {m:Collection}{C.CollectionName} = Nothing");
        child("    Set {m:Collection}{C.CollectionName} = New {C.CollectionName}");
    });
    if (emit.Scope().Class.RetrieveByPrimaryKey)
        ForEachPrimaryKeyProperty(emit, ClearPushedKey);
    emit("End Sub", LineClass::Head);
    if (emit.Scope().Project.TrackPropertyChanges)
        WriteClearPropertyTracking(emit);
}

} // namespace veldrane
