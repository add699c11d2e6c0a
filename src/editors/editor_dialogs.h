#pragma once

namespace veldrane {

class frmAddEditClass;

// The forms that the dialogs of a definition open. Each function returns when the form is left: true if it was by OK.
class EditorDialogs
{
  public:
    virtual ~EditorDialogs() = default;

    virtual bool Show(frmAddEditClass& form) = 0;
};

} // namespace veldrane
