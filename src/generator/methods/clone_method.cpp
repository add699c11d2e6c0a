#include "generator/key_text.h"
#include "generator/writers.h"

namespace veldrane {
namespace {

// A line about a cloned child, with the text of the key that it gets.
struct ClonedChildScope : ChildScope
{
    const std::string& Key;
};

// The part of a child's key that one of the child's own properties makes.
struct KeyPartScope : ChildScope
{
    const TTCProperty& KeyProperty;
};

} // namespace

template <>
inline constexpr auto Vocabulary<ClonedChildScope> = JoinVocabularies(std::to_array<Placeholder<ClonedChildScope>>({{"K", [](std::string& line, const ClonedChildScope& s) { line += s.Key; }}}),
                                                                      InheritedVocabulary<ClonedChildScope, ChildScope>());

template <>
inline constexpr auto
    Vocabulary<KeyPartScope> = JoinVocabularies(std::to_array<Placeholder<KeyPartScope>>({{"C.PropertyName", [](std::string& line, const KeyPartScope& s) { line += s.KeyProperty.PropertyName; }}}),
                                                InheritedVocabulary<KeyPartScope, ChildScope>());

namespace {

void CloneProperty(const PropertyEmitter& emit)
{
    const TTCProperty& property = emit.Scope().Property;
    if (!property.AddToClass)
        return;
    if (DefaultValueForType(property.DataType, false) == kObjectMark) {
        emit("    Set c.{PropertyName} = {m:DataType}{PropertyName}");
        return;
    }
    emit("    c.{PropertyName} = {m:DataType}{PropertyName}");
    ForEachLookupField(emit, [](const LookupFieldEmitter& field) { field("    c.{L.PropertyName} = {m:L.FieldDataType}{L.PropertyName}"); });
}

void ClonePushedKey(const PropertyEmitter& emit)
{
    if (IsObjectType(emit.Scope().Property.DataType))
        emit("    SET c.{Save}{PropertyName}={Push}{PropertyName}");
    else
        emit("    c.{Save}{PropertyName}={Push}{PropertyName}");
}

// Appends the child's part of the key text.
void AppendKey(std::string& key, const ChildEmitter& emit)
{
    const auto part = [&](const TTCProperty& property, const TemplateLine<KeyPartScope>& line) {
        const KeyPartScope scope{emit.Scope(), property};
        return emit.About(scope).Text(line);
    };
    AppendKeyText(
        key, emit.Scope().C, PropertiesOnColumn::First, [&](const TTCProperty& property) { return part(property, "`:` & New{C.ClassName}.{C.PropertyName}"); },
        [&](const TTCProperty& property) { return part(property, "`:` & New{C.ClassName}.{C.PropertyName} & "); });
}

void CloneChildren(const ClassEmitter& emit)
{
    // Kept from one child to the next, so that a later child's key begins with the earlier ones': on purpose.
    std::string key;
    ForEachChild(emit, [&](const ChildEmitter& child) {
        AppendKey(key, child);
        child("    For Each a{C.ClassName} in {m:Collection}{C.CollectionName}");
        child("        Set New{C.ClassName} = Nothing");
        child("        Set New{C.ClassName} = New {C.ClassName}");
        child("        Set New{C.ClassName} = a{C.ClassName}.Clone");
        const ClonedChildScope scope{child.Scope(), key};
        if (!child.Scope().Class.TableName.empty())
            child.About(scope)("        c.{C.CollectionName}.AddExisting New{C.ClassName}, {K}");
        else
            child("        c.{C.CollectionName}.AddExisting New{C.ClassName}");
        child("    Next");
    });
}

} // namespace

void WriteCloneMethod(const ClassEmitter& emit)
{
    emit("Public Function Clone() as {ClassName}", LineClass::HeadPlusMethod);
    emit("    Dim c as New {ClassName}");
    ForEachChild(emit, [](const ChildEmitter& child) {
        child("    Dim a{C.ClassName} as {C.ClassName}");
        child("    Dim New{C.ClassName} as {C.ClassName}");
    });
    emit("");
    ForEachProperty(emit, CloneProperty);
    if (emit.Scope().Class.RetrieveByPrimaryKey)
        ForEachPrimaryKeyProperty(emit, ClonePushedKey);
    CloneChildren(emit);
    emit("    Set Clone = c");
    emit("End Function", LineClass::Head);
}

} // namespace veldrane
