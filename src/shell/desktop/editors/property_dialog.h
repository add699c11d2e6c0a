#pragma once

#include "editors/frm_add_edit_property.h"
#include "shell/desktop/editors/editor_dialog.h"
#include "shell/main_window/preview_look.h"

#include <memory>

namespace Ui {
class frmAddEditProperty;
}

namespace veldrane {

// `frmAddEditProperty` as a window, with the code of the property.
class PropertyDialog final : public EditorDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    PropertyDialog(frmAddEditProperty& form, const PreviewLook& look, QWidget* parent);
    ~PropertyDialog() override;

  protected:
    bool MayAccept() override { return form_.cmdOK_Click(); }
    bool MayCancel() override { return form_.cmdCancel_Click(); }
    void ShowState() override;

  private:
    void FillBoxes();
    void DisableControls();
    void ConnectControls();

    frmAddEditProperty& form_;
    std::unique_ptr<Ui::frmAddEditProperty> ui_;
};

} // namespace veldrane
