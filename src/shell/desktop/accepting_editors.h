#pragma once

#include "editors/editor_dialogs.h"
#include "editors/frm_add_edit_class.h"

namespace veldrane {

// Takes what an editor proposes without showing it. What it refuses was told, and the project is as it was.
class AcceptingEditors : public EditorDialogs
{
  public:
    bool Show(frmAddEditClass& form) override { return form.cmdOK_Click(); }
};

} // namespace veldrane
