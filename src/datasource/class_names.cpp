#include "datasource/class_names.h"

#include "datasource/builtin_members.h"

namespace veldrane {
namespace {

std::string Shown(const std::string& name)
{
    return name.empty() ? std::string(kNotApplicable) : name;
}

std::string Stored(const std::string& shown)
{
    return shown == kNotApplicable ? std::string{} : shown;
}

// The built-in members that carry the names of their class.
void ReconcileMembers(KZMClass& item)
{
    for (ttcEvent& event : item.TTCEvents)
        if (event.PlusEvent && HandsOverClass(event.EventName))
            GiveClassArgument(event, item.ClassName);
    for (TTCMethod& method : item.TTCMethods) {
        if (method.PlusMethod && method.MethodName == "Clone")
            method.ReturnDataType = item.ClassName;
        if (method.PlusMethod && method.MethodName == "RetrieveList")
            method.ReturnDataType = item.CollectionName;
    }
}

void MoveName(TTCClassCollectionNames& names, const std::string& before, const std::string& after)
{
    if (before == after)
        return;
    if (!before.empty())
        names.Remove(before);
    if (!after.empty())
        names.Add(after, after);
}

} // namespace

ClassForm FormOf(const KZMClass& item)
{
    return {.ClassName = item.ClassName,
            .TableName = Shown(item.TableName),
            .ParentClassName = Shown(item.ParentClassName),
            .GenerateCollection = item.CreateCollection,
            .CollectionName = item.CollectionName,
            .IncludeAddExisting = item.IncludeAddExisting,
            .CollectionAddNewKey = item.CollectionAddNewKey};
}

NamesBefore NamesInProject(const KZMClass& item)
{
    return {.ClassName = item.ClassName, .CollectionName = item.CreateCollection ? item.CollectionName : std::string{}};
}

void StoreForm(const ClassForm& form, KZMClass& item)
{
    item.ClassName = form.ClassName;
    item.CreateCollection = form.GenerateCollection;
    item.CollectionName = form.CollectionName;
    item.IncludeAddExisting = form.IncludeAddExisting;
    item.CollectionAddNewKey = form.CollectionAddNewKey;
    item.TableName = Stored(form.TableName);
    item.ParentClassName = Stored(form.ParentClassName);
    ReconcileMembers(item);
}

bool AddClassToProject(const std::shared_ptr<KZMClass>& item, const ProjectNames& names)
{
    if (!IsFreeInProject(FormOf(*item), {}, names) || !names.Classes.AddExisting(item, item->ClassName))
        return false;
    const NamesBefore added = NamesInProject(*item);
    MoveName(names.Project.ClassCollectionNames, "", added.ClassName);
    MoveName(names.Project.ClassCollectionNames, "", added.CollectionName);
    names.Project.SetModified(true);
    return true;
}

bool AcceptNewClass(const std::shared_ptr<KZMClass>& item, const ProjectNames& names)
{
    ClassForm form = FormOf(*item);
    if (CheckNames(form, {}, names) != NameCheck::Accepted)
        return false;
    StoreForm(form, *item);
    return AddClassToProject(item, names);
}

bool ChangeNamesInProject(const std::shared_ptr<KZMClass>& item, const NamesBefore& before, const ProjectNames& names)
{
    const NamesBefore after = NamesInProject(*item);
    if (!IsFreeInProject(FormOf(*item), before, names))
        return false;
    if (after.ClassName != before.ClassName && !names.Classes.ChangeClassName(item, before.ClassName, after.ClassName))
        return false;
    MoveName(names.Project.ClassCollectionNames, before.ClassName, after.ClassName);
    MoveName(names.Project.ClassCollectionNames, before.CollectionName, after.CollectionName);
    names.Project.SetModified(true);
    return true;
}

void ReplaceClass(const std::shared_ptr<KZMClass>& changed, TTCProject& project, KZMClasses& classes)
{
    classes.Remove(changed->ClassName);
    classes.AddExisting(changed, changed->ClassName);
    project.SetModified(true);
}

} // namespace veldrane
