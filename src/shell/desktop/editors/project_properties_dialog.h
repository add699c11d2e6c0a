#pragma once

#include "shell/desktop/editors/editor_dialog.h"
#include "shell/project_properties/frm_project_properties.h"

#include <cstddef>
#include <memory>
#include <string>

namespace Ui {
class frmProjectProperties;
}

namespace veldrane {

// `frmProjectProperties` as a window. The help of a box is shown while it has the focus or the pointer is on it.
class ProjectPropertiesDialog final : public EditorDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    ProjectPropertiesDialog(frmProjectProperties& form, QWidget* parent);
    ~ProjectPropertiesDialog() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    bool MayAccept() override { return form_.cmdOK_Click(); }
    bool MayCancel() override { return form_.cmdCancel_Click(); }
    void ShowState() override;

  private:
    void FillLists();
    void KeepRoomForHelp();
    void ConnectTexts();
    void ConnectBoxes();
    void ConnectPrefixes();
    void ConnectDefaults();
    void EditPrefix(std::size_t row);
    void ShowTexts();
    void ShowLabels();
    void ShowPrefixes();
    void ShowHelp();

    frmProjectProperties& form_;
    std::unique_ptr<Ui::frmProjectProperties> ui_;
    std::string helped_; // the box whose help is shown
};

} // namespace veldrane
