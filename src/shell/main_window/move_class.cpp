#include "shell/main_window/move_class.h"

#include "datasource/class_names.h"
#include "model/working_copy.h"

namespace veldrane {
namespace {

void DropCollection(KZMClass& item, TTCProject& project)
{
    project.ClassCollectionNames.Remove(NamesInProject(item).CollectionName);
    item.CreateCollection = false;
}

} // namespace

bool MoveClass(const ClassMove& move, TTCProject& project, KZMClasses& classes)
{
    const auto item = classes.Item(move.ClassName);
    if (item == nullptr)
        return false;
    const std::shared_ptr<KZMClass> copy = WorkingCopy(*item);
    copy->ParentClassName = move.ParentClassName;
    copy->IsDomainTable = move.IsDomainTable;
    if (move.ClearsRelationships)
        copy->TTCRelationships.Clear();
    if (move.DropsCollection)
        DropCollection(*copy, project);
    ReplaceClass(copy, project, classes);
    return true;
}

} // namespace veldrane
