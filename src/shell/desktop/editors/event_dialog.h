#pragma once

#include "editors/frm_add_edit_event.h"
#include "shell/desktop/editors/editor_dialog.h"
#include "shell/main_window/preview_look.h"

#include <memory>

namespace Ui {
class frmAddEditEvent;
}

namespace veldrane {

// `frmAddEditEvent` as a window, with the code of the event.
class EventDialog final : public EditorDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    EventDialog(frmAddEditEvent& form, const PreviewLook& look, QWidget* parent);
    ~EventDialog() override;

  protected:
    bool MayAccept() override { return form_.cmdOK_Click(); }
    bool MayCancel() override { return form_.cmdCancel_Click(); }
    void ShowState() override;

  private:
    frmAddEditEvent& form_;
    std::unique_ptr<Ui::frmAddEditEvent> ui_;
};

} // namespace veldrane
