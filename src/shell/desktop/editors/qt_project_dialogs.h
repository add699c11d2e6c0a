#pragma once

#include "shell/project_properties/project_dialogs.h"

namespace veldrane {

// The dialogs that the properties of a project open, over the window in front.
class QtProjectDialogs : public ProjectDialogs
{
  public:
    bool Show(frmEditPrefix& form) override;
    bool Show(frmLoggingTable& form) override;
};

} // namespace veldrane
