#pragma once

#include "editors/frm_pick_sp.h"
#include "shell/desktop/editors/editor_dialog.h"
#include "shell/main_window/preview_look.h"

#include <memory>

namespace Ui {
class frmPickSP;
}

namespace veldrane {

// `frmPickSP` as a window, with the parameters and the code of the procedure in hand.
class PickProceduresDialog final : public EditorDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    PickProceduresDialog(frmPickSP& form, const PreviewLook& look, QWidget* parent);
    ~PickProceduresDialog() override;

  protected:
    bool MayAccept() override { return form_.cmdOK_Click(); }
    bool MayCancel() override { return form_.cmdCancel_Click(); }
    void ShowState() override;

  private:
    void ShowTicked();
    void ShowRowInHand();

    frmPickSP& form_;
    std::unique_ptr<Ui::frmPickSP> ui_;
};

} // namespace veldrane
