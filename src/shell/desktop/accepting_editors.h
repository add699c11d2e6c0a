#pragma once

#include "editors/editor_dialogs.h"
#include "editors/frm_add_edit_class.h"

namespace veldrane {

// Takes what the editor of a class proposes without showing it. What it refuses was told, and the project is as it was.
class AcceptingEditors : public EditorDialogs
{
  public:
    bool Show(frmAddEditArgument& /*form*/) override { return false; }
    bool Show(frmAddEditClass& form) override { return form.cmdOK_Click(); }
    bool Show(frmAddEditEvent& /*form*/) override { return false; }
    bool Show(frmAddEditMethod& /*form*/) override { return false; }
    bool Show(frmAddEditProperty& /*form*/) override { return false; }
    bool Show(frmAddEditSP& /*form*/) override { return false; }
    bool Show(frmBuiltInEvents& /*form*/) override { return false; }
    bool Show(frmBuiltInMethods& /*form*/) override { return false; }
    bool Show(frmBuiltInProperties& /*form*/) override { return false; }
    bool Show(frmFieldProperties& /*form*/) override { return false; }
    bool Show(frmPickSP& /*form*/) override { return false; }
};

} // namespace veldrane
