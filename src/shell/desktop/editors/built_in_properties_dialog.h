#pragma once

#include "editors/frm_built_in_properties.h"
#include "shell/desktop/editors/editor_dialog.h"
#include "shell/main_window/preview_look.h"

#include <memory>

namespace Ui {
class frmBuiltInProperties;
}

namespace veldrane {

// `frmBuiltInProperties` as a window, with the code of the row in hand.
class BuiltInPropertiesDialog final : public EditorDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    BuiltInPropertiesDialog(frmBuiltInProperties& form, const PreviewLook& look, QWidget* parent);
    ~BuiltInPropertiesDialog() override;

  protected:
    bool MayAccept() override { return form_.cmdOK_Click(); }
    bool MayCancel() override { return form_.cmdCancel_Click(); }
    void ShowState() override;

  private:
    void SelectFirstThatCanBeAdded();
    void ShowPreview();

    frmBuiltInProperties& form_;
    std::unique_ptr<Ui::frmBuiltInProperties> ui_;
};

} // namespace veldrane
