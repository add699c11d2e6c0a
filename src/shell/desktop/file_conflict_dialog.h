#pragma once

#include "shell/desktop/differences_model.h"
#include "shell/wizard/frm_file.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmFile;
}

namespace veldrane {

// `frmFile` as a window: what to do about a file that exists, and, on demand, by which lines it differs from the new
// text. Closing it is its Cancel.
class FileConflictDialog : public QDialog
{
    Q_OBJECT

  public:
    // The rules must outlive the dialog.
    FileConflictDialog(frmFile& conflict, QWidget* parent);
    ~FileConflictDialog() override;

  private:
    void ShowOptions();
    void ConnectDifferences();
    void ShowDifferences(bool shown);
    void ReadDifferences();
    void TellInPlaceOfDifferences(const QString& words);
    void LayOut();
    void GoTo(std::optional<int> row);

    frmFile& conflict_;
    std::unique_ptr<Ui::frmFile> ui_;
    DifferencesModel differences_;
    bool isRead_ = false;
};

} // namespace veldrane
