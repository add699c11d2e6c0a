#include "shell/main_window/frm_main.h"

#include <vector>

// The main window and the edits that can be taken back.
namespace veldrane {
namespace {

std::vector<std::string> AttachedTo(const TTCProject& project)
{
    std::vector<std::string> names;
    for (const KZMTable& table : project.AttachedTables)
        names.push_back(table.TableName);
    return names;
}

} // namespace

void frmMain::AsEdit(const std::string& name, const std::function<void()>& edit)
{
    history_->Run(name, edit);
    ShowWhatIsOpen();
}

std::string frmMain::ToolCaption(const Tool& tool) const
{
    std::optional<std::string> edit;
    if (tool.Name == "Undo")
        edit = history_->UndoName();
    else if (tool.Name == "Redo")
        edit = history_->RedoName();
    return std::string(tool.Caption) + (edit ? " " + *edit : "");
}

// The node that was selected stays so where there still is one of its name.
void frmMain::ShowProjectOfHistory(const std::function<void()>& go)
{
    const std::vector<std::string> attached = AttachedTo(Project());
    const TreeNode* const node = tree_.SelectedNode();
    const NodeKey selected = node == nullptr ? NodeKey() : NodeKey(node->Id);
    go();
    DisplayClasses();
    if (const auto found = IndexOf(tree_.Nodes(), selected))
        treMain_NodeClick(*found);
    if (attached != AttachedTo(Project()))
        RefreshLists();
    ShowWhatIsOpen();
}

void frmMain::Undo()
{
    const std::string name = history_->UndoName().value_or("");
    ShowProjectOfHistory([this] { history_->Undo(); });
    status_.SetStatus("Undone: " + name);
}

void frmMain::Redo()
{
    const std::string name = history_->RedoName().value_or("");
    ShowProjectOfHistory([this] { history_->Redo(); });
    status_.SetStatus("Done again: " + name);
}

} // namespace veldrane
