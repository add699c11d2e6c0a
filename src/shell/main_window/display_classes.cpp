#include "shell/main_window/display_classes.h"

namespace veldrane {

void DisplayClasses(TreeState& tree, const TTCProject& project, const KZMClasses& classes, ErrorReport& errors)
{
    Guarded(errors, "frmMain", "DisplayClasses",
            [&] { tree.Rebuild([&] { return BuildProjectTree(project, classes); }); });
}

void DisplayNewClass(const std::string& className, TreeState& tree, const TTCProject& project,
                     const KZMClasses& classes, ErrorReport& errors)
{
    DisplayClasses(tree, project, classes, errors);
    tree.Reveal({.Kind = NodeKind::Class, .Key = className});
}

} // namespace veldrane
