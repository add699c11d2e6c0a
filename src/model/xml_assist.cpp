#include "model/xml_assist.h"

#include <memory>

namespace veldrane {
namespace {

void AddDocumentProperty(KZMClass& item)
{
    // A built-in property has no flag of its own for Get and Let: the generator writes both routines by its name.
    item.TTCProperties.Add({.AddToClass = true,
                            .PropertyName = "Document",
                            .DataType = "DOMDocument",
                            .Scope = "Public",
                            .PlusProperty = true},
                           "Document");
    item.TTCMembers.Add("Document", "Document");
}

void AddBuiltInMethod(KZMClass& item, const char* methodName)
{
    item.TTCMethods.Add(methodName, true, {}, "", "Public", false, methodName);
    item.TTCMembers.Add(methodName, methodName);
}

} // namespace

bool AddXmlAssist(TTCProject& project, KZMClasses& classes)
{
    if (const auto item = classes.Item(kXmlAssistName))
        return item->IsMTSRequiredClass;
    // A second owner of a name would make the saved project unreadable from there on.
    if (project.ClassCollectionNames.ClassNameExists(kXmlAssistName))
        return false;
    auto item = std::make_shared<KZMClass>();
    item->ClassName = kXmlAssistName;
    item->IsMTSRequiredClass = true;
    AddDocumentProperty(*item);
    AddBuiltInMethod(*item, "AddElement");
    AddBuiltInMethod(*item, "AddAttribute");
    project.ClassCollectionNames.Add(kXmlAssistName, kXmlAssistName);
    classes.AddExisting(item, kXmlAssistName);
    return true;
}

void RemoveXmlAssist(TTCProject& project, KZMClasses& classes)
{
    const auto item = classes.Item(kXmlAssistName);
    if (item == nullptr || !item->IsMTSRequiredClass)
        return;
    classes.Remove(kXmlAssistName);
    project.ClassCollectionNames.Remove(kXmlAssistName);
}

} // namespace veldrane
