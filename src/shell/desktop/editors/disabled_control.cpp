#include "shell/desktop/editors/disabled_control.h"

#include "shell/desktop/plain_tool_tip.h"
#include "shell/desktop/qt_text.h"

namespace veldrane {

void DisableFor(QWidget& control, std::string_view why)
{
    if (why.empty())
        return;
    control.setEnabled(false);
    control.setToolTip(PlainToolTip(ToQt(why)));
}

} // namespace veldrane
