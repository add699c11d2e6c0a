#pragma once

#include "editors/frm_add_edit_method.h"
#include "shell/desktop/editors/editor_dialog.h"
#include "shell/main_window/preview_look.h"

#include <memory>

namespace Ui {
class frmAddEditMethod;
}

namespace veldrane {

// `frmAddEditMethod` as a window, with the code of the method.
class MethodDialog final : public EditorDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    MethodDialog(frmAddEditMethod& form, const PreviewLook& look, QWidget* parent);
    ~MethodDialog() override;

  protected:
    bool MayAccept() override { return form_.cmdOK_Click(); }
    bool MayCancel() override { return form_.cmdCancel_Click(); }
    void ShowState() override;

  private:
    void FillBoxes();
    void DisableControls();
    void ConnectControls();

    frmAddEditMethod& form_;
    std::unique_ptr<Ui::frmAddEditMethod> ui_;
};

} // namespace veldrane
