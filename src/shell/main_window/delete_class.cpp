#include "shell/main_window/delete_class.h"

#include "datasource/class_names.h"
#include "shell/main_window/required_class.h"

#include <string>
#include <vector>

namespace veldrane {
namespace {

Question QuestionFor(const std::string& name, const std::vector<std::string>& subclasses)
{
    std::string list = "?";
    if (!subclasses.empty())
        list = " and the following subclasses?";
    for (const std::string& subclass : subclasses)
        list += "\r\n" + subclass;
    return {.Title = "Confirm Delete",
            .Text = "Are you sure you want to delete " + name + list + "\r\nThis action cannot be undone.",
            .Offered = Buttons::OkCancel,
            .Icon = MessageIcon::Question,
            .Default = Answer::Cancel};
}

void Remove(const ClassDeletion& deletion, const std::string& name)
{
    const auto item = deletion.Classes.Item(name);
    if (item == nullptr)
        return;
    const NamesBefore names = NamesInProject(*item);
    deletion.Classes.Remove(name);
    deletion.Project.ClassCollectionNames.Remove(names.ClassName);
    deletion.Project.ClassCollectionNames.Remove(names.CollectionName);
}

} // namespace

bool DeleteClass(const ClassDeletion& deletion, std::size_t node)
{
    const ProjectTree& tree = deletion.Tree.Nodes();
    const auto classNode = IndexOf(tree, {.Kind = NodeKind::Class, .Key = tree.at(node).ClassName});
    const auto item = deletion.Classes.Item(tree.at(node).ClassName);
    if (!classNode || item == nullptr || !MayDelete(*item, deletion.Messages))
        return false;
    std::vector<std::size_t> nodes = NodesBelow(tree, *classNode);
    const std::vector<std::string> subclasses = ClassesBelow(tree, *classNode);
    nodes.push_back(*classNode);
    deletion.Tree.Mark(nodes);
    if (deletion.Messages.Ask(QuestionFor(item->ClassName, subclasses)) != Answer::Ok) {
        deletion.Tree.Mark({});
        return false;
    }
    Remove(deletion, item->ClassName);
    for (const std::string& subclass : subclasses)
        Remove(deletion, subclass);
    deletion.Project.SetModified(true);
    return true;
}

} // namespace veldrane
