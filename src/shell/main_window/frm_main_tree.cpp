#include "shell/main_window/class_renamed.h"
#include "shell/main_window/display_classes.h"
#include "shell/main_window/frm_main.h"
#include "shell/main_window/perform_drop.h"
#include "shell/main_window/tree_labels.h"

namespace veldrane {
namespace {

std::optional<PreviewNode> PreviewNodeOf(const TreeNode& node, const KZMClasses& classes)
{
    switch (node.Id.Kind) {
    case NodeKind::Class:
        return PreviewNode{NodeType::Class, classes.Item(node.ClassName).get()};
    case NodeKind::Collection:
        return PreviewNode{NodeType::Collection, classes.Item(node.ClassName).get()};
    case NodeKind::Fixed:
        break;
    }
    return NodeOfTree(node.Tag, node.Id.Key, classes);
}

} // namespace

void frmMain::DisplayClasses()
{
    veldrane::DisplayClasses(tree_, Project(), Classes(), application_.Errors);
    ShowRebuiltTree();
}

void frmMain::ShowRebuiltTree()
{
    treMain_NodeClick(tree_.Selected().value_or(0)); // the tree may have become shorter than the selected place
}

void frmMain::DisplayPreview()
{
    if (const TreeNode* node = tree_.SelectedNode())
        preview_.DisplayPreview(PreviewNodeOf(*node, Classes()), {Project(), Classes(), *ttc_, application_.Errors},
                                application_.Windows.Pointer);
    navigation_ = preview_.Available ? NavigationRows(preview_.Blocks()) : std::vector<NavigationRow>();
    Changed.Raise(WindowPart::Navigator);
}

void frmMain::treMain_NodeClick(std::size_t node)
{
    if (node >= tree_.Nodes().size())
        return;
    tree_.Select(node);
    Changed.Raise(WindowPart::TreeState);
    ShowMenus(MenuStateOf(tree_.Nodes().at(node)));
    DisplayPreview();
}

void frmMain::treMain_DblClick(std::size_t node)
{
    if (node >= tree_.Nodes().size())
        return;
    treMain_NodeClick(node);
    if (const auto tool = DoubleClickToolOf(tree_.Nodes().at(node)))
        actbar_Click(*tool);
}

bool frmMain::treMain_AfterLabelEdit(std::size_t node, const std::string& label)
{
    if (node >= tree_.Nodes().size())
        return false;
    bool taken = false;
    AsEdit("Rename Project", [&] { taken = AfterLabelEdit(TreeNode(tree_.Nodes().at(node)), label, Project()); });
    if (taken)
        DisplayPreview();
    return taken;
}

void frmMain::Project_ProjectNameChanged(const std::string& name)
{
    caption_ = WindowCaption(application_.State.Generation.AppTitle, name);
    status_.SetProjectName(name);
    Changed.Raise(WindowPart::Caption);
    if (tree_.Nodes().empty())
        return;
    tree_.SetCaption(tree_.Nodes().front().Id, RootCaption(Project()));
    Changed.Raise(WindowPart::Tree);
}

void frmMain::Classes_NewClassAdded(const std::string& className)
{
    DisplayNewClass(className, tree_, Project(), Classes(), application_.Errors);
    ShowRebuiltTree();
}

void frmMain::Classes_ClassNameChanged(const std::string& oldName, const std::string& newName)
{
    FollowRenamedClass(oldName, newName, Classes(), tree_);
    Changed.Raise(WindowPart::Tree);
}

std::optional<Dragged> frmMain::DraggedFromNode(std::size_t node)
{
    if (node >= tree_.Nodes().size() || !CanDrag(node, {.Tree = tree_.Nodes(), .Classes = Classes()}))
        return std::nullopt;
    return tree_.Nodes().at(node).Id;
}

std::optional<Dragged> frmMain::DraggedFromSelection(std::string_view tool)
{
    if (tool == "AddClassTo")
        return datasource_.SelectedRow() ? DraggedFromRow(*datasource_.SelectedRow()) : std::nullopt;
    return tree_.Selected() ? DraggedFromNode(*tree_.Selected()) : std::nullopt;
}

bool frmMain::HasOtherPlace()
{
    const DropGround ground{.Tree = tree_.Nodes(), .Classes = Classes()};
    if (!tree_.Selected() || !CanDrag(*tree_.Selected(), ground))
        return false;
    for (std::size_t target = 0; target < ground.Tree.size(); ++target)
        if (!std::holds_alternative<NoDrop>(DropOf(*tree_.Selected(), target, ground)))
            return true;
    return false;
}

Drop frmMain::EffectOf(const Dragged& dragged, std::size_t target)
{
    if (target >= tree_.Nodes().size())
        return NoDrop();
    const DropGround ground{.Tree = tree_.Nodes(), .Classes = Classes()};
    if (const auto* row = std::get_if<DraggedRow>(&dragged))
        return DropOf(*row, target, ground);
    const auto node = IndexOf(tree_.Nodes(), std::get<NodeKey>(dragged));
    return node ? DropOf(*node, target, ground) : NoDrop();
}

bool frmMain::MayDrop(const Dragged& dragged, std::size_t target)
{
    return !std::holds_alternative<NoDrop>(EffectOf(dragged, target));
}

std::vector<DropTarget> frmMain::Targets(const Dragged& dragged)
{
    const DropGround ground{.Tree = tree_.Nodes(), .Classes = Classes()};
    if (const auto* row = std::get_if<DraggedRow>(&dragged))
        return TargetsOf(*row, ground);
    const auto node = IndexOf(tree_.Nodes(), std::get<NodeKey>(dragged));
    return node ? TargetsOf(*node, ground) : std::vector<DropTarget>{};
}

void frmMain::DropOn(const Dragged& dragged, std::size_t target)
{
    PerformDrop(EffectOf(dragged, target));
}

void frmMain::PerformDrop(const Drop& drop)
{
    const bool adds = std::holds_alternative<NewClass>(drop);
    AsEdit(adds ? "Add Class" : "Move Class", [&] { ChangeByDrop(drop); });
}

// The tree follows what has changed before a failure too, and once.
void frmMain::ChangeByDrop(const Drop& drop)
{
    bool changed = true;
    std::string added;
    newClassAdded_ = Classes().NewClassAdded.Connect([&](const std::string& className) { added = className; });
    Guarded(application_.Errors, "frmMain", "treMain_DragDrop", [&] {
        changed = WithEditor([&](ClassEditor& editor) {
            return Perform(drop, {.Project = Project(), .Classes = Classes(), .Editor = editor});
        });
    });
    ListenToNewClasses();
    if (!added.empty())
        Classes_NewClassAdded(added);
    else if (changed)
        DisplayClasses();
}

void frmMain::cmbNavigate_Click(std::size_t entry)
{
    if (entry < navigation_.size())
        preview_.Select(navigation_.at(entry).Row);
}

} // namespace veldrane
