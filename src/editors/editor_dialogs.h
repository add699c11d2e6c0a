#pragma once

namespace veldrane {

class frmAddEditArgument;
class frmAddEditClass;
class frmAddEditEvent;
class frmAddEditMethod;
class frmAddEditProperty;
class frmAddEditSP;
class frmBuiltInEvents;
class frmBuiltInMethods;
class frmBuiltInProperties;
class frmFieldProperties;
class frmPickSP;

// The forms that the dialogs of a definition open. Each function returns when the form is left: true if it was by OK.
class EditorDialogs
{
  public:
    virtual ~EditorDialogs() = default;

    virtual bool Show(frmAddEditArgument& form) = 0;
    virtual bool Show(frmAddEditClass& form) = 0;
    virtual bool Show(frmAddEditEvent& form) = 0;
    virtual bool Show(frmAddEditMethod& form) = 0;
    virtual bool Show(frmAddEditProperty& form) = 0;
    virtual bool Show(frmAddEditSP& form) = 0;
    virtual bool Show(frmBuiltInEvents& form) = 0;
    virtual bool Show(frmBuiltInMethods& form) = 0;
    virtual bool Show(frmBuiltInProperties& form) = 0;
    virtual bool Show(frmFieldProperties& form) = 0;
    virtual bool Show(frmPickSP& form) = 0;
};

} // namespace veldrane
