#pragma once

#include "shell/main_window/frm_bug.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmBug;
class frmBugReport;
} // namespace Ui

namespace veldrane {

// `frmBug` as a window: a defect in the person's words.
class BugDialog : public QDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    BugDialog(frmBug& form, QWidget* parent);
    ~BugDialog() override;

  private:
    void GenerateReport();

    frmBug& form_;
    std::unique_ptr<Ui::frmBug> ui_;
};

// `frmBugReport`: the report, which `cmdCopy` puts on the clipboard whole.
class BugReportDialog : public QDialog
{
    Q_OBJECT

  public:
    BugReportDialog(const std::string& report, QWidget* parent);
    ~BugReportDialog() override;

  private:
    void Copy();

    std::unique_ptr<Ui::frmBugReport> ui_;
};

// Lets the person report a defect, the description being what is known of it already.
void ReportBug(QWidget* parent, const std::string& description = {});

} // namespace veldrane
