#pragma once

#include "shell/wizard/frm_file.h"

#include <string>

namespace veldrane {

// The windows that the wizard opens. Each function returns when the window is left.
class WizardDialogs
{
  public:
    virtual ~WizardDialogs() = default;

    virtual void Show(frmFile& conflict) = 0;

    // The folder that the folder tree itself begins at.
    [[nodiscard]] virtual std::string DefaultFolder() = 0;

    // The name of a folder that is to be made; "" on Cancel.
    [[nodiscard]] virtual std::string NewFolderName() = 0;

    // Makes the folder and those above it that are missing, for whomever the person's umask lets in. Throws
    // RuntimeError (75) naming it.
    virtual void MakeFolder(const std::string& path) = 0;

    // Closes the wizard.
    virtual void Close() = 0;
};

} // namespace veldrane
