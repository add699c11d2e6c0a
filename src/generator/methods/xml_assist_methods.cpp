#include "generator/writers.h"

// The class with which generated code builds the documents that it hands to the component. The closing lines carry the
// icon of the first ones, unlike those of all other routines: on purpose.
namespace veldrane {

void WriteAddAttributeMethod(const ClassEmitter& emit)
{
    emit("Public Sub AddAttribute(ByVal AttributeName as String, ByVal AttributeValue as Variant, ByVal Element As IXMLDOMElement)", LineClass::HeadSub);
    emit("    Dim Att As IXMLDOMAttribute");
    emit("");
    emit("    If IsNull(AttributeValue) Then");
    emit("        AttributeValue = `:Null:`");
    emit("    End If");
    emit("    Set Att = {m:Other}Document.createAttribute(AttributeName)");
    emit("    Att.Value = AttributeValue");
    emit("    Element.Attributes.setNamedItem Att");
    emit("End Sub", LineClass::HeadSub);
}

void WriteAddElementMethod(const ClassEmitter& emit)
{
    emit("Public Function AddElement(ByVal ElementName, ParentNode As IXMLDOMNode) As IXMLDOMElement", LineClass::HeadFunction);
    emit("    Set AddElement = {m:Other}Document.createElement(ElementName)");
    emit("    ParentNode.appendChild AddElement");
    emit("End Function", LineClass::HeadFunction);
}

} // namespace veldrane
