#include "generator/property_routines.h"

#include "text/case_folding.h"

namespace veldrane {
namespace {

constexpr std::int32_t kGuidLength = 38; // characters, braces included

enum class PropertyKind
{
    Variant, // may hold a value or an object
    Object,
    Value,
};

PropertyKind KindOf(const TTCProperty& property)
{
    if (property.DataType.empty() || text::EqualFolded(property.DataType, "VARIANT"))
        return PropertyKind::Variant;
    return IsObjectType(property.DataType) ? PropertyKind::Object : PropertyKind::Value;
}

void WriteFormattedGet(const PropertyEmitter& emit)
{
    if (HasProperty(emit.Scope(), "FormatProperties")) {
        emit("    If {m:Boolean}FormatProperties Then");
        emit("        {PropertyName} = Format({m:DataType}{PropertyName}, `{FormatStringOnGet}`)");
        emit("    Else");
        emit("        {PropertyName} = {m:DataType}{PropertyName}");
        emit("    End If");
    } else {
        emit("    {PropertyName} = Format({m:DataType}{PropertyName}, `{FormatStringOnGet}`)");
    }
}

void WriteVariantGet(const PropertyEmitter& emit)
{
    emit("    IF IsObject({m:DataType}{PropertyName}) Then");
    emit("        Set {PropertyName} = {m:DataType}{PropertyName}");
    emit("    Else");
    emit("        {PropertyName} = {m:DataType}{PropertyName}");
    emit("    End If");
}

void WritePropertyGet(const PropertyEmitter& emit, DefaultMark& mark)
{
    const TTCProperty& property = emit.Scope().Property;
    if (property.DataType.empty())
        emit("{Scope} Property Get {PropertyName}() as Variant", LineClass::HeadProperty);
    else
        emit("{Scope} Property Get {PropertyName}() as {DataType}", LineClass::HeadProperty);
    mark.Write(emit);
    const PropertyKind kind = KindOf(property);
    if (kind == PropertyKind::Variant)
        WriteVariantGet(emit);
    else if (kind == PropertyKind::Object)
        emit("    Set {PropertyName} = {m:DataType}{PropertyName}");
    else if (property.FormatOnGet)
        WriteFormattedGet(emit);
    else
        emit("    {PropertyName} = {m:DataType}{PropertyName}");
    emit("End Property", LineClass::Head);
}

void WriteSetterTail(const PropertyEmitter& emit)
{
    if (HasProperty(emit.Scope(), "Modified"))
        emit("    {m:Boolean}Modified = {True}");
    if (emit.Scope().Project.TrackPropertyChanges)
        emit("    {m:Boolean}z{PropertyName} = {True}");
    if (HasEvent(emit.Scope(), "IsModified"))
        emit("    RaiseEvent IsModified(Me)");
    emit("End Property", LineClass::Head);
}

void WritePropertySet(const PropertyEmitter& emit, DefaultMark& mark)
{
    if (emit.Scope().Property.DataType.empty())
        emit("{Scope} Property Set {PropertyName}(ByVal vData as Variant)", LineClass::HeadProperty);
    else
        emit("{Scope} Property Set {PropertyName}(ByVal vData as {DataType})", LineClass::HeadProperty);
    mark.Write(emit);
    emit("    Set {m:DataType}{PropertyName} = vData");
    WriteSetterTail(emit);
}

void WriteFormatOnLet(const PropertyEmitter& emit)
{
    if (!emit.Scope().Property.FormatOnLet)
        return;
    if (HasProperty(emit.Scope(), "FormatProperties")) {
        emit("    If {m:Boolean}FormatProperties Then");
        emit("        vData = Format(vData, `{FormatStringOnLet}`)");
        emit("    End If");
    } else {
        emit("    vData = Format(vData, `{FormatStringOnLet}`)");
    }
}

// Without the check the message stands without its `If` and shows on every assignment: on purpose.
void WriteLengthLimit(const PropertyEmitter& emit)
{
    TTCProperty& property = emit.Scope().Property;
    if (property.EnforceMaxLength) {
        if (property.FieldDataType == kGuidFieldType)
            property.MaxLength = kGuidLength;
        emit("    If Len(vData) > {MaxLength} Then ");
        emit("        vData = Left$(vData, {MaxLength})");
    }
    if (property.DisplayTruncationMessage && !emit.Scope().Project.MakeWebCompatible)
        emit("        Msgbox `The maximum length of '{PropertyName}' is {MaxLength} characters. The data has been truncated to fit.`");
    if (property.EnforceMaxLength)
        emit("    End If");
}

void WriteValueLet(const PropertyEmitter& emit, DefaultMark& mark)
{
    emit("{Scope} Property Let {PropertyName}(ByVal vData as {DataType})", LineClass::HeadProperty);
    mark.Write(emit);
    WriteFormatOnLet(emit);
    if (emit.Scope().Property.DataType == "String")
        WriteLengthLimit(emit);
    emit("    {m:DataType}{PropertyName} = vData");
    WriteSetterTail(emit);
}

void WriteVariantLet(const PropertyEmitter& emit, DefaultMark& mark)
{
    // Set says Variant, Let says String: on purpose.
    if (emit.Scope().Property.DataType.empty())
        emit("{Scope} Property Let {PropertyName}(ByVal vData as String)", LineClass::HeadProperty);
    else
        emit("{Scope} Property Let {PropertyName}(ByVal vData as {DataType})", LineClass::HeadProperty);
    mark.Write(emit);
    emit("    {m:DataType}{PropertyName} = vData");
    WriteSetterTail(emit);
}

void WritePublicSetters(const PropertyEmitter& emit, DefaultMark& mark)
{
    const PropertyKind kind = KindOf(emit.Scope().Property);
    if (kind == PropertyKind::Value) {
        WriteValueLet(emit, mark);
        return;
    }
    WritePropertySet(emit, mark);
    if (kind == PropertyKind::Variant)
        WriteVariantLet(emit, mark);
}

void WriteFriendSet(const PropertyEmitter& emit, DefaultMark& mark)
{
    if (emit.Scope().Property.DataType.empty())
        emit("Friend Property Set {PropertyName}(ByVal vData as Variant)", LineClass::HeadProperty);
    else
        emit("Friend Property Set {PropertyName}(ByVal vData as {DataType})", LineClass::HeadProperty);
    mark.Write(emit);
    emit("    Set {m:DataType}{PropertyName} = vData");
    // No "End Property": the text runs on into the next routine, on purpose.
}

void WriteFriendLet(const PropertyEmitter& emit, DefaultMark& mark)
{
    emit("Friend Property Let {PropertyName}(ByVal vData as {DataType})", LineClass::HeadProperty);
    mark.Write(emit);
    emit("    {m:DataType}{PropertyName} = vData");
    if (HasProperty(emit.Scope(), "Modified"))
        emit("    {m:Boolean}Modified = {True}");
    emit("End Property", LineClass::Head);
}

} // namespace

void DefaultMark::Write(const PropertyEmitter& emit)
{
    if (written_ || !emit.Scope().Property.DefaultProperty)
        return;
    emit("Attribute {PropertyName}.VB_UserMemId = 0", LineClass::Hidden);
    written_ = true;
}

void WritePropertyRoutines(const PropertyEmitter& emit, DefaultMark& mark)
{
    const TTCProperty& property = emit.Scope().Property;
    if (property.PropertyGet)
        WritePropertyGet(emit, mark);
    if (property.PropertyLetSet)
        WritePublicSetters(emit, mark);
    else if (KindOf(property) == PropertyKind::Value)
        WriteFriendLet(emit, mark);
    else
        WriteFriendSet(emit, mark);
}

} // namespace veldrane
