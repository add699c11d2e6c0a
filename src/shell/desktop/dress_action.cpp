#include "shell/desktop/dress_action.h"

#include "shell/desktop/icons.h"
#include "shell/desktop/qt_text.h"

namespace veldrane {

void DressAction(QAction& action, const Tool& tool)
{
    action.setObjectName(ToQt(tool.Name));
    action.setText(ToQt(tool.Caption));
    action.setStatusTip(ToQt(tool.StatusText));
    if (!tool.Icon.empty())
        action.setIcon(Icon(tool.Icon));
    action.setShortcut(QKeySequence::fromString(ToQt(tool.Shortcut), QKeySequence::PortableText));
}

} // namespace veldrane
