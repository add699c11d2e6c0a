#pragma once

#include "shell/project_properties/frm_logging_table.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmLoggingTable;
}

namespace veldrane {

// `frmLoggingTable` as a window: the script, and what can be done with it.
class LoggingTableDialog : public QDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    LoggingTableDialog(frmLoggingTable& form, QWidget* parent);
    ~LoggingTableDialog() override;

  private:
    std::unique_ptr<Ui::frmLoggingTable> ui_;
};

} // namespace veldrane
