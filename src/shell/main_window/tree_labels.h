#pragma once

#include "model/project.h"
#include "shell/main_window/project_tree.h"

#include <string>

// The labels of the tree that a person may change, and the texts that follow the project's name.
namespace veldrane {

// Whether the label can be edited: that of the project alone.
[[nodiscard]] bool CanEditLabel(const TreeNode& node);

// Takes a label that was typed: that of "Root" is the project's name; the name of the Visual Basic project stays as it
// is. False if the old label is to stand: for any other node, and for a text of blanks.
bool AfterLabelEdit(const TreeNode& node, const std::string& text, TTCProject& project);

// The caption of the main window: "title - [name]".
[[nodiscard]] std::string WindowCaption(const std::string& title, const std::string& projectName);

// The text of txtParentClassName for a class that is added while this node is selected: "n/a" below "Root"; else the
// key of a group or of "Root" itself, else that of the node above, whatever it stands for.
[[nodiscard]] std::string ParentForNewClass(const ProjectTree& tree, std::size_t selected);

} // namespace veldrane
