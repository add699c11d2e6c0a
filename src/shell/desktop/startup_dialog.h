#pragma once

#include "shell/main_window/frm_startup.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmStartup;
}

namespace veldrane {

// `frmStartup`: a new project, any file, or a recent project. A double click or Return on a row chooses it.
class StartupDialog : public QDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    StartupDialog(frmStartup& rules, QWidget* parent);
    ~StartupDialog() override;

    // What was chosen; nothing until the dialog is accepted.
    [[nodiscard]] const StartupChoice& Choice() const { return choice_; }

  private:
    void ShowRows();
    void Choose(const std::optional<StartupChoice>& choice);
    void OpenSelected();

    frmStartup& rules_;
    std::unique_ptr<Ui::frmStartup> ui_;
    StartupChoice choice_;
};

} // namespace veldrane
