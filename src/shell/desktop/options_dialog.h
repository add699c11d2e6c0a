#pragma once

#include "shell/main_window/frm_options.h"

#include <QDialog>

#include <memory>

class QComboBox;

namespace Ui {
class frmOptions;
}

namespace veldrane {

// `frmOptions` as a window: the rules' state in its controls, with a sample of how the preview will look.
class OptionsDialog : public QDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    OptionsDialog(frmOptions& options, QWidget* parent);
    ~OptionsDialog() override;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void ConnectGeneral();
    void ConnectColors();
    void ConnectFont();
    void ConnectLimit(QComboBox& box, std::string frmOptions::*key, std::string_view LimitEntry::*text);
    void ShowColors();
    void ShowFont();
    void ShowSample();
    [[nodiscard]] Color SampleColor(OptionColor which, LineClass line) const;
    void ShowHelpMessages();
    void OK();

    frmOptions& options_;
    std::unique_ptr<Ui::frmOptions> ui_;
    Connection helpMessagesChanged_;
};

} // namespace veldrane
