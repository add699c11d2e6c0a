#pragma once

#include "editors/frm_add_edit_argument.h"
#include "shell/desktop/editors/editor_dialog.h"
#include "shell/main_window/preview_look.h"

#include <memory>

namespace Ui {
class frmAddEditArgument;
}

namespace veldrane {

// `frmAddEditArgument` as a window, with the code of the member that the argument is of.
class ArgumentDialog final : public EditorDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    ArgumentDialog(frmAddEditArgument& form, const PreviewLook& look, QWidget* parent);
    ~ArgumentDialog() override;

  protected:
    bool MayAccept() override { return form_.cmdOK_Click(); }
    bool MayCancel() override { return form_.cmdCancel_Click(); }
    void ShowState() override;

  private:
    void ConnectTexts();
    void ConnectBoxes();
    void ShowTroubles();

    frmAddEditArgument& form_;
    std::unique_ptr<Ui::frmAddEditArgument> ui_;
};

} // namespace veldrane
