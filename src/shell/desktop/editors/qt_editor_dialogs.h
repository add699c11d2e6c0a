#pragma once

#include "editors/editor_dialogs.h"
#include "shell/main_window/preview_look.h"

#include <functional>
#include <utility>

namespace veldrane {

// The dialogs of the editors, each over the window in front.
class QtEditorDialogs : public EditorDialogs
{
  public:
    // How the preview looks at the time that a dialog is shown: its code looks the same.
    explicit QtEditorDialogs(std::function<PreviewLook()> look) : look_(std::move(look)) {}

    bool Show(frmAddEditArgument& form) override;
    bool Show(frmAddEditClass& form) override;
    bool Show(frmAddEditEvent& form) override;
    bool Show(frmAddEditMethod& form) override;
    bool Show(frmAddEditProperty& form) override;
    bool Show(frmAddEditSP& form) override;
    bool Show(frmBuiltInEvents& form) override;
    bool Show(frmBuiltInMethods& form) override;
    bool Show(frmBuiltInProperties& form) override;
    bool Show(frmFieldProperties& form) override;
    bool Show(frmPickSP& form) override;

  private:
    std::function<PreviewLook()> look_;
};

} // namespace veldrane
