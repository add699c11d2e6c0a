#pragma once

#include "ports/file_dialogs.h"

#include <QFileDialog>
#include <QString>

namespace veldrane {

// Qt's own file dialogs over the window in front (objectName "fileDialog").
class QtFileDialogs : public FileDialogs
{
  public:
    std::optional<std::string> AskForFileToOpen(const FileDialogRequest& request) override;

    // Asks before a file is overwritten; No goes back to the dialog.
    std::optional<std::string> AskForFileToSave(const FileDialogRequest& request) override;

  private:
    std::optional<std::string> Ask(const FileDialogRequest& request, QFileDialog::AcceptMode mode);

    QString lastFolder_;
};

} // namespace veldrane
