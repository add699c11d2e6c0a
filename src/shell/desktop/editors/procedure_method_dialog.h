#pragma once

#include "datasource/procedure_method.h"
#include "shell/desktop/editors/editor_dialog.h"
#include "shell/main_window/preview_look.h"

#include <memory>

namespace Ui {
class frmAddEditSP;
}

namespace veldrane {

// `frmAddEditSP` as a window, with the function that calls the procedure.
class ProcedureMethodDialog final : public EditorDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    ProcedureMethodDialog(frmAddEditSP& form, const PreviewLook& look, QWidget* parent);
    ~ProcedureMethodDialog() override;

  protected:
    bool MayAccept() override { return form_.cmdOK_Click(); }
    bool MayCancel() override { return form_.cmdCancel_Click(); }
    void ShowState() override;

  private:
    frmAddEditSP& form_;
    std::unique_ptr<Ui::frmAddEditSP> ui_;
};

} // namespace veldrane
