#pragma once

namespace veldrane {

class frmEditPrefix;
class frmLoggingTable;

// The dialogs that the properties of a project open. Each function returns when the dialog is left: true if it was by
// OK.
class ProjectDialogs
{
  public:
    virtual ~ProjectDialogs() = default;

    virtual bool Show(frmEditPrefix& form) = 0;
    virtual bool Show(frmLoggingTable& form) = 0;
};

} // namespace veldrane
