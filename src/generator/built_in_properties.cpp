#include "generator/property_routines.h"

#include <algorithm>
#include <array>

namespace veldrane {
namespace {

void WriteDocument(const PropertyEmitter& emit)
{
    emit("Public Property Get Document() as DOMDocument", LineClass::HeadProperty);
    emit("    Set Document = {m:Other}Document");
    emit("End Property", LineClass::Head);
    emit("Public Property Set Document(ByVal vData as DOMDocument)", LineClass::HeadProperty);
    emit("    Set {m:Other}Document = vData");
    emit("End Property", LineClass::Head);
}

void WriteModified(const PropertyEmitter& emit)
{
    emit("Public Property Get Modified() as Boolean", LineClass::HeadProperty);
    emit("    Modified = {m:Boolean}Modified");
    emit("End Property", LineClass::Head);
    emit("Public Property Let Modified(ByVal vData as Boolean)", LineClass::HeadProperty);
    emit("    {m:Boolean}Modified = vData");
    emit("End Property", LineClass::Head);
}

void WriteDeleted(const PropertyEmitter& emit)
{
    emit("Public Property Get Deleted() as Boolean", LineClass::HeadProperty);
    emit("    Deleted = {m:Boolean}Deleted");
    emit("End Property", LineClass::Head);
    emit("Public Property Let Deleted(ByVal vData as Boolean)", LineClass::HeadProperty);
    emit("    {m:Boolean}Deleted = vData");
    if (HasEvent(emit.Scope(), "RecordMarkedForDeletion"))
        emit("    If vData = {True} Then RaiseEvent RecordMarkedForDeletion(Me)");
    if (HasProperty(emit.Scope(), "Modified"))
        emit("    {m:Boolean}Modified = {True}");
    if (HasEvent(emit.Scope(), "IsModified"))
        emit("    RaiseEvent IsModified(Me)");
    emit("End Property", LineClass::Head);
}

void WriteFormatProperties(const PropertyEmitter& emit)
{
    emit("Public Property Get FormatProperties() as Boolean", LineClass::HeadProperty);
    // No blank before the equals sign: on purpose.
    emit("    FormatProperties= {m:Boolean}FormatProperties");
    emit("End Property", LineClass::Head);
    emit("Public Property Let FormatProperties(ByVal vData as Boolean)", LineClass::HeadProperty);
    emit("    {m:Boolean}FormatProperties = vData");
    emit("End Property", LineClass::Head);
}

struct BuiltInProperty
{
    std::string_view PropertyName;
    void (*Write)(const PropertyEmitter& emit);
};

constexpr auto kBuiltInProperties = std::to_array<BuiltInProperty>({
    {"Document", WriteDocument},
    {"Modified", WriteModified},
    {"Deleted", WriteDeleted},
    {"FormatProperties", WriteFormatProperties},
});

} // namespace

void WriteBuiltInProperty(const PropertyEmitter& emit)
{
    const std::string& name = emit.Scope().Property.PropertyName;
    const auto known = std::find_if(kBuiltInProperties.begin(), kBuiltInProperties.end(), [&](const BuiltInProperty& row) { return row.PropertyName == name; });
    if (known != kBuiltInProperties.end())
        known->Write(emit);
}

} // namespace veldrane
