#pragma once

#include "editors/frm_field_properties.h"
#include "shell/desktop/editors/editor_dialog.h"
#include "shell/main_window/preview_look.h"

#include <memory>

class QAbstractButton;
class QLineEdit;

namespace Ui {
class frmFieldProperties;
}

namespace veldrane {

// `frmFieldProperties` as a window, with the code of the property and of the fields of its lookup.
class FieldPropertiesDialog final : public EditorDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    FieldPropertiesDialog(frmFieldProperties& form, const PreviewLook& look, QWidget* parent);
    ~FieldPropertiesDialog() override;

  protected:
    bool MayAccept() override { return form_.cmdOK_Click(); }
    bool MayCancel() override { return form_.cmdCancel_Click(); }
    void ShowState() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ConnectGeneral();
    void ConnectLookup();
    void ConnectFields();
    void ConnectFormatting();
    void Bind(QAbstractButton& box, bool& state);
    void Bind(QLineEdit& field, std::string& text);
    template <class Operation>
    void Do(Operation&& operation);

    void ShowGeneral();
    void ShowLength();
    void ShowLookup();
    void ShowFields();
    void ShowFieldTrouble();
    void ShowFormatting();
    void GoToFieldInTrouble();

    frmFieldProperties& form_;
    std::unique_ptr<Ui::frmFieldProperties> ui_;
    Connection fieldRefused_;
};

} // namespace veldrane
