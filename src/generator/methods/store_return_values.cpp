#include "generator/methods/deleted_children.h"
#include "generator/methods/directives.h"
#include "generator/writers.h"

namespace veldrane {
namespace {

void WriteReturnedField(const PropertyEmitter& emit)
{
    emit("                    Case `{PropertyName}`");
    emit("                        {m:DataType}{PropertyName} = RetField.Attributes(0).nodeValue");
}

// The values that the database or the parent has given.
void WriteReturnedValues(const ClassEmitter& emit)
{
    ForEachStoredProperty(emit, [](const PropertyEmitter& property) {
        if (property.Scope().Property.FieldIsIdentityCol)
            WriteReturnedField(property);
    });
    for (const ColumnProperty& found : PropertiesBehindRelationships(emit.Scope().Class, PropertiesOnColumn::First)) {
        const PropertyScope scope{emit.Scope(), *found.Property};
        WriteReturnedField(emit.About(scope));
    }
}

} // namespace

void WriteStoreReturnValues(const ClassEmitter& emit)
{
    emit("Friend Sub StoreReturnValues(ByVal ParentModificationKey As String, ByVal ChildModificationKey As String)", LineClass::HeadSub);
    if (HasChildren(emit.Scope())) {
        emit("    Dim Count as Long");
        WriteChildVariables(emit, "    Dim q{C.ClassName} as {C.ClassName}");
        emit("    Dim KeyCounter as Long");
    }
    emit("    Set RetModification = Directives.getElementsByTagName(ParentModificationKey & ChildModificationKey)");
    emit("    If RetModification.Length > 0 Then");
    emit("        If RetModification(0).ChildNodes.length > 0 Then");
    WriteReturnedFields(emit, [&] { WriteReturnedValues(emit); });
    emit("        End If");
    emit("    End If");
    emit("");
    WriteReturnedKeys(emit);
    DeletedChildren removal;
    ForEachChild(emit, [&](const ChildEmitter& child) { removal.Write(child); });
    WriteNumberedCalls(emit, "        q{C.ClassName}.StoreReturnValues ChildModificationKey, `{C.ClassName}` & KeyCounter");
    emit("End Sub", LineClass::Head);
}

} // namespace veldrane
