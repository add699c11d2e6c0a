#pragma once

#include "shell/desktop/editors/editor_dialog.h"
#include "shell/project_properties/frm_edit_prefix.h"

#include <memory>

namespace Ui {
class frmEditPrefix;
}

namespace veldrane {

// `frmEditPrefix` as a window.
class EditPrefixDialog final : public EditorDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    EditPrefixDialog(frmEditPrefix& form, QWidget* parent);
    ~EditPrefixDialog() override;

  protected:
    bool MayAccept() override { return form_.cmdOK_Click(); }
    bool MayCancel() override { return frmEditPrefix::cmdCancel_Click(); }
    void ShowState() override;

  private:
    frmEditPrefix& form_;
    std::unique_ptr<Ui::frmEditPrefix> ui_;
};

} // namespace veldrane
