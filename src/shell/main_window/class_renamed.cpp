#include "shell/main_window/class_renamed.h"

#include "text/case_folding.h"

namespace veldrane {

void FollowRenamedClass(const std::string& oldName, const std::string& newName, KZMClasses& classes, TreeState& tree)
{
    for (KZMClass& item : classes)
        if (text::EqualFolded(item.ParentClassName, oldName))
            item.ParentClassName = newName;
    tree.RenameClass(oldName, newName);
}

} // namespace veldrane
